#include "codetools/pane_lines.h"

#include "vba/strings.h"

namespace quillet::codetools {

PaneSelection SelectionOf(const host::CodePane& pane) {
  PaneSelection sel;
  pane.GetSelection(sel.startLine, sel.startColumn, sel.endLine, sel.endColumn);
  return sel;
}

void Select(host::CodePane& pane, const PaneSelection& sel) {
  pane.SetSelection(sel.startLine, sel.startColumn, sel.endLine, sel.endColumn);
}

host::Ptr<host::CodePane> ActivePane(kernel::Session& s) { return s.vbe ? s.vbe->ActiveCodePane() : nullptr; }

std::vector<std::wstring> ReadLines(const host::CodeModule& module, long first, long last) {
  if (last < first) return {};
  return vba::SplitLines(module.Lines(first, last - first + 1));
}

void WriteChangedLines(host::CodeModule& module, long first, const std::vector<std::wstring>& before,
                       const std::vector<std::wstring>& after) {
  for (std::size_t k = 0; k < after.size(); ++k)
    if (k >= before.size() || before[k] != after[k]) module.ReplaceLine(first + static_cast<long>(k), after[k]);
}

}  // namespace quillet::codetools
