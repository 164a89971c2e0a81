#pragma once
// The quick box behind the Dim, Const and Property menus: the data type is already chosen,
// the box asks for a name (and a constant's value) and writes one declaration.
//
//   QuickBoxOpen(s, kKindConstant, L"Long");   // "Constant (Long)", name and value
#include <string>

#include "hostmodel/vbe.h"
#include "kernel/form_open.h"
#include "settings/name_checks.h"
#include "ui/controls.h"

namespace quillet::generators {

// Whether a value as typed can stand for a constant of the type: a basic type's value must
// convert to it; another type takes anything.
bool ValueFits(const std::wstring& value, const std::wstring& type);

// A lookup that finds the procedures of `module` (none without one), by the editor.
settings::NameLookup ModuleProcsLookup(host::Ptr<host::CodeModule> module);

// The checks of a new name for a variable or constant (10001, 10002) against every name
// in reach: the libraries, the project, the module and the procedure at the caret. The
// answers of settings::CheckNewNameIsOK.
long NewNameIsOK(kernel::Session& s, const std::wstring& name, int kind);

class FrmInputBox : public kernel::BuilderForm {
 public:
  explicit FrmInputBox(kernel::Session& s);

  // Caption, the value box for constants, and the proposed name (with the naming
  // standard's prefix when the settings ask for it), wholly selected.
  void Init(int kind, const std::wstring& proposedName, const std::wstring& type, const std::wstring& proposedValue);

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblValue;
  ui::TextBox& txtValue;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  void PressOK();

  kernel::Session& s_;
  int kind_ = 0;
  std::wstring type_;
};

// Opens the quick box for a command's kind and type, with the scope's proposals.
void QuickBoxOpen(kernel::Session& s, int kind, const std::wstring& type);

}  // namespace quillet::generators
