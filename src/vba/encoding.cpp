#include "vba/encoding.h"

#include <array>

namespace quillet::vba {
namespace {

// The bytes 0x80 to 0x9F of Windows-1252; the unassigned ones keep their C1 value.
constexpr std::array<char16_t, 32> kHigh = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::optional<char> ByteOf(wchar_t ch) {
  auto c = static_cast<char32_t>(ch);
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  for (std::size_t i = 0; i < kHigh.size(); ++i)
    if (kHigh[i] == c) return static_cast<char>(0x80 + i);
  return std::nullopt;
}

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

// Appends one code point as the platform's wide characters: one wchar_t where it is
// 32 bits wide, a surrogate pair beyond U+FFFF where it is 16 bits.
void AppendWide(std::wstring& out, char32_t c) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (c > 0xFFFF) {
      c -= 0x10000;
      out += static_cast<wchar_t>(0xD800 + (c >> 10));
      out += static_cast<wchar_t>(0xDC00 + (c & 0x3FF));
      return;
    }
  }
  out += static_cast<wchar_t>(c);
}

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// Decodes one UTF-8 sequence at s[i]; returns the code point or -1, advancing i.
long DecodeOne(std::string_view s, std::size_t& i) {
  auto b = static_cast<unsigned char>(s[i]);
  int extra;
  char32_t c;
  if (b < 0x80) {
    ++i;
    return b;
  } else if ((b & 0xE0) == 0xC0) {
    extra = 1;
    c = b & 0x1F;
  } else if ((b & 0xF0) == 0xE0) {
    extra = 2;
    c = b & 0x0F;
  } else if ((b & 0xF8) == 0xF0) {
    extra = 3;
    c = b & 0x07;
  } else {
    ++i;
    return -1;
  }
  if (i + extra >= s.size()) {
    ++i;
    return -1;
  }
  for (int k = 1; k <= extra; ++k) {
    auto n = static_cast<unsigned char>(s[i + k]);
    if ((n & 0xC0) != 0x80) {
      ++i;
      return -1;
    }
    c = (c << 6) | (n & 0x3F);
  }
  static constexpr char32_t kMin[] = {0, 0x80, 0x800, 0x10000};
  if (c < kMin[extra] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
    ++i;
    return -1;
  }
  i += extra + 1;
  return static_cast<long>(c);
}

}  // namespace

std::string ToUtf8(std::wstring_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size(); ++i) {
    auto c = static_cast<char32_t>(s[i]);
    // A surrogate pair (16-bit wide characters) is one code point; a lone surrogate or
    // a value beyond Unicode has no UTF-8 form.
    if (IsHighSurrogate(c) && i + 1 < s.size() && IsLowSurrogate(static_cast<char32_t>(s[i + 1]))) {
      c = 0x10000 + ((c - 0xD800) << 10) + (static_cast<char32_t>(s[++i]) - 0xDC00);
    } else if (IsHighSurrogate(c) || IsLowSurrogate(c) || c > 0x10FFFF) {
      c = kReplacement;
    }
    AppendUtf8(out, c);
  }
  return out;
}

std::wstring FromUtf8(std::string_view s) {
  std::wstring out;
  out.reserve(s.size());
  std::size_t i = 0;
  while (i < s.size()) {
    long c = DecodeOne(s, i);
    AppendWide(out, c < 0 ? kReplacement : static_cast<char32_t>(c));
  }
  return out;
}

std::optional<std::wstring> FromUtf8Strict(std::string_view s) {
  std::wstring out;
  out.reserve(s.size());
  std::size_t i = 0;
  while (i < s.size()) {
    long c = DecodeOne(s, i);
    if (c < 0) return std::nullopt;
    AppendWide(out, static_cast<char32_t>(c));
  }
  return out;
}

std::wstring FromWindows1252(std::string_view bytes) {
  std::wstring out(bytes.size(), L'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    auto b = static_cast<unsigned char>(bytes[i]);
    out[i] = (b & 0xE0) == 0x80 ? static_cast<wchar_t>(kHigh[b - 0x80]) : static_cast<wchar_t>(b);
  }
  return out;
}

std::optional<std::string> ToWindows1252(std::wstring_view s) {
  std::string out;
  out.reserve(s.size());
  for (wchar_t c : s) {
    auto b = ByteOf(c);
    if (!b) return std::nullopt;
    out += *b;
  }
  return out;
}

std::string ToWindows1252Lossy(std::wstring_view s) {
  std::string out;
  out.reserve(s.size());
  for (wchar_t c : s) out += ByteOf(c).value_or('?');
  return out;
}

}  // namespace quillet::vba
