#pragma once
// A place in a module: from (startLine, startColumn) to (endLine, endColumn), 1-based, the
// end column being the column behind the last selected character. A caret is a selection
// whose two ends meet.
//
//   host::Selection caret(3, 5);              // line 3, before the fifth character
//   host::Selection lines{2, 1, 4, 1};        // lines 2 and 3 whole
//   if (pane->GetSelection().IsCaret()) ...
#include <compare>

namespace quillet::host {

struct Selection {
  long startLine = 1, startColumn = 1, endLine = 1, endColumn = 1;

  constexpr Selection() = default;
  constexpr Selection(long startLine, long startColumn, long endLine, long endColumn)
      : startLine(startLine), startColumn(startColumn), endLine(endLine), endColumn(endColumn) {}
  // A caret: both ends at one place.
  constexpr Selection(long line, long column) : Selection(line, column, line, column) {}

  constexpr bool IsCaret() const { return startLine == endLine && startColumn == endColumn; }
  constexpr bool IsOneLine() const { return startLine == endLine; }
  // The caret at the start of the selection.
  constexpr Selection Start() const { return {startLine, startColumn}; }
  // The caret at the end.
  constexpr Selection End() const { return {endLine, endColumn}; }

  constexpr auto operator<=>(const Selection&) const = default;
};

}  // namespace quillet::host
