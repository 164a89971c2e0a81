#pragma once
// The combo box where a builder asks for a type name (the Variable, Constant, Argument and
// Property Builders' "cboDataType", the Procedure Builder's "cboReturnValueType"). Every
// such box completes what the programmer types from its list of types:
//   cboDataType(TypeComboAdd(*this, L"cboDataType")),   // in the dialog's constructor
#include <string>

#include "ui/form.h"
#include "ui/list_controls.h"

namespace quillet::generators {

// Adds the combo box to `form` (inside `container` when given) with completion while typing.
ui::ComboBox& TypeComboAdd(ui::Form& form, std::wstring name, ui::Control* container = nullptr);

}  // namespace quillet::generators
