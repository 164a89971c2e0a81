#pragma once
// The zones of a fragment that wraps a procedure's body: the text before "<end_of_top>" goes
// under the declarations, the text after "<begin_of_bottom>" goes above the procedure's exit
// line, and what stands between the two marks (the middle) goes where the caret is.
//
//   FragmentZones z = FragmentZonesSplit(L"    On Error GoTo X\r\n<end_of_top>\r\n<begin_of_bottom>\r\nX:");
//   // z.top == L"    On Error GoTo X", z.middle == L"", z.bottom == L"\r\nX:"
#include <memory>
#include <string>

#include "analysis/scan_proc.h"

#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::generators {

struct FragmentZones {
  std::wstring top;     // lines joined by CR LF, without a final line end
  std::wstring middle;
  std::wstring bottom;
  bool hasTop = false;     // the fragment holds "<end_of_top>"
  bool hasBottom = false;  // the fragment holds "<begin_of_bottom>"
};

// Splits a fragment at its marks (case-insensitive). Without the marks the whole text is
// the middle. Each zone loses the line ends at its end (and a last line of blanks); the bottom keeps the one that ends
// the mark's line, so the bottom part stands one blank line below the code above it.
FragmentZones FragmentZonesSplit(const std::wstring& text);

// A text without the line ends at its end, nor a last line of blanks there.
std::wstring TrailingLineEndsRemoved(std::wstring text);

// The text before the first `mark` (any case), without the line ends at its end, and the
// text behind it, without the line end of the mark's own line. False without the mark.
bool FragmentSplitAt(const std::wstring& text, std::wstring_view mark, std::wstring& before, std::wstring& after);

// Puts a zone's lines before line `line` of the pane's module; the caret keeps its place
// in the user's code. Nothing for an empty zone or a line below 1.
void FragmentZonePlace(kernel::Session& s, host::CodePane& pane, long line, const std::wstring& zone);

// A fresh scan of the procedure at the caret, kept as the session's current one: the
// procedure's lines move with each zone placed.
std::shared_ptr<analysis::clsScanProc> ProcScanRefresh(kernel::Session& s);

}  // namespace quillet::generators
