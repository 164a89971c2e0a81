#pragma once
// What the Variable Builder and the Constant Builder share: the name, type, accessibility,
// module and description controls, the parent dialog they may serve, the check of the new
// name, and what follows a written declaration (the clipboard, the name at the caret).
//
// A dialog that opens a builder for its own use implements DeclParent and receives the
// new declaration back:
//
//   class FrmProcedure : public kernel::BuilderForm, public generators::DeclParent {
//     void AddNewVar(std::shared_ptr<analysis::clsVariable> v, bool moduleLevel) override { ... }
//   };
//   auto var = std::make_unique<generators::FrmVar>(s);
//   var->SetParentForm(this);
//   var->Init({.types = L"Long"});
#include <memory>
#include <string>

#include "analysis/records.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

// The service a parent dialog offers a builder it opened.
class DeclParent {
 public:
  virtual ~DeclParent() = default;
  // A new variable (a constant) that is not public in a standard module, which the
  // project's models hold instead.
  virtual void AddNewVar(std::shared_ptr<analysis::clsVariable> variable, bool moduleLevel) {}
  virtual void AddNewConst(std::shared_ptr<analysis::clsConstant> constant, bool moduleLevel) {}
  // The new name (and its type) to put where the parent needs it.
  virtual void ArgInsert(const std::wstring& name, const std::wstring& type) {}
  // A pick list answers NewVariable instead of AddNewVar and ArgInsert: the name and the
  // category (the type's ItemData in the type list).
  virtual bool IsPickList() const { return false; }
  virtual void NewVariable(const std::wstring& name, long category) {}
};

// "<New Module>", "<New Class Module>", then the project's modules; the active one chosen.
void ModulesListFill(kernel::Session& s, ui::ComboBox& combo);
// An empty entry, then the error-handling schemes of the ErrorHandlers folder; `chosen`
// selected, the empty entry when it is not among them.
void ErrorHandlersListFill(kernel::Session& s, ui::ComboBox& combo, const std::wstring& chosen);

class DeclBuilder : public kernel::BuilderForm {
 public:
  DeclBuilder(kernel::Session& s, std::wstring formName);

  DeclParent* ParentForm() const { return parent_; }
  void SetParentForm(DeclParent* parent) { parent_ = parent; }
  // The name the declaration was written under; empty until OK wrote it.
  const std::wstring& NewName() const { return newName_; }

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblDataType;
  ui::ComboBox& cboDataType;
  ui::Label& lblAccessibility;
  ui::ComboBox& cboAccessibility;
  ui::Label& lblModule;
  ui::ComboBox& cboModule;
  ui::Label& lblDescription;
  ui::TextBox& txtDescription;
  ui::CommandButton& cmdObjectName;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdOKAndPaste;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 protected:
  kernel::Session& s_;

  // "<New Module>", "<New Class Module>", then the project's modules; the active one chosen.
  void ModulesListFill();
  // The module chosen in cboModule is the one at the caret.
  bool ModuleIsActive() const;
  // The module of that name in the active project is a standard module.
  bool ModuleIsStandard(const std::wstring& module) const;
  // The name checks of a new variable or constant; false keeps the dialog open (the focus
  // back in txtName) or, after Cancel, closes it.
  bool NameAccepted(const std::wstring& name, int kind);
  // The description behind a declaration, "" without one.
  std::wstring DescriptionSuffix() const;
  // After the declaration: the clipboard, and the name at the caret when the OK & Paste
  // button, a prefilled name without parent, or `withBlank` (the insert-instance option,
  // which adds a blank) asks for it.
  void NameDelivered(const std::wstring& name, bool pasteAsked, bool withBlank);
  // The declaration was written: the dialog closes.
  void Done(const std::wstring& name);

  bool prefilled_ = false;  // txtName held a name when the dialog was initialised

 private:
  DeclParent* parent_ = nullptr;
  std::wstring newName_;
};

}  // namespace quillet::generators
