#pragma once
// "Explicit Argument": offers the argument names of the procedure being called at the
// caret, to be written as "name:= ".
#include <string>
#include <vector>

#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// The statement up to the caret: the caret line's text before it, left-trimmed, behind the
// lines above that it continues (each without its final "_").
std::wstring StatementBeforeCaret(const kernel::CodeView& view);
// The words of a text that may name a procedure, in order: runs of letters, digits and "_"
// that start with a letter and end before another character; strings in double quotes are
// skipped, and the word still open at the end is not one.
std::vector<std::wstring> CalledWords(const std::wstring& text);
// What to offer for a call whose text behind the procedure name is `remainder`: every
// argument when nothing is written yet, the arguments not yet named (each with ":=") once
// one is; nothing when positional arguments are written.
std::vector<std::wstring> ArgumentChoices(const std::wstring& remainder, const std::vector<std::wstring>& arguments);

void ExplicitArgumentAdd(kernel::Session& s);
void ExplicitArgumentCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);

}  // namespace quillet::generators
