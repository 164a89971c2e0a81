#include "generators/frm_property.h"

#include "analysis/refresh.h"
#include "generators/error_handling.h"
#include "generators/frm_decl_builder.h"
#include "generators/frm_input_box.h"
#include "generators/module_create.h"
#include "generators/procedure.h"
#include "generators/scope.h"
#include "generators/type_combo.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "settings/items.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/like.h"
#include "vba/strings.h"

namespace quillet::generators {

FrmProperty::FrmProperty(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmProperty"),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblDataType(Add<ui::Label>(L"lblDataType")),
      cboDataType(TypeComboAdd(*this, L"cboDataType")),
      fraProp(Add<ui::Frame>(L"fraProp")),
      chkGet(Add<ui::CheckBox>(L"chkGet", &fraProp)),
      chkSet(Add<ui::CheckBox>(L"chkSet", &fraProp)),
      lblAccess(Add<ui::Label>(L"lblAccess")),
      cboAccessibility(Add<ui::ComboBox>(L"cboAccessibility")),
      lblStatic(Add<ui::Label>(L"lblStatic")),
      cboStatic(Add<ui::ComboBox>(L"cboStatic")),
      lblModule(Add<ui::Label>(L"lblModule")),
      cboModule(Add<ui::ComboBox>(L"cboModule")),
      lblDescription(Add<ui::Label>(L"lblDescription")),
      txtDescription(Add<ui::TextBox>(L"txtDescription")),
      fraFeatures(Add<ui::Frame>(L"fraFeatures")),
      lblAddErrorHandler(Add<ui::Label>(L"lblAddErrorHandler", &fraFeatures)),
      cboAddErrorHandler(Add<ui::ComboBox>(L"cboAddErrorHandler", &fraFeatures)),
      chkAddHeader(Add<ui::CheckBox>(L"chkAddHeader", &fraFeatures)),
      chkAddHourglass(Add<ui::CheckBox>(L"chkAddHourglass", &fraFeatures)),
      chkAddProcedureConstant(Add<ui::CheckBox>(L"chkAddProcedureConstant", &fraFeatures)),
      chkAddModuleConstant(Add<ui::CheckBox>(L"chkAddModuleConstant", &fraFeatures)),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdOKAndNew(Add<ui::CommandButton>(L"cmdOKAndNew")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Property Builder");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 6900, 5600);
  // Labels beside their boxes on the left, the options frame on the right, the buttons in
  // a row along the bottom.
  auto row = [](ui::Label& l, const wchar_t* caption, ui::Control& c, long top) {
    l.SetCaption(caption);
    l.Move(120, top, 1500, 255);
    c.Move(1700, top, 2600, 315);
  };
  row(lblName, L"&Name", txtName, 120);
  row(lblDataType, L"&Value Type", cboDataType, 520);
  row(lblAccess, L"&Accessibility", cboAccessibility, 920);
  cboAccessibility.SetStyle(ui::vbComboDropdownList);
  row(lblStatic, L"&Static", cboStatic, 1320);
  cboStatic.SetStyle(ui::vbComboDropdownList);
  row(lblModule, L"&Module", cboModule, 1720);
  fraProp.SetCaption(L"Property");
  fraProp.Move(120, 2140, 4180, 600);
  chkGet.SetCaption(L"Ge&t");
  chkGet.Move(120, 260, 1600, 255);
  chkSet.SetCaption(L"&Let/Set");
  chkSet.Move(2000, 260, 1800, 255);
  lblDescription.SetCaption(L"&Description");
  lblDescription.Move(120, 2880, 1500, 255);
  txtDescription.Move(120, 3160, 4180, 900);
  fraFeatures.SetCaption(L"Options");
  fraFeatures.Move(4500, 120, 2220, 2600);
  lblAddErrorHandler.SetCaption(L"&Error Handler");
  lblAddErrorHandler.Move(120, 280, 1980, 255);
  cboAddErrorHandler.Move(120, 540, 1980, 315);
  cboAddErrorHandler.SetStyle(ui::vbComboDropdownList);
  const std::pair<ui::CheckBox*, const wchar_t*> checks[] = {
      {&chkAddHeader, L"&Header"},
      {&chkAddHourglass, L"Hour&glass"},
      {&chkAddProcedureConstant, L"Pro&cedure Constant"},
      {&chkAddModuleConstant, L"Mod&ule Constant"}};
  long top = 1000;
  for (const auto& [box, caption] : checks) {
    box->SetCaption(caption);
    box->Move(120, top, 1980, 255);
    top += 400;
  }
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOKAndNew.SetCaption(L"OK && Ne&w");
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"Help");
  long left = 1620;
  for (ui::CommandButton* b : {&cmdOK, &cmdOKAndNew, &cmdCancel, &cmdHelp}) {
    b->Move(left, 4460, 1215, 375);
    left += 1275;
  }

  // One of the two parts always stays: clearing the last one sets the other.
  chkGet.OnClick = [this] {
    if (chkGet.Value() == 0 && chkSet.Value() == 0) chkSet.SetValue(1);
  };
  chkSet.OnClick = [this] {
    if (chkSet.Value() == 0 && chkGet.Value() == 0) chkGet.SetValue(1);
  };
  cboModule.OnClick = [this] { AccessibilityFill(); };
  cmdOK.OnClick = [this] { PressOK(false); };
  cmdOKAndNew.OnClick = [this] { PressOK(true); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmProperty::Init(const clsProperty* edited) {
  Load();
  edited_ = edited;
  const clsProperty p = edited ? *edited : clsProperty();
  analysis::DataTypeList(s_, ModelsOf(s_), ScopeOf(s_).ModuleEnums, cboDataType,
                         edited ? p.DataType : std::wstring(L"String"), {});
  if (edited) cboDataType.SetText(p.DataType);
  chkGet.SetChecked(p.GetPart);
  chkSet.SetChecked(p.SetPart);
  cboStatic.Clear();
  cboStatic.AddItem(L"");
  cboStatic.AddItem(L"Static");
  cboStatic.SetListIndex(p.IsStatic ? 1 : 0);
  ModulesFill();
  AccessibilityFill();
  if (edited) cboAccessibility.SetListIndex(cboAccessibility.FindStringExact(p.AccessibleType));
  ErrorHandlersListFill(s_, cboAddErrorHandler,
                        edited ? p.ErrorHandlerFile : s_.settings[settings::kAddErrorHandlingProperty].ToString());
  chkAddHourglass.SetEnabled(HourglassAvailable(s_));
  if (edited) {
    txtName.SetText(p.Name);
    txtDescription.SetText(p.Description);
    chkAddHeader.SetChecked(p.IncludeHeader);
    chkAddHourglass.SetChecked(p.IncludeHourglass);
    chkAddProcedureConstant.SetChecked(p.ProcedureNameConstant);
    chkAddModuleConstant.SetChecked(p.ModuleNameConstant);
  } else {
    chkAddProcedureConstant.SetChecked(settings::ItemOn(s_, settings::kAddPropertyConstant));
    chkAddModuleConstant.SetChecked(settings::ItemOn(s_, settings::kAddModuleConstantProperty));
  }
}

void FrmProperty::ModulesFill() {
  cboModule.Clear();
  if (parent_) {
    // In class building the property belongs to the class being made.
    cboModule.AddItem(parent_->ClassName());
    cboModule.SetListIndex(0);
    cboModule.SetEnabled(false);
    return;
  }
  ModulesListFill(s_, cboModule);
}

void FrmProperty::AccessibilityFill() {
  const bool chosen = cboAccessibility.ListIndex() >= 0;
  const std::wstring was = cboAccessibility.Text();
  cboAccessibility.Clear();
  // An empty entry writes no accessibility word at all.
  cboAccessibility.AddItem(L"");
  cboAccessibility.AddItem(L"Public");
  cboAccessibility.AddItem(L"Private");
  host::Ptr<host::VBComponent> c = kernel::ModuleFind(s_, vba::Trim(cboModule.Text()));
  if (parent_ || vba::Like(cboModule.Text(), L"<New*") || (c && c->Type() != host::kStdModule))
    cboAccessibility.AddItem(L"Friend");
  int i = cboAccessibility.FindStringExact(was);
  cboAccessibility.SetListIndex(chosen && i >= 0 ? i : 1);
}

clsProperty FrmProperty::FromControls() const {
  clsProperty p;
  p.Name = vba::Trim(txtName.Text());
  p.ModuleName = vba::Trim(cboModule.Text());
  p.DataType = vba::Trim(cboDataType.Text());
  int t = cboDataType.FindStringExact(p.DataType);
  p.DataType2 = t >= 0 ? cboDataType.ItemData(t) : 0;
  p.GetPart = chkGet.Checked();
  p.SetPart = chkSet.Checked();
  p.AccessibleType = cboAccessibility.Text();
  p.IsStatic = cboStatic.Text() == L"Static";
  p.Description = txtDescription.Text();
  p.ErrorHandlerFile = cboAddErrorHandler.Text();
  p.IncludeErrorHandler = !p.ErrorHandlerFile.empty();
  p.IncludeHeader = chkAddHeader.Checked();
  p.IncludeHourglass = chkAddHourglass.Enabled() && chkAddHourglass.Checked();
  p.ProcedureNameConstant = chkAddProcedureConstant.Checked();
  p.ModuleNameConstant = chkAddModuleConstant.Checked();
  return p;
}

bool FrmProperty::NameAccepted(const std::wstring& name, const std::wstring& module) {
  std::vector<settings::NameLookup> lookups;
  if (parent_) {
    const clsProperty* except = edited_;
    PropertyParent* parent = parent_;
    lookups.push_back([parent, except](std::wstring_view n) { return parent->PropertyExists(std::wstring(n), except); });
  } else if (host::Ptr<host::VBComponent> c = kernel::ModuleFind(s_, module)) {
    lookups.push_back(ModuleProcsLookup(c->CodeModule()));
  }
  long answer = settings::CheckNewNameIsOK(s_, name, false, false, lookups);
  if (answer == 0 || answer == ui::vbYes) return true;
  txtName.SetFocus();
  return false;
}

std::wstring FrmProperty::TargetModule() {
  std::wstring module = vba::Trim(cboModule.Text());
  if (!vba::Like(module, L"<New*")) return module;
  std::optional<std::wstring> answer = s_.uiHost.InputBox(L"Name of Class Module", kernel::kAppName, L"");
  std::wstring name = answer ? vba::Trim(*answer) : std::wstring();
  if (name.empty()) return {};
  if (kernel::ModuleFind(s_, name)) return name;
  if (s_.uiHost.MsgBox(L"Create class module " + name, ui::vbOKCancel | ui::vbQuestion, kernel::kAppName) !=
      ui::vbOK)
    return {};
  return ModuleCreate(s_, name, host::kClassModule);
}

bool FrmProperty::PressOK(bool andNew) {
  bool done = false;
  kernel::Trap(s_, L"frmProperty.PressOK", [&] {
    clsProperty p = FromControls();
    if (!NameAccepted(p.Name, p.ModuleName)) return;
    if (parent_ && p.ModuleName.empty()) {
      s_.uiHost.MsgBox(L"Missing Class Module Name.", ui::vbOKOnly | ui::vbExclamation, kernel::kAppName);
      return;
    }
    if (p.IncludeErrorHandler) p.ErrorHandler = ErrorHandlerRead(s_, p.ErrorHandlerFile);
    if (parent_) {
      parent_->PropertyAccepted(std::make_shared<clsProperty>(p), edited_);
    } else {
      p.ModuleName = TargetModule();
      if (p.ModuleName.empty()) return;
      if (p.ModuleNameConstant) ModuleConstantAdd(s_, p.ModuleName, false);
      if (!BuildPropCodeLines(s_, p, AddProcedureToEndOfModule)) return;
    }
    if (!p.Name.empty()) s_.platform.ClipboardSetText(p.Name);
    done = true;
  });
  if (!done) return false;
  if (andNew && !edited_) {
    txtName.SetText(L"");
    txtDescription.SetText(L"");
    txtName.SetFocus();
  } else {
    Unload();
  }
  return true;
}

void PropertyBuilderOpen(kernel::Session& s) {
  if (!kernel::CodeWindowActive(s)) return;
  initialize(s, L"", L"");
  auto form = std::make_unique<FrmProperty>(s);
  form->Init();
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

}  // namespace quillet::generators
