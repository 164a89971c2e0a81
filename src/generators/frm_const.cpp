#include "generators/frm_const.h"

#include "analysis/refresh.h"
#include "generators/frm_input_box.h"
#include "generators/scope.h"
#include "generators/values.h"
#include "generators/var_const_code.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "ui/ui_host.h"
#include "vba/strings.h"

namespace quillet::generators {

FrmConst::FrmConst(kernel::Session& s)
    : DeclBuilder(s, L"frmConst"), lblValue(Add<ui::Label>(L"lblValue")), txtValue(Add<ui::TextBox>(L"txtValue")) {
  SetCaption(L"Constant Builder");
  Move(0, 0, 6600, 4200);
  lblValue.SetCaption(L"&Value");
  cmdOK.OnClick = [this] { PressOK(false); };
  cmdOKAndPaste.OnClick = [this] { PressOK(true); };
  cmdObjectName.OnClick = [this] { kernel::NotAvailable(s_, L"the object name dialog"); };
}

void FrmConst::Init(const std::wstring& type, const std::wstring& value) {
  Load();
  std::wstring procName;
  long body = 0;
  inProc_ = kernel::CurrentProcGet(s_, true, procName, body);
  analysis::DataTypeList(s_, ModelsOf(s_), ScopeOf(s_).ModuleEnums, cboDataType, type.empty() ? L"String" : type, {});
  cboAccessibility.Clear();
  cboAccessibility.AddItem(L"Public");
  cboAccessibility.AddItem(L"Private");
  ModulesListFill();
  if (!value.empty()) txtValue.SetText(value);
  prefilled_ = !txtName.Text().empty();
  cmdOKAndPaste.SetEnabled(!ParentForm());
  auto levelChanged = [this] {
    lblModule.SetEnabled(VarLevel() == 0);
    cboModule.SetEnabled(VarLevel() == 0);
  };
  cboAccessibility.OnClick = levelChanged;
  cboAccessibility.OnChange = levelChanged;
  levelChanged();
}

long FrmConst::Accessibility() const {
  std::wstring t = vba::Trim(cboAccessibility.Text());
  return t == L"Public" ? 1 : t == L"Private" ? 2 : 0;
}

void FrmConst::SetAccessibility(long accessibility) {
  cboAccessibility.SetListIndex(accessibility == 1 ? 0 : accessibility == 2 ? 1 : -1);
}

int FrmConst::VarLevel() const { return inProc_ && Accessibility() == 0 ? 1 : 0; }

FrmConst::CodeLine FrmConst::BuildCodeLine(bool enumMember, const std::wstring& value) const {
  CodeLine c;
  std::wstring name = vba::Trim(txtName.Text());
  if (enumMember) {
    c.namePart = c.line = value.empty() ? name : name + L" = " + value;
    return c;
  }
  std::wstring keyword = L"Const ";
  if (VarLevel() == 0 && Accessibility() == 1) keyword = L"Public Const ";
  if (VarLevel() == 0 && Accessibility() == 2) keyword = L"Private Const ";
  std::wstring type = vba::Trim(cboDataType.Text());
  c.namePart = name + (type.empty() ? L"" : L" As " + type) + L" = " + value;
  c.line = keyword + c.namePart + DescriptionSuffix();
  return c;
}

bool FrmConst::PressOK(bool paste) {
  host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
  if (!pane) return false;
  std::wstring blockName;
  long blockLine = ModuleIsActive() ? BlockLineGet(DeclViewOf(*pane, kernel::TabSpacesGet(s_)), true, blockName) : 0;
  std::wstring name = vba::Trim(txtName.Text());
  std::wstring module = vba::Trim(cboModule.Text());
  if (!NameAccepted(name, kKindConstant)) return false;
  std::wstring type = vba::Trim(cboDataType.Text());
  std::wstring value = vba::Trim(txtValue.Text());
  if (int i = cboDataType.FindStringExact(type); i >= 0 && !type.empty()) {
    Scope& scope = ScopeOf(s_);
    value = ValueAsCode(s_, vba::Variant(txtValue.Text()), static_cast<int>(cboDataType.ItemData(i)), scope.ModuleConsts,
                        scope.ProcConsts);
  }
  bool enumMember = type == L"Long" && blockLine > 0;
  if (!enumMember && value.empty()) {
    s_.uiHost.MsgBox(L"Missing or incorrect value of Constant.", ui::vbExclamation, kernel::kAppName);
    txtValue.SetFocus();
    return false;
  }
  if (!enumMember) blockLine = 0;
  CodeLine code = BuildCodeLine(enumMember, value);
  const bool moduleLevel = VarLevel() == 0;
  if (!VarConstCodeAdd(s_, code.line, module,
                       {.moduleLevel = moduleLevel, .appendToDeclarations = false, .name = name, .lineNumber = blockLine}))
    return false;
  auto constant = std::make_shared<analysis::clsConstant>();
  constant->init(code.namePart);
  constant->ModuleName = module;
  if (enumMember) constant->EnumName = blockName;
  const bool standard = ModuleIsStandard(module);
  auto& models = analysis::Models(s_);
  if (moduleLevel && Accessibility() == 1 && standard && models) {
    if (!models->ProjectConsts.Exists(name)) models->ProjectConsts.Add(constant, name);
  } else if (ParentForm()) {
    ParentForm()->AddNewConst(constant, moduleLevel);
  }
  if (ParentForm()) ParentForm()->ArgInsert(name, L"");
  NameDelivered(name, paste, false);
  Done(name);
  return true;
}

void ConstBuilderOpen(kernel::Session& s) {
  if (!kernel::CodeWindowActive(s)) return;
  initialize(s, L"", L"");
  auto form = std::make_unique<FrmConst>(s);
  form->Init();
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

}  // namespace quillet::generators
