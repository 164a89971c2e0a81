#include "generators/frm_item_add.h"

#include <set>

#include "generators/enum_type.h"
#include "generators/frm_enum_or_type.h"
#include "generators/scope.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

// The names of the project's and the module's blocks of a kind, each once, sorted.
template <class Blocks>
std::set<std::wstring, vba::TextLess> BlockNames(const Blocks& project, const Blocks& module) {
  std::set<std::wstring, vba::TextLess> names;
  for (const auto& b : project) names.insert(b->Name);
  for (const auto& b : module) names.insert(b->Name);
  return names;
}

}  // namespace

FrmItemAdd::FrmItemAdd(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmItemAdd"),
      lblList(Add<ui::Label>(L"lblList")),
      cboList(Add<ui::ComboBox>(L"cboList")),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblDescription(Add<ui::Label>(L"lblDescription")),
      txtDescription(Add<ui::TextBox>(L"txtDescription")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdNext(Add<ui::CommandButton>(L"cmdNext")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 5400, 2600);
  lblList.Move(120, 120, 1600, 255);
  cboList.SetStyle(ui::vbComboDropdownList);
  cboList.Move(1800, 120, 2200, 315);
  lblName.Move(120, 520, 1600, 255);
  txtName.Move(1800, 520, 2200, 315);
  lblDescription.SetCaption(L"&Description");
  lblDescription.Move(120, 920, 1600, 255);
  txtDescription.Move(1800, 920, 2200, 315);
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOK.Move(4100, 120, 1095, 375);
  cmdNext.SetCaption(L"OK && Ne&w");
  cmdNext.Move(4100, 570, 1095, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(4100, 1020, 1095, 375);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(4100, 1470, 1095, 375);

  cmdOK.OnClick = [this] {
    if (AddItem()) Unload();
  };
  cmdNext.OnClick = [this] { AddItem(); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmItemAdd::Init(const vba::Variant& kind) {
  Load();
  isEnum_ = kind.ToLong() != kKindTypeCode;
  SetCaption(isEnum_ ? L"Add const to enum" : L"Add Item to User-Defined Data Type");
  lblList.SetCaption(isEnum_ ? L"&List of Enums" : L"&List of Types");
  lblName.SetCaption(isEnum_ ? L"&Name of Const" : L"&Name of Item");
  const Scope& scope = ScopeOf(s_);
  const analysis::ProjectModels& models = ModelsOf(s_);
  for (const std::wstring& name : isEnum_ ? BlockNames(models.ProjectEnums, scope.ModuleEnums)
                                          : BlockNames(models.ProjectTypes, scope.ModuleTypes))
    cboList.AddItem(name);
  std::wstring block;
  int at = BlockLineAtCaret(s_, isEnum_, block) > 0 ? cboList.FindStringExact(block) : -1;
  if (at < 0 && cboList.ListCount() > 0) at = 0;
  if (at >= 0) cboList.SetListIndex(at);
  txtName.SetText(scope.proposedName);
}

bool FrmItemAdd::AddItem() {
  bool added = false;
  kernel::Trap(s_, L"frmItemAdd.cmdOK_Click", [&] {
    if (cboList.Text().empty()) {
      s_.uiHost.MsgBox(L"Choose Object Name.", ui::vbCritical, kernel::kAppName);
      return cboList.SetFocus();
    }
    std::wstring name = vba::Split(vba::Trim(txtName.Text()), L" ")[0];
    long answer = settings::CheckNewNameIsOK(s_, name, false, false, {});
    if (answer == settings::kErrNameMissing || answer == 7) return txtName.SetFocus();
    if (answer == 2) {
      Unload();
      return;
    }
    std::wstring line = vba::Trim(txtName.Text());
    if (!txtDescription.Text().empty()) line += kernel::TabSpacesGet(s_) + L"'" + txtDescription.Text();
    if (!EnumItemAdd(s_, cboList.Text(), line, isEnum_)) return;
    txtName.SetText(L"");
    txtDescription.SetText(L"");
    txtName.SetFocus();
    added = true;
  });
  return added;
}

}  // namespace quillet::generators
