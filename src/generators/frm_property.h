#pragma once
// The Property Builder: a property's name, type, parts and options, written as its Get,
// Let and Set procedures with the private variable behind them, into a module or, for the
// Class Builder, into the class being built.
//
// The Class Builder opens it as a service and receives the property back:
//   FrmProperty form(s);
//   form.SetParentForm(this);         // a PropertyParent
//   form.Init(existing);              // nullptr for a new property
//   form.Show(true);
#include <memory>
#include <string>

#include "generators/property.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

// The class a property is built for.
class PropertyParent {
 public:
  virtual ~PropertyParent() = default;
  // The name the class will have; "" while the user has not given one.
  virtual std::wstring ClassName() const = 0;
  // Whether another property of the class has this name.
  virtual bool PropertyExists(const std::wstring& name, const clsProperty* except) const = 0;
  // A new property (`edited` nullptr) or the changed one.
  virtual void PropertyAccepted(std::shared_ptr<clsProperty> property, const clsProperty* edited) = 0;
};

class FrmProperty : public kernel::BuilderForm {
 public:
  explicit FrmProperty(kernel::Session& s);

  void Init() override { Init(nullptr); }
  // The controls from the settings, or from `edited` when a property is changed.
  void Init(const clsProperty* edited);

  PropertyParent* ParentForm() const { return parent_; }
  void SetParentForm(PropertyParent* parent) { parent_ = parent; }
  // The procedures go behind the module's last line rather than under its declarations.
  bool AddProcedureToEndOfModule = false;

  // The controls as a property; the name trimmed.
  clsProperty FromControls() const;
  // OK: true when the property was written (or handed to the class) and, without
  // `andNew`, the dialog closed; with it the dialog stays for the next one.
  bool PressOK(bool andNew);

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblDataType;
  ui::ComboBox& cboDataType;
  ui::Frame& fraProp;
  ui::CheckBox& chkGet;
  ui::CheckBox& chkSet;
  ui::Label& lblAccess;
  ui::ComboBox& cboAccessibility;
  ui::Label& lblStatic;
  ui::ComboBox& cboStatic;
  ui::Label& lblModule;
  ui::ComboBox& cboModule;
  ui::Label& lblDescription;
  ui::TextBox& txtDescription;
  ui::Frame& fraFeatures;
  ui::Label& lblAddErrorHandler;
  ui::ComboBox& cboAddErrorHandler;
  ui::CheckBox& chkAddHeader;
  ui::CheckBox& chkAddHourglass;
  ui::CheckBox& chkAddProcedureConstant;
  ui::CheckBox& chkAddModuleConstant;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdOKAndNew;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  kernel::Session& s_;
  PropertyParent* parent_ = nullptr;
  const clsProperty* edited_ = nullptr;

  void ModulesFill();
  void AccessibilityFill();
  bool NameAccepted(const std::wstring& name, const std::wstring& module);
  // The module for the property: a new class module when "<New ...>" is chosen; "" to stop.
  std::wstring TargetModule();
};

// The Property Builder from the bar.
void PropertyBuilderOpen(kernel::Session& s);

}  // namespace quillet::generators
