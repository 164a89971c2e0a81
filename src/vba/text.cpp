#include "vba/text.h"

#include <functional>

namespace quillet::vba {
namespace {

bool In(wchar_t c, unsigned lo, unsigned hi) {
  auto u = static_cast<unsigned long>(c);
  return u >= lo && u <= hi;
}

// Blocks where upper and lower case alternate: the upper case letter sits on an even
// (or, with oddUpper, an odd) code point and its lower case letter right behind it.
struct PairBlock {
  unsigned lo, hi;
  bool oddUpper;
};
constexpr PairBlock kPairs[] = {
    {0x0100, 0x012F, false}, {0x0132, 0x0137, false}, {0x0139, 0x0148, true},
    {0x014A, 0x0177, false}, {0x0179, 0x017E, true},  {0x01CD, 0x01DC, true},
    {0x01DE, 0x01EF, false}, {0x01F8, 0x021F, false}, {0x0222, 0x0233, false},
    {0x0246, 0x024F, false}, {0x03D8, 0x03EF, false}, {0x0460, 0x0481, false},
    {0x048A, 0x04BF, false}, {0x04C1, 0x04CE, true},  {0x04D0, 0x052F, false},
    {0x1E00, 0x1E95, false}, {0x1EA0, 0x1EFF, false},
};

const PairBlock* PairOf(wchar_t c) {
  for (const auto& b : kPairs)
    if (In(c, b.lo, b.hi)) return &b;
  return nullptr;
}

bool IsUpperInPair(wchar_t c, const PairBlock& b) {
  return ((static_cast<unsigned long>(c) & 1u) == 1u) == b.oddUpper;
}

}  // namespace

bool IsLetter(wchar_t c) {
  if (In(c, 'A', 'Z') || In(c, 'a', 'z')) return true;
  if (c < 0x80) return false;
  if (c == 0xAA || c == 0xB5 || c == 0xBA) return true;
  if (In(c, 0xC0, 0x24F)) return c != 0xD7 && c != 0xF7;
  if (In(c, 0x250, 0x2AF)) return true;                               // IPA
  if (In(c, 0x370, 0x3FF))                                            // Greek
    return !(c == 0x375 || c == 0x37E || c == 0x384 || c == 0x385 || c == 0x387 || c == 0x3F6 ||
             In(c, 0x378, 0x379) || In(c, 0x380, 0x383) || c == 0x38B || c == 0x38D || c == 0x3A2);
  if (In(c, 0x400, 0x481) || In(c, 0x48A, 0x52F)) return true;        // Cyrillic
  if (In(c, 0x531, 0x556) || In(c, 0x561, 0x587)) return true;        // Armenian
  if (In(c, 0x5D0, 0x5EA) || In(c, 0x620, 0x64A)) return true;        // Hebrew, Arabic
  if (In(c, 0x1E00, 0x1FFF)) return true;                             // Latin and Greek extended
  if (In(c, 0x3040, 0x30FF) || In(c, 0x4E00, 0x9FFF) || In(c, 0xAC00, 0xD7A3)) return true;
  if (In(c, 0xFF21, 0xFF3A) || In(c, 0xFF41, 0xFF5A)) return true;
  return false;
}

bool IsDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
bool IsBlank(wchar_t c) { return c == L' '; }
bool IsIdentifierChar(wchar_t c) { return IsLetter(c) || IsDigit(c) || c == L'_'; }

wchar_t ToUpper(wchar_t c) {
  if (In(c, 'a', 'z')) return static_cast<wchar_t>(c - 32);
  if (c < 0x80) return c;
  if (In(c, 0xE0, 0xFE) && c != 0xF7) return static_cast<wchar_t>(c - 32);
  if (c == 0xFF) return 0x178;
  if (c == 0x131) return L'I';
  if (c == 0x17F) return L'S';
  if (const PairBlock* b = PairOf(c)) return IsUpperInPair(c, *b) ? c : static_cast<wchar_t>(c - 1);
  if (In(c, 0x3B1, 0x3C1) || In(c, 0x3C3, 0x3CB)) return static_cast<wchar_t>(c - 32);
  if (c == 0x3C2) return 0x3A3;
  if (c == 0x3AC) return 0x386;
  if (In(c, 0x3AD, 0x3AF)) return static_cast<wchar_t>(c - 37);
  if (c == 0x3CC) return 0x38C;
  if (In(c, 0x3CD, 0x3CE)) return static_cast<wchar_t>(c - 63);
  if (In(c, 0x430, 0x44F)) return static_cast<wchar_t>(c - 32);
  if (In(c, 0x450, 0x45F)) return static_cast<wchar_t>(c - 80);
  if (c == 0x4CF) return 0x4C0;
  if (In(c, 0x561, 0x586)) return static_cast<wchar_t>(c - 48);
  if (In(c, 0x1F00, 0x1FFF)) {
    // Greek extended: lower case rows at xx0-xx7, upper at xx8-xxF for the regular rows.
    unsigned long low = static_cast<unsigned long>(c) & 0xF;
    unsigned long row = static_cast<unsigned long>(c) & 0xFFF0;
    bool regular = row == 0x1F00 || row == 0x1F10 || row == 0x1F20 || row == 0x1F30 || row == 0x1F40 ||
                   row == 0x1F60;
    if (regular && low < 8) return static_cast<wchar_t>(c + 8);
    return c;
  }
  if (In(c, 0xFF41, 0xFF5A)) return static_cast<wchar_t>(c - 32);
  return c;
}

wchar_t ToLower(wchar_t c) {
  if (In(c, 'A', 'Z')) return static_cast<wchar_t>(c + 32);
  if (c < 0x80) return c;
  if (In(c, 0xC0, 0xDE) && c != 0xD7) return static_cast<wchar_t>(c + 32);
  if (c == 0x178) return 0xFF;
  if (c == 0x130) return L'i';
  if (const PairBlock* b = PairOf(c)) {
    if (!IsUpperInPair(c, *b)) return c;
    return In(static_cast<wchar_t>(c + 1), b->lo, b->hi) ? static_cast<wchar_t>(c + 1) : c;
  }
  if (In(c, 0x391, 0x3A1) || In(c, 0x3A3, 0x3AB)) return static_cast<wchar_t>(c + 32);
  if (c == 0x386) return 0x3AC;
  if (In(c, 0x388, 0x38A)) return static_cast<wchar_t>(c + 37);
  if (c == 0x38C) return 0x3CC;
  if (In(c, 0x38E, 0x38F)) return static_cast<wchar_t>(c + 63);
  if (In(c, 0x410, 0x42F)) return static_cast<wchar_t>(c + 32);
  if (In(c, 0x400, 0x40F)) return static_cast<wchar_t>(c + 80);
  if (c == 0x4C0) return 0x4CF;
  if (In(c, 0x531, 0x556)) return static_cast<wchar_t>(c + 48);
  if (In(c, 0x1F00, 0x1FFF)) {
    unsigned long low = static_cast<unsigned long>(c) & 0xF;
    unsigned long row = static_cast<unsigned long>(c) & 0xFFF0;
    bool regular = row == 0x1F00 || row == 0x1F10 || row == 0x1F20 || row == 0x1F30 || row == 0x1F40 ||
                   row == 0x1F60;
    if (regular && low >= 8) return static_cast<wchar_t>(c - 8);
    return c;
  }
  if (In(c, 0xFF21, 0xFF3A)) return static_cast<wchar_t>(c + 32);
  return c;
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
    h ^= static_cast<std::size_t>(ToUpper(c));
    h *= 1099511628211ull;
  }
  return h;
}

}  // namespace quillet::vba
