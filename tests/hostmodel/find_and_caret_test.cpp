#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "vba/error.h"

using namespace quillet;

namespace {

struct Found {
  bool ok;
  long l1, c1, l2, c2;
};

Found FindIn(host::CodeModule& m, const std::wstring& what, long l1, long c1, long l2, long c2, bool whole = false,
             bool matchCase = false, bool pattern = false) {
  host::Selection range(l1, c1, l2, c2);
  bool ok = m.Find(what, range, {whole, matchCase, pattern});
  return {ok, range.startLine, range.startColumn, range.endLine, range.endColumn};
}

TEST(Find, WholeWordCaseAndPattern) {
  test::EditorFixture fx;
  auto m = fx.Module(L"M", {L"Dim strName As String", L"  Name = \"name\"", L"x = <cursor> + <CURSOR>"})->Module();

  Found f = FindIn(*m, L"name", 1, 1, -1, -1);
  EXPECT_TRUE(f.ok);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1, f.l2, f.c2}), std::vector<long>({1, 8, 1, 12}));

  f = FindIn(*m, L"name", 1, 1, -1, -1, /*whole*/ true);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1, f.l2, f.c2}), std::vector<long>({2, 3, 2, 7}));

  f = FindIn(*m, L"name", 1, 1, -1, -1, true, /*matchCase*/ true);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1}), std::vector<long>({2, 11}));

  // The search starts at the given column and stops at the given end.
  f = FindIn(*m, L"<cursor>", 3, 6, -1, -1);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1}), std::vector<long>({3, 16}));
  f = FindIn(*m, L"<cursor>", 1, 1, 2, -1);
  EXPECT_FALSE(f.ok);
  EXPECT_EQ(f.l1, 1);  // arguments untouched when nothing is found

  // Pattern search: the earliest, shortest text that is Like the pattern.
  f = FindIn(*m, L"<*>", 1, 1, -1, -1, false, false, true);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1, f.l2, f.c2}), std::vector<long>({3, 5, 3, 13}));
  f = FindIn(*m, L"N[a-z]me", 1, 1, -1, -1, true, true, true);
  EXPECT_EQ(std::vector<long>({f.l1, f.c1}), std::vector<long>({2, 3}));
}

TEST(Caret, StaysWithItsTextThroughEdits) {
  test::EditorFixture fx;
  auto m = fx.Module(L"M", {L"a", L"b", L"c", L"d"})->Module();
  fx.Caret(3, 2);
  m->InsertLines(1, L"x\r\ny");
  EXPECT_EQ(fx.Selection(), std::vector<long>({5, 2, 5, 2}));
  m->InsertLines(6, L"below");
  EXPECT_EQ(fx.Selection(), std::vector<long>({5, 2, 5, 2}));
  m->ReplaceLine(5, L"ccc");
  EXPECT_EQ(fx.Selection(), std::vector<long>({5, 2, 5, 2}));
  m->DeleteLines(1, 2);
  EXPECT_EQ(fx.Selection(), std::vector<long>({3, 2, 3, 2}));
  m->DeleteLines(3, 1);  // the caret's own line: to the start of what follows
  EXPECT_EQ(fx.Selection(), std::vector<long>({3, 1, 3, 1}));
  EXPECT_EQ(m->Lines(3, 1), L"below");
}

TEST(Edits, RangesAreChecked) {
  test::EditorFixture fx;
  auto m = fx.Module(L"M", {L"a"})->Module();
  m->InsertLines(2, L"b");  // one behind the end is allowed
  EXPECT_EQ(m->CountOfLines(), 2);
  EXPECT_THROW(m->InsertLines(4, L"x"), vba::Error);
  EXPECT_THROW(m->ReplaceLine(3, L"x"), vba::Error);
  EXPECT_THROW(m->DeleteLines(2, 2), vba::Error);
  m->InsertLines(1, L"");
  EXPECT_EQ(m->Lines(1, 3), L"\r\na\r\nb");
}

TEST(Keystrokes, TypingDeletingMovingAndPasting) {
  test::EditorFixture fx;
  auto m = fx.Module(L"M", {L"Sub A()", L"    If  Then", L"        ", L"    End If", L"End Sub"})->Module();
  fx.Caret(2, 8);
  fx.platform.SendKeys(L" ", false);
  EXPECT_EQ(m->Lines(2, 1), L"    If  Then");  // queued until the event returns
  fx.platform.DoEvents();
  EXPECT_EQ(m->Lines(2, 1), L"    If   Then");
  fx.platform.SendKeys(L"x{BACKSPACE}{BS}", true);
  EXPECT_EQ(m->Lines(2, 1), L"    If  Then");
  EXPECT_EQ(fx.Selection(), std::vector<long>({2, 8, 2, 8}));

  fx.platform.SendKeys(L"{Down 2} {Backspace}", true);
  EXPECT_EQ(fx.Selection(), std::vector<long>({4, 8, 4, 8}));
  EXPECT_EQ(m->Lines(4, 1), L"    End If");

  fx.platform.ClipboardSetText(L"Debug.Print 1\r\nStop");
  fx.Caret(3, 9);
  fx.platform.SendKeys(L"^v", true);
  EXPECT_EQ(m->Lines(3, 2), L"        Debug.Print 1\r\nStop");
  EXPECT_EQ(fx.Selection(), std::vector<long>({4, 5, 4, 5}));

  // Enter keeps the indent of the line it splits; typing behind the end fills with blanks.
  fx.Caret(1, 8);
  fx.platform.SendKeys(L"~", true);
  EXPECT_EQ(m->Lines(1, 2), L"Sub A()\r\n");
  fx.Caret(2, 5);
  fx.platform.SendKeys(L"+z", true);
  EXPECT_EQ(m->Lines(2, 1), L"    Z");
  EXPECT_THROW(fx.platform.SendKeys(L"{Down", true), vba::Error);
}

TEST(Keystrokes, TypedTextIsSeenByTheProcedureIndexAndCountsAsAnEdit) {
  test::EditorFixture fx;
  auto m = fx.Module(L"M", {L"Sub A()", L"End Sub", L""})->Module();
  host::ProcKind kind;
  EXPECT_EQ(m->ProcOfLine(3, kind), L"A");
  auto revision = m->Revision();
  fx.Caret(3, 1);
  fx.platform.SendKeys(L"Sub B", true);  // "(" groups keys in SendKeys
  EXPECT_GT(m->Revision(), revision);
  EXPECT_EQ(m->Lines(3, 1), L"Sub B");
  EXPECT_EQ(m->ProcOfLine(3, kind), L"B");
  EXPECT_EQ(fx.Selection(), std::vector<long>({3, 6, 3, 6}));
}

TEST(Windows, FocusActivePaneAndImmediate) {
  test::EditorFixture fx;
  auto a = fx.Module(L"A", {L"x"});
  auto b = fx.Module(L"B", {L"y"});
  EXPECT_EQ(fx.vbe.CodePanesCount(), 2);
  EXPECT_EQ(fx.vbe.SelectedVBComponent(), b);
  EXPECT_EQ(fx.vbe.ActiveWindow()->Type(), host::kCodeWindow);

  auto immediate = fx.vbe.WindowOfType(host::kImmediateWindow);
  fx.vbe.ActivateWindow(immediate);
  EXPECT_EQ(fx.vbe.ActiveWindow()->Type(), host::kImmediateWindow);
  EXPECT_EQ(fx.vbe.ActiveCodePane()->CodeModule()->Name(), L"B");  // the pane stays
  fx.platform.ClipboardSetText(L"hello\r\n");
  fx.platform.SendKeys(L"^v", true);
  EXPECT_EQ(fx.vbe.ImmediateText(), L"hello\r\n");

  // Giving the focus back by handle makes that window the active one again.
  long paneHandle = fx.vbe.ActiveCodePane()->Window()->HWnd();
  fx.platform.SetFocus(paneHandle);
  EXPECT_EQ(fx.vbe.ActiveWindow()->Type(), host::kCodeWindow);

  // A host behind another program keeps its focus where it was.
  fx.platform.SetHostInBack(true);
  immediate->SetFocus();
  EXPECT_EQ(fx.vbe.ActiveWindow()->Type(), host::kCodeWindow);
  fx.platform.SetHostInBack(false);

  fx.vbe.ActiveCodePane()->Window()->Close();
  EXPECT_EQ(fx.vbe.CodePanesCount(), 1);
  EXPECT_EQ(fx.vbe.ActiveCodePane()->CodeModule()->Name(), L"A");
  fx.project->Remove(a);
  EXPECT_EQ(fx.vbe.CodePanesCount(), 0);
  EXPECT_EQ(fx.vbe.ActiveCodePane(), nullptr);
}

}  // namespace
