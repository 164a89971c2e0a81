#include "vba/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "vba/error.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

enum class Outcome { Ok, Invalid, Overflow };

struct Parsed {
  Outcome outcome = Outcome::Invalid;
  double value = 0;
};

bool IsSpaceLike(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r'; }

int DigitValue(wchar_t c, int base) {
  int v = -1;
  if (c >= L'0' && c <= L'9') v = c - L'0';
  else if (c >= L'a' && c <= L'f') v = c - L'a' + 10;
  else if (c >= L'A' && c <= L'F') v = c - L'A' + 10;
  return v >= 0 && v < base ? v : -1;
}

// Reads the digits of an "&H" or "&O" number at s[i]. Up to four hex digits (six octal)
// make a 16-bit Integer, more a 32-bit Long, both two's complement: "&HFFFF" is -1.
Parsed ReadRadix(std::wstring_view s, std::size_t& i, int base) {
  unsigned long long v = 0;
  std::size_t start = i;
  while (i < s.size()) {
    int d = DigitValue(s[i], base);
    if (d < 0) break;
    v = v * base + d;
    if (v > 0xFFFFFFFFull) return {Outcome::Overflow, 0};
    ++i;
  }
  if (i == start) return {Outcome::Invalid, 0};
  double value;
  if (v <= 0xFFFF) value = static_cast<double>(static_cast<int16_t>(static_cast<uint16_t>(v)));
  else value = static_cast<double>(static_cast<int32_t>(static_cast<uint32_t>(v)));
  return {Outcome::Ok, value};
}

// The power of ten of the leading digit of a number in plain ASCII form ("123" is 2,
// "0.05e3" is 1), only as exact as telling huge from tiny needs.
long long Magnitude(const std::string& text) {
  std::size_t e = text.find('e');
  long long exponent = 0;
  if (e != std::string::npos) {
    std::string_view digits(text.c_str() + e + 1);
    bool negative = !digits.empty() && digits[0] == '-';
    if (!digits.empty() && (digits[0] == '-' || digits[0] == '+')) digits.remove_prefix(1);
    for (char c : digits) exponent = std::min(exponent * 10 + (c - '0'), 100000LL);
    if (negative) exponent = -exponent;
  }
  std::string_view mantissa(text.c_str(), e == std::string::npos ? text.size() : e);
  std::size_t point = mantissa.find('.');
  if (point == std::string_view::npos) point = mantissa.size();
  std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return std::numeric_limits<long long>::min();
  long long lead = first < point ? static_cast<long long>(point - first) - 1
                                 : -static_cast<long long>(first - point);
  return lead + exponent;
}

Parsed FromAscii(const std::string& text) {
  double value = 0;
  auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (ec == std::errc::result_out_of_range) {
    // Too small to represent is zero; too large overflows.
    return Magnitude(text) < 0 ? Parsed{Outcome::Ok, 0} : Parsed{Outcome::Overflow, 0};
  }
  if (ec != std::errc() || end != text.data() + text.size()) return {Outcome::Invalid, 0};
  if (std::isinf(value)) return {Outcome::Overflow, 0};
  return {Outcome::Ok, value};
}

// Reads a decimal number at s[i]: sign, digits, one ".", an exponent with "E" or "D".
// With `commas`, a "," after the first digit of the integer part is a thousands
// separator. An exponent without digits is not part of the number. i ends behind it.
Parsed ReadDecimal(std::wstring_view s, std::size_t& i, bool commas) {
  std::string ascii;
  if (i < s.size() && (s[i] == L'+' || s[i] == L'-')) ascii += static_cast<char>(s[i++]);
  if (!ascii.empty() && ascii[0] == '+') ascii.clear();
  bool digits = false;
  for (; i < s.size() && (IsDigit(s[i]) || (commas && digits && s[i] == L',')); ++i) {
    if (s[i] == L',') continue;
    ascii += static_cast<char>(s[i]);
    digits = true;
  }
  if (i < s.size() && s[i] == L'.') {
    ascii += '.';
    for (++i; i < s.size() && IsDigit(s[i]); ++i) {
      ascii += static_cast<char>(s[i]);
      digits = true;
    }
  }
  if (!digits) return {Outcome::Invalid, 0};
  if (i < s.size() && (s[i] == L'E' || s[i] == L'e' || s[i] == L'D' || s[i] == L'd')) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    if (j < s.size() && (s[j] == L'+' || s[j] == L'-')) exponent += static_cast<char>(s[j++]);
    if (j < s.size() && IsDigit(s[j])) {
      while (j < s.size() && IsDigit(s[j])) exponent += static_cast<char>(s[j++]);
      ascii += exponent;
      i = j;
    }
  }
  return FromAscii(ascii);
}

// Reads a whole number at s[i]: "&H"/"&O" forms or a decimal number.
Parsed ReadNumber(std::wstring_view s, std::size_t& i, bool commas) {
  if (i + 1 < s.size() && s[i] == L'&') {
    wchar_t radix = ToUpper(s[i + 1]);
    if (radix == L'H' || radix == L'O') {
      i += 2;
      return ReadRadix(s, i, radix == L'H' ? 16 : 8);
    }
    return {Outcome::Invalid, 0};
  }
  return ReadDecimal(s, i, commas);
}

// The number the whole text stands for, blanks around it allowed.
Parsed ParseWhole(std::wstring_view s) {
  std::size_t begin = 0, end = s.size();
  while (begin < end && IsSpaceLike(s[begin])) ++begin;
  while (end > begin && IsSpaceLike(s[end - 1])) --end;
  s = s.substr(begin, end - begin);
  std::size_t i = 0;
  Parsed p = ReadNumber(s, i, true);
  if (p.outcome == Outcome::Ok && i != s.size()) p.outcome = Outcome::Invalid;
  return p;
}

double RoundHalfEven(double x) {
  double r = std::floor(x);
  double diff = x - r;
  if (diff > 0.5 || (diff == 0.5 && std::fmod(r, 2.0) != 0)) r += 1;
  return r;
}

template <class Int>
Int RoundToInteger(double value) {
  if (std::isnan(value)) Raise(kErrOverflow);
  double r = RoundHalfEven(value);
  if (r < static_cast<double>(std::numeric_limits<Int>::min()) ||
      r > static_cast<double>(std::numeric_limits<Int>::max()))
    Raise(kErrOverflow);
  return static_cast<Int>(r);
}

}  // namespace

double Val(std::wstring_view s) {
  // Blanks, tabs and line feeds do not count anywhere, so "1 2" reads as 12.
  std::wstring compact;
  compact.reserve(s.size());
  for (wchar_t c : s)
    if (c != L' ' && c != L'\t' && c != L'\n') compact += c;
  std::size_t i = 0;
  Parsed p = ReadNumber(compact, i, false);
  if (p.outcome == Outcome::Overflow) Raise(kErrOverflow);
  return p.outcome == Outcome::Ok ? p.value : 0;
}

bool IsNumeric(std::wstring_view s) { return ParseWhole(s).outcome == Outcome::Ok; }

double CDbl(std::wstring_view s) {
  Parsed p = ParseWhole(s);
  if (p.outcome == Outcome::Overflow) Raise(kErrOverflow);
  if (p.outcome != Outcome::Ok) Raise(kErrTypeMismatch);
  return p.value;
}

int16_t CInt(double value) { return RoundToInteger<int16_t>(value); }
int32_t CLng(double value) { return RoundToInteger<int32_t>(value); }

std::wstring CStr(double value) {
  if (std::isnan(value)) return L"1.#QNAN";
  if (std::isinf(value)) return value < 0 ? L"-1.#INF" : L"1.#INF";
  if (value == 0) return L"0";  // no "-0"
  // Shortest of fixed and scientific within 15 significant digits, as "%.15G" does:
  // scientific from an exponent of 15 up or below -4, with an exponent of two digits at least.
  char buf[64];
  auto [end, ec] = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
  std::wstring out;
  for (char* p = buf; p != end; ++p) out += *p == 'e' ? L'E' : static_cast<wchar_t>(*p);
  return out;
}

std::wstring CStr(long long value) { return std::to_wstring(value); }

}  // namespace quillet::vba
