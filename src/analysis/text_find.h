#pragma once
// Searching without regard to case, as InStr with text compare does, but without making
// upper-case copies: the scans search every line of long procedures.
#include <string_view>

#include "vba/text.h"

namespace quillet::analysis {

// The upper case of `c`, with the common ASCII case decided here.
inline wchar_t UpperOf(wchar_t c) {
  if (c < 0x80) return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
  return vba::ToUpper(c);
}

// 1-based position of the first `needle` in `hay`, 0 when there is none or `needle` is empty.
inline long FindText(std::wstring_view hay, std::wstring_view needle) {
  if (needle.empty() || needle.size() > hay.size()) return 0;
  const wchar_t first = UpperOf(needle[0]);
  for (std::size_t i = 0, last = hay.size() - needle.size(); i <= last; ++i) {
    if (UpperOf(hay[i]) != first) continue;
    std::size_t k = 1;
    while (k < needle.size() && UpperOf(hay[i + k]) == UpperOf(needle[k])) ++k;
    if (k == needle.size()) return static_cast<long>(i) + 1;
  }
  return 0;
}

// 1-based position of the last `needle` in `hay`, 0 when there is none or `needle` is empty.
inline long FindLastText(std::wstring_view hay, std::wstring_view needle) {
  if (needle.empty() || needle.size() > hay.size()) return 0;
  for (std::size_t i = hay.size() - needle.size() + 1; i-- > 0;) {
    std::size_t k = 0;
    while (k < needle.size() && UpperOf(hay[i + k]) == UpperOf(needle[k])) ++k;
    if (k == needle.size()) return static_cast<long>(i) + 1;
  }
  return 0;
}

}  // namespace quillet::analysis
