#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "kernel/position.h"

using namespace quillet;

namespace {

struct Position : ::testing::Test, test::SessionFixture {
  std::shared_ptr<host::MemoryComponent> m;
  Position() {
    m = Module(L"Module1", {
                               L"Option Explicit",               // 1
                               L"",                              // 2
                               L"' Adds two numbers",            // 3
                               L"Public Function Add(a As Long, _",  // 4
                               L"    b As Long) As Long",        // 5
                               L"    Add = a + b",               // 6
                               L"",                              // 7
                               L"End Function",                  // 8
                               L"",                              // 9
                               L"Sub Flat()",                    // 10
                               L"",                              // 11
                               L"",                              // 12
                               L"End Sub",                       // 13
                               L"",                              // 14
                           });
  }
  struct Proc {
    bool found;
    std::wstring name;
    long body;
    bool inHeader;
  };
  Proc At(long line, bool strict) {
    Caret(line, 1);
    Proc p{false, L"(untouched)", -1, false};
    p.found = kernel::CurrentProcGet(session, strict, p.name, p.body, &p.inHeader);
    return p;
  }
};

TEST_F(Position, StrictLookupRefusesCommentsAboveAndBlanksBehind) {
  Proc p = At(3, false);
  EXPECT_TRUE(p.found);
  EXPECT_EQ(p.name, L"Add");
  EXPECT_EQ(p.body, -1);  // the body line is found only in strict mode
  p = At(3, true);
  EXPECT_FALSE(p.found);
  EXPECT_EQ(p.name, L"");

  p = At(5, true);
  EXPECT_TRUE(p.found);
  EXPECT_EQ(p.body, 4);
  EXPECT_TRUE(p.inHeader);
  p = At(7, true);  // a blank line inside the body counts
  EXPECT_TRUE(p.found);
  EXPECT_FALSE(p.inHeader);

  EXPECT_FALSE(At(9, true).found);   // above Flat: belongs to it, but strict refuses it
  EXPECT_TRUE(At(12, true).found);   // blank inside Flat
  EXPECT_FALSE(At(14, true).found);  // behind the last End Sub
  EXPECT_TRUE(At(14, false).found);
  EXPECT_EQ(At(1, false).name, L"");

  // Only the end line of a selection decides.
  Select(1, 1, 6, 3);
  std::wstring name;
  long body;
  EXPECT_TRUE(kernel::CurrentProcGet(session, true, name, body));
  EXPECT_EQ(name, L"Add");

  // Without a code window the name stays as it was.
  vbe.ActiveCodePane()->Window()->Close();
  name = L"kept";
  EXPECT_FALSE(kernel::CurrentProcGet(session, true, name, body));
  EXPECT_EQ(name, L"kept");
}

TEST_F(Position, IndentsFollowTheCaretAndTheTabWidth) {
  // Column 1 of an empty line with an empty line above: one tab width.
  Caret(12, 1);
  EXPECT_EQ(kernel::CurrentIndentGet(session), 4);
  platform.SetRegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth", L"2");
  EXPECT_EQ(kernel::TabSpacesGet(session), L"  ");
  EXPECT_EQ(kernel::CurrentIndentGet(session), 2);
  // A blank line below an indented one takes its indent, unless the caret stands further in.
  Caret(7, 1);
  EXPECT_EQ(kernel::LineIndentGet(session, 7), 4);
  EXPECT_EQ(kernel::CurrentIndentGet(session), 4);
  Caret(7, 9);
  EXPECT_EQ(kernel::CurrentIndentGet(session), 8);
  // On a line with code the caret's column decides.
  Caret(6, 5);
  EXPECT_EQ(kernel::CurrentIndentGet(session), 4);
  platform.SetRegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth", L"");
  EXPECT_EQ(kernel::TabSpacesGet(session), L"    ");
}

TEST_F(Position, CursorMarksBecomeTheCaret) {
  auto c = Module(L"Module2", {L"Sub A()", L"    x = <cursor>1", L"    y = 2<CURSOR>", L"End Sub"});
  Caret(1, 1);
  long line = 1;
  kernel::SetCursor(session, line, false, nullptr);
  EXPECT_EQ(Text(c), L"Sub A()\r\n    x = 1\r\n    y = 2\r\nEnd Sub");
  EXPECT_EQ(line, 3);
  EXPECT_EQ(Selection(), std::vector<long>({3, 10, 3, 10}));

  // Keeping the selection: marks go, the caret stays; no mark changes nothing.
  c->Module()->ReplaceLine(2, L"    x = <cursor>1");
  Caret(4, 1);
  line = 1;
  kernel::SetCursor(session, line, true, nullptr);
  EXPECT_EQ(c->Module()->Lines(2, 1), L"    x = 1");
  EXPECT_EQ(Selection(), std::vector<long>({4, 1, 4, 1}));
  line = 1;
  kernel::SetCursor(session, line, false, c);
  EXPECT_EQ(line, 1);
  EXPECT_EQ(Selection(), std::vector<long>({4, 1, 4, 1}));
}

TEST_F(Position, ReplacingASelectionOverLinesKeepsWhatSurroundsIt) {
  auto c = Module(L"Module2", {L"a = 1 + 2", L"b = 3", L"c = 4 + 5", L"d = 6"});
  Select(1, 5, 3, 6);
  std::wstring text = L"99";
  kernel::CodeReplace(session, text);
  EXPECT_EQ(Text(c), L"a = 99 + 5\r\nd = 6");
  EXPECT_EQ(Selection(), std::vector<long>({1, 7, 1, 7}));

  // A caret below the last line writes a new one.
  auto e = Module(L"Module3", {});
  text = L"x";
  kernel::CodeReplace(session, text);
  EXPECT_EQ(Text(e), L"x");
}

TEST_F(Position, LinesGoUnderTheCaretOrInPlaceOfABlankOne) {
  auto c = Module(L"Module2", {L"Sub A()", L"    x = 1", L"", L"End Sub"});
  Caret(3, 5);
  kernel::CodeLineInsert(session, L"    y = 2", 9);
  EXPECT_EQ(Text(c), L"Sub A()\r\n    x = 1\r\n    y = 2\r\nEnd Sub");
  EXPECT_EQ(Selection(), std::vector<long>({3, 9, 3, 9}));
  Caret(2, 3);
  kernel::CodeLineInsert(session, L"    z = 3\r\n    w = 4", 0);
  EXPECT_EQ(Text(c), L"Sub A()\r\n    x = 1\r\n    z = 3\r\n    w = 4\r\n    y = 2\r\nEnd Sub");

  // CurrentLineGet hands out one end of the selection and the other end's text.
  Select(2, 3, 4, 6);
  long line, column;
  EXPECT_EQ(kernel::CurrentLineGet(session, line, column, true), L"    w = 4");
  EXPECT_EQ(std::vector<long>({line, column}), std::vector<long>({2, 3}));
  EXPECT_EQ(kernel::CurrentLineGet(session, line, column, false), L"    x = 1");
  EXPECT_EQ(std::vector<long>({line, column}), std::vector<long>({4, 6}));
}

TEST_F(Position, WindowsAndModules) {
  EXPECT_TRUE(kernel::CodeWindowActive(session));
  EXPECT_TRUE(kernel::ModuleExists(session, L"module1"));
  EXPECT_FALSE(kernel::ModuleExists(session, L"Module9"));
  vbe.ActivateWindow(vbe.WindowOfType(host::kImmediateWindow));
  EXPECT_FALSE(kernel::CodeWindowActive(session));
  EXPECT_TRUE(kernel::HostWindowActive(session));
  platform.SetHostInBack(true);
  EXPECT_FALSE(kernel::HostWindowActive(session));
  platform.SetHostInBack(false);

  long handle = kernel::ImmediateWindowHandleGet(session);
  EXPECT_EQ(handle, vbe.WindowOfType(host::kImmediateWindow)->HWnd());
  EXPECT_EQ(kernel::AppPathGet(session), L"C:\\Program Files\\Quillet");

  // Under Outlook its main window is minimised and the editor gets the focus back.
  long outlook = platform.AddForeignWindow(L"rctrl_renwnd32", L"Inbox");
  kernel::OutlookFocusRestore(session);
  EXPECT_FALSE(platform.ForeignWindowMinimised(outlook));
  session.hostName = L"Outlook";
  kernel::OutlookFocusRestore(session);
  EXPECT_TRUE(platform.ForeignWindowMinimised(outlook));
}

}  // namespace
