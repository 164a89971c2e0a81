#pragma once
// The Variable Builder: a variable of the module, of the procedure at the caret or, as an
// argument, of that procedure's interface, with array bounds, a String length, a
// description and, for objects, the "Set = New", "Set = Nothing" and "With" lines.
//
// From the bar it opens by itself (VarBuilderOpen); another dialog opens it as a service:
//   auto var = std::make_unique<FrmVar>(s);
//   var->SetParentForm(this);                     // receives AddNewVar / ArgInsert
//   var->Init({.types = L"Range", .onlyTypes = true});
#include <optional>
#include <string>

#include "generators/frm_decl_builder.h"
#include "generators/var_const_code.h"

namespace quillet::generators {

// Where a variable lives.
enum VarLevelKind : int { kModuleLevel = 0, kProcedureLevel = 1, kInterfaceLevel = 2 };

struct VarInit {
  std::wstring types{};    // the type (or a comma list of types) to offer; "" for all
  bool onlyTypes = false;  // the list holds the given types alone
  bool withMode = false;   // only object types, "Object" chosen
  bool insertInstance = false;  // the name and a blank go to the caret
};

// An argument written into the signature at `view`'s procedure: last, or before the
// argument at list position `before` (0-based; -1 for last). `eachOnNewLine` continues a
// signature of several lines on a new line. With a description, a comment line
// "'name: description" goes under the signature. nullopt outside a procedure.
std::optional<kernel::CodeEdit> ArgumentAddEdit(const DeclView& view, const std::wstring& argument, int before,
                                                bool eachOnNewLine, const std::wstring& name,
                                                const std::wstring& description);

class FrmVar : public DeclBuilder {
 public:
  explicit FrmVar(kernel::Session& s);

  void Init() override { Init(VarInit{}); }
  void Init(const VarInit& options);

  int VarLevel() const;
  // The accessibility of the chosen entry: 0 none, 1 Public, 2 Private, 4 Static.
  long Accessibility() const;
  // Chooses the entry of that accessibility (the entry's ItemData).
  void SetAccessibilityItem(long itemData);
  bool IsStatic() const { return Accessibility() == 4; }

  // The declaration line and the part of it behind the keyword (name, bounds, type).
  struct CodeLine {
    std::wstring line, namePart;
  };
  CodeLine BuildCodeLine() const;
  // OK: true when the declaration was written and the dialog closed.
  bool PressOK(bool paste);

  ui::Label& lblLength;
  ui::TextBox& txtLength;
  ui::CheckBox& chkArray;
  ui::Label& lblDimensions;
  ui::TextBox& txtDimensions;
  ui::Frame& fraInterface;
  ui::CheckBox& chkByVal;
  ui::CheckBox& chkOptional;
  ui::CheckBox& chkParamArray;
  ui::TextBox& txtDefault;
  ui::Label& lblBefore;
  ui::ComboBox& cboArgument;
  ui::Frame& fraObject;
  ui::CheckBox& chkNew;
  ui::CheckBox& chkNothing;
  ui::CheckBox& chkWith;

 private:
  void AccessibilityComboBoxFill();
  void SetControlsState();
  void ArgumentAdd(const std::wstring& name);
  void ObjectCodeAdd(const std::wstring& name, const std::wstring& type);
  bool inProc_ = false;
  bool insertInstance_ = false;
  bool settingState_ = false;
};

// The Variable Builder from the bar.
void VarBuilderOpen(kernel::Session& s);

// Makes the Variable Builder the pick lists' service: "<New Variable>" opens it modally
// and takes the name it wrote; a Select From Enum without a test expression opens it a
// moment later, offering only the enum's type.
void VariableBuilderServe(kernel::Session& s);
// Opens a builder whose start was delayed (by the timer form): "frmVar" only.
void DelayedBuilderOpen(kernel::Session& s, const std::wstring& form, const std::wstring& text);

}  // namespace quillet::generators
