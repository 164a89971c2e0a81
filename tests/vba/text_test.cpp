#include "vba/text.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <unordered_set>

namespace quillet::vba {
namespace {

TEST(Text, LettersOfEveryScriptButNotDigitsOrPunctuation) {
  for (wchar_t c : std::wstring(L"aZéÉßÿŸıĳŉΩωςΆЖжЁёґєїאبあ漢한ǅ")) EXPECT_TRUE(IsLetter(c)) << int(c);
  for (wchar_t c : std::wstring(L"09_ -.,;:!?$€£×÷°§\t\u00A0\u0301\u0660\u2160"))
    EXPECT_FALSE(IsLetter(c)) << int(c);
  EXPECT_TRUE(IsDigit(L'7'));
  EXPECT_FALSE(IsDigit(L'\u0663'));  // an Arabic-Indic digit is no "0" to "9"
  EXPECT_TRUE(IsIdentifierChar(L'_'));
  EXPECT_TRUE(IsIdentifierChar(L'5'));
  EXPECT_TRUE(IsIdentifierChar(L'ü'));
  EXPECT_FALSE(IsIdentifierChar(L'-'));
  EXPECT_TRUE(IsBlank(L' '));
  EXPECT_FALSE(IsBlank(L'\t'));
  EXPECT_FALSE(IsBlank(L'\u00A0'));
}

TEST(Text, CaseMappingOfLatinGreekAndCyrillic) {
  EXPECT_EQ(UCase(L"été"), L"ÉTÉ");
  EXPECT_EQ(LCase(L"ÉTÉ"), L"été");
  EXPECT_EQ(UCase(L"straße"), L"STRAßE");  // no one-character upper case for ß
  EXPECT_EQ(LCase(L"ẞ"), L"ß");
  EXPECT_EQ(UCase(L"ÿ"), L"Ÿ");
  EXPECT_EQ(LCase(L"Ÿ"), L"ÿ");
  EXPECT_EQ(UCase(L"ĳœšžłőű"), L"ĲŒŠŽŁŐŰ");
  EXPECT_EQ(UCase(L"ǆ"), L"Ǆ");
  EXPECT_EQ(LCase(L"ǅ"), L"ǆ");
  EXPECT_EQ(UCase(L"ǵ"), L"Ǵ");
  EXPECT_EQ(UCase(L"ƀɓ"), L"ɃƁ");
  EXPECT_EQ(UCase(L"σς"), L"ΣΣ");
  EXPECT_EQ(LCase(L"Σ"), L"σ");
  EXPECT_EQ(UCase(L"άέήίόύώϊϋ"), L"ΆΈΉΊΌΎΏΪΫ");
  EXPECT_EQ(LCase(L"ΆΈΉΊΌΎΏ"), L"άέήίόύώ");
  EXPECT_EQ(UCase(L"ὰὑᾀᾳ"), L"ᾺὙᾈᾼ");
  EXPECT_EQ(UCase(L"жёђџґ"), L"ЖЁЂЏҐ");
  EXPECT_EQ(LCase(L"ЖЁЂЏҐӀ"), L"жёђџґӏ");
  EXPECT_EQ(UCase(L"ѣӂ"), L"ѢӁ");
  EXPECT_EQ(UCase(L"ab_12-ÿ×"), L"AB_12-Ÿ×");
  EXPECT_EQ(LCase(L"İI"), L"ii");
  EXPECT_EQ(ToUpper(L'ı'), L'I');
  // Characters without case stay as they are.
  for (wchar_t c : std::wstring(L"1_ -漢א€")) {
    EXPECT_EQ(ToUpper(c), c);
    EXPECT_EQ(ToLower(c), c);
  }
}

TEST(Text, UpperThenLowerRoundTripsAcrossTheBasicPlane) {
  // Every lower case letter whose upper case maps back to it must compare equal to it.
  int pairs = 0;
  for (wchar_t c = 1; c < 0xFFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    wchar_t u = ToUpper(c);
    if (u != c && ToLower(u) == c) {
      ++pairs;
      EXPECT_TRUE(EqualsText(std::wstring(1, c), std::wstring(1, u))) << int(c);
      EXPECT_TRUE(IsLetter(c) || c == 0x345 || (c >= 0x2170 && c <= 0x24E9)) << int(c);
    }
  }
  EXPECT_GT(pairs, 1000);
}

TEST(Text, ComparisonWithoutRegardToCase) {
  EXPECT_TRUE(EqualsText(L"Été", L"été"));
  EXPECT_TRUE(EqualsText(L"ΣΊΣΥΦΟΣ", L"σίσυφος"));
  EXPECT_TRUE(EqualsText(L"Σσς", L"σςΣ"));
  EXPECT_TRUE(EqualsText(L"Жж", L"жЖ"));
  EXPECT_TRUE(EqualsText(L"Ёё", L"ёЁ"));
  EXPECT_FALSE(EqualsText(L"e", L"é"));
  EXPECT_FALSE(EqualsText(L"abc", L"abcd"));
  EXPECT_EQ(CompareText(L"apple", L"APPLE"), 0);
  EXPECT_EQ(CompareText(L"a", L"B"), -1);  // case does not order
  EXPECT_EQ(CompareText(L"b", L"A"), 1);
  EXPECT_EQ(CompareText(L"ab", L"AB c"), -1);
  EXPECT_EQ(CompareText(L"", L""), 0);
  EXPECT_TRUE(StartsWithText(L"Private Sub", L"private "));
  EXPECT_FALSE(StartsWithText(L"Priv", L"private"));
  EXPECT_TRUE(EndsWithText(L"Module1.BAS", L".bas"));
  EXPECT_FALSE(EndsWithText(L"s", L".bas"));
  EXPECT_TRUE(StartsWithText(L"x", L""));
}

TEST(Text, KeyedContainersIgnoreCase) {
  std::map<std::wstring, int, TextLess> ordered{{L"Beta", 2}, {L"alpha", 1}};
  EXPECT_EQ(ordered.count(L"ALPHA"), 1u);
  EXPECT_EQ(ordered.begin()->first, L"alpha");
  EXPECT_FALSE(ordered.emplace(L"BETA", 3).second);

  std::unordered_set<std::wstring, TextHash, TextEqual> hashed{L"Été", L"Жук"};
  EXPECT_EQ(hashed.count(L"ÉTÉ"), 1u);
  EXPECT_EQ(hashed.count(L"жук"), 1u);
  EXPECT_EQ(hashed.count(L"ete"), 0u);
  EXPECT_EQ(TextHash{}(L"Σίσυφος"), TextHash{}(L"ΣΊΣΥΦΟΣ"));
}

}  // namespace
}  // namespace quillet::vba
