#include "generators/frm_decl_builder.h"

#include <algorithm>

#include "generators/frm_input_box.h"
#include "generators/scope.h"
#include "generators/selection.h"
#include "generators/type_combo.h"
#include "generators/var_const_code.h"
#include "kernel/position.h"
#include "settings/error_handlers.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/strings.h"

namespace quillet::generators {

DeclBuilder::DeclBuilder(kernel::Session& s, std::wstring formName)
    : kernel::BuilderForm(s.ui, std::move(formName)),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblDataType(Add<ui::Label>(L"lblDataType")),
      cboDataType(TypeComboAdd(*this, L"cboDataType")),
      lblAccessibility(Add<ui::Label>(L"lblAccessibility")),
      cboAccessibility(Add<ui::ComboBox>(L"cboAccessibility")),
      lblModule(Add<ui::Label>(L"lblModule")),
      cboModule(Add<ui::ComboBox>(L"cboModule")),
      lblDescription(Add<ui::Label>(L"lblDescription")),
      txtDescription(Add<ui::TextBox>(L"txtDescription")),
      cmdObjectName(Add<ui::CommandButton>(L"cmdObjectName")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdOKAndPaste(Add<ui::CommandButton>(L"cmdOKAndPaste")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetBorderStyle(ui::vbFixedDialog);
  lblName.SetCaption(L"&Name");
  lblDataType.SetCaption(L"&Type");
  lblAccessibility.SetCaption(L"&Accessibility");
  cboAccessibility.SetStyle(ui::vbComboDropdownList);
  lblModule.SetCaption(L"&Module");
  lblDescription.SetCaption(L"&Description");
  cmdObjectName.SetCaption(L"...");
  cmdObjectName.SetToolTipText(L"Open Object Name Dialog");
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOKAndPaste.SetCaption(L"OK && &Paste");
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"&Help");
  cmdCancel.OnClick = [this] { Unload(); };
}

void ModulesListFill(kernel::Session& s, ui::ComboBox& combo) {
  combo.Clear();
  combo.AddItem(L"<New Module>");
  combo.AddItem(L"<New Class Module>");
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  std::wstring active = pane ? pane->CodeModule()->Parent()->Name() : std::wstring();
  if (!project) return;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) {
    std::wstring name = components->Item(i)->Name();
    combo.AddItem(name);
    if (name == active) combo.SetListIndex(combo.NewIndex());
  }
}

void ErrorHandlersListFill(kernel::Session& s, ui::ComboBox& combo, const std::wstring& chosen) {
  combo.Clear();
  combo.AddItem(L"");
  for (const std::wstring& name : settings::ErrorHandlersList(s)) combo.AddItem(name);
  combo.SetListIndex(chosen.empty() ? 0 : std::max(0, combo.FindStringExact(chosen)));
}

void DeclBuilder::ModulesListFill() { generators::ModulesListFill(s_, cboModule); }

bool DeclBuilder::ModuleIsStandard(const std::wstring& module) const {
  host::Ptr<host::VBProject> project = s_.vbe ? s_.vbe->ActiveVBProject() : nullptr;
  if (!project) return false;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i)
    if (components->Item(i)->Name() == module) return components->Item(i)->Type() == host::kStdModule;
  return false;
}

bool DeclBuilder::ModuleIsActive() const {
  host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
  return pane && vba::StrComp(vba::Trim(cboModule.Text()), pane->CodeModule()->Parent()->Name(), vba::Compare::Text) == 0;
}

bool DeclBuilder::NameAccepted(const std::wstring& name, int kind) {
  long answer = NewNameIsOK(s_, name, kind);
  if (answer == settings::kErrNameMissing || answer == ui::vbNo) {
    txtName.SetFocus();
    return false;
  }
  if (answer == ui::vbCancel) {
    Unload();
    return false;
  }
  return true;
}

std::wstring DeclBuilder::DescriptionSuffix() const {
  std::wstring d = txtDescription.Text();
  return d.empty() ? std::wstring() : kernel::TabSpacesGet(s_) + L"'" + d;
}

void DeclBuilder::NameDelivered(const std::wstring& name, bool pasteAsked, bool withBlank) {
  if (!name.empty()) s_.platform.ClipboardSetText(name);
  host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
  if (!pane) return;
  std::wstring text = name;
  if (withBlank) {
    text += L" ";
    InstanceAdd(s_, pane, text, {.allowEmptySelection = true});
  } else if (pasteAsked || (!parent_ && prefilled_)) {
    InstanceAdd(s_, pane, text, {.allowEmptySelection = true});
  }
}

void DeclBuilder::Done(const std::wstring& name) {
  newName_ = name;
  Unload();
}

}  // namespace quillet::generators
