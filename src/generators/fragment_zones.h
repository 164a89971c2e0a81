#pragma once
// The zones of a fragment that wraps a procedure's body: the text before "<end_of_top>" goes
// under the declarations, the text after "<begin_of_bottom>" goes above the procedure's exit
// line, and what stands between the two marks (the middle) goes where the caret is.
//
//   FragmentZones z = FragmentZonesSplit(L"    On Error GoTo X\r\n<end_of_top>\r\n<begin_of_bottom>\r\nX:");
//   // z.top == L"    On Error GoTo X", z.middle == L"", z.bottom == L"\r\nX:"
#include <string>

namespace quillet::generators {

struct FragmentZones {
  std::wstring top;     // lines joined by CR LF, without a final line end
  std::wstring middle;
  std::wstring bottom;
  bool hasTop = false;     // the fragment holds "<end_of_top>"
  bool hasBottom = false;  // the fragment holds "<begin_of_bottom>"
};

// Splits a fragment at its marks (case-insensitive). Without the marks the whole text is
// the middle. Each zone loses the line ends at its end; the bottom keeps the one that ends
// the mark's line, so the bottom part stands one blank line below the code above it.
FragmentZones FragmentZonesSplit(const std::wstring& text);

}  // namespace quillet::generators
