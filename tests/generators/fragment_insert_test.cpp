#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/fragment_vars.h"
#include "settings/items.h"
#include "settings/naming.h"

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
