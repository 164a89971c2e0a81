#include "analysis/live_code.h"

#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {

bool CodeHasText(std::wstring_view code, std::wstring_view text) {
  if (code.empty() || text.empty()) return false;
  if (vba::InStr(code, text, vba::Compare::Text) == 0) return false;
  bool inString = false;
  size_t lineStart = 0;
  while (lineStart <= code.size()) {
    size_t lineEnd = code.find(L"\r\n", lineStart);
    if (lineEnd == std::wstring_view::npos) lineEnd = code.size();
    const std::wstring_view line = code.substr(lineStart, lineEnd - lineStart);
    const long p = vba::InStr(line, text, vba::Compare::Text);
    if (p > 0) {
      bool miss = false;
      for (size_t i = 0; i + 1 < static_cast<size_t>(p) && !miss; ++i) {
        const wchar_t c = line[i];
        if (c == L'\'' || vba::EqualsText(line.substr(i, 3), L"Rem")) {
          miss = true;
        } else if (c == L'"') {
          inString = true;
          const size_t close = line.find(L'"', i + 1);
          i = close == std::wstring_view::npos || close >= static_cast<size_t>(p) - 1 ? static_cast<size_t>(p) - 1 : close;
        }
      }
      if (!miss && !inString) return true;
    }
    lineStart = lineEnd + 2;
  }
  return false;
}

}  // namespace quillet::analysis
