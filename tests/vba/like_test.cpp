#include "vba/like.h"

#include <gtest/gtest.h>

#include <chrono>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

TEST(Like, Wildcards) {
  EXPECT_TRUE(Like(L"", L""));
  EXPECT_TRUE(Like(L"", L"*"));
  EXPECT_TRUE(Like(L"", L"***"));
  EXPECT_FALSE(Like(L"", L"?"));
  EXPECT_FALSE(Like(L"a", L""));
  EXPECT_TRUE(Like(L"abc", L"a*"));
  EXPECT_TRUE(Like(L"a", L"a*"));  // "*" matches nothing too
  EXPECT_TRUE(Like(L"abc", L"*c"));
  EXPECT_TRUE(Like(L"abc", L"a*b*c"));
  EXPECT_FALSE(Like(L"abc", L"a*d"));
  EXPECT_TRUE(Like(L"abc", L"a?c"));
  EXPECT_FALSE(Like(L"ac", L"a?c"));
  EXPECT_TRUE(Like(L"x12y", L"x##y"));
  EXPECT_FALSE(Like(L"x1ay", L"x##y"));
  EXPECT_FALSE(Like(L"\u0661", L"#"));
  EXPECT_TRUE(Like(L"Private Sub Foo()", L"*Sub *(*)"));
  EXPECT_TRUE(Like(L"C:\\Work", L"?:\\*"));
  EXPECT_TRUE(Like(L"\\\\srv\\share", L"\\\\*\\*"));
  EXPECT_FALSE(Like(L"C:\\Work", L"\\\\*\\*"));
  EXPECT_TRUE(Like(L"mississippi", L"*iss*ppi"));
  EXPECT_FALSE(Like(L"mississippi", L"*iss*pp"));
  EXPECT_TRUE(Like(L"aaa", L"*a"));
}

TEST(Like, CharacterLists) {
  EXPECT_TRUE(Like(L"b", L"[abc]"));
  EXPECT_FALSE(Like(L"d", L"[abc]"));
  EXPECT_TRUE(Like(L"q", L"[a-z]"));
  EXPECT_FALSE(Like(L"Q", L"[a-z]"));
  EXPECT_TRUE(Like(L"7", L"[a-z0-9]"));
  EXPECT_TRUE(Like(L"d", L"[!abc]"));
  EXPECT_FALSE(Like(L"a", L"[!abc]"));
  EXPECT_FALSE(Like(L"", L"[!abc]"));  // a list always takes one character
  EXPECT_TRUE(Like(L"x!", L"x!"));    // "!" outside a list is itself
  EXPECT_TRUE(Like(L"!", L"[a!]"));   // and not first in a list too
  EXPECT_FALSE(Like(L"b", L"[a!]"));
  // "-" first (after any "!") or last is itself.
  EXPECT_TRUE(Like(L"-", L"[-a]"));
  EXPECT_TRUE(Like(L"-", L"[a-]"));
  EXPECT_FALSE(Like(L"b", L"[a-]"));
  EXPECT_FALSE(Like(L"-", L"[!-a]"));
  EXPECT_TRUE(Like(L"b", L"[!-a]"));
  // Special characters are themselves inside a list.
  EXPECT_TRUE(Like(L"[", L"[[]"));
  EXPECT_TRUE(Like(L"a*b", L"a[*]b"));
  EXPECT_FALSE(Like(L"axb", L"a[*]b"));
  EXPECT_TRUE(Like(L"?#", L"[?][#]"));
  EXPECT_TRUE(Like(L"]", L"]"));        // "]" outside a list is itself
  EXPECT_TRUE(Like(L"a]", L"[a]]"));
  // "[]" stands for no character at all.
  EXPECT_TRUE(Like(L"ab", L"a[]b"));
  EXPECT_TRUE(Like(L"", L"[]"));
  EXPECT_FALSE(Like(L"a", L"[]"));
  EXPECT_TRUE(Like(L"é", L"[à-ÿ]"));
  EXPECT_TRUE(Like(L"ж", L"[а-я]"));
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
