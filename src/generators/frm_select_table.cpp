#include "generators/frm_select_table.h"

#include <algorithm>

#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {

namespace {

// The VBA types of the field types: DAO's DataTypeEnum and ADO's DataTypeEnum.
struct FieldTypeRow {
  long type;
  const wchar_t* vba;
};
constexpr FieldTypeRow kDaoTypes[] = {
    {1, L"Boolean"},  {2, L"Byte"},    {3, L"Integer"}, {4, L"Long"},    {5, L"Currency"}, {6, L"Single"},
    {7, L"Double"},   {8, L"Date"},    {10, L"String"}, {12, L"String"}, {15, L"String"},  {18, L"String"},
    {21, L"Double"},  {22, L"Date"},   {23, L"Date"},
};
constexpr FieldTypeRow kAdoTypes[] = {
    {2, L"Integer"},   {3, L"Long"},      {4, L"Single"},    {5, L"Double"},    {6, L"Currency"},
    {7, L"Date"},      {8, L"String"},    {11, L"Boolean"},  {16, L"Integer"},  {17, L"Byte"},
    {72, L"String"},   {129, L"String"},  {130, L"String"},  {133, L"Date"},    {134, L"Date"},
    {135, L"Date"},    {200, L"String"},  {201, L"String"},  {202, L"String"},  {203, L"String"},
};

}  // namespace

host::AccessApplication* AccessOf(kernel::Session& s) {
  return dynamic_cast<host::AccessApplication*>(s.hostAccess.get());
}

bool AccessIsAdo(kernel::Session& s) {
  host::AccessApplication* access = AccessOf(s);
  return access && access->ProjectType() == host::kAccessProjectAdp;
}

std::vector<host::AccessTable> GetMdbTables(const host::AccessApplication& access) {
  std::vector<host::AccessTable> out;
  for (host::AccessTable& t : access.TableDefs())
    if (!vba::Like(t.name, L"MSys*") && !vba::Like(t.name, L"~TMPCLP*")) out.push_back(std::move(t));
  return out;
}

std::vector<host::AccessTable> GetAdpTables(const host::AccessApplication& access) {
  std::vector<host::AccessTable> out;
  for (host::AccessTable& t : access.CatalogTables())
    if (vba::EqualsText(t.type, L"TABLE")) out.push_back(std::move(t));
  return out;
}

std::wstring FieldTypeToVba(long fieldType, bool ado) {
  auto find = [fieldType](const auto& rows) -> const wchar_t* {
    for (const FieldTypeRow& r : rows)
      if (r.type == fieldType) return r.vba;
    return L"Variant";
  };
  return ado ? find(kAdoTypes) : find(kDaoTypes);
}

std::wstring LegalIdentifier(const std::wstring& fieldName, const std::wstring& prefix) {
  std::wstring name;
  for (wchar_t c : fieldName)
    if (vba::IsLetter(c) || (c >= L'0' && c <= L'9') || c == L'_') name += c;
  if (!fieldName.empty() && !vba::IsLetter(fieldName[0])) name = prefix + name;
  if (name.size() > 255) name.resize(255);
  return name;
}

FrmSelectTableAndFields::FrmSelectTableAndFields(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmSelectTableAndFields"),
      lblTables(Add<ui::Label>(L"lblTables")),
      cboTables(Add<ui::ComboBox>(L"cboTables")),
      lblFields(Add<ui::Label>(L"lblFields")),
      lstFields(Add<ui::ListBox>(L"lstFields")),
      cmdSelectAll(Add<ui::CommandButton>(L"cmdSelectAll")),
      cmdUnSelectAll(Add<ui::CommandButton>(L"cmdUnSelectAll")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Select Table and Fields");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 5200, 5400);
  // The table and its fields in a column at the left, labels above their boxes; the buttons
  // in a column at the right, the two that choose fields beside the list's foot.
  lblTables.SetCaption(L"&Tables");
  lblTables.Move(120, 120, 1500, 255);
  cboTables.SetStyle(ui::vbComboDropdownList);
  cboTables.Move(120, 400, 3400, 315);
  lblFields.SetCaption(L"&Fields");
  lblFields.Move(120, 840, 1500, 255);
  lstFields.SetMultiSelect(ui::vbMultiSelectExtended);
  lstFields.Move(120, 1120, 3400, 3600);
  cmdSelectAll.SetCaption(L"Select &All");
  cmdSelectAll.Move(3660, 3900, 1335, 375);
  cmdUnSelectAll.SetCaption(L"&Unselect All");
  cmdUnSelectAll.Move(3660, 4340, 1335, 375);
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOK.Move(3660, 400, 1335, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(3660, 840, 1335, 375);
  cmdHelp.SetCaption(L"&Help");
  cmdHelp.Move(3660, 1280, 1335, 375);
  cboTables.OnClick = [this] { TableChosen(); };
  cmdSelectAll.OnClick = [this] { SelectAll(true); };
  cmdUnSelectAll.OnClick = [this] { SelectAll(false); };
  cmdOK.OnClick = [this] { PressOK(); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmSelectTableAndFields::Init() {
  Load();
  kernel::Trap(s_, AccessIsAdo(s_) ? L"frmSelectTableAndFields.GetAdpTables" : L"frmSelectTableAndFields.GetMdbTables",
               [&] {
                 host::AccessApplication* access = AccessOf(s_);
                 if (!access) return;
                 tables_ = AccessIsAdo(s_) ? GetAdpTables(*access) : GetMdbTables(*access);
                 for (const host::AccessTable& t : tables_) cboTables.AddItem(t.name);
               });
}

void FrmSelectTableAndFields::TableChosen() {
  lstFields.Clear();
  int i = cboTables.ListIndex();
  if (i < 0 || i >= static_cast<int>(tables_.size())) return;
  for (const host::AccessField& f : tables_[i].fields) {
    lstFields.AddItem(f.name);
    lstFields.SetItemData(lstFields.NewIndex(), f.type);
  }
}

void FrmSelectTableAndFields::SelectAll(bool selected) {
  for (int i = 0; i < lstFields.ListCount(); ++i) lstFields.SetSelected(i, selected);
}

void FrmSelectTableAndFields::PressOK() {
  int t = cboTables.ListIndex();
  if (t < 0 || t >= static_cast<int>(tables_.size())) return;
  table_ = tables_[t].name;
  fields_.clear();
  for (int i = 0; i < lstFields.ListCount(); ++i)
    if (lstFields.Selected(i)) fields_.push_back({lstFields.List(i), lstFields.ItemData(i)});
  accepted_ = true;
  Unload();
}

}  // namespace quillet::generators
