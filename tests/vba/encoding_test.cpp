#include "vba/encoding.h"

#include <gtest/gtest.h>

namespace quillet::vba {
namespace {

TEST(Encoding, Utf8RoundTripsEveryLengthOfSequence) {
  std::wstring text = L"A é € 𝄞 Жж";
  std::string bytes = ToUtf8(text);
  EXPECT_EQ(bytes, "A \xC3\xA9 \xE2\x82\xAC \xF0\x9D\x84\x9E \xD0\x96\xD0\xB6");
  EXPECT_EQ(FromUtf8(bytes), text);
  EXPECT_EQ(FromUtf8Strict(bytes), text);
  EXPECT_EQ(ToUtf8(L""), "");
}

TEST(Encoding, InvalidUtf8IsReplacedOrRejected) {
  const char* bad[] = {
      "\xC3",              // truncated
      "\xC3(",             // missing continuation
      "\xC0\xAF",          // overlong "/"
      "\xE0\x80\xAF",      // overlong
      "\xED\xA0\x80",      // surrogate
      "\xF4\x90\x80\x80",  // beyond U+10FFFF
      "\xFF",
      "\x80",
  };
  for (const char* b : bad) {
    EXPECT_FALSE(FromUtf8Strict(b).has_value()) << b;
    EXPECT_NE(FromUtf8(b).find(L'\uFFFD'), std::wstring::npos) << b;
  }
  EXPECT_EQ(FromUtf8("a\xFF" "b"), L"a\uFFFDb");
  EXPECT_EQ(FromUtf8("\xC3("), L"\uFFFD(");
  // A sequence that ends the input exactly is complete.
  EXPECT_EQ(FromUtf8("\xE2\x82\xAC"), L"€");
}

TEST(Encoding, WideCharactersWithoutUtf8FormBecomeReplacementCharacters) {
  std::wstring lone(1, static_cast<wchar_t>(0xD800));
  EXPECT_EQ(ToUtf8(lone), "\xEF\xBF\xBD");
}

TEST(Encoding, Windows1252MapsTheHighBytesAndRoundTripsEveryByte) {
  EXPECT_EQ(FromWindows1252("\x80\x8A\x9F\xE9\xFF"), L"€ŠŸéÿ");
  EXPECT_EQ(ToWindows1252(L"€ŠŸéÿ"), std::string("\x80\x8A\x9F\xE9\xFF"));
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  std::wstring wide = FromWindows1252(all);
  ASSERT_EQ(wide.size(), 256u);
  EXPECT_EQ(wide[0x81], L'\u0081');  // unassigned bytes keep their C1 control
  EXPECT_EQ(ToWindows1252(wide), all);
}

TEST(Encoding, CharactersOutsideWindows1252) {
  EXPECT_FALSE(ToWindows1252(L"Жук").has_value());
  EXPECT_FALSE(ToWindows1252(L"\u0080").has_value());  // € owns byte 0x80
  EXPECT_EQ(ToWindows1252Lossy(L"aЖ€b"), "a?\x80" "b");
}

}  // namespace
}  // namespace quillet::vba
