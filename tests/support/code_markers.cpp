#include "support/code_markers.h"

#include <stdexcept>

namespace quillet::test {

MarkedCode Unmark(const std::vector<std::wstring>& marked) {
  MarkedCode code;
  bool haveStart = false, haveEnd = false;
  for (std::size_t i = 0; i < marked.size(); ++i) {
    std::wstring line = marked[i];
    long n = static_cast<long>(i) + 1;
    for (std::size_t at; (at = line.find(L"[[")) != std::wstring::npos;) {
      code.selection.startLine = n, code.selection.startColumn = static_cast<long>(at) + 1;
      haveStart = true;
      line.erase(at, 2);
    }
    for (std::size_t at; (at = line.find(L"]]")) != std::wstring::npos;) {
      code.selection.endLine = n, code.selection.endColumn = static_cast<long>(at) + 1;
      haveEnd = true;
      line.erase(at, 2);
    }
    if (std::size_t at = line.find(L'|'); at != std::wstring::npos) {
      code.selection = host::Selection(n, static_cast<long>(at) + 1);
      haveStart = haveEnd = true;
      line.erase(at, 1);
    }
    code.lines.push_back(line);
  }
  if (haveStart != haveEnd) throw std::invalid_argument("a selection marker \"[[\" or \"]]\" without its other end");
  return code;
}

std::vector<std::wstring> Mark(std::vector<std::wstring> lines, const host::Selection& s) {
  auto put = [&](long line, long column, const wchar_t* marker) {
    while (static_cast<long>(lines.size()) < line) lines.emplace_back();
    std::wstring& text = lines[line - 1];
    if (static_cast<long>(text.size()) < column - 1) text.resize(column - 1, L' ');
    text.insert(column - 1, marker);
  };
  if (s.IsCaret()) {
    put(s.startLine, s.startColumn, L"|");
  } else {
    put(s.endLine, s.endColumn, L"]]");  // the end first, so the start's column stays
    put(s.startLine, s.startColumn, L"[[");
  }
  return lines;
}

}  // namespace quillet::test
