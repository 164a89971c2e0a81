#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/fragment_vars.h"
#include "settings/items.h"
#include "settings/naming.h"
#include "generators/fragment_insert.h"
#include "vba/strings.h"

using namespace quillet;

namespace {

struct Fragments : ::testing::Test, test::SessionFixture {
  Fragments() { session.settings[settings::kDeclarationIndented] = true; }
};

TEST_F(Fragments, TokensReadIntoTypeNameAndValue) {
  std::wstring type, name, value;
  EXPECT_TRUE(generators::FragmentVarParse(session, L"{STRING}", type, name, value, settings::kScopeLocal, true));
  EXPECT_EQ(type, L"String");
  EXPECT_EQ(name, L"varString");
  EXPECT_EQ(value, L"");
  EXPECT_TRUE(generators::FragmentVarParse(session, L"{LONG : count = 10 }", type, name, value, settings::kScopeLocal, true));
  EXPECT_EQ(type, L"Long");
  EXPECT_EQ(name, L"count");
  EXPECT_EQ(value, L"10");
  // Trailing non-letters of the type go; a dotted type keeps its library.
  EXPECT_TRUE(generators::FragmentVarParse(session, L"{Integer2:i}", type, name, value, settings::kScopeLocal, true));
  EXPECT_EQ(type, L"Integer");
  EXPECT_TRUE(generators::FragmentVarParse(session, L"{excel.range}", type, name, value, settings::kScopeLocal, true));
  EXPECT_EQ(type, L"Excel.range");
  EXPECT_EQ(name, L"varExcel");
  // Nothing between the braces, or too short, gives nothing.
  EXPECT_FALSE(generators::FragmentVarParse(session, L"{}", type, name, value, settings::kScopeLocal, true));
  EXPECT_FALSE(generators::FragmentVarParse(session, L"{", type, name, value, settings::kScopeLocal, true));
  EXPECT_EQ(generators::FragmentDeclarationLine(L"Long", L"count", L"10"), L"Const count As Long = 10");
  EXPECT_EQ(generators::FragmentDeclarationLine(L"String", L"s", L""), L"Dim s As String");
}

TEST_F(Fragments, EveryOccurrenceOfATokenTakesTheSameNameAndAnOpenBraceEndsTheSearch) {
  std::wstring text = L"{STRING} = {string} & {LONG:n}\r\nMsgBox \"{\" & {STRING}";
  std::vector<generators::FragmentVar> vars = generators::FragmentTokensFill(session, text);
  EXPECT_EQ(text, L"varString = varString & n\r\nMsgBox \"{\" & varString");
  ASSERT_EQ(vars.size(), 2u);
  EXPECT_EQ(vars[1].name, L"n");
  // The quoted "{" pairs with the "}" of no token: a brace in a literal is no exception here.
  text = L"x = \"{\" & y\r\nz = 1";
  generators::FragmentTokensFill(session, text);
  EXPECT_EQ(text, L"x = \"{\" & y\r\nz = 1");
}

TEST_F(Fragments, DefaultsDeclareEachVariableOnceAndKeepWhatIsDeclared) {
  Code(L"Module1", {L"Sub Main()", L"    Dim n As Long", L"    |", L"End Sub"});
  std::wstring text = L"{STRING} = {STRING}\r\n{LONG:n} = {LONG:count=10}";
  generators::FragmentUseDefaults(session, text);
  EXPECT_EQ(text, L"varString = varString\r\nn = count");
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    Const count As Long = 10", L"    Dim n As Long",
                                                 L"    Dim varString As String", L"    |", L"End Sub"}));
}

}  // namespace

namespace {

std::wstring Lines(std::initializer_list<std::wstring> lines) { return vba::Join(std::vector<std::wstring>(lines), L"\r\n"); }

TEST_F(Fragments, TextMergePlacesTopMiddleAndBottomAroundTheProcedure) {
  session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
  std::wstring proc = Lines({L"Sub A()", L"    Dim x As Long", L"    x = 1", L"End Sub"});
  std::wstring frag = Lines({L"    Dim t As Single", L"<end_of_top>", L"    t = Timer", L"<begin_of_bottom>",
                             L"    Debug.Print Timer - t", L""});
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A()", L"    Dim x As Long", L"    Dim t As Single", L"    t = Timer", L"    x = 1",
                         L"    Debug.Print Timer - t", L"End Sub"}));
  // With an Exit statement the bottom goes above the line before it (in a handler the exit
  // label), and an empty part still gives its empty line.
  proc = Lines({L"Function F() As Long", L"    F = 1", L"X:", L"    Exit Function", L"End Function"});
  frag = Lines({L"<begin_of_bottom>", L"    Beep"});
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Function");
  EXPECT_EQ(proc, Lines({L"Function F() As Long", L"", L"    F = 1", L"    Beep", L"X:", L"    Exit Function",
                         L"End Function"}));
  // Without marks the fragment follows the declarations; empty texts change nothing.
  proc = Lines({L"Sub A()", L"End Sub"});
  frag = L"    Beep\r\n";
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A()", L"    Beep", L"End Sub"}));
  std::wstring empty;
  generators::FragmentToTextOfProcedureAdd(session, empty, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A()", L"    Beep", L"End Sub"}));
}

TEST_F(Fragments, TextMergeSplitsCleanUpAtTheExitLabelOrFallsBackToTheExit) {
  session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
  const std::wstring handled = Lines({L"Sub A(o As Object)", L"    On Error GoTo HandleError", L"    o.Run",
                                      L"HandleExit:", L"    Exit Sub", L"HandleError:", L"    Resume HandleExit",
                                      L"End Sub"});
  // The return line of a new function: an empty line under the declarations, the line
  // itself above the label.
  std::wstring frag = Lines({L"<BeforeHandleExitLabel>", L"    Set o = Nothing", L""});
  std::wstring proc = handled;
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A(o As Object)", L"    On Error GoTo HandleError", L"", L"    o.Run",
                         L"    Set o = Nothing", L"HandleExit:", L"    Exit Sub", L"HandleError:",
                         L"    Resume HandleExit", L"End Sub"}));
  // The hourglass after it: on under the declarations, off above the exit label.
  frag = Lines({L"    Screen.MousePointer = 11", L"<end_of_top>", L"<begin_of_bottom>", L"    Screen.MousePointer = 0"});
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A(o As Object)", L"    On Error GoTo HandleError", L"    Screen.MousePointer = 11",
                         L"", L"    o.Run", L"    Set o = Nothing", L"    Screen.MousePointer = 0", L"HandleExit:",
                         L"    Exit Sub", L"HandleError:", L"    Resume HandleExit", L"End Sub"}));
  // Without the label the clean-up goes above the exit.
  proc = Lines({L"Sub A(o As Object)", L"    o.Run", L"End Sub"});
  frag = Lines({L"    o.Start", L"<BeforeHandleExitLabel>", L"    Set o = Nothing", L"<begin_of_bottom>"});
  generators::FragmentToTextOfProcedureAdd(session, frag, proc, L"Sub");
  EXPECT_EQ(proc, Lines({L"Sub A(o As Object)", L"    o.Start", L"    o.Run", L"    Set o = Nothing", L"End Sub"}));
}

// The bottom keeps the line end behind its mark: one blank line above it, as written.
TEST_F(Fragments, InsertionWritesThreePlacesAndDeclaresOnce) {
  Code(L"Module1", {L"Sub Main()", L"    Dim n As Long", L"", L"    n = 1", L"    |", L"    n = 2", L"End Sub"});
  EXPECT_TRUE(generators::FragmentInsert(
      session, L"{SINGLE:t} = 0\r\n<end_of_top>\r\nt = Timer<cursor>\r\n<begin_of_bottom>\r\nDebug.Print {SINGLE:t}\r\n"));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    Dim n As Long", L"    Dim t As Single",
                                                 L"    t = 0", L"", L"    n = 1", L"    t = Timer|", L"    n = 2",
                                                 L"", L"    Debug.Print t", L"End Sub"}));
}

TEST_F(Fragments, OneLineFragmentGoesIntoTheLineAtTheCaretUnindented) {
  Code(L"Module1", {L"Sub Main()", L"    x = |", L"End Sub"});
  EXPECT_TRUE(generators::FragmentInsert(session, L"Now()\r\n"));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    x = Now()|", L"End Sub"}));
  // Several lines under a line of code go below it, indented as the caret's column.
  Code(L"Module2", {L"Sub Main()", L"    |x = 1", L"End Sub"});
  EXPECT_TRUE(generators::FragmentInsert(session, L"a = 1\r\nb = 2"));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    |x = 1", L"    a = 1", L"    b = 2", L"End Sub"}));
  // Outside a procedure a blank line takes the text, with one indent for a caret at column 1.
  Code(L"Module3", {L"Option Explicit", L"|", L"Sub Main()", L"End Sub"});
  EXPECT_TRUE(generators::FragmentInsert(session, L"Private m As Long<cursor>"));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Option Explicit", L"    Private m As Long|", L"Sub Main()", L"End Sub"}));
}

}  // namespace
