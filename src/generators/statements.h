#pragma once
// The inserters that write statements at the caret: one-line statements, With blocks, If
// blocks and loops. Each leaves the caret where the user types next.
//
// Each has two halves: a function from what the module shows (`kernel::CodeView`) to the
// edit it makes (`kernel::CodeEdit`), which tests call without an editor, and the command
// that reads the active pane, asks what it must ask and applies the edit.
#include <initializer_list>
#include <optional>
#include <string>

#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// Whether a command is one of the given ones; commands compare exactly, case counting.
bool IsOneOf(const std::wstring& command, std::initializer_list<const wchar_t*> commands);

// How CodeInsert may place its text.
struct InsertOptions {
  bool allowInline = false;  // inside the caret line, where the command allows it
  bool spaceBefore = false;  // a blank between the line's text and the inserted one
};

// Writes `text` at the caret: on a blank caret line in place of it, inside the line where
// the command allows it, else on a new line below indented by one tab width.
bool CodeInsert(kernel::Session& s, std::wstring text, const std::wstring& command, InsertOptions options);
kernel::CodeEdit CodeInsertEdit(const kernel::CodeView& view, std::wstring text, const std::wstring& command,
                                InsertOptions options);
// "With expression" with an empty body line; false for an empty expression.
bool WithCodeInsert(kernel::Session& s, const std::wstring& expression);
std::optional<kernel::CodeEdit> WithEdit(const kernel::CodeView& view, const std::wstring& expression);
// "If Then", "If Then Else", "If Then Else If", "If Then ElseIf Else"; the last two ask
// for the number of "ElseIf" branches.
void IfCodeInsert(kernel::Session& s, const std::wstring& command);
kernel::CodeEdit IfEdit(const kernel::CodeView& view, const std::wstring& command, int elseIfs);
// "IfDoLoopWhile", "IfDoLoopUntil", "ForEachNext", "ForNext", "While".
void LoopCodeInsert(kernel::Session& s, const std::wstring& command);
std::optional<kernel::CodeEdit> LoopEdit(const kernel::CodeView& view, const std::wstring& command);

}  // namespace quillet::generators
