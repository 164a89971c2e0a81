#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "analysis/records.h"
#include "generators/scope.h"
#include "generators/selection.h"
#include "generators/statements.h"
#include "generators/values.h"

using namespace quillet;

namespace {

struct Inserters : ::testing::Test, test::SessionFixture {};

TEST_F(Inserters, StatementsLandInTheEditorWithCaretAndKeystrokes) {
  Code(L"Module1", {L"Sub A()", L"    x = 1: |", L"    x = 1", L"End Sub"});
  generators::CodeInsert(session, L"Debug.Print ", L"Debug.Print ", {.allowInline = true, .spaceBefore = true});
  EXPECT_EQ(Marked(), std::vector<std::wstring>({L"Sub A()", L"    x = 1: Debug.Print |", L"    x = 1", L"End Sub"}));

  Code(L"Module2", {L"Sub A()", L"|", L"End Sub"});
  generators::LoopCodeInsert(session, L"While");
  EXPECT_EQ(Marked(), std::vector<std::wstring>({L"Sub A()", L"    While|", L"        ", L"    Wend", L"End Sub"}));
  EXPECT_EQ(platform.PendingKeys(), 1u);  // the blank that makes room for the condition

  Code(L"Module3", {L"|"});
  EXPECT_TRUE(generators::WithCodeInsert(session, L"Sheet1"));
  EXPECT_EQ(Marked(), std::vector<std::wstring>({L"    With Sheet1", L"        |", L"    End With"}));
  EXPECT_FALSE(generators::WithCodeInsert(session, L""));
}

TEST_F(Inserters, InstanceNamesGetBlanksOnlyWhereTheNeighboursNeedThem) {
  auto m = Module(L"Module1", {L"Sub A()", L"    Call Show()", L"    x =y", L"End Sub"});
  std::wstring text = L"mobjItem";
  Select(2, 15, 2, 15);
  generators::InstanceAdd(session, vbe.ActiveCodePane(), text, {.allowEmptySelection = true});
  EXPECT_EQ(m->Module()->Lines(2, 1), L"    Call Show(mobjItem)");
  EXPECT_EQ(text, L"mobjItem");

  text = L"z";
  Select(3, 8, 3, 8);
  generators::InstanceAdd(session, vbe.ActiveCodePane(), text, {.allowEmptySelection = true, .sendKeys = true});
  EXPECT_EQ(m->Module()->Lines(3, 1), L"    x = z y");
  EXPECT_EQ(text, L" z ");
  EXPECT_EQ(Selection(), std::vector<long>({3, 11, 3, 11}));
  EXPECT_EQ(platform.PendingKeys(), 2u);  // " {BACKSPACE}" lets the host check the line

  // Without a selection nothing is written unless empty selections are allowed; a
  // selection over lines writes nothing either.
  text = L"q";
  generators::InstanceAdd(session, vbe.ActiveCodePane(), text, {});
  Select(2, 5, 3, 5);
  generators::InstanceAdd(session, vbe.ActiveCodePane(), text, {.allowEmptySelection = true});
  EXPECT_EQ(m->Module()->Lines(2, 2), L"    Call Show(mobjItem)\r\n    x = z y");
}

TEST(Values, QuotingByType) {
  EXPECT_EQ(generators::ValueQuote(L"12", L"String"), L"12");
  EXPECT_EQ(generators::ValueQuote(L"abc", L"String"), L"\"abc\"");
  EXPECT_EQ(generators::ValueQuote(L"\"abc\"", L"String"), L"\"abc\"");
  EXPECT_EQ(generators::ValueQuote(L"2026-11-22", L"Date"), L"#2026-11-22#");
  EXPECT_EQ(generators::ValueQuote(L"#2026-11-22#", L"Date"), L"#2026-11-22#");
  EXPECT_EQ(generators::ValueQuote(L"soon", L"Date"), L"soon");
  EXPECT_EQ(generators::ValueQuote(L"", L"Date"), L"0");
  EXPECT_EQ(generators::ValueQuote(L"", L"Long"), L"0");
  EXPECT_EQ(generators::ValueQuote(L"xlUp", L"Long"), L"xlUp");
}

TEST_F(Inserters, ValuesAsCodeUseNamedConstantsAndLiterals) {
  analysis::Constants moduleConsts, procConsts;
  auto c = std::make_shared<analysis::clsConstant>();
  c->Name = L"cstrTitle";
  c->Type_ = L"String";
  moduleConsts.Add(c, c->Name);
  auto n = std::make_shared<analysis::clsConstant>();
  n->Name = L"clngMax";
  n->Type_ = L"Long";
  procConsts.Add(n, n->Name);
  auto code = [&](const vba::Variant& v, int type) {
    return generators::ValueAsCode(session, v, type, moduleConsts, procConsts);
  };
  EXPECT_EQ(code(L"vbCrLf", generators::vbString), L"vbCrLf");
  EXPECT_EQ(code(L"VBTAB", generators::vbString), L"VBTAB");
  EXPECT_EQ(code(L" vbNullChar", generators::vbString), L" vbNullChar");
  EXPECT_EQ(code(L"vbNullChar", generators::vbString), L"\"vbNullChar\"");
  EXPECT_EQ(code(L"cstrTitle", generators::vbString), L"cstrTitle");
  EXPECT_EQ(code(L"clngMax", generators::vbString), L"\"clngMax\"");
  EXPECT_EQ(code(L"12", generators::vbString), L"12");
  EXPECT_EQ(code(L"abc", generators::vbEmpty), L"\"abc\"");
  EXPECT_EQ(code(L"2026-11-22", generators::vbDate), L"#11/22/2026#");
  EXPECT_EQ(code(L"2026-11-22 14:05", generators::vbDate), L"#2026-11-22 14:05#");
  EXPECT_EQ(code(L"someday", generators::vbDate), L"");
  EXPECT_EQ(code(L"-1", generators::vbBoolean), L"True");
  EXPECT_EQ(code(L"0", generators::vbBoolean), L"False");
  EXPECT_EQ(code(L"true", generators::vbBoolean), L"True");  // the word as typed
  EXPECT_EQ(code(L" FALSE", generators::vbBoolean), L"False");
  EXPECT_EQ(code(true, generators::vbEmpty), L"True");
  EXPECT_EQ(code(L"42", generators::vbLong), L"42");
}

TEST_F(Inserters, ScopeCollectionsFollowTheCaret) {
  Module(L"Module1", {L"Function Total(ByVal n As Long) As Long", L"    Const cMax As Long = 9", L"    Dim s As String",
                      L"Again:", L"    Total = n", L"End Function", L"Sub Other()", L"End Sub"});
  Caret(5, 5);
  generators::initialize(session, L"If Then", L"");
  generators::Scope& scope = generators::ScopeOf(session);
  EXPECT_TRUE(scope.ProcVars.Exists(L"n"));
  EXPECT_TRUE(scope.ProcVars.Exists(L"S"));
  EXPECT_TRUE(scope.ProcConsts.Exists(L"cMax"));
  EXPECT_TRUE(scope.ProcLabels.Exists(L"Again"));
  EXPECT_EQ(scope.ModuleProcs(session).Count(), 2);
  ASSERT_NE(analysis::CurrentScan(session), nullptr);
  EXPECT_EQ(analysis::CurrentScan(session)->ProcTypeStr, L"Function");
  EXPECT_EQ(generators::VarTypeGet(session, L"s"), L"String");
  EXPECT_EQ(generators::VarTypeGet(session, L"unknown"), L"");
  EXPECT_EQ(generators::ProcReturnTypeGet(session, L"Total"), L"");  // only libraries answer

  Caret(8, 1);  // on End Sub of an empty procedure: still inside
  generators::initialize(session, L"If Then", L"");
  EXPECT_EQ(generators::ScopeOf(session).ProcVars.Count(), 0);
  ASSERT_NE(analysis::CurrentScan(session), nullptr);
  EXPECT_EQ(analysis::CurrentScan(session)->ProcName, L"Other");
}

}  // namespace
