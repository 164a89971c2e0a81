// The statement commands' text logic, without an editor: each case is the module before
// (caret or selection marked), the command, and the module after with the caret.
#include <gtest/gtest.h>

#include <functional>

#include "generators/statements.h"
#include "kernel/code_edit.h"
#include "support/code_markers.h"

using namespace quillet;

namespace {

using Lines = std::vector<std::wstring>;
using Command = std::function<kernel::CodeEdit(const kernel::CodeView&)>;

// The module after `command`, with the caret where the edit leaves it; the edit must keep
// every line the user wrote.
Lines After(const Lines& marked, const Command& command, const std::wstring& tab = L"    ") {
  test::MarkedCode code = test::Unmark(marked);
  kernel::CodeView view = kernel::ViewOf(code.lines, code.selection, tab);
  kernel::CodeEdit edit = command(view);
  EXPECT_TRUE(kernel::KeepsUserLines(view, edit));
  return test::Mark(kernel::EditedLines(code.lines, edit), edit.caret.value_or(code.selection));
}

Command Insert(const std::wstring& text, const std::wstring& command, generators::InsertOptions options) {
  return [=](const kernel::CodeView& v) { return generators::CodeInsertEdit(v, text, command, options); };
}
Command Loop(const std::wstring& command) {
  return [=](const kernel::CodeView& v) { return *generators::LoopEdit(v, command); };
}
Command If(const std::wstring& command, int elseIfs = 0) {
  return [=](const kernel::CodeView& v) { return generators::IfEdit(v, command, elseIfs); };
}
Command With(const std::wstring& expression) {
  return [=](const kernel::CodeView& v) { return *generators::WithEdit(v, expression); };
}

const generators::InsertOptions kInline{.allowInline = true, .spaceBefore = true};

TEST(StatementEdits, OneLineStatementsGoInlineOnlyWhereTheCommandAllows) {
  EXPECT_EQ(After({L"Sub A()", L"    x = 1: |", L"End Sub"}, Insert(L"Debug.Print ", L"Debug.Print ", kInline)),
            Lines({L"Sub A()", L"    x = 1: Debug.Print |", L"End Sub"}));
  EXPECT_EQ(After({L"Sub A()", L"    x = 1|", L"End Sub"}, Insert(L"Debug.Print ", L"Debug.Print ", kInline)),
            Lines({L"Sub A()", L"    x = 1", L"    Debug.Print |", L"End Sub"}));
  EXPECT_EQ(After({L"    x =| 1"}, Insert(L"Sheet1", L"Insert Objectname", kInline)), Lines({L"    x = Sheet1| 1"}));
  EXPECT_EQ(After({L"    |x = 1"}, Insert(L"Sheet1", L"Insert Objectname", {.allowInline = true})),
            Lines({L"    Sheet1|x = 1"}));
  // On a blank line the statement stands where the caret stands.
  EXPECT_EQ(After({L"Sub A()", L"  |", L"End Sub"}, Insert(L"On Error GoTo 0", L"", {.spaceBefore = true})),
            Lines({L"Sub A()", L"  On Error GoTo 0|", L"End Sub"}));
  // Exit goes inline only at the end of a line.
  EXPECT_EQ(After({L"    x = 1|"}, Insert(L"Exit Sub", L"Exit", kInline)), Lines({L"    x = 1 Exit Sub|"}));
  EXPECT_EQ(After({L"    x| = 1"}, Insert(L"Exit Sub", L"Exit", kInline)), Lines({L"    x = 1", L"    Exit Sub|"}));
}

TEST(StatementEdits, BlocksReplaceABlankCaretLineAndGoBelowCode) {
  EXPECT_EQ(After({L"Sub A()", L"|", L"    x = 1", L"End Sub"}, With(L"Sheet1")),
            Lines({L"Sub A()", L"    With Sheet1", L"        |", L"    End With", L"    x = 1", L"End Sub"}));
  EXPECT_EQ(After({L"    x = 1|"}, With(L"Range(\"A1\")")),
            Lines({L"    x = 1", L"         With Range(\"A1\")|", L"             ", L"         End With"}));
  EXPECT_EQ(After({L"Sub A()", L"        |", L"End Sub"}, If(L"If Then")),
            Lines({L"Sub A()", L"        If| Then", L"            ", L"        End If", L"End Sub"}));
  EXPECT_EQ(After({L"    x = 1|"}, If(L"If Then ElseIf Else", 2), L"  "),
            Lines({L"    x = 1", L"         If| Then", L"           ", L"         ElseIf Then", L"           ",
                   L"         ElseIf Then", L"           ", L"         Else", L"           ", L"         End If"}));
  EXPECT_EQ(After({L"|"}, Loop(L"ForNext")), Lines({L"    For| To", L"        ", L"    Next"}));
  EXPECT_EQ(After({L"    |"}, Loop(L"ForEachNext")), Lines({L"    For Each| In", L"        ", L"    Next"}));
  EXPECT_EQ(After({L"    |"}, Loop(L"IfDoLoopUntil")), Lines({L"    Do Until|", L"        ", L"    Loop"}));
  EXPECT_FALSE(generators::LoopEdit(kernel::ViewOf({L""}, {1, 1}, L"    "), L"For Next"));
}

TEST(StatementEdits, ASelectionOverLinesActsAsACaretAtItsStart) {
  // The end line would have been deleted.
  EXPECT_EQ(After({L"Sub A()", L"[[", L"]]    x = 1", L"End Sub"}, Loop(L"ForNext")),
            Lines({L"Sub A()", L"    For| To", L"        ", L"    Next", L"    x = 1", L"End Sub"}));
  // The start line would have been overwritten by the blank end line's statement.
  EXPECT_EQ(After({L"Sub A()", L"    x = [[1", L"]]", L"End Sub"}, Insert(L"On Error GoTo 0", L"", {.spaceBefore = true})),
            Lines({L"Sub A()", L"    x = 1", L"    On Error GoTo 0|", L"", L"End Sub"}));
  // The end line's text would have been written over the header.
  EXPECT_EQ(After({L"Sub A()[[", L"", L"End Sub]]"}, Insert(L"Exit Sub", L"Exit", kInline)),
            Lines({L"Sub A() Exit Sub|", L"", L"End Sub"}));
  // Within one line the selection keeps its two ends.
  EXPECT_EQ(After({L"    x = [[1]]"}, Insert(L"Sheet1", L"Insert Objectname", kInline)),
            Lines({L"    x = Sheet1|1"}));
}

TEST(StatementEdits, MarkersRoundTrip) {
  test::MarkedCode code = test::Unmark({L"a[[b", L"c]]d"});
  EXPECT_EQ(code.lines, Lines({L"ab", L"cd"}));
  EXPECT_EQ(code.selection, host::Selection(1, 2, 2, 2));
  EXPECT_EQ(test::Mark(code.lines, code.selection), Lines({L"a[[b", L"c]]d"}));
  EXPECT_TRUE(host::Selection(3, 5).IsCaret());
  EXPECT_LT(host::Selection(2, 9), host::Selection(3, 1));
  EXPECT_EQ(host::Selection(2, 1, 4, 7).Start(), host::Selection(2, 1));
  EXPECT_THROW(test::Unmark({L"a[[b"}), std::invalid_argument);
}

}  // namespace
