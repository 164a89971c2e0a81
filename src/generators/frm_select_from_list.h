#pragma once
// The pick list of the statement commands: a label for "GoTo", "On Error GoTo" and
// "Resume", a variable for "With", "Insert Variable", "Debug.Print " and the Select Case
// commands, an enum and its test expression for "Select From Enum", an argument name for
// "Explicit Argument". The commands fill the lists (pick_lists.h); OK writes the choice.
#include <map>
#include <string>

#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

class FrmSelectFromList : public kernel::BuilderForm {
 public:
  explicit FrmSelectFromList(kernel::Session& s);

  // The caption, the list's label and the enum-only controls for `command`.
  void Init(const vba::Variant& command) override;
  // The return-value box: only a Function returns values.
  void GetCollections();
  // A variable the Variable Builder wrote for this list: its name and category.
  void NewVariable(const std::wstring& name, long category);
  // An expression built for the test expression; with an indent above 0 each argument
  // goes on a continuation line.
  void ArgInsert(const std::wstring& text, const std::wstring& type, long indent);

  const std::wstring& Command() const { return command_; }
  // The choice, when the form only collects it (`collectOnly`).
  std::wstring VarName;
  long Category = 0;
  // A type the variables were filtered by ("String" for "Select Case UCase").
  std::wstring TypeFilter;
  // The form hands its choice back instead of writing it: OK stores it in VarName and hides.
  bool collectOnly = false;
  // The enum type of each test expression name offered in cboVarlist.
  std::map<std::wstring, std::wstring> enumTypeOf;

  ui::Label& lblList;
  ui::ListBox& lstList;
  ui::Label& lblVarlist;
  ui::ComboBox& cboVarlist;
  ui::CheckBox& chkSingleCase;
  ui::CheckBox& chkCompact;
  ui::CheckBox& chkReturnValues;
  ui::CheckBox& chkAddCaseElse;
  ui::TextBox& txtCaseElse;
  ui::CommandButton& cmdOk;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  void Ok();
  // The variable commands; false when the form is to stay open.
  bool VariableChosen(std::wstring item);
  bool LabelChosen(const std::wstring& item);
  void VarlistClick();
  void ListClick();

  kernel::Session& s_;
  std::wstring command_;
  std::wstring previousListText_;
};

}  // namespace quillet::generators
