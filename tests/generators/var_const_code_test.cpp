// Where declarations go, on plain lines: the procedure's declaration area, the module's
// declaration section, the members of an Enum or Type; and which values fit which type.
#include <gtest/gtest.h>

#include "generators/frm_input_box.h"
#include "generators/var_const_code.h"

namespace quillet::generators {
namespace {

using Lines = std::vector<std::wstring>;

Lines Apply(const Lines& lines, const std::optional<kernel::CodeEdit>& edit) {
  EXPECT_TRUE(edit.has_value());
  return edit ? kernel::EditedLines(lines, *edit) : lines;
}

TEST(VarConstCode, ProcedureVariablesFollowTheDeclarationsAndConstantsPrecedeThem) {
  Lines lines = {L"Option Explicit", L"", L"Sub Main()", L"    ' counts", L"    Dim i As Long", L"", L"    i = 1", L"End Sub"};
  DeclView v = DeclViewOf(lines, host::Selection(7, 5), L"    ");
  // The variable goes above the blank line that ends the declarations.
  EXPECT_EQ(Apply(lines, ProcVariableEdit(v, L"Dim s As String", true)),
            (Lines{L"Option Explicit", L"", L"Sub Main()", L"    ' counts", L"    Dim i As Long", L"    Dim s As String", L"",
                   L"    i = 1", L"End Sub"}));
  // The constant goes above the first declaration, below the comment under the signature;
  // "Declaration Indented" off writes it at column 1.
  EXPECT_EQ(Apply(lines, ProcConstEdit(v, L"Const N As Long = 3", false)),
            (Lines{L"Option Explicit", L"", L"Sub Main()", L"    ' counts", L"Const N As Long = 3", L"    Dim i As Long", L"",
                   L"    i = 1", L"End Sub"}));
  // Without declarations a constant stands directly under a signature of two lines.
  Lines bare = {L"Function F(a As Long, _", L"    b As Long) As Long", L"    F = a + b", L"End Function"};
  DeclView b = DeclViewOf(bare, host::Selection(3, 1), L"  ");
  EXPECT_EQ(Apply(bare, ProcConstEdit(b, L"Const K = 1", true)),
            (Lines{L"Function F(a As Long, _", L"    b As Long) As Long", L"  Const K = 1", L"    F = a + b", L"End Function"}));
  // Outside every procedure neither writes.
  DeclView outside = DeclViewOf(lines, host::Selection(1, 1), L"    ");
  EXPECT_FALSE(ProcVariableEdit(outside, L"Dim s", true));
  EXPECT_FALSE(ProcConstEdit(outside, L"Const s = 1", true));
}

TEST(VarConstCode, ModuleDeclarationsAndTheQuickBoxInTheDeclarationSection) {
  Lines lines = {L"Option Explicit", L"' state", L"Private mA As Long", L"", L"mName", L"Private mB As Long", L"",
                 L"Sub Main()", L"End Sub"};
  auto at = [&](long line) { return DeclViewOf(lines, host::Selection(line, 1), L"    "); };
  // At the top: below the Option lines and the comments.
  kernel::CodeEdit top = ModuleDeclEdit(at(9), L"Public X As Long", L"X", true, true);
  EXPECT_EQ(top.line, 3);
  EXPECT_EQ(top.mode, kernel::CodeEdit::kInsertBefore);
  // At the end of the declaration section, from inside a procedure.
  EXPECT_EQ(ModuleDeclEdit(at(9), L"Public X As Long", L"X", false, true).line, 7);
  // A blank caret line of the declarations, or one that reads the name, takes the line.
  kernel::CodeEdit here = ModuleDeclEdit(at(5), L"Private mName As String", L"MNAME", false, true);
  EXPECT_EQ(here.line, 5);
  EXPECT_EQ(here.mode, kernel::CodeEdit::kReplaceLine);
  // The quick box: a blank line is replaced, the proposal's line too, another line is kept.
  EXPECT_EQ(DeclarationSectionEdit(at(4), L"Dim x As Long", L"").mode, kernel::CodeEdit::kReplaceLine);
  EXPECT_EQ(DeclarationSectionEdit(at(5), L"Dim mName As Long", L"mName").mode, kernel::CodeEdit::kReplaceLine);
  kernel::CodeEdit below = DeclarationSectionEdit(at(3), L"Dim x As Long", L"mName");
  EXPECT_EQ(below.mode, kernel::CodeEdit::kInsertBefore);
  EXPECT_EQ(below.line, 7);
}

TEST(VarConstCode, MembersOfEnumsAndTypes) {
  Lines lines = {L"Option Explicit", L"Public Enum Colors", L"    Red = 1", L"", L"End Enum", L"", L"Private Type Point",
                 L"    X As Long", L"End Type", L"", L"Sub Main()", L"End Sub"};
  auto block = [&](long line, long endColumn, bool isEnum, std::wstring& name) {
    return BlockLineGet(DeclViewOf(lines, host::Selection(line, 1, line, endColumn), L"    "), isEnum, name);
  };
  std::wstring name;
  EXPECT_EQ(block(4, 1, true, name), 4);  // a blank line of the block is the place
  EXPECT_EQ(name, L"Colors");
  EXPECT_EQ(block(3, 1, true, name), 4);  // on a member: the last line of the block
  EXPECT_EQ(block(8, 1, false, name), 8);
  EXPECT_EQ(name, L"Point");
  EXPECT_EQ(block(6, 1, true, name), 0);   // between two blocks
  EXPECT_EQ(block(8, 1, true, name), 0);   // in a Type, not an Enum
  EXPECT_EQ(block(11, 1, false, name), 0);  // below the declarations

  DeclView v = DeclViewOf(lines, host::Selection(4, 1), L"  ");
  kernel::CodeEdit member = BlockLineEdit(v, 4, L"Green = 2");
  EXPECT_EQ(kernel::EditedLines(lines, member)[3], L"  Green = 2");
  EXPECT_EQ(*member.caret, host::Selection(4, 12));
  kernel::CodeEdit after = BlockMemberEdit(v, 3, L"Blue", L"blue");
  EXPECT_EQ(after.line, 4);  // "Red = 1" is kept: the member goes below it
  EXPECT_EQ(after.text, L"  Blue");
  EXPECT_EQ(*after.caret, host::Selection(4, 1));
}

TEST(VarConstCode, ValuesThatFitTheirType) {
  EXPECT_TRUE(ValueFits(L"255", L"Byte"));
  EXPECT_FALSE(ValueFits(L"256", L"Byte"));
  EXPECT_FALSE(ValueFits(L"abc", L"Long"));
  EXPECT_TRUE(ValueFits(L"-32768", L"integer"));
  EXPECT_FALSE(ValueFits(L"40000", L"Integer"));
  EXPECT_TRUE(ValueFits(L"True", L"Boolean"));
  EXPECT_FALSE(ValueFits(L"maybe", L"Boolean"));
  EXPECT_TRUE(ValueFits(L"2026-01-31", L"Date"));
  EXPECT_FALSE(ValueFits(L"soon", L"Date"));
  EXPECT_TRUE(ValueFits(L"anything", L"String"));
  EXPECT_TRUE(ValueFits(L"anything", L"Variant"));
}

}  // namespace
}  // namespace quillet::generators
