#pragma once
// What the pick list offers for each command, and the dispatcher's commands that open it:
// labels for "GoTo", "On Error GoTo" and "Resume", variables for "With", "Insert Variable",
// "Debug.Print " and the Select Case commands, enums for "Select From Enum".
#include <string>

#include "generators/frm_select_from_list.h"
#include "kernel/session.h"

namespace quillet::generators {

// Whether the caret stands in a Function; its name and declared return type come back.
bool CurrentFunction(kernel::Session& s, std::wstring& name, std::wstring& returnType);

// "<New Label>", then the labels of the procedure in their order.
void LabelsFill(kernel::Session& s, FrmSelectFromList& form);
// The placeholders of the command, then the variables of the project, the module and the
// procedure, each name once (object variables marked), then the current function's name.
void VariablesFill(kernel::Session& s, FrmSelectFromList& form);
// The enums of the module, the project and the libraries (none named like "constants"),
// and the names whose type is an enum as test expressions.
void EnumsFill(kernel::Session& s, FrmSelectFromList& form);

// The dispatcher's commands.
void PickLabelCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);
void PickVariableCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);
void SelectCaseCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);
void SelectFromEnumCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);

}  // namespace quillet::generators
