#include "vba/text.h"

#include <algorithm>
#include <span>

#include "vba/unicode_tables.h"

namespace quillet::vba {
namespace {

// The last entry of a table sorted by `lo` whose lo is at most c, or nullptr.
template <class Entry>
const Entry* Floor(std::span<const Entry> table, char32_t c) {
  auto it = std::upper_bound(table.begin(), table.end(), c,
                             [](char32_t v, const Entry& e) { return v < e.lo; });
  return it == table.begin() ? nullptr : &*(it - 1);
}

wchar_t MapCase(std::span<const unicode::CaseRun> runs, wchar_t c) {
  auto u = static_cast<char32_t>(c);
  const unicode::CaseRun* run = Floor(runs, u);
  if (!run || u > run->hi || (u - run->lo) % run->step != 0) return c;
  return static_cast<wchar_t>(static_cast<int32_t>(u) + run->delta);
}

}  // namespace

bool IsLetter(wchar_t c) {
  if (c < 0x80) return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
  auto u = static_cast<char32_t>(c);
  const unicode::Range* r = Floor(unicode::kLetterRanges, u);
  return r && u <= r->hi;
}

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool IsBlank(wchar_t c) { return c == L' '; }
bool IsIdentifierChar(wchar_t c) { return IsLetter(c) || IsDigit(c) || c == L'_'; }

wchar_t ToUpper(wchar_t c) {
  if (c < 0x80) return (c >= L'a' && c <= L'z') ? static_cast<wchar_t>(c - 32) : c;
  return MapCase(unicode::kUpperRuns, c);
}

wchar_t ToLower(wchar_t c) {
  if (c < 0x80) return (c >= L'A' && c <= L'Z') ? static_cast<wchar_t>(c + 32) : c;
  return MapCase(unicode::kLowerRuns, c);
}

std::wstring UCase(std::wstring_view s) {
  std::wstring out(s);
  for (auto& c : out) c = ToUpper(c);
  return out;
}

std::wstring LCase(std::wstring_view s) {
  std::wstring out(s);
  for (auto& c : out) c = ToLower(c);
  return out;
}

int CompareText(std::wstring_view a, std::wstring_view b) {
  std::size_t n = a.size() < b.size() ? a.size() : b.size();
  for (std::size_t i = 0; i < n; ++i) {
    wchar_t x = ToUpper(a[i]), y = ToUpper(b[i]);
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool EqualsText(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i] && ToUpper(a[i]) != ToUpper(b[i])) return false;
  return true;
}

bool StartsWithText(std::wstring_view s, std::wstring_view prefix) {
  return s.size() >= prefix.size() && EqualsText(s.substr(0, prefix.size()), prefix);
}

bool EndsWithText(std::wstring_view s, std::wstring_view suffix) {
  return s.size() >= suffix.size() && EqualsText(s.substr(s.size() - suffix.size()), suffix);
}

std::size_t TextHash::operator()(std::wstring_view s) const {
  std::size_t h = 1469598103934665603ull;
  for (wchar_t c : s) {
    const wchar_t upper = c < 0x80 ? (c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c) : ToUpper(c);
    h ^= static_cast<std::size_t>(upper);
    h *= 1099511628211ull;
  }
  return h;
}

}  // namespace quillet::vba
