#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "vba/error.h"

using namespace quillet;
using host::ProcKind;

namespace {

struct Bounds : ::testing::Test, test::EditorFixture {
  std::shared_ptr<host::MemoryCodeModule> m;
  Bounds() {
    m = Module(L"Module1", {
                               L"Option Explicit",             // 1
                               L"Private mCount As Long",      // 2
                               L"",                            // 3
                               L"' Adds one",                  // 4
                               L"Public Sub Add()",            // 5
                               L"    mCount = mCount + 1",     // 6
                               L"End Sub",                     // 7
                               L"",                            // 8
                               L"Rem the total",               // 9
                               L"Private Function Total(a As Long, _",  // 10
                               L"        b As Long) As Long",  // 11
                               L"    Total = a + b",           // 12
                               L"End Function ' done",         // 13
                               L"Property Get Count() As Long",  // 14
                               L"    Count = mCount",          // 15
                               L"End Property",                // 16
                               L"Property Let Count(v As Long)",  // 17
                               L"    mCount = v",              // 18
                               L"End Property",                // 19
                               L"",                            // 20
                               L"' trailing comment",          // 21
                           })
            ->Module();
  }
  std::wstring Of(long line, ProcKind* kind = nullptr) {
    ProcKind k = host::kProcKind;
    std::wstring n = m->ProcOfLine(line, k);
    if (kind) *kind = k;
    return n;
  }
};

TEST_F(Bounds, CommentsAboveBelongToTheHeaderAndTheLastProcedureOwnsTheTail) {
  EXPECT_EQ(m->CountOfDeclarationLines(), 2);
  EXPECT_EQ(Of(2), L"");
  for (long l = 3; l <= 7; ++l) EXPECT_EQ(Of(l), L"Add") << l;
  for (long l = 8; l <= 13; ++l) EXPECT_EQ(Of(l), L"Total") << l;
  ProcKind k;
  EXPECT_EQ(Of(14, &k), L"Count");
  EXPECT_EQ(k, host::kGetKind);
  EXPECT_EQ(Of(21, &k), L"Count");
  EXPECT_EQ(k, host::kLetKind);

  EXPECT_EQ(m->ProcStartLine(L"Add", host::kProcKind), 3);
  EXPECT_EQ(m->ProcBodyLine(L"add", host::kProcKind), 5);
  EXPECT_EQ(m->ProcCountLines(L"Add", host::kProcKind), 5);
  EXPECT_EQ(m->ProcStartLine(L"Total", host::kProcKind), 8);
  EXPECT_EQ(m->ProcBodyLine(L"Total", host::kProcKind), 10);
  EXPECT_EQ(m->ProcCountLines(L"Total", host::kProcKind), 6);
  EXPECT_EQ(m->ProcBodyLine(L"Count", host::kGetKind), 14);
  EXPECT_EQ(m->ProcStartLine(L"Count", host::kLetKind), 17);
  EXPECT_EQ(m->ProcCountLines(L"Count", host::kLetKind), 5);
}

TEST_F(Bounds, UnknownProceduresAndLinesRaise) {
  EXPECT_THROW(m->ProcStartLine(L"Count", host::kSetKind), vba::Error);
  try {
    m->ProcBodyLine(L"Missing", host::kProcKind);
    FAIL();
  } catch (const vba::Error& e) {
    EXPECT_EQ(e.Number(), 35);
  }
  EXPECT_THROW(Of(0), vba::Error);
  EXPECT_THROW(Of(22), vba::Error);
  EXPECT_THROW(m->Lines(21, 2), vba::Error);
  EXPECT_EQ(m->Lines(20, 2), L"\r\n' trailing comment");
  EXPECT_EQ(m->Lines(5, 0), L"");
}

TEST_F(Bounds, EditsMoveTheBoundaries) {
  m->InsertLines(1, L"Private mName As String\r\n' a note");
  EXPECT_EQ(m->CountOfDeclarationLines(), 4);
  EXPECT_EQ(m->ProcBodyLine(L"Add", host::kProcKind), 7);
  EXPECT_EQ(m->ProcStartLine(L"Add", host::kProcKind), 5);

  m->DeleteLines(5, 5);  // the blank, the comment and all of Add... up to its End
  EXPECT_THROW(m->ProcBodyLine(L"Add", host::kProcKind), vba::Error);
  EXPECT_EQ(m->ProcStartLine(L"Total", host::kProcKind), 5);

  // A header that loses its continuation still parses; a replaced line may become several.
  long body = m->ProcBodyLine(L"Total", host::kProcKind);
  m->ReplaceLine(body, L"Private Function Total(a As Long, b As Long) As Long\r\n    Dim c As Long");
  m->DeleteLines(body + 2, 1);
  EXPECT_EQ(m->Lines(body, 3), L"Private Function Total(a As Long, b As Long) As Long\r\n    Dim c As Long\r\n    Total = a + b");
  ProcKind k;
  EXPECT_EQ(m->ProcOfLine(body + 1, k), L"Total");
}

TEST(ProcedureHeaders, KindsModifiersAndLookalikes) {
  test::EditorFixture f;
  auto m = f.Module(L"M", {
                              L"Public Declare PtrSafe Function GetTickCount Lib \"kernel32\" () As Long",
                              L"Public Event Changed()",
                              L"Dim Subtotal As Long",
                              L"Friend Static Property Set Item(o As Object)",
                              L"End Property",
                              L"Static Sub Counter()",
                              L"    Subtotal = 1: End Sub",
                              L"End Sub",
                              L"Sub NoEnd()",
                              L"Function Next1() As Long",
                              L"End Function",
                          })
               ->Module();
  EXPECT_EQ(m->CountOfDeclarationLines(), 3);
  EXPECT_EQ(m->ProcBodyLine(L"Item", host::kSetKind), 4);
  // "End Sub" after a ":" is no procedure end for the editor's outline.
  EXPECT_EQ(m->ProcStartLine(L"Counter", host::kProcKind), 6);
  EXPECT_EQ(m->ProcCountLines(L"Counter", host::kProcKind), 3);
  // A header without End closes at the next header.
  EXPECT_EQ(m->ProcCountLines(L"NoEnd", host::kProcKind), 1);
  EXPECT_EQ(m->ProcBodyLine(L"Next1", host::kProcKind), 10);
}

// A procedure is found by its name in any case and by its kind; where a name stands twice
// with the same kind, the first one answers, as the editor does.
TEST_F(Bounds, ProceduresAreFoundByNameInAnyCaseAndByKind) {
  EXPECT_EQ(m->ProcBodyLine(L"COUNT", host::kGetKind), 14);
  EXPECT_EQ(m->ProcBodyLine(L"count", host::kLetKind), 17);
  EXPECT_THROW(m->ProcBodyLine(L"Count", host::kSetKind), vba::Error);
  EXPECT_THROW(m->ProcBodyLine(L"Count", host::kProcKind), vba::Error);
  EXPECT_EQ(m->ProcStartLine(L"tOtAl", host::kProcKind), 8);
  auto twice = Module(L"Module2", {L"Sub Twice()", L"End Sub", L"Property Get twice()", L"End Property",
                                   L"Sub TWICE()", L"End Sub"})
                   ->Module();
  EXPECT_EQ(twice->ProcBodyLine(L"Twice", host::kProcKind), 1);
  EXPECT_EQ(twice->ProcBodyLine(L"Twice", host::kGetKind), 3);
}

TEST(ProcedureHeaders, ModulesWithoutProceduresAreAllDeclarations) {
  test::EditorFixture f;
  auto m = f.Module(L"M", {L"Option Explicit", L"Dim a As Long", L"' end", L""})->Module();
  EXPECT_EQ(m->CountOfDeclarationLines(), 2);
  host::ProcKind k;
  EXPECT_EQ(m->ProcOfLine(4, k), L"");
  auto empty = f.Module(L"E", {})->Module();
  EXPECT_EQ(empty->CountOfLines(), 0);
  EXPECT_EQ(empty->CountOfDeclarationLines(), 0);
}

TEST(AddFromString, GoesBeforeTheFirstProcedureOrAtTheEnd) {
  test::EditorFixture f;
  auto m = f.Module(L"M", {L"Option Explicit", L"", L"' about Main", L"Sub Main()", L"End Sub"})->Module();
  m->AddFromString(L"Dim a As Long\r\nDim b As Long");
  EXPECT_EQ(m->Lines(1, 4), L"Option Explicit\r\nDim a As Long\r\nDim b As Long\r\n");
  EXPECT_EQ(m->CountOfDeclarationLines(), 3);
  auto d = f.Module(L"D", {L"Option Explicit"})->Module();
  d->AddFromString(L"Dim c As Long");
  EXPECT_EQ(d->Lines(1, 2), L"Option Explicit\r\nDim c As Long");
}

}  // namespace
