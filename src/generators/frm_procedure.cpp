#include "generators/frm_procedure.h"

#include "analysis/refresh.h"
#include "generators/error_handling.h"
#include "generators/frm_decl_builder.h"
#include "generators/frm_input_box.h"
#include "generators/module_create.h"
#include "generators/scope.h"
#include "generators/type_combo.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "settings/items.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kNewModule = L"<New Module>";
constexpr std::wstring_view kNewClassModule = L"<New Class Module>";
constexpr std::wstring_view kNone = L"(none)";

int Checked(bool on) { return on ? ui::vbChecked : ui::vbUnchecked; }

}  // namespace

FrmProcedure::FrmProcedure(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmProcedure"),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblType(Add<ui::Label>(L"lblType")),
      cboProcType(Add<ui::ComboBox>(L"cboProcType")),
      lblAccess(Add<ui::Label>(L"lblAccess")),
      cboAccessibility(Add<ui::ComboBox>(L"cboAccessibility")),
      lblStatic(Add<ui::Label>(L"lblStatic")),
      cboStatic(Add<ui::ComboBox>(L"cboStatic")),
      lblModule(Add<ui::Label>(L"lblModule")),
      cboModule(Add<ui::ComboBox>(L"cboModule")),
      lblReturnValueType(Add<ui::Label>(L"lblReturnValueType")),
      cboReturnValueType(TypeComboAdd(*this, L"cboReturnValueType")),
      lblArguments(Add<ui::Label>(L"lblArguments")),
      lstArguments(Add<ui::ListBox>(L"lstArguments")),
      cmdNewArg(Add<ui::CommandButton>(L"cmdNewArg")),
      cmdDelArg(Add<ui::CommandButton>(L"cmdDelArg")),
      cmdUpArg(Add<ui::CommandButton>(L"cmdUpArg")),
      cmdDownArg(Add<ui::CommandButton>(L"cmdDownArg")),
      lblDescription(Add<ui::Label>(L"lblDescription")),
      txtDescription(Add<ui::TextBox>(L"txtDescription")),
      fraFeatures(Add<ui::Frame>(L"fraFeatures")),
      lblAddErrorHandler(Add<ui::Label>(L"lblAddErrorHandler", &fraFeatures)),
      cboAddErrorHandler(Add<ui::ComboBox>(L"cboAddErrorHandler", &fraFeatures)),
      chkAddHeader(Add<ui::CheckBox>(L"chkAddHeader", &fraFeatures)),
      chkAddHourglass(Add<ui::CheckBox>(L"chkAddHourglass", &fraFeatures)),
      chkAddProcedureConstant(Add<ui::CheckBox>(L"chkAddProcedureConstant", &fraFeatures)),
      chkAddModuleConstant(Add<ui::CheckBox>(L"chkAddModuleConstant", &fraFeatures)),
      chkAddReturnStatement(Add<ui::CheckBox>(L"chkAddReturnStatement", &fraFeatures)),
      chkArgumentsOnSeparateLine(Add<ui::CheckBox>(L"chkArgumentsOnSeparateLine", &fraFeatures)),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s),
      procedure_(std::make_shared<clsProcedure>()) {
  SetCaption(L"Procedure Builder");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 8400, 6600);
  auto row = [](ui::Label& l, const wchar_t* caption, ui::Control& c, long top) {
    l.SetCaption(caption);
    l.Move(120, top, 1800, 255);
    c.Move(2000, top, 2900, 315);
  };
  row(lblName, L"&Name", txtName, 120);
  row(lblType, L"&Type", cboProcType, 520);
  row(lblAccess, L"&Accessibility", cboAccessibility, 920);
  row(lblStatic, L"&Static", cboStatic, 1320);
  row(lblModule, L"&Module", cboModule, 1720);
  row(lblReturnValueType, L"&Return Value Type", cboReturnValueType, 2120);
  lblArguments.SetCaption(L"&Procedure Arguments");
  lblArguments.Move(120, 2560, 3000, 255);
  lstArguments.Move(120, 2840, 4300, 1500);
  const std::pair<ui::CommandButton*, const wchar_t*> tools[] = {
      {&cmdNewArg, L"Add a new argument"},
      {&cmdDelArg, L"Delete selected argument"},
      {&cmdUpArg, L"Move selected argument up"},
      {&cmdDownArg, L"Move selected argument down"}};
  const wchar_t* faces[] = {L"+", L"-", L"^", L"v"};
  long top = 2840;
  for (int i = 0; i < 4; ++i) {
    tools[i].first->SetToolTipText(tools[i].second);
    tools[i].first->SetCaption(faces[i]);
    tools[i].first->Move(4500, top, 400, 360);
    top += 380;
  }
  row(lblDescription, L"&Description", txtDescription, 4480);
  txtDescription.Move(120, 4760, 4780, 700);
  txtDescription.SetMultiLine(true);
  fraFeatures.SetCaption(L"Options");
  fraFeatures.Move(5100, 120, 3100, 4200);
  lblAddErrorHandler.SetCaption(L"&Error Handler");
  lblAddErrorHandler.Move(120, 280, 2800, 255);
  cboAddErrorHandler.Move(120, 540, 2800, 315);
  cboAddErrorHandler.SetStyle(ui::vbComboDropdownList);
  const std::pair<ui::CheckBox*, const wchar_t*> checks[] = {
      {&chkAddHeader, L"&Header"},
      {&chkAddHourglass, L"Hour&glass"},
      {&chkAddProcedureConstant, L"Pro&cedure Constant"},
      {&chkAddModuleConstant, L"M&odule Constant"},
      {&chkAddReturnStatement, L"Add Ret&urn Statement"},
      {&chkArgumentsOnSeparateLine, L"Arguments on Separate &Line"}};
  top = 1000;
  for (const auto& [box, caption] : checks) {
    box->SetCaption(caption);
    box->Move(120, top, 2800, 255);
    top += 400;
  }
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOK.Move(5100, 4600, 1000, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(6150, 4600, 1000, 375);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(7200, 4600, 1000, 375);
  cboProcType.SetStyle(ui::vbComboDropdownList);
  cboAccessibility.SetStyle(ui::vbComboDropdownList);
  cboStatic.SetStyle(ui::vbComboDropdownList);

  cboProcType.OnClick = [this] { SetControlsState(); };
  cboModule.OnClick = [this] { AccessibilityComboBoxFill(); };
  cboModule.OnChange = [this] { AccessibilityComboBoxFill(); };
  chkAddReturnStatement.OnClick = [this] {
    if (!settingState_) returnStatementWanted_ = chkAddReturnStatement.Value();
  };
  chkArgumentsOnSeparateLine.OnClick = [this] {
    if (!settingState_) separateLinesWanted_ = chkArgumentsOnSeparateLine.Value();
  };
  cmdNewArg.OnClick = [this] { ArgumentOpen(nullptr); };
  lstArguments.OnDblClick = [this] {
    if (auto a = SelectedArgument()) ArgumentOpen(a);
  };
  cmdDelArg.OnClick = [this] { ArgumentDelete(); };
  cmdUpArg.OnClick = [this] { ArgumentMove(-1); };
  cmdDownArg.OnClick = [this] { ArgumentMove(1); };
  cmdOK.OnClick = [this] { PressOk(); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmProcedure::Init() {
  kernel::Trap(s_, L"frmProcedure.Init", [&] {
    Load();
    LoadCombos();
    GetOptions();
    ArgumentsList();
  });
}

void FrmProcedure::InitMethod(std::shared_ptr<clsProcedure> method,
                              std::function<void(std::shared_ptr<clsProcedure>)> onMethod) {
  method_ = true;
  underEdit_ = std::move(method);
  onMethod_ = std::move(onMethod);
  SetCaption(L"Method Builder");
  procedure_->ModuleType = host::kClassModule;
  Init();
  lblModule.SetEnabled(false);
  cboModule.SetEnabled(false);
  if (!underEdit_) return;
  // The fields of the method being changed; its arguments are copied, so that Cancel
  // leaves them as they were.
  const clsProcedure& m = *underEdit_;
  procedure_->ModuleName = m.ModuleName;
  for (const auto& a : m.Arguments().Items()) procedure_->Arguments().Add(std::make_shared<clsArgument>(*a));
  txtName.SetText(m.Name);
  cboProcType.SetListIndex(cboProcType.FindStringExact(m.ProcType == L"Function" ? L"Function" : L"Sub"));
  AccessibilitySet(m.AccessibleType);
  cboStatic.SetListIndex(m.IsStatic ? 1 : 0);
  if (!m.ReturnValueType.empty()) {
    const int at = cboReturnValueType.FindStringExact(m.ReturnValueType);
    if (at >= 0) cboReturnValueType.SetListIndex(at);
    else cboReturnValueType.SetText(m.ReturnValueType);
  }
  txtDescription.SetText(m.Description);
  chkAddHeader.SetChecked(m.IncludeComment);
  const int handler = m.IncludeErrorHandler ? cboAddErrorHandler.FindStringExact(m.ErrorHandlerFile) : 0;
  cboAddErrorHandler.SetListIndex(handler < 0 ? 0 : handler);
  chkAddHourglass.SetChecked(m.IncludeHourglass);
  chkAddModuleConstant.SetChecked(m.ModuleNameConstant);
  chkAddProcedureConstant.SetChecked(m.ProcedureNameConstant);
  returnStatementWanted_ = Checked(m.AddReturnStatement);
  separateLinesWanted_ = Checked(m.ArgumentsOnSeparateLine);
  ArgumentsList();
}

void FrmProcedure::LoadCombos() {
  cboProcType.Clear();
  cboProcType.AddItem(L"Function");
  cboProcType.AddItem(L"Sub");
  cboProcType.SetListIndex(1);
  cboStatic.Clear();
  cboStatic.AddItem(L"");
  cboStatic.AddItem(L"Static");
  cboStatic.SetListIndex(0);
  ModulesListFill(s_, cboModule);
  analysis::DataTypeList(s_, ModelsOf(s_), ScopeOf(s_).ModuleEnums, cboReturnValueType, kNone, {.addNone = true});
  ErrorHandlersListFill(s_, cboAddErrorHandler, {});
  AccessibilityComboBoxFill();
}

void FrmProcedure::GetOptions() {
  using namespace settings;
  const bool m = method_;
  chkAddHeader.SetChecked(settings::ItemOn(s_, m ? kAddHeaderMethod : kAddHeaderProcedure));
  const std::wstring handler = s_.settings[m ? kAddErrorHandlingMethod : kAddErrorHandlingProcedure].ToString();
  int at = handler.empty() ? 0 : cboAddErrorHandler.FindStringExact(handler);
  cboAddErrorHandler.SetListIndex(at < 0 ? 0 : at);
  chkAddHourglass.SetChecked(settings::ItemOn(s_, m ? kAddHourglassMethod : kAddHourglassProcedure));
  chkAddHourglass.SetEnabled(HourglassAvailable(s_));
  chkAddProcedureConstant.SetChecked(settings::ItemOn(s_, m ? kAddMethodConstant : kAddProcedureConstant));
  chkAddModuleConstant.SetChecked(settings::ItemOn(s_, m ? kAddModuleConstantMethod : kAddModuleConstantProcedure));
  separateLinesWanted_ = Checked(settings::ItemOn(s_, kArgumentsOnSeparateLines));
  returnStatementWanted_ = Checked(settings::ItemOn(s_, kAddReturnStatement));
}

bool FrmProcedure::ModuleIsClass() const {
  if (method_) return true;
  const std::wstring module = vba::Trim(cboModule.Text());
  if (vba::EqualsText(module, kNewClassModule)) return true;
  host::Ptr<host::VBComponent> c = kernel::ModuleFind(s_, module);
  return c && c->Type() == host::kClassModule;
}

void FrmProcedure::AccessibilityComboBoxFill() {
  const std::wstring chosen = cboAccessibility.Text();
  cboAccessibility.Clear();
  cboAccessibility.AddItem(L"Public");
  cboAccessibility.AddItem(L"Private");
  if (ModuleIsClass()) cboAccessibility.AddItem(L"Friend");
  AccessibilitySet(chosen.empty() ? L"Public" : chosen);
}

std::wstring FrmProcedure::Accessibility() const { return cboAccessibility.Text(); }

void FrmProcedure::AccessibilitySet(const std::wstring& accessibility) {
  const int at = cboAccessibility.FindStringExact(accessibility);
  cboAccessibility.SetListIndex(at < 0 ? 0 : at);
}

bool FrmProcedure::IsStatic() const { return cboStatic.Text() == L"Static"; }

bool FrmProcedure::HasErrorHandler() const { return !vba::Trim(cboAddErrorHandler.Text()).empty(); }

void FrmProcedure::SetControlsState() {
  settingState_ = true;
  const bool function = cboProcType.Text() == L"Function";
  cboReturnValueType.SetEnabled(function);
  lblReturnValueType.SetEnabled(function);
  chkAddReturnStatement.SetEnabled(function);
  chkAddReturnStatement.SetValue(function ? returnStatementWanted_ : ui::vbUnchecked);
  const bool arguments = lstArguments.ListCount() > 0;
  chkArgumentsOnSeparateLine.SetEnabled(arguments);
  chkArgumentsOnSeparateLine.SetValue(arguments ? separateLinesWanted_ : ui::vbUnchecked);
  settingState_ = false;
}

void FrmProcedure::ArgumentsList() {
  const int selected = lstArguments.ListIndex();
  lstArguments.Clear();
  for (const auto& a : procedure_->Arguments().Items()) lstArguments.AddItem(a->ArgumentString());
  if (lstArguments.ListCount() > 0 && selected >= 0)
    lstArguments.SetListIndex(std::min(selected, lstArguments.ListCount() - 1));
  SetControlsState();
}

std::shared_ptr<clsArgument> FrmProcedure::SelectedArgument() const {
  const int at = lstArguments.ListIndex();
  const auto items = procedure_->Arguments().Items();
  if (at < 0 || at >= static_cast<int>(items.size())) return nullptr;
  return items[static_cast<std::size_t>(at)];
}

void FrmProcedure::ArgumentOpen(std::shared_ptr<clsArgument> argument) {
  kernel::Trap(s_, L"frmProcedure.cmdNewArg_Click", [&] {
    FrmArgument form(s_);
    form.SetParentForm(this);
    form.Init(std::move(argument), L"String");
    form.Show(true);
    if (form.Loaded()) form.Unload();
  });
}

void FrmProcedure::ArgumentDelete() {
  kernel::Trap(s_, L"frmProcedure.cmdDelArg_Click", [&] {
    std::shared_ptr<clsArgument> a = SelectedArgument();
    if (!a) return;
    if (s_.uiHost.MsgBox(L"Delete '" + a->Name + L"'?", ui::vbYesNo + ui::vbQuestion, kernel::kAppName) != ui::vbYes)
      return;
    procedure_->Arguments().RemoveIf([&a](const std::shared_ptr<clsArgument>& x) { return x == a; });
    procedure_->ArgumentsRenumber(a->Number);
    ArgumentsList();
  });
}

void FrmProcedure::ArgumentMove(int step) {
  const int at = lstArguments.ListIndex();
  const auto items = procedure_->Arguments().Items();
  const int to = at + step;
  if (at < 0 || to < 0 || to >= static_cast<int>(items.size())) return;
  std::swap(items[static_cast<std::size_t>(at)]->Number, items[static_cast<std::size_t>(to)]->Number);
  lstArguments.SetListIndex(to);
  ArgumentsList();
}

void FrmProcedure::ErrorHandlerGet() {
  procedure_->ErrorHandler.clear();
  procedure_->ErrorHandlerFile.clear();
  if (!HasErrorHandler()) return;
  procedure_->ErrorHandlerFile = cboAddErrorHandler.Text();
  procedure_->ErrorHandler = ErrorHandlerRead(s_, procedure_->ErrorHandlerFile);
}

bool FrmProcedure::TargetModuleGet() {
  clsProcedure& p = *procedure_;
  host::ComponentType kind = host::kStdModule;
  std::wstring name = p.ModuleName;
  if (vba::EqualsText(name, kNewModule) || vba::EqualsText(name, kNewClassModule) || name.empty()) {
    const bool cls = vba::EqualsText(name, kNewClassModule);
    std::optional<std::wstring> answer =
        s_.uiHost.InputBox(cls ? L"Name of Class Module" : L"Name of Module", kernel::kAppName, L"");
    if (!answer || vba::Trim(*answer).empty()) return false;
    name = vba::Trim(*answer);
    kind = cls ? host::kClassModule : host::kStdModule;
  } else if (host::Ptr<host::VBComponent> c = kernel::ModuleFind(s_, name)) {
    p.ModuleName = c->Name();
    p.ModuleType = c->Type();
    return true;
  } else if (s_.uiHost.MsgBox(L"Create module " + name + L"?", ui::vbOKCancel + ui::vbQuestion, kernel::kAppName) !=
             ui::vbOK) {
    return false;
  }
  const std::wstring made = ModuleCreate(s_, name, kind);
  if (made.empty()) return false;
  p.ModuleName = made;
  p.ModuleType = kind;
  return true;
}

bool FrmProcedure::ProcBuild() {
  clsProcedure& p = *procedure_;
  p.Name = vba::Trim(p.Name);
  host::Ptr<host::VBComponent> target = method_ ? nullptr : kernel::ModuleFind(s_, p.ModuleName);
  const long answer = settings::CheckNewNameIsOK(s_, p.Name, false, false,
                                                 {ModuleProcsLookup(target ? target->CodeModule() : nullptr)});
  if (answer == ui::vbCancel || answer == settings::kErrNameMissing) {
    txtName.SetFocus();
    return false;
  }
  if (answer == ui::vbNo) return false;
  if (const ArgumentsOrder order = p.ArgumentsOrderIsBad(); order != kArgumentsOrderGood) {
    const std::wstring why = order == kRequiredAfterOptional
                                 ? L"After the optional argument all subsequent arguments must also be optional."
                                 : L"ParamArray argument is used only as the last argument.";
    s_.uiHost.MsgBox(why + L"\r\nPlease reorder the arguments list.", ui::vbExclamation, kernel::kAppName);
    return false;
  }
  ErrorHandlerGet();
  if (!method_ && !TargetModuleGet()) return false;
  code_ = p.GenerateCode(s_);
  if (code_.empty()) return false;
  if (method_) {
    std::shared_ptr<clsProcedure> built = procedure_;
    if (underEdit_) {
      *underEdit_ = p;
      built = underEdit_;
    }
    if (onMethod_) onMethod_(built);
  }
  return true;
}

bool FrmProcedure::PressOk() {
  bool done = false;
  kernel::Trap(s_, L"frmProcedure.PressOk", [&] {
    clsProcedure& p = *procedure_;
    p.Name = vba::Trim(txtName.Text());
    if (!method_) p.ModuleName = vba::Trim(cboModule.Text());
    const std::wstring type = cboReturnValueType.Enabled() ? vba::Trim(cboReturnValueType.Text()) : std::wstring();
    p.ReturnValueType = vba::EqualsText(type, kNone) ? std::wstring() : type;
    p.ProcType = cboProcType.Text();
    p.PropertyType.clear();
    p.AccessibleType = Accessibility();
    p.IncludeComment = chkAddHeader.Checked();
    p.IncludeErrorHandler = HasErrorHandler();
    p.ErrorHandlerFile = cboAddErrorHandler.Text();
    p.IncludeHourglass = chkAddHourglass.Checked();
    p.ModuleNameConstant = chkAddModuleConstant.Checked();
    p.ProcedureNameConstant = chkAddProcedureConstant.Checked();
    p.AddReturnStatement = chkAddReturnStatement.Checked();
    p.IsStatic = IsStatic();
    p.Description = txtDescription.Text();
    p.ArgumentsOnSeparateLine = chkArgumentsOnSeparateLine.Checked();
    if (!ProcBuild()) return;
    if (!method_) {
      host::Ptr<host::VBProject> project = s_.vbe ? s_.vbe->ActiveVBProject() : nullptr;
      p.Create(s_, code_, project, AddProcedureToEndOfModule, SetCursorToProcedure);
      if (p.ModuleNameConstant) ModuleConstantAdd(s_, p.ModuleName, false);
      if (!p.Name.empty()) {
        s_.platform.ClipboardClear();
        s_.platform.ClipboardSetText(p.Name);
      }
    }
    done = true;
  });
  if (done) Unload();
  return done;
}

void ProcedureBuilderOpen(kernel::Session& s) {
  if (!kernel::CodeWindowActive(s)) return;
  initialize(s, L"", L"");
  auto form = std::make_unique<FrmProcedure>(s);
  form->Init();
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

std::shared_ptr<clsProcedure> MethodBuilderRun(kernel::Session& s, std::shared_ptr<clsProcedure> method) {
  std::shared_ptr<clsProcedure> result;
  kernel::Trap(s, L"frmProcedure.MethodBuilderRun", [&] {
    initialize(s, L"", L"");
    FrmProcedure form(s);
    form.InitMethod(std::move(method), [&result](std::shared_ptr<clsProcedure> m) { result = std::move(m); });
    form.Show(true);
    if (form.Loaded()) form.Unload();
  });
  return result;
}

}  // namespace quillet::generators
