#include <gtest/gtest.h>

#include <fstream>

#include "../support/fixtures.h"
#include "generators/module_create.h"
#include "generators/templates.h"
#include "ui/ui_host.h"
#include "settings/items.h"

using namespace quillet;

namespace {

struct Templates : ::testing::Test, test::SessionFixture {
  Templates() {
    session.settings[settings::kDeveloper] = std::wstring(L"Ada");
    session.settings[settings::kInitials] = std::wstring(L"AL");
    session.settings[settings::kOrganization] = std::wstring(L"Engines Ltd");
    session.settings[settings::kCopyright] = std::wstring(L"(c) 2026");
    session.settings[settings::kErrorHandler] = std::wstring(L"HandleErr");
    session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
    session.settings[settings::kErrorHandleProcedure] = std::wstring(L"ErrorHandle");
    clock.SetStart(vba::DateTime{2026, 11, 22, 14, 5, 0});
  }
  std::wstring Sub(std::wstring text, std::wstring module = {}, std::wstring proc = {}, std::wstring type = {}) {
    generators::Substitute(session, text, module, proc, type);
    return text;
  }
};

TEST_F(Templates, TokensOfAnyCaseAreReplacedInOrderAndUnknownOnesStay) {
  EXPECT_EQ(Sub(L"{author} {INITIALS} {CompanyName} {COPYRIGHT} {DATE} {TIME}{DESCRIPTION} {UNKNOWN}"),
            L"Ada AL Engines Ltd (c) 2026 2026-11-22 14:05:00 {UNKNOWN}");
  EXPECT_EQ(Sub(L"GoTo {HANDLEERRORLABEL}: {HANDLEEXITLABEL}: {ERRORHANDLEPROCEDURE}"),
            L"GoTo HandleErr: HandleExit: ErrorHandle");
  // A value that holds a token is replaced again by the later steps only.
  session.settings[settings::kDeveloper] = std::wstring(L"{DATE} {AUTHOR}");
  EXPECT_EQ(Sub(L"{AUTHOR}"), L"2026-11-22 {AUTHOR}");
  // A token's braces inside a string of the template are replaced all the same.
  EXPECT_EQ(Sub(L"Msg = \"{HANDLEEXITLABEL}\""), L"Msg = \"HandleExit\"");
}

TEST_F(Templates, FourBlankRunsTakeTheEditorsIndentBeforeNamesEnter) {
  platform.SetRegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth", L"2");
  EXPECT_EQ(Sub(L"    Dim x\r\n        y = 1"), L"  Dim x\r\n    y = 1");
  // A name with four blanks in it keeps them: it enters after the indent changed.
  EXPECT_EQ(Sub(L"' {MODULENAME}", L"a    b"), L"' a    b");
}

TEST_F(Templates, NamesComeFromTheCaretOnlyWhenTheirTokenAsksForThem) {
  // No code pane at all: a template without the name tokens still fills.
  EXPECT_EQ(Sub(L"{AUTHOR}"), L"Ada");
  Module(L"basMain", {L"Option Explicit", L"", L"Public Function Total(x As Long) As Long", L"    Total = x",
                      L"End Function"});
  Caret(4, 5);
  std::wstring text = L"{MODULENAME}.{PROCEDURENAME} is a {PROCEDURETYPE}", module, proc, type;
  generators::Substitute(session, text, module, proc, type);
  EXPECT_EQ(text, L"basMain.Total is a Function");
  EXPECT_EQ(module, L"basMain");
  EXPECT_EQ(proc, L"Total");
  EXPECT_EQ(type, L"Function");
  // Outside every procedure the procedure's name and type are empty.
  Caret(1, 1);
  EXPECT_EQ(Sub(L"[{PROCEDURENAME}][{PROCEDURETYPE}]"), L"[][]");
  // A name given by the caller finds its own definition, wherever the caret is.
  EXPECT_EQ(Sub(L"{PROCEDURETYPE}", L"", L"Total"), L"Function");
}

TEST_F(Templates, IncludesAreReadSubstitutedAndNestedButAnOpenTagStays) {
  Write("a.txt", "' by {AUTHOR}\r\n{INCLUDE b.txt}");
  Write("b.txt", "' in {MODULENAME}");
  Write("empty.txt", "");
  EXPECT_EQ(Sub(L"{INCLUDE a.txt}|{include A.TXT}", L"basX"), L"' by Ada\r\n' in basX|' by Ada\r\n' in basX");
  EXPECT_EQ(Sub(L"[{INCLUDE missing.txt}][{INCLUDE empty.txt}]"), L"[][]");
  EXPECT_EQ(Sub(L"{INCLUDE a.txt"), L"{INCLUDE a.txt");
  EXPECT_EQ(Sub(L"{INCLUDE b.txt} {INCLUDE a.txt", L"M"), L"' in M {INCLUDE a.txt");
}

TEST_F(Templates, HeadersFillBothNamesAndEndWithAnIndentLine) {
  EXPECT_EQ(generators::HeaderGet(session, generators::kProcedureHeader, L"Main", L"d"), L"");  // no template
  session.settings[settings::kProcedureHeaderFile] = std::wstring(L"C:\\Program Files\\Quillet\\proc.txt");
  Write("proc.txt", "' {PROCEDURENAME}/{MODULENAME}: {DESCRIPTION} ({AUTHOR}, {DATE})");
  EXPECT_EQ(generators::HeaderGet(session, generators::kProcedureHeader, L"Main", L"Adds up"),
            L"' Main/Main: Adds up (Ada, 2026-11-22)    \r\n");
  EXPECT_EQ(generators::HeaderGet(session, 42, L"Main", L""), L"");
}

TEST_F(Templates, WrappingKeepsWordsWholeAndIndentingCoversBlankLines) {
  const std::wstring fifty(50, L'x');
  EXPECT_EQ(generators::WrapText(fifty), L"'   " + fifty + L"\r\n");
  const std::wstring longWord(80, L'y');
  EXPECT_EQ(generators::WrapText(longWord), L"'   " + longWord + L"\r\n");
  const std::wstring words = std::wstring(49, L'a') + L" bbb ccc";
  // The blank at column 50 is the first one searched: the line breaks there.
  EXPECT_EQ(generators::WrapText(words), L"'   " + std::wstring(49, L'a') + L"\r\n'   bbb ccc\r\n");
  const std::wstring later = std::wstring(55, L'a') + L" " + std::wstring(60, L'b') + L" c";
  EXPECT_EQ(generators::WrapText(later),
            L"'   " + std::wstring(55, L'a') + L"\r\n'   " + std::wstring(60, L'b') + L"\r\n'   c\r\n");
  EXPECT_EQ(generators::WrapText(L""), L"");

  std::wstring text = L"a\r\n\r\nb";
  generators::IndentAddToFragment(session, text, 2);
  EXPECT_EQ(text, L"  a\r\n  \r\n  b");
}

}  // namespace

namespace {

TEST_F(Templates, ANewModuleTakesItsHeaderAndTheHostsNameWhenOursIsRefused) {
  Module(L"basMain", {L"Option Explicit"});
  session.settings[settings::kModuleHeaderFile] = std::wstring(L"C:\\Program Files\\Quillet\\mod.txt");
  Write("mod.txt", "' Module {MODULENAME} by {AUTHOR}");
  EXPECT_EQ(generators::ModuleCreate(session, L"basNew", host::kStdModule), L"basNew");
  auto created = project->VBComponents()->Item(L"basNew")->CodeModule();
  EXPECT_EQ(created->Lines(1, created->CountOfLines()), L"' Module basNew by Ada    \r\n");
  // The pane the user worked in stays the active one.
  EXPECT_EQ(vbe.ActiveCodePane()->CodeModule()->Name(), L"basMain");

  uiHost.AnswerMsgBox(ui::vbOK);
  EXPECT_EQ(generators::ModuleCreate(session, L"basMain", host::kClassModule), L"Class1");
  ASSERT_FALSE(uiHost.Log().empty());
  EXPECT_NE(uiHost.Log().back().find(L"It is impossible to give the name 'basMain'.\r\nThe new module has a name 'Class1'."),
            std::wstring::npos);
}

}  // namespace
