#pragma once
// The inserters that write statements at the caret: one-line statements, With blocks, If
// blocks and loops. Each leaves the caret where the user types next.
#include <initializer_list>
#include <optional>
#include <string>

#include "kernel/session.h"

namespace quillet::generators {

// Whether a command is one of the given ones; commands compare exactly, case counting.
bool IsOneOf(const std::wstring& command, std::initializer_list<const wchar_t*> commands);

// Writes `text` at the caret: on a blank caret line in place of it, inside the line where
// the command allows it, else on a new line below indented by one tab width.
bool CodeInsert(kernel::Session& s, std::wstring text, const std::wstring& command, bool allowInline, bool spaceBefore);
// "With expression" with an empty body line; false for an empty expression.
bool WithCodeInsert(kernel::Session& s, const std::wstring& expression);
// "If Then", "If Then Else", "If Then Else If", "If Then ElseIf Else".
void IfCodeInsert(kernel::Session& s, const std::wstring& command);
// "IfDoLoopWhile", "IfDoLoopUntil", "ForEachNext", "ForNext", "While".
void LoopCodeInsert(kernel::Session& s, const std::wstring& command);

}  // namespace quillet::generators
