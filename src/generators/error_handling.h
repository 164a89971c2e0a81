#pragma once
// Error handling for the procedure at the caret. The block is a fragment the user keeps in
// the ErrorHandlers folder; its top part (the On Error line) goes under the procedure's
// declarations, its bottom part (exit label, Exit statement, error label, reporting call)
// above the procedure's exit line. Names of the module and the procedure in the block's
// string literals become the constants of the settings "Module Name Constant" and
// "Procedure Name Constant", which are declared when missing.
//
//   ErrorHandlingAdd(s, L"Raise To Caller");   // false when the procedure has its error label
#include <string>
#include <vector>

#include "kernel/session.h"

namespace quillet::generators {

// The text of the fragment `name` of the ErrorHandlers folder; ".bas" is appended unless
// the name ends in it (any case). "" for a file that cannot be read.
std::wstring ErrorHandlerRead(kernel::Session& s, const std::wstring& name);

// Fills the block's tokens; the three names come in empty to be read from the caret.
bool ErrorHandlerGet(kernel::Session& s, std::wstring& code, std::wstring& moduleName, std::wstring& procedureName,
                     std::wstring& procedureType);

// The names in string literals turned into the constants `moduleConstant` and
// `procedureConstant` (each when its flag is set): "basX.Foo" becomes
// cstrModule & "." & cstrProcedure, a literal holding only a name the bare constant.
std::wstring NameConstantsApply(std::wstring code, const std::wstring& moduleName, const std::wstring& procedureName,
                                const std::wstring& moduleConstant, const std::wstring& procedureConstant,
                                bool moduleFlag, bool procedureFlag);

// ErrorHandlerGet, then NameConstantsApply with the constant names of the settings.
void NormalizeErrorHandlerCode(kernel::Session& s, std::wstring& code, std::wstring moduleName,
                               std::wstring procedureName, std::wstring procedureType, bool moduleFlag,
                               bool procedureFlag);

// Whether a procedure's text counts as handled: it holds the error label with its colon,
// anywhere, comments included.
bool HasErrorHandling(const std::wstring& procedureText, const std::wstring& errorLabel);

// Declares the module-name constant in the declaration section of `module` unless a
// "Const <name>" is there. True when the constant is there afterwards; with `quiet` a
// missing one is reported by false and not added.
bool ModuleConstantAdd(kernel::Session& s, const std::wstring& module, bool quiet);

// Adds the block `fragment` (the setting "Default Error Handle" when empty) to the
// procedure at the caret. False outside a procedure, for a procedure that already has its
// error label, and when the fragment cannot be read.
bool ErrorHandlingAdd(kernel::Session& s, const std::wstring& fragment = {});

}  // namespace quillet::generators
