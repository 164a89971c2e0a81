#include "codetools/pane_lines.h"

#include "vba/strings.h"

namespace quillet::codetools {

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
