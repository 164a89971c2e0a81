// The text of enums and user-defined types and of their items, and the words "Explicit
// Argument" reads from a call, without an editor.
#include <gtest/gtest.h>

#include "generators/enum_type.h"
#include "generators/explicit_argument.h"
#include "kernel/code_edit.h"
#include "support/code_markers.h"

using namespace quillet;
using namespace generators;

namespace {

using Lines = std::vector<std::wstring>;

TEST(EnumType, BlockText) {
  EXPECT_EQ(PrefixAdd(L"ABCone", L"abc"), L"ABCone");
  EXPECT_EQ(PrefixAdd(L"one", L"abc"), L"abcone");
  EXPECT_EQ(PrefixAdd(L"one", L""), L"one");
  // Blank items dropped; the prefix on the name and every item; a first value on the first.
  EXPECT_EQ(TypeEnumText(L"Size", true, L"Small\r\n  \r\n\r\nszBig", L"1", L"sz", L"Public", L"  "),
            L"Public Enum szSize\r\n  szSmall = 1\r\n  szBig\r\nEnd Enum");
  // Without items: one line of a tab's blanks.
  EXPECT_EQ(TypeEnumText(L"Point", false, L"", L"", L"", L"", L"    "), L"Type Point\r\n    \r\nEnd Type");
  // A type's item is "name As type": the prefix goes in front of the whole line.
  EXPECT_EQ(TypeEnumText(L"Point", false, L"x As Long", L"", L"t", L"Private", L"    "),
            L"Private Type tPoint\r\n    tx As Long\r\nEnd Type");
  // A name that starts with the prefix in any case keeps it once.
  EXPECT_EQ(TypeEnumText(L"Point", false, L"", L"", L"p", L"", L"  "), L"Type Point\r\n  \r\nEnd Type");
}

TEST(EnumType, PlacesAndBlockLines) {
  const Lines module = {L"Option Explicit", L"Enum Colors", L"    clRed", L"", L"End Enum", L"Dim x As Long", L"",
                        L"Sub A()", L"End Sub"};
  auto view = [&](long line, long column) { return kernel::ViewOf(module, host::Selection(line, column), L"    "); };
  std::wstring name;
  // A blank line in the block is the place; elsewhere in it the block's last line.
  EXPECT_EQ(BlockLineGet(view(4, 1), 7, true, name), 4);
  EXPECT_EQ(name, L"Colors");
  EXPECT_EQ(BlockLineGet(view(3, 5), 7, true, name), 4);
  // Between blocks, in a procedure, or looking for the other kind: none.
  EXPECT_EQ(BlockLineGet(view(6, 1), 7, true, name), 0);
  EXPECT_EQ(BlockLineGet(view(8, 1), 7, true, name), 0);
  EXPECT_EQ(BlockLineGet(view(3, 1), 7, false, name), 0);

  // An item goes above the end, or at the caret's place in the block.
  kernel::CodeEdit end = *ItemAddEdit(view(8, 1), L"Colors", true, L"clBlue", 0);
  EXPECT_EQ(kernel::EditedLines(module, end)[4], L"    clBlue");
  EXPECT_EQ(kernel::EditedLines(module, end)[5], L"End Enum");
  kernel::CodeEdit at = *ItemAddEdit(view(4, 1), L"Colors", true, L"clBlue", 4);
  EXPECT_EQ(kernel::EditedLines(module, at),
            (Lines{L"Option Explicit", L"Enum Colors", L"    clRed", L"    clBlue", L"End Enum", L"Dim x As Long", L"",
                   L"Sub A()", L"End Sub"}));
  EXPECT_FALSE(ItemAddEdit(view(4, 1), L"Sizes", true, L"x", 0));

  // A new block: on the blank caret line of the declarations, else behind them.
  kernel::CodeEdit here = NewBlockEdit(view(7, 1), 7, true, L"Enum B\r\n    \r\nEnd Enum");
  EXPECT_TRUE(kernel::KeepsUserLines(view(7, 1), here));
  EXPECT_EQ(kernel::EditedLines(module, here)[6], L"Enum B");
  EXPECT_EQ(kernel::EditedLines(module, here)[9], L"Sub A()");
  kernel::CodeEdit behind = NewBlockEdit(view(6, 3), 7, true, L"Enum B\r\n    \r\nEnd Enum");
  EXPECT_EQ(kernel::EditedLines(module, behind)[7], L"Enum B");
  EXPECT_EQ(kernel::EditedLines(module, behind)[6], L"");
}

TEST(ExplicitArgument, WordsAndChoices) {
  EXPECT_EQ(CalledWords(L"x = Format(\"a(b\", Left$(y, 2), "), (std::vector<std::wstring>{L"x", L"Format", L"Left", L"y"}));
  // The word still open at the end is no word; nor is one that starts with a digit.
  EXPECT_EQ(CalledWords(L"Call 2a MsgBox"), (std::vector<std::wstring>{L"Call"}));
  const std::vector<std::wstring> args = {L"Prompt", L"Buttons", L"Title"};
  EXPECT_EQ(ArgumentChoices(L"", args), args);
  EXPECT_EQ(ArgumentChoices(L"Prompt:=\"a\", ", args), (std::vector<std::wstring>{L"Buttons:=", L"Title:="}));
  EXPECT_TRUE(ArgumentChoices(L"\"a\", ", args).empty());
  // The statement up to the caret, over continued lines.
  kernel::CodeView view = kernel::ViewOf({L"    MsgBox \"a\", _", L"      vbOK, x"}, host::Selection(2, 13), L"    ");
  EXPECT_EQ(StatementBeforeCaret(view), L"    MsgBox \"a\", vbOK, ");
}

}  // namespace
