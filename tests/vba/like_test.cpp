#include "vba/like.h"

#include <gtest/gtest.h>

#include <chrono>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

struct LikeCase {
  const wchar_t* text;
  const wchar_t* pattern;
  bool matches;
};

template <std::size_t N>
void Check(const LikeCase (&cases)[N]) {
  for (const auto& c : cases) EXPECT_EQ(Like(c.text, c.pattern), c.matches) << c.text << " Like " << c.pattern;
}

TEST(Like, Wildcards) {
  const LikeCase cases[] = {
      {L"", L"", true},         {L"", L"*", true},         {L"", L"***", true},
      {L"", L"?", false},       {L"a", L"", false},        {L"abc", L"a*", true},
      {L"a", L"a*", true},      {L"abc", L"*c", true},     {L"abc", L"a*b*c", true},
      {L"abc", L"a*d", false},  {L"abc", L"a?c", true},    {L"ac", L"a?c", false},
      {L"x12y", L"x##y", true}, {L"x1ay", L"x##y", false}, {L"\u0661", L"#", false},
      {L"aaa", L"*a", true},    {L"Private Sub Foo()", L"*Sub *(*)", true},
      {L"C:\\Work", L"?:\\*", true},   {L"\\\\srv\\share", L"\\\\*\\*", true},
      {L"C:\\Work", L"\\\\*\\*", false}, {L"mississippi", L"*iss*ppi", true},
      {L"mississippi", L"*iss*pp", false},
  };
  Check(cases);
}

TEST(Like, CharacterLists) {
  const LikeCase cases[] = {
      {L"b", L"[abc]", true},   {L"d", L"[abc]", false},   {L"q", L"[a-z]", true},
      {L"Q", L"[a-z]", false},  {L"7", L"[a-z0-9]", true}, {L"d", L"[!abc]", true},
      {L"a", L"[!abc]", false}, {L"", L"[!abc]", false},   {L"é", L"[à-ÿ]", true},
      {L"ж", L"[а-я]", true},
      // "!" negates only first in a list; elsewhere it is itself.
      {L"x!", L"x!", true},     {L"!", L"[a!]", true},     {L"b", L"[a!]", false},
      // "-" first (after any "!") or last in a list is itself.
      {L"-", L"[-a]", true},    {L"-", L"[a-]", true},     {L"b", L"[a-]", false},
      {L"-", L"[!-a]", false},  {L"b", L"[!-a]", true},
      // Special characters are themselves inside a list, "]" outside one.
      {L"[", L"[[]", true},     {L"a*b", L"a[*]b", true},  {L"axb", L"a[*]b", false},
      {L"?#", L"[?][#]", true}, {L"]", L"]", true},        {L"a]", L"[a]]", true},
      // "[]" stands for no character at all.
      {L"ab", L"a[]b", true},   {L"", L"[]", true},        {L"a", L"[]", false},
  };
  Check(cases);
}

TEST(Like, MalformedPatternsRaiseError93) {
  EXPECT_TRUE(Raises(93, [] { Like(L"a", L"["); }));
  EXPECT_TRUE(Raises(93, [] { Like(L"a", L"[abc"); }));
  EXPECT_TRUE(Raises(93, [] { Like(L"a", L"[z-a]"); }));
  // The pattern is checked whole, even when the text fails before the fault.
  EXPECT_TRUE(Raises(93, [] { Like(L"x", L"a[b"); }));
  EXPECT_TRUE(Raises(93, [] { Like(L"b", L"[Z-A]", Compare::Text); }));
}

TEST(Like, BinaryIsCaseSensitiveTextIsNot) {
  EXPECT_FALSE(Like(L"ABC", L"abc"));
  EXPECT_TRUE(Like(L"ABC", L"abc", Compare::Text));
  EXPECT_FALSE(Like(L"ÉTÉ", L"été"));
  EXPECT_TRUE(Like(L"ÉTÉ", L"été", Compare::Text));
  EXPECT_TRUE(Like(L"ΣΊΣΥΦΟΣ", L"σ*ς", Compare::Text));
  EXPECT_TRUE(Like(L"ЖУК", L"ж?к", Compare::Text));
  EXPECT_TRUE(Like(L"Q", L"[a-z]", Compare::Text));
  EXPECT_TRUE(Like(L"É", L"[à-ÿ]", Compare::Text));
  EXPECT_FALSE(Like(L"É", L"[!é]", Compare::Text));
  EXPECT_TRUE(Like(L"PRIVATE SUB X", L"private sub *", Compare::Text));
}

TEST(Like, ManyStarsStayFast) {
  std::wstring text(20000, L'a');
  auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(Like(text, L"*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(Like(text + L"b", L"*a*a*a*a*a*a*a*a*b"));
  EXPECT_FALSE(Like(text, L"*?*?*?*?*?*?*c*"));
  auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_LT(elapsed, std::chrono::seconds(2));
}

}  // namespace
}  // namespace quillet::vba
