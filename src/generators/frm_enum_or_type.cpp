#include "generators/frm_enum_or_type.h"

#include "analysis/refresh.h"
#include "generators/enum_type.h"
#include "generators/frm_item_add.h"
#include "generators/scope.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/name_checks.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

// What a name of an enum or a type must not be: a component's, or another block's.
std::vector<settings::NameLookup> BlockNameLookups(kernel::Session& s) {
  auto inBlocks = [&s](std::wstring_view name) {
    const Scope& scope = ScopeOf(s);
    const analysis::ProjectModels& m = ModelsOf(s);
    for (const analysis::colEnums* enums : std::initializer_list<const analysis::colEnums*>{&m.ProjectEnums, &scope.ModuleEnums})
      for (const auto& e : *enums)
        if (vba::EqualsText(e->Name, name)) return true;
    for (const analysis::colTypes* types : std::initializer_list<const analysis::colTypes*>{&m.ProjectTypes, &scope.ModuleTypes})
      for (const auto& t : *types)
        if (vba::EqualsText(t->Name, name)) return true;
    return false;
  };
  auto inComponents = [&s](std::wstring_view name) { return kernel::ModuleExists(s, name); };
  return {inComponents, inBlocks};
}

}  // namespace

FrmEnumOrType::FrmEnumOrType(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmEnumOrType"),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblPrefix(Add<ui::Label>(L"lblPrefix")),
      txtPrefix(Add<ui::TextBox>(L"txtPrefix")),
      lblItems(Add<ui::Label>(L"lblItems")),
      txtItems(Add<ui::TextBox>(L"txtItems")),
      lstVars(Add<ui::ListBox>(L"lstVars")),
      lblModule(Add<ui::Label>(L"lblModule")),
      cboModule(Add<ui::ComboBox>(L"cboModule")),
      fraAccessibility(Add<ui::Frame>(L"fraAccessibility")),
      optDefault(Add<ui::OptionButton>(L"optAccessibility", &fraAccessibility, 0)),
      optPublic(Add<ui::OptionButton>(L"optAccessibility", &fraAccessibility, 1)),
      optPrivate(Add<ui::OptionButton>(L"optAccessibility", &fraAccessibility, 2)),
      cmdOk(Add<ui::CommandButton>(L"cmdOk")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 5400, 4800);
  lblName.SetCaption(L"&Name");
  lblName.Move(120, 120, 1200, 255);
  txtName.Move(1400, 120, 2500, 315);
  lblPrefix.SetCaption(L"&Prefix");
  lblPrefix.Move(120, 520, 1200, 255);
  txtPrefix.Move(1400, 520, 2500, 315);
  lblItems.SetCaption(L"&Items");
  lblItems.Move(120, 920, 1200, 255);
  txtItems.SetMultiLine(true);
  txtItems.Move(1400, 920, 2500, 1800);
  lstVars.Move(1400, 1200, 2000, 1200);
  lstVars.SetVisible(false);
  lblModule.SetCaption(L"&Module");
  lblModule.Move(120, 2850, 1200, 255);
  cboModule.SetStyle(ui::vbComboDropdownList);
  cboModule.Move(1400, 2850, 2500, 315);
  fraAccessibility.SetCaption(L"Accessibility");
  fraAccessibility.Move(120, 3300, 3780, 615);
  optDefault.SetCaption(L"De&fault");
  optDefault.SetToolTipText(L"Default is Public");
  optDefault.Move(120, 240, 1100, 255);
  optDefault.SetValue(true);
  optPublic.SetCaption(L"Pu&blic");
  optPublic.Move(1320, 240, 1100, 255);
  optPrivate.SetCaption(L"Pri&vate");
  optPrivate.Move(2520, 240, 1100, 255);
  cmdOk.SetCaption(L"OK");
  cmdOk.SetDefault(true);
  cmdOk.Move(4100, 120, 1095, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(4100, 570, 1095, 375);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(4100, 1020, 1095, 375);

  cmdOk.OnClick = [this] { Ok(); };
  cmdCancel.OnClick = [this] { Unload(); };
  txtItems.OnKeyPress = [this](int& keyAscii) { ItemsKeyPress(keyAscii); };
  lstVars.OnKeyPress = [this](int& keyAscii) {
    if ((keyAscii == 13 || keyAscii == 32) && lstVars.ListIndex() >= 0) {
      keyAscii = 0;
      TypeChosen();
    }
  };
  lstVars.OnDblClick = [this] { TypeChosen(); };
  lstVars.OnLostFocus = [this] { TypeListClose(); };
}

void FrmEnumOrType::Init(const vba::Variant& kind) {
  Load();
  isEnum_ = kind.ToLong() != kKindTypeCode;
  lstVars.Clear();
  SetCaption(isEnum_ ? L"New enum" : L"New User-Defined Data Type");
  host::Ptr<host::VBComponents> components = s_.vbe->ActiveVBProject()->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) cboModule.AddItem(components->Item(i)->Name());
  host::Ptr<host::CodePane> pane = s_.vbe->ActiveCodePane();
  int at = pane ? cboModule.FindStringExact(pane->CodeModule()->Parent()->Name()) : -1;
  if (at < 0 && cboModule.ListCount() > 0) at = 0;
  if (at >= 0) cboModule.SetListIndex(at);
  const Scope& scope = ScopeOf(s_);
  analysis::DataTypeList(s_, ModelsOf(s_), scope.ModuleEnums, lstVars, L"", {});
}

void FrmEnumOrType::ItemsKeyPress(int& keyAscii) {
  if (keyAscii != 32) return;
  long caret = txtItems.SelStart();
  if (caret < 3 || !vba::EqualsText(txtItems.Text().substr(caret - 3, 3), L" As")) return;
  // The blank goes in before the list takes the focus; the type chosen follows it.
  keyAscii = 0;
  txtItems.SetSelText(L" ");
  // Enter in the list chooses a type rather than pressing OK.
  cmdOk.SetDefault(false);
  lstVars.SetVisible(true);
  if (lstVars.ListCount() > 0 && lstVars.ListIndex() < 0) lstVars.SetListIndex(0);
  lstVars.SetFocus();
}

void FrmEnumOrType::TypeListClose() {
  lstVars.SetVisible(false);
  cmdOk.SetDefault(true);
}

void FrmEnumOrType::TypeChosen() {
  if (lstVars.ListIndex() < 0) return;
  txtItems.SetSelText(lstVars.Text());
  txtItems.SetSelLength(0);
  TypeListClose();
  txtItems.SetFocus();
}

void FrmEnumOrType::Ok() {
  kernel::Trap(s_, L"frmEnumOrType.cmdOk_Click", [&] {
    std::wstring prefix = vba::Trim(txtPrefix.Text());
    std::wstring name = vba::Trim(txtName.Text());
    long answer = settings::CheckNewNameIsOK(s_, prefix + name, true, false, BlockNameLookups(s_));
    if (answer == settings::kErrNameMissing || answer == 7) return txtName.SetFocus();
    if (answer == 2) {
      Unload();
      return;
    }
    std::wstring accessibility = optPublic.Value() ? L"Public" : optPrivate.Value() ? L"Private" : L"";
    TypeEnumCodeInsert(s_, name, isEnum_, txtItems.Text(), cboModule.Text(), L"", prefix, accessibility);
    Unload();
  });
}

void EnumOrTypeCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument) {
  const long kind = command == L"Enum" ? kKindEnumCode : kKindTypeCode;
  if (argument == L"Item") kernel::FormOpen(s, std::make_unique<FrmItemAdd>(s), {.initArg1 = kind});
  else kernel::FormOpen(s, std::make_unique<FrmEnumOrType>(s), {.initArg1 = kind});
}

}  // namespace quillet::generators
