#pragma once
// The small commands of the code window that work on the selection or the selected
// component: comment lines on and off, importing and exporting component files.
//   CommentLinesAdd(s);   // "x = 1" -> "'x = 1" on each selected line
//   ExportFile(s);        // asks where, then writes the selected component as the editor does
#include <string>
#include <vector>

#include "codetools/pane_lines.h"
#include "kernel/session.h"

namespace quillet::codetools {

void CommentLinesAdd(kernel::Session& s);
void CommentLinesRemove(kernel::Session& s);
// True when a file was imported into the active project.
bool ImportFile(kernel::Session& s);
// True when the selected component was written to a file.
bool ExportFile(kernel::Session& s);

// The lines a comment command works on: a selection that ends in column 1 of a later line
// leaves that line out (`lastLineCut`); a bare caret is `noSelection`.
struct CommentFrame {
  long first = 0, last = 0;
  bool lastLineCut = false;
  bool noSelection = false;
};
CommentFrame CommentFrameOf(const host::Selection& sel);

// The edit of a comment command: the new text of the frame's lines, whether any changed,
// and the selection afterwards.
struct CommentEdit {
  std::vector<std::wstring> lines;
  bool changed = false;
  host::Selection selection;
};
// An apostrophe in front of each line.
CommentEdit CommentedLines(std::vector<std::wstring> lines, const host::Selection& sel);
// The first apostrophe of each line that begins (behind its blanks) with one.
CommentEdit UncommentedLines(std::vector<std::wstring> lines, const host::Selection& sel);

}  // namespace quillet::codetools
