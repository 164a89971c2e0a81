#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/line_scan.h"
#include "analysis_fixture.h"
#include "vba/error.h"

using namespace quillet;
using namespace quillet::analysis;
using Lines = std::vector<std::wstring>;

namespace {

Lines Parts(std::wstring_view line, long* count = nullptr) {
  Lines parts{L"stale"};
  long n = LineDisjunction(line, parts);
  if (count) *count = n;
  return parts;
}

TEST(LineDisjunction, SplitsAtColonBlankOutsideStringsAndDropsComments) {
  long n = 0;
  EXPECT_EQ(Parts(L"x = 1: y = 2", &n), (Lines{L"x = 1", L"y = 2"}));
  EXPECT_EQ(n, 2);
  // Without ": " the line is one part, its comment kept.
  EXPECT_EQ(Parts(L"  x = 1 ' note  "), (Lines{L"x = 1 ' note"}));
  EXPECT_EQ(Parts(L"HandleExit:"), (Lines{L"HandleExit:"}));
  EXPECT_EQ(Parts(L"x = 1 ' a: b"), (Lines{L"x = 1"}));
  // A colon inside a string does not split, though the line holds ": ".
  EXPECT_EQ(Parts(L"x = \"a: b\""), (Lines{L"x = \"a: b\""}));
  EXPECT_EQ(Parts(L"Debug.Print \"it's: here\": x = 1"), (Lines{L"Debug.Print \"it's: here\"", L"x = 1"}));
  // The apostrophe closes what stands before it, even nothing.
  EXPECT_EQ(Parts(L"Foo: ' note", &n), (Lines{L"Foo", L""}));
  EXPECT_EQ(n, 2);
  EXPECT_EQ(Parts(L"a:: b"), (Lines{L"a", L"", L"b"}));
  EXPECT_EQ(Parts(L"x = 1: "), (Lines{L"x = 1", L""}));
  EXPECT_EQ(Parts(L""), (Lines{L""}));

  // The first part alone, a piece of the line itself, is what the definitions keep.
  for (std::wstring_view line : {L"x = 1: y = 2", L"  x = 1 ' note  ", L"x = 1 ' a: b", L"Debug.Print \"it's: here\": x",
                                 L"Foo: ' note", L"a:: b", L"", L"   "}) {
    std::wstring_view first = FirstStatement(line);
    EXPECT_EQ(first, Parts(line).front()) << std::wstring(line);
    EXPECT_TRUE(first.empty() || (first.data() >= line.data() && first.data() + first.size() <= line.data() + line.size()));
  }
}

TEST(LineTests, DeclarationLinesListsAndCounts) {
  EXPECT_TRUE(IsDeclarationLine(L"    dim x As Long", L""));
  EXPECT_TRUE(IsDeclarationLine(L"Const x = 1", L"Sub P()"));
  EXPECT_TRUE(IsDeclarationLine(L"   ", L"x = 1"));
  EXPECT_TRUE(IsDeclarationLine(L"    y As Long", L"    Dim x, _"));
  EXPECT_FALSE(IsDeclarationLine(L"    y As Long", L"    Dim x,_"));
  EXPECT_FALSE(IsDeclarationLine(L"    y As Long", L"    Dim x, _ "));  // the previous line is not trimmed
  EXPECT_FALSE(IsDeclarationLine(L"Dimension = 1", L""));
  EXPECT_FALSE(IsDeclarationLine(L"Dim", L""));
  EXPECT_FALSE(IsDeclarationLine(L"\tDim x", L""));  // a tab is no blank

  Lines parts;
  EXPECT_EQ(DeclListSplit(L"a, b As Long", parts), 2);
  EXPECT_EQ(parts, (Lines{L"a", L"b As Long"}));
  EXPECT_EQ(DeclListSplit(L"x = \"a,b\"", parts), 1);
  EXPECT_EQ(DeclListSplit(L"a(1, 2) As Long,b", parts), 3);  // parentheses do not protect
  EXPECT_EQ(parts, (Lines{L"a(1", L"2) As Long", L"b"}));
  EXPECT_EQ(DeclListSplit(L"a,,b", parts), 3);
  EXPECT_EQ(parts[1], L"");
  EXPECT_EQ(DeclListSplit(L"", parts), 0);
  EXPECT_TRUE(parts.empty());

  EXPECT_EQ(SubstringCount(L"a\r\nb\r\nc", L"\r\n"), 2);
  EXPECT_EQ(SubstringCount(L"aaaa", L"aa"), 2);
  EXPECT_EQ(SubstringCount(L"aAa", L"a"), 2);
  EXPECT_EQ(SubstringCount(L"abc", L""), 0);
}

TEST(LineTests, StringTrimCharsKeepsAllDelimiterTextsAndShortRemainders) {
  EXPECT_EQ(StringTrimChars(L"\r\n\r\nabc\r\n\r\n", L"\r\n", kTrimBoth), L"abc");
  EXPECT_EQ(StringTrimChars(L"\r\nabc\r\n", L"\r\n", kTrimLeft), L"abc\r\n");
  EXPECT_EQ(StringTrimChars(L"C:\\Work\\\\", L"\\", kTrimRight), L"C:\\Work");
  EXPECT_EQ(StringTrimChars(L"\\\\\\", L"\\", kTrimBoth), L"\\\\\\");
  EXPECT_EQ(StringTrimChars(L"\\a", L"\\", kTrimLeft), L"\\a");
  EXPECT_EQ(StringTrimChars(L"\\\\ab", L"\\", kTrimLeft), L"ab");
  EXPECT_EQ(StringTrimChars(L"abab", L"ab", kTrimBoth), L"abab");
  EXPECT_EQ(StringTrimChars(L"x\r", L"\r\n", kTrimBoth), L"x\r");
}

TEST(LineTests, ExitInsideIfAndProcedureTypeWord) {
  Lines a{L"Sub P()", L"    If a Then Exit Sub", L"    End If: Exit Sub", L"    Exit Sub", L"End Sub"};
  EXPECT_TRUE(ExitLineIsInsideIf(a, 1));
  EXPECT_TRUE(ExitLineIsInsideIf(a, 2));   // "End If" with two lines behind it
  EXPECT_FALSE(ExitLineIsInsideIf(a, 3));
  a.push_back(L"");
  EXPECT_FALSE(ExitLineIsInsideIf(a, 2));  // three lines behind it
  Lines block{L"Sub P()", L"    If a Then", L"        Exit Sub", L"    End If", L"End Sub"};
  EXPECT_FALSE(ExitLineIsInsideIf(block, 2));  // a block If is not seen
  EXPECT_THROW(ExitLineIsInsideIf(block, 5), vba::Error);

  EXPECT_EQ(ProcedureTypeGet(L"Total", L"Private Function Total(a As Long) As Long"), L"Function");
  EXPECT_EQ(ProcedureTypeGet(L"total", L"FUNCTION TOTAL(x)"), L"Function");
  EXPECT_EQ(ProcedureTypeGet(L"Count", L"Property Get Count() As Long"), L"Property");
  // Only the text up to the name counts, and "(" must follow the name directly.
  EXPECT_EQ(ProcedureTypeGet(L"Go", L"Sub Go(ByVal f As Function_)"), L"Sub");
  EXPECT_EQ(ProcedureTypeGet(L"F", L"Function F$(a)"), L"Sub");
  EXPECT_EQ(ProcedureTypeGet(L"F", L"Function F (a)"), L"Sub");
}

struct DeclArea : test::AnalysisFixture {
  long start = -1, end = -1, defLines = -1;
  void OnText(std::wstring text, bool countOnError = true) {
    start = end = defLines = -1;
    ProcDeclAreaGet(s, start, end, 0, defLines, countOnError, text);
  }
};

TEST_F(DeclArea, OnTextDefinitionsCommentsBlanksAndOnError) {
  OnText(L"Sub P()\r\nEnd Sub");
  EXPECT_EQ(start, 2);  // no body: the area starts on the End line and has no lines
  EXPECT_EQ(end, 1);
  EXPECT_EQ(defLines, 1);

  OnText(L"Sub P(a As Long, _\r\n      b As Long, _\r\n      c As Long)\r\n    Dim x\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(defLines, 3);
  EXPECT_EQ(start, 4);
  EXPECT_EQ(end, 4);

  // Comments and blanks under the definition move the start; trailing blanks are cut.
  OnText(L"Sub P()\r\n    ' note\r\n\r\n    Dim x As Long\r\n    Const y = 1\r\n\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(start, 4);
  EXPECT_EQ(end, 5);

  // A continued declaration counts whatever its second line holds.
  OnText(L"Sub P()\r\n    Dim x As Long, _\r\n        y As Long\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(end, 3);

  OnText(L"Sub P()\r\n    On Error GoTo HandleErr\r\n    x = 1\r\nEnd Sub");
  EXPECT_EQ(start, 2);
  EXPECT_EQ(end, 2);
  OnText(L"Sub P()\r\n    On Error GoTo HandleErr\r\n    x = 1\r\nEnd Sub", false);
  EXPECT_EQ(end, 1);

  // Declarations behind the On Error line extend the area, with or without the flag.
  const std::wstring behind = L"Sub P()\r\n    Dim a\r\n\r\n    ON ERROR GoTo H\r\n    Dim b\r\n\r\n    a = 1\r\nEnd Sub";
  OnText(behind);
  EXPECT_EQ(start, 2);
  EXPECT_EQ(end, 5);
  OnText(behind, false);
  EXPECT_EQ(end, 5);

  // A blank line right above an On Error line with nothing behind it pulls the end back
  // onto that blank line when the flag is set.
  const std::wstring blankAbove = L"Sub P()\r\n    Dim a\r\n\r\n    On Error GoTo H\r\n    a = 1\r\nEnd Sub";
  OnText(blankAbove);
  EXPECT_EQ(end, 3);
  OnText(blankAbove, false);
  EXPECT_EQ(end, 2);

  // "On Error" needs its blank: "On ErrorX" is no On Error line.
  OnText(L"Sub P()\r\n    Dim a\r\n    On Errors = 1\r\nEnd Sub");
  EXPECT_EQ(end, 2);
  EXPECT_EQ(Reported(), L"");
}

TEST_F(DeclArea, TextEndingInsideAWalkIsReportedAndKeepsTheValuesReached) {
  OnText(L"Sub P()\r\n    Dim a");
  EXPECT_EQ(defLines, 1);
  EXPECT_EQ(start, 2);
  EXPECT_EQ(end, 1);
  EXPECT_NE(Reported().find(L"basGlobal.ProcDeclAreaGet"), std::wstring::npos);
  EXPECT_NE(Reported().find(L"9: Subscript out of range"), std::wstring::npos);
}

struct ModuleLines : test::AnalysisFixture {
  std::shared_ptr<host::MemoryCodeModule> m;
  ModuleLines() {
    m = Code({
        L"Option Explicit",                     // 1
        L"",                                    // 2
        L"' Adds",                              // 3
        L"Public Sub Add(a As Long, _",         // 4
        L"               b As Long)",           // 5
        L"    Dim x As Long",                   // 6
        L"    On Error GoTo HandleErr",         // 7
        L"    x = a + b",                       // 8
        L"    If x = 0 Then Exit Sub ' zero",   // 9
        L"HandleExit:",                         // 10
        L"    Exit Sub",                        // 11
        L"HandleErr:",                          // 12
        L"    Resume HandleExit",               // 13
        L"End Sub",                             // 14
        L"",                                    // 15
    });
  }
};

TEST_F(ModuleLines, DeclarationAreaAndExitLineOfAModuleProcedure) {
  long start = 0, end = 0, defLines = 0;
  std::wstring text;
  ProcDeclAreaGet(s, start, end, 4, defLines, true, text);
  EXPECT_EQ(defLines, 2);
  EXPECT_EQ(start, 6);
  EXPECT_EQ(end, 7);
  EXPECT_EQ(text, m->Lines(4, 12));  // handed back: the definition to the procedure's last line

  text.clear();
  EXPECT_EQ(ProcExitLineGet(s, 4, 14, L"Sub", text, true), 11);
  EXPECT_EQ(text, m->Lines(4, 11));
  EXPECT_EQ(ProcExitLineGet(s, 4, 14, L"Function", text, true), 14);
  EXPECT_EQ(Reported(), L"");

  // Lines that do not exist: reported, nothing found.
  EXPECT_EQ(ProcExitLineGet(s, 4, 99, L"Sub", text, true), 0);
  EXPECT_NE(Reported().find(L"basGlobal.ProcExitLineGet"), std::wstring::npos);
}

TEST_F(ModuleLines, ExitLineOnTextSkipsCommentsRemAndLooksForIfs) {
  // "Rem" counts anywhere before the Exit, inside a word too, but only in that case.
  std::wstring text = L"\r\nSub P()\r\n    Exit Sub\r\n    ' Exit Sub\r\n    Rem Exit Sub\r\n    RemainingCount = 1: exit sub\r\n"
                      L"End Sub\r\n\r\n";
  // On text a hit is the 0-based index of its line; leading and trailing line ends do not count.
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", text, true), 1);
  std::wstring lower = L"Sub P()\r\n    Exit Sub\r\n    Premium = 1: Exit Sub\r\nEnd Sub";
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", lower, true), 2);

  std::wstring lastInIf = L"Sub P()\r\n    Exit Sub\r\n    If x Then Exit Sub\r\n    y = 1\r\nEnd Sub";
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", lastInIf, true), 5);  // the default: the number of lines
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", lastInIf, false), 2);

  // The definition line is never a hit, nor is the last line looked at.
  std::wstring onDefinition = L"Sub P(): Exit Sub\r\n    y = 1\r\nEnd Sub: Exit Sub";
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", onDefinition, true), 3);
  std::wstring property = L"Property Get P()\r\n    Exit Property\r\n    P = 1\r\nEnd Property";
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Property", property, true), 1);
  std::wstring empty;
  EXPECT_EQ(ProcExitLineGet(s, 0, 0, L"Sub", empty, true), 0);
  EXPECT_EQ(Reported(), L"");
}

using DeclStatements = test::AnalysisFixture;

TEST_F(DeclStatements, ModuleDeclarationStatementsJoinContinuationsAndDropComments) {
  auto m = Code({
      L"Option Explicit",                      // 1
      L"' module comment",                     // 2
      L"Private Const A = 1, _",               // 3
      L"    B = 2 ' two",                      // 4
      L"Dim m As Long: Dim n As String",       // 5
      L"Private Const Q = \"it's\"",           // 6
      L"",                                     // 7
      L"Public Enum Colors",                   // 8
      L"    Red = 1 ' first",                  // 9
      L"    Green",                            // 10
      L"End Enum",                             // 11
      L"Private Declare Function GetTickCount Lib \"kernel32\" () As Long",  // 12
      L"",                                     // 13
      L"Sub P()",                              // 14
      L"    Dim z",                            // 15
      L"End Sub",                              // 16
  });
  ASSERT_EQ(m->CountOfDeclarationLines(), 12);
  Lines statements{L"kept"};
  ModuleDeclLinesGet(*m, statements);
  EXPECT_EQ(statements, (Lines{L"kept", L"Option Explicit", L"Private Const A = 1, B = 2", L"Dim m As Long",
                               L"Dim n As String",
                               // The comment cut does not look at strings.
                               L"Private Const Q = \"it", L"Public Enum Colors", L"Red = 1", L"Green", L"End Enum",
                               L"Private Declare Function GetTickCount Lib \"kernel32\" () As Long"}));

  auto empty = Code({L"Sub P()", L"End Sub"}, 1, L"Module2");
  Lines none;
  ModuleDeclLinesGet(*empty, none);
  EXPECT_TRUE(none.empty());
}

}  // namespace
