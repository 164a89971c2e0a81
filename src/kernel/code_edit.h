#pragma once
// An edit as data. A command first reads what it needs of the module through a `CodeView`,
// computes the `CodeEdit` it will make, and `ApplyEdit` writes it into the editor. The text
// logic is then a function from view to edit that tests call without an editor:
//
//   kernel::CodeView view = kernel::ViewOf({L"Sub A()", L"    ", L"End Sub"}, host::Selection(2, 5), L"    ");
//   kernel::CodeEdit edit = kernel::BlockAtLine(view, 2, L"    x = 1");   // replaces the blank line 2
//   std::vector<std::wstring> after = kernel::EditedLines(lines, edit);
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hostmodel/selection.h"
#include "hostmodel/platform.h"
#include "hostmodel/vbe.h"

namespace quillet::kernel {

struct Session;

// What a command sees of the module at the caret.
struct CodeView {
  // The text of a line, "" for a line that does not exist.
  std::function<std::wstring(long line)> line;
  long count = 0;               // lines of the module
  host::Selection selection;    // as the pane holds it
  std::wstring tab;             // one indent step as blanks

  bool Blank(long n) const;
  // The place a statement command writes at. A selection over several lines stands for a
  // caret at its start: its two ends would otherwise hand out one line's place and another
  // line's text, and writing that text back would drop or overwrite a line of the user's.
  host::Selection Place() const { return selection.IsOneLine() ? selection : selection.Start(); }
};

// The view of a pane's module and selection.
CodeView ViewOf(const host::CodePane& pane, std::wstring tab);
// A view of plain lines, for the text logic without an editor.
CodeView ViewOf(std::vector<std::wstring> lines, host::Selection selection, std::wstring tab);

// What a command writes: `text` (lines joined by CR LF) in place of line `line` or before
// it, then the caret, then keystrokes sent to the editor.
struct CodeEdit {
  enum Mode { kInsertBefore, kReplaceLine };
  long line = 1;
  Mode mode = kInsertBefore;
  long replaced = 1;  // kReplaceLine: how many lines from `line` on give way (those that exist)
  std::wstring text;
  std::optional<host::Selection> caret;  // none: the caret moves with the text
  std::wstring keys;  // "" for none

  // The edit's n-th line (0-based).
  std::wstring Line(std::size_t n) const;
};

// The one rule of statement blocks: `block` takes the place of line `line` when that line is
// blank (or does not exist yet), else it goes on the lines below it. The caret is left
// where the text moves it.
CodeEdit BlockAtLine(const CodeView& view, long line, std::wstring block);

// Line `line` (which may not exist yet) becomes `text`, the caret at `caretColumn`.
CodeEdit LineReplaced(long line, std::wstring text, long caretColumn);

// The selection, which may span lines, replaced by `text`; what stands before and behind
// it stays, and the caret goes behind the text.
CodeEdit SelectionReplaced(const CodeView& view, const std::wstring& text);

// Writes the edit into the pane's module, places the caret, queues the keystrokes.
void ApplyEdit(host::Platform& platform, host::CodePane& pane, const CodeEdit& edit);
// The lines after the edit, for tests of the text logic.
std::vector<std::wstring> EditedLines(std::vector<std::wstring> lines, const CodeEdit& edit);
// Whether an edit keeps every line the user wrote: it inserts, or it replaces a blank line,
// or the line it replaces is still there around the inserted text.
bool KeepsUserLines(const CodeView& before, const CodeEdit& edit);

}  // namespace quillet::kernel
