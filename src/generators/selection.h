#pragma once
// Text that replaces the selection: an instance name put into a line, a literal that a
// picker chose.
#include <string>

#include <optional>

#include "hostmodel/vbe.h"
#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

struct InstanceOptions {
  bool allowEmptySelection = false;  // a bare caret takes the text too
  bool sendKeys = false;             // keystrokes make the host check the line
};
// Puts `text` into the selected part of one line, with a blank on either side where the
// neighbours need one; `text` comes back with those blanks. Without `allowEmptySelection` a
// bare caret writes nothing, and a selection over lines writes nothing either.
void InstanceAdd(kernel::Session& s, const host::Ptr<host::CodePane>& pane, std::wstring& text, InstanceOptions options);
std::optional<kernel::CodeEdit> InstanceEdit(const kernel::CodeView& view, std::wstring& text, InstanceOptions options);
// Replaces the selection, which may span lines, by `text`.
void SelectionReplace(kernel::Session& s, std::wstring text);
// A file name chosen in an open-file dialog, in double quotes, at the caret.
void FilenameAdd(kernel::Session& s);
// A folder name chosen in the folder chooser, in double quotes, at the caret.
void FoldernameAdd(kernel::Session& s);

}  // namespace quillet::generators
