#pragma once
// Characters and case, Unicode-correct for at least Latin, Greek and Cyrillic,
// independent of the process's locale.
#include <cstddef>
#include <string>
#include <string_view>

namespace quillet::vba {

bool IsLetter(wchar_t c);        // "é", "Ω", "ж" are letters; digits and "_" are not
bool IsDigit(wchar_t c);         // "0" to "9" only
bool IsBlank(wchar_t c);         // the blank " " only (VBA's Trim removes nothing else)
bool IsIdentifierChar(wchar_t c);  // letter, digit or "_"
wchar_t ToUpper(wchar_t c);
wchar_t ToLower(wchar_t c);
std::wstring UCase(std::wstring_view s);
std::wstring LCase(std::wstring_view s);

// Text comparison: without regard to case. Returns -1, 0 or 1.
int CompareText(std::wstring_view a, std::wstring_view b);
bool EqualsText(std::wstring_view a, std::wstring_view b);
bool StartsWithText(std::wstring_view s, std::wstring_view prefix);
bool EndsWithText(std::wstring_view s, std::wstring_view suffix);

// For ordered and hashed containers keyed without regard to case.
struct TextLess {
  using is_transparent = void;
  bool operator()(std::wstring_view a, std::wstring_view b) const { return CompareText(a, b) < 0; }
};
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::wstring_view s) const;
};
struct TextEqual {
  using is_transparent = void;
  bool operator()(std::wstring_view a, std::wstring_view b) const { return EqualsText(a, b); }
};

}  // namespace quillet::vba
