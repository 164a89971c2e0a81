#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "kernel/code_edit.h"
#include "kernel/position.h"

using namespace quillet;

namespace {

using Lines = std::vector<std::wstring>;

TEST(CodeEdit, ABlockTakesABlankLineOrGoesBelowAndLandsAsComputed) {
  kernel::CodeView view = kernel::ViewOf({L"a", L"   ", L"b"}, host::Selection(2, 1), L"  ");
  kernel::CodeEdit onBlank = kernel::BlockAtLine(view, 2, L"x\r\ny");
  EXPECT_EQ(kernel::EditedLines({L"a", L"   ", L"b"}, onBlank), Lines({L"a", L"x", L"y", L"b"}));
  kernel::CodeEdit onCode = kernel::BlockAtLine(view, 3, L"x");
  EXPECT_EQ(kernel::EditedLines({L"a", L"   ", L"b"}, onCode), Lines({L"a", L"   ", L"b", L"x"}));
  // Below the last line there is nothing to replace: the line is made.
  kernel::CodeEdit below = kernel::BlockAtLine(view, 4, L"z");
  EXPECT_EQ(kernel::EditedLines({L"a", L"   ", L"b"}, below), Lines({L"a", L"   ", L"b", L"z"}));

  // The editor ends up with what the text logic said, caret and keystrokes included.
  test::EditorFixture fx;
  auto c = fx.Code(L"Module1", {L"a", L"b|"});
  for (const kernel::CodeEdit& e : {kernel::LineReplaced(3, L"c", 2), kernel::BlockAtLine(view, 1, L"q")}) {
    Lines before;
    for (long i = 1; i <= c->Module()->CountOfLines(); ++i) before.push_back(c->Module()->Lines(i, 1));
    kernel::CodeEdit edit = e;
    edit.keys = L"x";
    kernel::ApplyEdit(fx.platform, fx.Pane(), edit);
    Lines after;
    for (long i = 1; i <= c->Module()->CountOfLines(); ++i) after.push_back(c->Module()->Lines(i, 1));
    EXPECT_EQ(after, kernel::EditedLines(before, edit));
  }
  EXPECT_EQ(fx.Marked(), Lines({L"a", L"q", L"b", L"c|"}));  // the caret of the first edit; the second keeps it
  EXPECT_EQ(fx.platform.PendingKeys(), 2u);
}

TEST(CodeEdit, KeepingUserLines) {
  kernel::CodeView view = kernel::ViewOf({L"    x = 1", L""}, host::Selection(1, 1), L"    ");
  EXPECT_TRUE(kernel::KeepsUserLines(view, kernel::LineReplaced(2, L"anything", 1)));
  EXPECT_TRUE(kernel::KeepsUserLines(view, kernel::LineReplaced(1, L"    x = Sheet1 1", 1)));
  EXPECT_TRUE(kernel::KeepsUserLines(view, kernel::LineReplaced(1, L"    x = 1 Exit Sub", 1)));
  EXPECT_FALSE(kernel::KeepsUserLines(view, kernel::LineReplaced(1, L"End Sub Exit Sub", 1)));
  EXPECT_FALSE(kernel::KeepsUserLines(view, kernel::LineReplaced(1, L"    x = 1\r\n", 1)));
  EXPECT_TRUE(kernel::KeepsUserLines(view, kernel::BlockAtLine(view, 1, L"new")));
}

}  // namespace

namespace {

int IndentAt(const std::vector<std::wstring>& marked, const std::wstring& tab = L"    ") {
  test::MarkedCode code = test::Unmark(marked);
  return kernel::CurrentIndent(kernel::ViewOf(code.lines, code.selection, tab));
}

TEST(CodeEdit, TheIndentOfAStatementFollowsTheCaretAndTheLineAbove) {
  EXPECT_EQ(IndentAt({L"Sub A()", L"|", L"End Sub"}), 4);  // column one of an empty body: one tab
  EXPECT_EQ(IndentAt({L"Sub A()", L"|", L"End Sub"}, L"  "), 2);
  EXPECT_EQ(IndentAt({L"    x = 1", L"|"}), 4);           // a blank line takes the indent above
  EXPECT_EQ(IndentAt({L"      |"}), 6);                   // unless the caret stands further right
  EXPECT_EQ(IndentAt({L"        x| = 1"}), 9);            // on code: the caret's column
  EXPECT_EQ(IndentAt({L"    [[x = 1", L"        ]]"}), 4); // over lines: the caret at the start
}

}  // namespace

namespace {

std::vector<std::wstring> Replaced(const std::vector<std::wstring>& marked, const std::wstring& text) {
  test::MarkedCode code = test::Unmark(marked);
  kernel::CodeEdit edit = kernel::SelectionReplaced(kernel::ViewOf(code.lines, code.selection, L"    "), text);
  return test::Mark(kernel::EditedLines(code.lines, edit), *edit.caret);
}

TEST(CodeEdit, ASelectionIsReplacedWithWhatStandsAroundIt) {
  EXPECT_EQ(Replaced({L"    f = [[x]] & y"}, L"\"C:\\a\""), std::vector<std::wstring>({L"    f = \"C:\\a\"| & y"}));
  EXPECT_EQ(Replaced({L"    f = |"}, L"\"C:\\a\""), std::vector<std::wstring>({L"    f = \"C:\\a\"|"}));
  EXPECT_EQ(Replaced({L"a", L"    f = [[x", L"    g = y]] + 1", L"b"}, L"z"),
            std::vector<std::wstring>({L"a", L"    f = z| + 1", L"b"}));
  EXPECT_EQ(Replaced({L"a", L"|"}, L"z"), std::vector<std::wstring>({L"a", L"z|"}));
}

}  // namespace
