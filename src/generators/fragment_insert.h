#pragma once
// Merging a fragment into code. A fragment may place code in three spots at once: the part
// before "<end_of_top>" goes under the procedure's declarations, the part behind
// "<begin_of_bottom>" above its exit, and what stands between goes where the caret is.
// "<BeforeHandleExitLabel>" splits the body from clean-up code behind the exit label.
//
//   std::wstring proc = L"Sub A()\r\n    Dim x As Long\r\n    x = 1\r\nEnd Sub";
//   std::wstring frag = L"    Dim t As Single\r\n<end_of_top>\r\n    t = Timer\r\n<begin_of_bottom>\r\n    Debug.Print Timer - t";
//   FragmentToTextOfProcedureAdd(s, frag, proc, L"Sub");
//   // Sub A() / Dim x / Dim t / t = Timer / x = 1 / Debug.Print Timer - t / End Sub
#include <memory>
#include <optional>
#include <string>

#include "analysis/scan_proc.h"
#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// Merges `fragment` into the text of a procedure still being generated; the result is in
// `procedureText`. `procedureType` is "Sub", "Function" or "Property" (the kind of its Exit
// statement). Nothing happens when either text is empty.
void FragmentToTextOfProcedureAdd(kernel::Session& s, std::wstring& fragment, std::wstring& procedureText,
                                  const std::wstring& procedureType);

// Where the caret's part of a fragment goes: in place of a blank caret line, on the lines
// below the caret for several lines, into the line at the caret (with the blanks a word
// needs there) for one line. nullopt when the caret cannot take it.
std::optional<kernel::CodeEdit> FragmentCaretEdit(const kernel::CodeView& view, std::wstring text);

// Merges `text` into the procedure of `scanner` in the active module: open tokens take
// their defaults and their declarations, the top and bottom parts go to the head and the
// exit of the procedure, the rest to the caret; then the caret goes to the "<cursor>" mark.
// Without a scanner nothing happens. `text` comes back as the part written at the caret.
void FragmentToProcedureAdd(kernel::Session& s, std::wstring& text, std::shared_ptr<analysis::clsScanProc> scanner);

// The whole insertion of the Fragment Builder's OK: `text` at the caret of the active pane,
// indented as the place is unless it is one line going into a line of code; inside a
// procedure through FragmentToProcedureAdd, outside one on the caret line (in place of it
// when blank). False without a code pane.
bool FragmentInsert(kernel::Session& s, std::wstring text);

}  // namespace quillet::generators
