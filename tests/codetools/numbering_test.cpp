#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "codetools/numbering.h"
#include "vba/error.h"

using namespace quillet;
using codetools::WithNumbers;
using codetools::WithoutNumbers;

namespace {

using Lines = std::vector<std::wstring>;

TEST(Numbering, NumbersOnlyExecutableLinesAndRiseByTenPerEditorLine) {
  Lines module = {
      L"Option Explicit",                     // 5: declarations get one when selected
      L"Public Total As Long",                // 6: line above a header
      L"Private Sub Main()",                  // 7: header
      L"    Dim x As Long",                   // 8: table word
      L"    x = 1 _",                         // 9: first line of a continued statement
      L"",                                    // 10: blank, leaves the continuation open
      L"        + 2",                         // 11: continuation
      L"Again:",                              // 12: label at column 1
      L"Retry: x = 2",                        // 13: label with a statement
      L"    s = \"'quoted\"",                 // 14: apostrophe inside a string
      L"    ' a comment",                     // 15: comment
      L"    If x Then Debug.Print x",         // 15
      L"    Dimension = 3",                   // 16: prefix test of "Dim"
      L"    Rem old style",                   // 17: REM is no comment here
      L"End Sub",                             // 18: table word
      L"x = 3",                               // 19: line above a header
      L"Function F()",                        // 20: header
  };
  Lines numbered = WithNumbers(module, 5, 0, L"");
  Lines expected = {
      L"100 Option Explicit",  L"Public Total As Long",     L"Private Sub Main()",
      L"    Dim x As Long",    L"140     x = 1 _",          L" ",
      L"        + 2",          L"Again:",                   L"180 Retry: x = 2",
      L"190     s = \"'quoted\"", L"    ' a comment",     L"210     If x Then Debug.Print x",
      L"    Dimension = 3",    L"230     Rem old style",    L"End Sub",  L"x = 3",
      L"Function F()",
  };
  EXPECT_EQ(numbered, expected);
  // Twice gives the same text as once, and removal gives the text back (blank lines as
  // one blank).
  EXPECT_EQ(WithNumbers(numbered, 5, 0, L""), expected);
  Lines back = module;
  back[5] = L" ";
  EXPECT_EQ(WithoutNumbers(numbered), back);

  // The line behind the selection decides about the last one; a given base shifts all.
  EXPECT_EQ(WithNumbers({L"x = 1"}, 3, 0, L"Public Function G()"), Lines{L"x = 1"});
  EXPECT_EQ(WithNumbers({L"x = 1"}, 3, 7, L""), Lines{L"100 x = 1"});
  EXPECT_EQ(WithNumbers({L"x = 1"}, 0, 0, L""), Lines{L"x = 1"});
}

TEST(Numbering, NumbersComeOffOnlyAtTheVeryStart) {
  EXPECT_EQ(codetools::GetLineWithoutNumber(L"120 x = 1"), L"x = 1");
  EXPECT_EQ(codetools::GetLineWithoutNumber(L"120:  x"), L" x");  // one ":" and one blank
  EXPECT_EQ(codetools::GetLineWithoutNumber(L"    120 x"), L"    120 x");
  EXPECT_EQ(codetools::GetLineWithoutNumber(L": x"), L": x");
  EXPECT_EQ(codetools::GetLineWithoutNumber(L"120"), L"");
  EXPECT_EQ(WithoutNumbers({L"120", L""}), (Lines{L" ", L" "}));
}

TEST(Numbering, HeaderCommentAndLabelTestsFollowTheirPrefixRules) {
  EXPECT_TRUE(codetools::IsProcedureHeader(L"  public property Get X()"));
  EXPECT_TRUE(codetools::IsProcedureHeader(L"Global Sub G()"));
  EXPECT_TRUE(codetools::IsProcedureHeader(L"SubTotal = 1"));
  EXPECT_FALSE(codetools::IsProcedureHeader(L"Friend Sub F()"));
  EXPECT_FALSE(codetools::IsProcedureHeader(L"Static Sub F()"));
  EXPECT_FALSE(codetools::IsProcedureHeader(L"Public Declare Function F Lib \"x\" ()"));
  EXPECT_FALSE(codetools::IsProcedureHeader(L""));

  EXPECT_EQ(codetools::BeginComment(L"x = \"it's\" ' why"), 12);
  EXPECT_EQ(codetools::BeginComment(L"Rem no"), 0);
  EXPECT_TRUE(codetools::IsLabel(L"Done:"));
  EXPECT_FALSE(codetools::IsLabel(L" Done:"));
  EXPECT_FALSE(codetools::IsLabel(L"Done: "));
  EXPECT_FALSE(codetools::IsLabel(L"Done: x"));

  try {
    codetools::FindISFunction(L"Sub A()", 5);
    FAIL() << "kind 5 is no access word";
  } catch (const vba::Error& e) {
    EXPECT_EQ(e.Number(), -2147221503);
    EXPECT_EQ(e.Description(), L"NEVER HERE !!");
    EXPECT_EQ(e.Source(), L"Findifisfunctionorvariable");
  }
}

struct NumberingCommand : ::testing::Test, test::SessionFixture {};

TEST_F(NumberingCommand, WorksOnTheSelectionAndPutsItBack) {
  auto m = Module(L"Module1", {L"Sub A()", L"    x = 1", L"    y = 2", L"End Sub", L"z = 3"});
  Select(2, 3, 3, 1);
  codetools::LineNumbers(session, codetools::kAddNumbers);
  EXPECT_EQ(Text(m), L"Sub A()\r\n40     x = 1\r\n50     y = 2\r\nEnd Sub\r\nz = 3");
  EXPECT_EQ(Selection(), std::vector<long>({2, 3, 3, 1}));
  codetools::LineNumbers(session, codetools::kRemoveNumbers);
  EXPECT_EQ(Text(m), L"Sub A()\r\n    x = 1\r\n    y = 2\r\nEnd Sub\r\nz = 3");
  EXPECT_EQ(Selection(), std::vector<long>({2, 3, 3, 1}));

  // The last line of the module has no line behind it; a caret below the end numbers
  // what exists.
  Select(5, 1, 6, 1);
  codetools::LineNumbers(session, codetools::kAddNumbers);
  EXPECT_EQ(m->Module()->Lines(5, 1), L"100 z = 3");
  EXPECT_EQ(vbe.ImmediateText(), L"");
}

}  // namespace
