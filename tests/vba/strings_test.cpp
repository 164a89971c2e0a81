#include "vba/strings.h"

#include <gtest/gtest.h>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;
using Lines = std::vector<std::wstring>;

TEST(Strings, InStrEdgeRules) {
  EXPECT_EQ(InStr(L"abcabc", L"c"), 3);
  EXPECT_EQ(InStr(4, L"abcabc", L"c"), 6);
  EXPECT_EQ(InStr(7, L"abcabc", L"c"), 0);
  EXPECT_EQ(InStr(L"abc", L"x"), 0);
  EXPECT_EQ(InStr(L"ab", L"abc"), 0);
  // An empty search text is found at start, up to one behind the end.
  EXPECT_EQ(InStr(L"abc", L""), 1);
  EXPECT_EQ(InStr(3, L"abc", L""), 3);
  EXPECT_EQ(InStr(4, L"abc", L""), 4);
  EXPECT_EQ(InStr(5, L"abc", L""), 0);
  EXPECT_EQ(InStr(L"", L""), 0);
  EXPECT_EQ(InStr(L"", L"a"), 0);
  EXPECT_TRUE(Raises(5, [] { InStr(0, L"abc", L"a"); }));
  EXPECT_TRUE(Raises(5, [] { InStr(-1, L"", L""); }));
  // Compare modes.
  EXPECT_EQ(InStr(L"Dim X As Long", L"as"), 0);
  EXPECT_EQ(InStr(L"Dim X As Long", L"as", Compare::Text), 7);
  EXPECT_EQ(InStr(1, L"ÉTÉ été", L"été", Compare::Text), 1);
  EXPECT_EQ(InStr(2, L"ÉTÉ été", L"été", Compare::Text), 5);
  EXPECT_EQ(InStr(L"ЖУК жук", L"жук"), 5);
}

TEST(Strings, InStrRevEdgeRules) {
  EXPECT_EQ(InStrRev(L"C:\\Work\\x.bas", L"\\"), 8);
  EXPECT_EQ(InStrRev(L"abcabc", L"abc"), 4);
  EXPECT_EQ(InStrRev(L"abcabc", L"abc", 5), 1);  // the match must end by start
  EXPECT_EQ(InStrRev(L"abcabc", L"abc", 6), 4);
  EXPECT_EQ(InStrRev(L"abcabc", L"c", 2), 0);
  EXPECT_EQ(InStrRev(L"abc", L"abcd"), 0);
  EXPECT_EQ(InStrRev(L"abc", L"a", 4), 0);  // start beyond the end
  EXPECT_EQ(InStrRev(L"abc", L""), 3);
  EXPECT_EQ(InStrRev(L"abc", L"", 2), 2);
  EXPECT_EQ(InStrRev(L"", L""), 0);
  EXPECT_EQ(InStrRev(L"", L"a"), 0);
  EXPECT_EQ(InStrRev(L"aXbx", L"x", -1, Compare::Text), 4);
  EXPECT_EQ(InStrRev(L"aXbx", L"X", 3, Compare::Text), 2);
  EXPECT_TRUE(Raises(5, [] { InStrRev(L"abc", L"a", 0); }));
  EXPECT_TRUE(Raises(5, [] { InStrRev(L"abc", L"a", -2); }));
}

TEST(Strings, MidLeftRightEdgeRules) {
  EXPECT_EQ(Mid(L"abcdef", 2, 3), L"bcd");
  EXPECT_EQ(Mid(L"abcdef", 4), L"def");
  EXPECT_EQ(Mid(L"abcdef", 5, 10), L"ef");
  EXPECT_EQ(Mid(L"abcdef", 7), L"");
  EXPECT_EQ(Mid(L"abcdef", 100, 2), L"");
  EXPECT_EQ(Mid(L"abcdef", 3, 0), L"");
  EXPECT_EQ(Mid(L"", 1), L"");
  EXPECT_TRUE(Raises(5, [] { Mid(L"abc", 0); }));
  EXPECT_TRUE(Raises(5, [] { Mid(L"abc", 1, -1); }));
  EXPECT_TRUE(Raises(5, [] { Mid(L"", 0, 1); }));

  EXPECT_EQ(Left(L"abc", 2), L"ab");
  EXPECT_EQ(Left(L"abc", 0), L"");
  EXPECT_EQ(Left(L"abc", 9), L"abc");
  EXPECT_EQ(Right(L"abc", 2), L"bc");
  EXPECT_EQ(Right(L"abc", 0), L"");
  EXPECT_EQ(Right(L"abc", 9), L"abc");
  EXPECT_TRUE(Raises(5, [] { Left(L"abc", -1); }));
  EXPECT_TRUE(Raises(5, [] { Right(L"abc", -1); }));
  EXPECT_EQ(Len(L"été"), 3);
}

TEST(Strings, TrimRemovesBlanksOnly) {
  EXPECT_EQ(Trim(L"  a b  "), L"a b");
  EXPECT_EQ(LTrim(L"  a b  "), L"a b  ");
  EXPECT_EQ(RTrim(L"  a b  "), L"  a b");
  EXPECT_EQ(Trim(L"\t a \t"), L"\t a \t");
  EXPECT_EQ(Trim(L" \u00A0x\u00A0 "), L"\u00A0x\u00A0");
  EXPECT_EQ(Trim(L"    "), L"");
  EXPECT_EQ(LTrim(L"   "), L"");
  EXPECT_EQ(RTrim(L""), L"");
  EXPECT_EQ(Space(3), L"   ");
  EXPECT_EQ(String(2, L'é'), L"éé");
  EXPECT_EQ(Space(0), L"");
  EXPECT_TRUE(Raises(5, [] { Space(-1); }));
  EXPECT_TRUE(Raises(5, [] { String(-2, L'x'); }));
}

TEST(Strings, ReplaceEdgeRules) {
  EXPECT_EQ(Replace(L"a.b.c", L".", L"::"), L"a::b::c");
  EXPECT_EQ(Replace(L"aaa", L"aa", L"b"), L"ba");  // matches do not overlap
  EXPECT_EQ(Replace(L"a.b.c", L".", L"", 1, 1), L"ab.c");
  EXPECT_EQ(Replace(L"a.b.c", L".", L"-", 1, 0), L"a.b.c");
  // The result starts at start.
  EXPECT_EQ(Replace(L"a.b.c", L".", L"-", 3), L"b-c");
  EXPECT_EQ(Replace(L"abc", L"x", L"y", 2), L"bc");
  EXPECT_EQ(Replace(L"abc", L"b", L"y", 4), L"");
  EXPECT_EQ(Replace(L"abc", L"", L"y"), L"abc");
  EXPECT_EQ(Replace(L"abc", L"", L"y", 2), L"bc");
  EXPECT_EQ(Replace(L"", L"a", L"b"), L"");
  EXPECT_EQ(Replace(L"Dim x AS Long", L"as", L"As"), L"Dim x AS Long");
  EXPECT_EQ(Replace(L"Dim x AS Long", L"as", L"As", 1, -1, Compare::Text), L"Dim x As Long");
  EXPECT_EQ(Replace(L"Été été", L"ÉTÉ", L"x", 1, -1, Compare::Text), L"x x");
  // The replacement is not searched again.
  EXPECT_EQ(Replace(L"ab", L"a", L"aa"), L"aab");
  EXPECT_TRUE(Raises(5, [] { Replace(L"abc", L"a", L"b", 0); }));
  EXPECT_TRUE(Raises(5, [] { Replace(L"abc", L"a", L"b", 1, -2); }));
}

TEST(Strings, SplitAndJoinAsVba) {
  EXPECT_EQ(Split(L""), Lines{});
  EXPECT_EQ(Split(L"", L","), Lines{});
  EXPECT_EQ(Split(L"a b", L""), Lines{L"a b"});
  EXPECT_EQ(Split(L"a b  c"), (Lines{L"a", L"b", L"", L"c"}));
  EXPECT_EQ(Split(L",a,,b,", L","), (Lines{L"", L"a", L"", L"b", L""}));
  EXPECT_EQ(Split(L",", L","), (Lines{L"", L""}));
  EXPECT_EQ(Split(L"a<>b<>c", L"<>"), (Lines{L"a", L"b", L"c"}));
  EXPECT_EQ(Split(L"a,b,c", L",", 2), (Lines{L"a", L"b,c"}));
  EXPECT_EQ(Split(L"a,b,c", L",", 1), Lines{L"a,b,c"});
  EXPECT_EQ(Split(L"a,b,c", L",", 5), (Lines{L"a", L"b", L"c"}));
  EXPECT_EQ(Split(L"a,b", L",", 0), Lines{});
  EXPECT_EQ(Split(L"aXbxc", L"x"), (Lines{L"aXb", L"c"}));
  EXPECT_EQ(Split(L"aXbxc", L"x", -1, Compare::Text), (Lines{L"a", L"b", L"c"}));
  EXPECT_TRUE(Raises(5, [] { Split(L"a", L",", -2); }));

  EXPECT_EQ(Join({L"a", L"", L"b"}, L", "), L"a, , b");
  EXPECT_EQ(Join({L"a", L"b"}), L"a b");
  EXPECT_EQ(Join({}, L","), L"");
  EXPECT_EQ(Join(Split(L",a,,b,", L","), L","), L",a,,b,");
  EXPECT_EQ(StrReverse(L"été!"), L"!été");
  EXPECT_EQ(StrComp(L"a", L"B"), 1);
  EXPECT_EQ(StrComp(L"a", L"B", Compare::Text), -1);
  EXPECT_EQ(StrComp(L"Été", L"ÉTÉ", Compare::Text), 0);
  EXPECT_EQ(StrComp(L"ab", L"abc"), -1);
}

TEST(Strings, LinesSplitAtEveryBreakAndJoinWithCrLf) {
  EXPECT_EQ(SplitLines(L""), Lines{L""});
  EXPECT_EQ(SplitLines(L"a"), Lines{L"a"});
  EXPECT_EQ(SplitLines(L"a\r\nb\rc\nd"), (Lines{L"a", L"b", L"c", L"d"}));
  EXPECT_EQ(SplitLines(L"a\r\n"), (Lines{L"a", L""}));
  EXPECT_EQ(SplitLines(L"\n\r"), (Lines{L"", L"", L""}));    // LF, then a lone CR
  EXPECT_EQ(SplitLines(L"\r\n\r\n"), (Lines{L"", L"", L""}));
  EXPECT_EQ(JoinLines({L"a", L"b"}), L"a\r\nb");
  EXPECT_EQ(JoinLines({L"a", L""}), L"a\r\n");
  EXPECT_EQ(JoinLines({}), L"");
  EXPECT_EQ(JoinLines(SplitLines(L"x\r\n\r\ny")), L"x\r\n\r\ny");
}

}  // namespace
}  // namespace quillet::vba
