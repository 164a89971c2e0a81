#pragma once
// The Procedure Builder: a Sub or a Function with its arguments, accessibility, Static, a
// header, the name constants, an error-handling scheme, the hourglass lines and a return
// statement, written at the end of a module of the project (or of a new one); the caret
// is left in the body and the name goes on the clipboard.
//
// The class builder runs the same dialog as "Method Builder", which hands the procedure
// back instead of writing it:
//
//   std::shared_ptr<clsProcedure> m = MethodBuilderRun(s, nullptr);   // nullptr: cancelled
//   if (m) cls.Methods.Add(m, m->Name);
#include <functional>
#include <memory>
#include <string>

#include "generators/frm_argument.h"
#include "generators/procedure.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

class FrmProcedure : public kernel::BuilderForm, public ArgumentParent {
 public:
  explicit FrmProcedure(kernel::Session& s);

  // The standalone builder: lists and options from the project and the settings.
  void Init() override;
  // The method builder: `method` is the one being changed (its fields shown, and replaced
  // on OK), or nullptr for a new one. `onMethod` receives the method built.
  void InitMethod(std::shared_ptr<clsProcedure> method, std::function<void(std::shared_ptr<clsProcedure>)> onMethod);

  // Where the standalone builder writes, and whether the caret follows.
  bool AddProcedureToEndOfModule = true;
  bool SetCursorToProcedure = true;

  clsProcedure& Procedure() override { return *procedure_; }
  void ArgumentsList() override;

  bool HasErrorHandler() const;
  bool IsStatic() const;
  std::wstring Accessibility() const;
  void AccessibilitySet(const std::wstring& accessibility);
  void SetControlsState();
  // OK: true when the procedure was written (or handed back) and the dialog closed.
  bool PressOk();

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblType;
  ui::ComboBox& cboProcType;
  ui::Label& lblAccess;
  ui::ComboBox& cboAccessibility;
  ui::Label& lblStatic;
  ui::ComboBox& cboStatic;
  ui::Label& lblModule;
  ui::ComboBox& cboModule;
  ui::Label& lblReturnValueType;
  ui::ComboBox& cboReturnValueType;
  ui::Label& lblArguments;
  ui::ListBox& lstArguments;
  ui::CommandButton& cmdNewArg;
  ui::CommandButton& cmdDelArg;
  ui::CommandButton& cmdUpArg;
  ui::CommandButton& cmdDownArg;
  ui::Label& lblDescription;
  ui::TextBox& txtDescription;
  ui::Frame& fraFeatures;
  ui::Label& lblAddErrorHandler;
  ui::ComboBox& cboAddErrorHandler;
  ui::CheckBox& chkAddHeader;
  ui::CheckBox& chkAddHourglass;
  ui::CheckBox& chkAddProcedureConstant;
  ui::CheckBox& chkAddModuleConstant;
  ui::CheckBox& chkAddReturnStatement;
  ui::CheckBox& chkArgumentsOnSeparateLine;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  void LoadCombos();
  void GetOptions();
  void AccessibilityComboBoxFill();
  bool ProcBuild();
  void ErrorHandlerGet();
  // The module chosen, made first when it is new; false when the user gave it up.
  bool TargetModuleGet();
  bool ModuleIsClass() const;
  void ArgumentOpen(std::shared_ptr<clsArgument> argument);
  void ArgumentDelete();
  void ArgumentMove(int step);
  std::shared_ptr<clsArgument> SelectedArgument() const;

  kernel::Session& s_;
  std::shared_ptr<clsProcedure> procedure_;
  std::wstring code_;  // the text ProcBuild generated
  bool method_ = false;
  std::shared_ptr<clsProcedure> underEdit_;
  std::function<void(std::shared_ptr<clsProcedure>)> onMethod_;
  int returnStatementWanted_ = 0;   // the value chkAddReturnStatement shows when enabled
  int separateLinesWanted_ = 0;     // likewise chkArgumentsOnSeparateLine
  bool settingState_ = false;
};

// The Procedure Builder from the bar.
void ProcedureBuilderOpen(kernel::Session& s);
// The dialog as "Method Builder", modal; see above. nullptr when the user cancelled.
std::shared_ptr<clsProcedure> MethodBuilderRun(kernel::Session& s, std::shared_ptr<clsProcedure> method);

}  // namespace quillet::generators
