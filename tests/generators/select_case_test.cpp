// The Select Case writer's text, without an editor: the module before (caret marked), the
// request, and the module after with the caret, plus the keystrokes that follow.
#include <gtest/gtest.h>

#include "generators/select_case.h"
#include "kernel/code_edit.h"
#include "support/code_markers.h"

using namespace quillet;
using generators::SelectCaseRequest;

namespace {

using Lines = std::vector<std::wstring>;

Lines After(const Lines& marked, const SelectCaseRequest& r, const std::wstring& tab = L"    ") {
  test::MarkedCode code = test::Unmark(marked);
  kernel::CodeView view = kernel::ViewOf(code.lines, code.selection, tab);
  kernel::CodeEdit edit = generators::SelectCaseEdit(view, r);
  EXPECT_TRUE(kernel::KeepsUserLines(view, edit));
  return test::Mark(kernel::EditedLines(code.lines, edit), edit.caret.value_or(code.selection));
}

TEST(SelectCase, BooleanAndTypedValues) {
  const Lines sub = {L"Sub A()", L"    |", L"End Sub"};
  EXPECT_EQ(After(sub, {.command = L"Select Case", .testExpression = L"bDone", .booleanTest = true}),
            (Lines{L"Sub A()", L"    Select Case| bDone", L"    Case True", L"        ", L"    Case False", L"        ",
                   L"    End Select", L"End Sub"}));
  EXPECT_EQ(After(sub, {.command = L"Select Case Else", .testExpression = L"bDone", .booleanTest = true}),
            (Lines{L"Sub A()", L"    Select Case| bDone", L"    Case True", L"        ", L"    Case Else", L"",
                   L"    End Select", L"End Sub"}));
  // Typed values, each with its body line; "Case Else" has an empty one. Tab width 2.
  EXPECT_EQ(After({L"Sub A()", L"  |", L"End Sub"},
                  {.command = L"Select Case Else", .testExpression = L"n", .values = {L"1", L"\"a\""}}, L"  "),
            (Lines{L"Sub A()", L"  Select Case| n", L"  Case 1", L"    ", L"  Case \"a\"", L"    ", L"  Case Else", L"",
                   L"  End Select", L"End Sub"}));
  // No test expression: the head keeps its trailing blank; below a line with code.
  EXPECT_EQ(After({L"Sub A()", L"    |x = 1", L"End Sub"}, {.command = L"Select Case"}),
            (Lines{L"Sub A()", L"    x = 1", L"    Select Case| ", L"    End Select", L"End Sub"}));
  // A continued test expression: each further piece on its own line.
  EXPECT_EQ(After(sub, {.command = L"Select Case UCase", .testExpression = L"F(a, _\r\n b)", .values = {L"\"X\""}}),
            (Lines{L"Sub A()", L"    Select Case| F(a, _", L"     b)", L"    Case \"X\"", L"        ",
                   L"    End Select", L"End Sub"}));
}

TEST(SelectCase, EnumMembers) {
  const Lines fn = {L"Function Color() As String", L"    |", L"End Function"};
  SelectCaseRequest r{.command = L"Select From Enum", .testExpression = L"c", .members = {L"xlRed", L"abcdBlue"}};
  EXPECT_EQ(After(fn, r), (Lines{L"Function Color() As String", L"    Select Case| c", L"    Case xlRed", L"        ",
                                 L"    Case abcdBlue", L"        ", L"    End Select", L"End Function"}));
  // Return values of a String function drop a tag of up to three lower-case letters.
  r.returnValues = true;
  r.compact = true;
  r.addCaseElse = true;
  r.caseElseText = L"Stop";
  r.returnValue = {.procName = L"Color", .returnType = L"string"};
  EXPECT_EQ(After(fn, r),
            (Lines{L"Function Color() As String", L"    Select Case| c", L"    Case xlRed: Color = \"Red\"",
                   L"    Case abcdBlue: Color = \"abcdBlue\"", L"    Case Else: Stop", L"    End Select", L"End Function"}));
  // An enum of the module as return type, not compact.
  r.compact = false;
  r.addCaseElse = false;
  r.returnValue = {.procName = L"Color", .returnType = L"ColorKind", .moduleEnum = true};
  EXPECT_EQ(After(fn, r), (Lines{L"Function Color() As String", L"    Select Case| c", L"    Case xlRed",
                                 L"        Color = ColorKind.", L"    Case abcdBlue", L"        Color = ColorKind.",
                                 L"    End Select", L"End Function"}));
  // One clause for all members; any other return type gets an open assignment.
  r.singleCase = true;
  EXPECT_EQ(After(fn, r), (Lines{L"Function Color() As String", L"    Select Case| c", L"    Case xlRed, abcdBlue",
                                 L"        ", L"    End Select", L"End Function"}));
  r.singleCase = false;
  r.members = {L"a"};
  r.returnValue = {.procName = L"Color", .returnType = L"Variant"};
  EXPECT_EQ(After(fn, r)[3], L"        Color = ");
}

TEST(SelectCase, TagsAndKeys) {
  EXPECT_EQ(generators::WithoutTag(L"xlRed"), L"Red");
  EXPECT_EQ(generators::WithoutTag(L"vbeOne"), L"One");
  EXPECT_EQ(generators::WithoutTag(L"abcdRed"), L"abcdRed");
  EXPECT_EQ(generators::WithoutTag(L"Red"), L"Red");
  using generators::SelectCaseKeys;
  EXPECT_EQ(SelectCaseKeys({.command = L"Select Case", .testExpression = L"x"}), L"{Down 2} {Backspace}");
  EXPECT_EQ(SelectCaseKeys({.command = L"Select Case Else", .testExpression = L"F(a, _\r\n b)"}),
            L"{Down 3} {Backspace}");
  EXPECT_EQ(SelectCaseKeys({.command = L"Select Case UCase", .testExpression = L"UCase(x)"}), L"");
  EXPECT_EQ(SelectCaseKeys({.command = L"Select From Enum", .testExpression = L"x"}), L"");
  EXPECT_EQ(SelectCaseKeys({.command = L"Select From Enum"}), L" ");
}

}  // namespace
