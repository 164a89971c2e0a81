#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "analysis/module_procs.h"
#include "analysis/module_scan.h"
#include "analysis/proc_def.h"
#include "analysis_fixture.h"
#include "vba/error.h"

using namespace quillet;
using namespace quillet::analysis;

namespace {

Rv_ProcArgument Arg(std::wstring_view text) {
  Rv_ProcArgument a;
  a.init(text);
  return a;
}

Rv_ProcArguments Args(std::wstring_view definition) {
  Rv_ProcArguments list;
  list.init(definition);
  return list;
}

TEST(ProcArguments, ListsWithStringsArraysDefaultsAndParamArray) {
  Rv_ProcArguments list =
      Args(L"Public Sub P(ByVal a As Long, Optional b As String = \"x,y\", ParamArray c())");
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.StringOfArguments, L"ByVal a As Long, Optional b As String = \"x,y\", ParamArray c()");
  EXPECT_EQ(list.ShortStringOfArguments, L"a, [b], c");
  const Rv_ProcArgument& a = *list.Items().Item(L"A");
  EXPECT_TRUE(a.IsPassedByVal);
  EXPECT_EQ(a.PassedBy, L"ByVal");
  EXPECT_EQ(a.Type_, L"Long");
  EXPECT_EQ(a.ArgDef, L"ByVal a As Long");
  const Rv_ProcArgument& b = *list.Items().Item(2);
  EXPECT_TRUE(b.IsOptional);
  EXPECT_EQ(b.PassedBy, L"ByRef");
  EXPECT_EQ(b.Type_, L"String");
  EXPECT_EQ(b.DefaultValue, L"\"x,y\"");
  const Rv_ProcArgument& c = *list.Items().Item(3);
  EXPECT_TRUE(c.IsParamArray);
  EXPECT_TRUE(c.IsArray);
  EXPECT_EQ(c.Type_, L"Variant");

  // One character between the parentheses is no list; two are.
  EXPECT_EQ(Args(L"Sub P(x)").Count(), 0);
  EXPECT_EQ(Args(L"Sub P(xy)").Count(), 1);
  EXPECT_EQ(Args(L"Sub P()").Count(), 0);
  EXPECT_EQ(Args(L"Sub P").Count(), 0);
  // Parentheses inside strings are passed over in both directions.
  Rv_ProcArguments quoted = Args(L"Declare Sub P Lib \"a(b\" (xy) ' \")\"");
  EXPECT_EQ(quoted.StringOfArguments, L"xy");
  quoted = Args(L"Sub P(Optional s As String = \")(\")");
  ASSERT_EQ(quoted.Count(), 1);
  EXPECT_EQ(quoted.Items().Item(1)->DefaultValue, L"\")(\"");
  // An empty piece in the middle stays an argument without a name.
  Rv_ProcArguments gap = Args(L"Sub P(a, , b)");
  EXPECT_EQ(gap.Count(), 3);
  EXPECT_EQ(gap.ShortStringOfArguments, L"a, , b");
  // A repeated name reaches the caller.
  Rv_ProcArguments twice;
  try {
    twice.init(L"Sub P(a, A)");
    ADD_FAILURE() << "no error";
  } catch (const vba::Error& e) {
    EXPECT_EQ(e.Number(), vba::kErrDuplicateKey);
  }
}

TEST(ProcArguments, OneArgumentKeywordsTypesAndDefaults) {
  Rv_ProcArgument a = Arg(L"Optional ByVal a");
  EXPECT_TRUE(a.IsOptional);
  EXPECT_TRUE(a.IsPassedByVal);
  EXPECT_EQ(a.Name, L"a");
  EXPECT_EQ(a.Type_, L"Variant");
  // Keywords are read in their order only, and case-sensitively.
  a = Arg(L"ByVal Optional a");
  EXPECT_FALSE(a.IsOptional);
  EXPECT_EQ(a.Name, L"Optional");
  EXPECT_EQ(a.Type_, L"");  // the "a" behind the name was taken as the word "As"
  a = Arg(L"byval x As Long");
  EXPECT_FALSE(a.IsPassedByVal);
  EXPECT_EQ(a.Name, L"byval");
  a = Arg(L"ByRef x As Integer");
  EXPECT_EQ(a.PassedBy, L"ByRef");
  EXPECT_EQ(a.Name, L"x");
  EXPECT_EQ(a.Type_, L"Integer");
  // The length limits: a keyword alone is a name.
  EXPECT_EQ(Arg(L"ByVal").Name, L"ByVal");
  EXPECT_EQ(Arg(L"ByVal").PassedBy, L"ByRef");
  EXPECT_EQ(Arg(L"Optional").Name, L"Optional");
  EXPECT_FALSE(Arg(L"ParamArray").IsParamArray);

  EXPECT_EQ(Arg(L"x As Long = 5").DefaultValue, L"5");
  EXPECT_EQ(Arg(L"x As Long =5").DefaultValue, L"");   // one character tight behind "=" is lost
  EXPECT_EQ(Arg(L"x As Long =50").DefaultValue, L"50");
  EXPECT_EQ(Arg(L"x As Long =5").Type_, L"Long");
  a = Arg(L"x = 5");
  EXPECT_EQ(a.Type_, L"Variant");
  EXPECT_EQ(a.DefaultValue, L"5");
  a = Arg(L"a() As Long");
  EXPECT_TRUE(a.IsArray);
  EXPECT_EQ(a.Type_, L"Long");
  a = Arg(L"a As Long()");
  EXPECT_FALSE(a.IsArray);
  EXPECT_EQ(a.Type_, L"Long()");
  a = Arg(L"a$");
  EXPECT_EQ(a.Name, L"a$");
  EXPECT_EQ(a.Type_, L"Variant");
  a = Arg(L"  ");
  EXPECT_EQ(a.Name, L"");
  EXPECT_EQ(a.PassedBy, L"");
  EXPECT_EQ(a.Type_, L"");
}

struct ProcDefs : test::AnalysisFixture {
  std::shared_ptr<Rv_ProcDef> Stored(const std::wstring& text) {
    auto p = std::make_shared<Rv_ProcDef>();
    p->Init2(s, text, L"Helpers");
    return p;
  }
};

TEST_F(ProcDefs, StoredTextsNamesReturnTypesAndVisibility) {
  auto p = Stored(L"Function F$(a)\r\n    F = a\r\nEnd Function");
  EXPECT_EQ(p->Name, L"F");
  EXPECT_EQ(p->ProcReturnType, L"String");
  EXPECT_TRUE(p->ProcIsFunction);
  EXPECT_TRUE(p->ProcIsPublic);
  EXPECT_TRUE(p->IsLibraryProcedure);
  EXPECT_EQ(p->Project, L"Library");
  EXPECT_EQ(p->GroupName, L"Helpers");
  EXPECT_EQ(p->ProcKindStr, L"Sub/Function");
  EXPECT_EQ(p->ProcCountLines, 3);
  EXPECT_EQ(p->ProcDefCountOfLines, 1);
  EXPECT_EQ(p->ProcArguments->Count(), 0);  // one character between the parentheses

  // A comment behind ": " is cut; one without it stays in the definition and the type.
  p = Stored(L"Function F() As Long ' comment: x\r\nEnd Function");
  EXPECT_EQ(p->OneLineProcDef, L"Function F() As Long");
  EXPECT_EQ(p->ProcReturnType, L"Long");
  p = Stored(L"Function F() As Long ' comment\r\nEnd Function");
  EXPECT_EQ(p->OneLineProcDef, L"Function F() As Long ' comment");
  EXPECT_EQ(p->ProcReturnType, L"Long ' comment");

  p = Stored(L"\r\nPrivate Function Total(a As Long, _\r\n        b As Long) As Long\r\nEnd Function");
  EXPECT_EQ(p->ProcDef, L"Private Function Total(a As Long, _\r\n        b As Long) As Long");
  EXPECT_EQ(p->OneLineProcDef, L"Private Function Total(a As Long,b As Long) As Long");
  EXPECT_EQ(p->ProcDefCountOfLines, 3);  // the blank line above counts
  EXPECT_FALSE(p->ProcIsPublic);
  EXPECT_EQ(p->ProcArguments->Count(), 2);
  EXPECT_EQ(p->ProcReturnType, L"Long");

  // A break between ")" and the return type joins the pieces without a blank.
  p = Stored(L"Function G(a) _\r\n    As Long\r\nEnd Function");
  EXPECT_EQ(p->OneLineProcDef, L"Function G(a)As Long");
  EXPECT_EQ(p->ProcReturnType, L"");

  // A first line that is a comment is the definition.
  p = Stored(L"' helper\r\nSub Q()\r\nEnd Sub");
  EXPECT_EQ(p->ProcDef, L"' helper");
  EXPECT_EQ(p->Name, L"");
  EXPECT_FALSE(p->ProcIsFunction);
  EXPECT_EQ(p->ProcArguments->Count(), 0);

  p = Stored(L"Static Sub S(): x = 1\r\nEnd Sub");
  EXPECT_EQ(p->OneLineProcDef, L"Static Sub S()");
  EXPECT_TRUE(p->ProcIsStatic);
  EXPECT_FALSE(p->ProcIsPublic);
  p = Stored(L"Public Static Sub S()\r\nEnd Sub");
  EXPECT_FALSE(p->ProcIsStatic);
  EXPECT_TRUE(p->ProcIsPublic);
  p = Stored(L"Friend Property Get Size() As Long\r\nEnd Property");
  EXPECT_TRUE(p->ProcIsPublic);
  EXPECT_FALSE(p->ProcIsFunction);
  EXPECT_EQ(p->ProcReturnType, L"");
  p = Stored(L"private Sub lower()\r\nEnd Sub");  // the tests are case-sensitive
  EXPECT_TRUE(p->ProcIsPublic);
  EXPECT_EQ(Reported(), L"");
}

struct ModuleProcs : test::AnalysisFixture {
  std::vector<std::wstring> code{
      L"Option Explicit",                       // 1
      L"",                                      // 2
      L"Public Sub Add(a As Long)",             // 3
      L"End Sub",                               // 4
      L"Private Function Total(a As Long, _",   // 5
      L"    b As Long) As Long",                // 6
      L"End Function",                          // 7
      L"Property Get Count() As Long",          // 8
      L"End Property",                          // 9
      L"Property Let Count(v As Long)",         // 10
      L"End Property",                          // 11
      L"Static Sub Tick()",                     // 12
      L"End Sub",                               // 13
  };
  static std::wstring Names(const ProcDefCollection& procs) {
    std::wstring names;
    for (const auto& p : procs) names += p->Name + L";";
    return names;
  }
};

TEST_F(ModuleProcs, DefinitionsFromTheModuleAndTheModulesOwnProcedures) {
  auto m = Code(code);
  Rv_ProcDef total;
  total.init(s, L"vbaproject", *m, L"Total", host::kProcKind);
  EXPECT_EQ(total.GroupName, L"vbaproject");  // the active project, any case
  EXPECT_EQ(total.ModuleName, L"Module1");
  EXPECT_EQ(total.ProcStartLine, 5);
  EXPECT_EQ(total.ProcBodyLine, 5);
  EXPECT_EQ(total.ProcDefStartLine, 5);
  EXPECT_EQ(total.ProcCountLines, 3);
  EXPECT_EQ(total.ProcCode, L"Private Function Total(a As Long, _\r\n    b As Long) As Long\r\nEnd Function");
  EXPECT_EQ(total.ProcDefCountOfLines, 2);
  EXPECT_EQ(total.ProcArguments->ShortStringOfArguments, L"a, b");
  Rv_ProcDef let;
  let.init(s, L"Other", *m, L"Count", host::kLetKind);
  EXPECT_EQ(let.GroupName, L"");
  EXPECT_EQ(let.ProcKindStr, L"Property Let");
  EXPECT_EQ(let.ProcArguments->Items().Item(L"v")->Type_, L"Long");

  Rv_ProcDefs publicOnes;
  publicOnes.init(L"VBAProject", *m);
  EXPECT_EQ(publicOnes.ModuleType, 0);
  EXPECT_EQ(publicOnes.ModuleTypeStr, L"Standard module");
  for (long line = 1; line <= m->CountOfLines(); ++line) publicOnes.Add(s, *m, line, true);
  EXPECT_EQ(Names(publicOnes.Items()), L"Add;Count;Count;");
  EXPECT_TRUE(publicOnes.Items().Exists(L"count*3"));
  EXPECT_TRUE(publicOnes.Items().Exists(L"Count*1"));

  // Standard module: what is not public, properties being public.
  EXPECT_EQ(Names(ModuleProperProcsGet(s, nullptr, false)), L"Total;Tick;");
  // All of them; the Let keeps out of the way of the Get of the same name.
  ProcDefCollection all = ModuleProperProcsGet(s, nullptr, true);
  EXPECT_EQ(Names(all), L"Add;Total;Count;Tick;");
  EXPECT_EQ(all.Item(L"count")->ProcKind, host::kGetKind);

  // In a class module: Subs and Functions, no properties.
  auto cls = project->AddComponent(L"Class1", host::kClassModule, code);
  EXPECT_EQ(Names(ModuleProperProcsGet(s, cls, false)), L"Add;Total;Tick;");
  Rv_ProcDefs classProcs;
  classProcs.init(L"VBAProject", *cls->CodeModule());
  EXPECT_EQ(classProcs.ModuleTypeStr, L"Class module");

  auto empty = project->AddComponent(L"Module9", host::kStdModule, {});
  EXPECT_EQ(ModuleProperProcsGet(s, empty, true).Count(), 0);
  EXPECT_EQ(Reported(), L"");
}

TEST_F(ModuleProcs, AProcedureThatCannotBeReadIsReportedAndLeftOut) {
  auto m = Code({L"Sub P(a, a)", L"End Sub", L"Sub Q()", L"End Sub"});
  EXPECT_EQ(Names(ModuleProperProcsGet(s, nullptr, true)), L"Q;");
  EXPECT_EQ(Reported(), L"");  // a repeated name is passed over in scans

  Rv_ProcDefs procs;
  procs.init(L"VBAProject", *m);
  procs.Add(s, *m, 99, false);
  EXPECT_NE(Reported().find(L"Rv_ProcDefs.AddProc"), std::wstring::npos);

  auto p = std::make_shared<Rv_ProcDef>();
  p->Name = L"X";
  procs.AddProc(s, p, L"X.Library");
  procs.AddProc(s, std::make_shared<Rv_ProcDef>(), L"x.library");  // the first keeps the key
  procs.AddProc(s, std::make_shared<Rv_ProcDef>(), L"");
  EXPECT_EQ(procs.Count(), 2);
  EXPECT_EQ(procs.Items().Item(L"X.LIBRARY")->Name, L"X");
}

// The lists of a module's procedures read each definition alone: every field but the
// code must come out as a full read of the same procedure gives it.
TEST_F(ModuleProcs, ADefinitionReadAloneGivesWhatAFullReadGives) {
  auto m = Code({
      L"Option Explicit",
      L"' above",
      L"Public Function Wide(ByVal a As Long, _",
      L"",
      L"      Optional b As String = \"x, y\", _",
      L"      ParamArray c()) as Variant: Wide = 1",
      L"    Wide = a",
      L"End Function",
      L"Private Sub Quiet(): Debug.Print 1 ' note: here",
      L"End Sub",
      L"Function Typed$(s) ' comment",
      L"End Function",
      L"Static Property Get Size() As Long",
      L"End Property",
      L"Sub Plain",
      L"End Sub",
  });
  Rv_ProcDefs lists = ModuleProcsRead(s, m->Parent(), false);
  ASSERT_EQ(lists.Count(), 5);
  for (const auto& alone : lists.Items()) {
    SCOPED_TRACE(alone->Name);
    Rv_ProcDef full;
    full.init(s, L"VBAProject", *m, alone->Name, alone->ProcKind);
    EXPECT_EQ(alone->ProcCode, L"");  // no body is copied into a list
    EXPECT_NE(full.ProcCode, L"");
    EXPECT_EQ(alone->ProcDef, full.ProcDef);
    EXPECT_EQ(alone->OneLineProcDef, full.OneLineProcDef);
    EXPECT_EQ(alone->ProcDefCountOfLines, full.ProcDefCountOfLines);
    EXPECT_EQ(alone->ProcReturnType, full.ProcReturnType);
    EXPECT_EQ(alone->ProcIsFunction, full.ProcIsFunction);
    EXPECT_EQ(alone->ProcIsPublic, full.ProcIsPublic);
    EXPECT_EQ(alone->ProcIsStatic, full.ProcIsStatic);
    EXPECT_EQ(alone->ProcStartLine, full.ProcStartLine);
    EXPECT_EQ(alone->ProcBodyLine, full.ProcBodyLine);
    EXPECT_EQ(alone->ProcCountLines, full.ProcCountLines);
    EXPECT_EQ(alone->GroupName, full.GroupName);
    EXPECT_EQ(alone->ModuleName, L"Module1");
    EXPECT_EQ(alone->ProcArguments->StringOfArguments, full.ProcArguments->StringOfArguments);
    EXPECT_EQ(alone->ProcArguments->ShortStringOfArguments, full.ProcArguments->ShortStringOfArguments);
  }
  const Rv_ProcDef& wide = *lists.Items().Item(L"Wide*0");
  EXPECT_EQ(wide.ProcDef, L"Public Function Wide(ByVal a As Long, _\r\n      Optional b As String = \"x, y\", _\r\n"
                          L"      ParamArray c()) as Variant");
  EXPECT_EQ(wide.ProcDefCountOfLines, 4);  // the blank line inside counts
  EXPECT_EQ(wide.ProcReturnType, L"Variant");  // ") as " is found in any case
  EXPECT_EQ(wide.ProcArguments->ShortStringOfArguments, L"a, [b], c");
  EXPECT_EQ(wide.ProcArguments->Items().Item(L"b")->DefaultValue, L"\"x, y\"");
  EXPECT_EQ(lists.Items().Item(L"Quiet*0")->OneLineProcDef, L"Private Sub Quiet()");
  EXPECT_TRUE(lists.Items().Item(L"Typed*0")->ProcIsFunction);
  EXPECT_EQ(lists.Items().Item(L"Plain*0")->ProcArguments->Count(), 0);
  EXPECT_EQ(Reported(), L"");
}

TEST_F(ModuleProcs, DeclaredProcedures) {
  Code(code);
  ProcDefCollection procs;
  DeclaredProcAdd(s, L"Function GetTickCount Lib \"kernel32\" () As Long", L"Module1", procs, false);
  DeclaredProcAdd(s, L"Sub Sleep Lib \"kernel32\" (ByVal dwMilliseconds As Long)", L"Module1", procs, true);
  DeclaredProcAdd(s, L"Function GetX& Lib \"x.dll\" Alias \"GetX(\" (ByVal a As Long, b$)", L"Module1", procs, true);
  DeclaredProcAdd(s, L"Sub Sleep Lib \"other\" ()", L"Module2", procs, true);
  ASSERT_EQ(procs.Count(), 3);

  const Rv_ProcDef& tick = *procs.Item(L"VBAProject.GetTickCount");
  EXPECT_TRUE(tick.ProcIsFunction);
  EXPECT_FALSE(tick.ProcIsPublic);
  EXPECT_EQ(tick.ProcReturnType, L"Long");
  EXPECT_EQ(tick.Project, L"VBAProject");
  EXPECT_EQ(tick.GroupName, L"VBAProject");
  EXPECT_EQ(tick.ModuleName, L"Module1");
  EXPECT_EQ(tick.ProcArguments->Count(), 0);

  const Rv_ProcDef& sleep = *procs.Item(L"vbaproject.sleep");
  EXPECT_FALSE(sleep.ProcIsFunction);
  EXPECT_TRUE(sleep.ProcIsPublic);
  EXPECT_EQ(sleep.ModuleName, L"Module1");  // the first keeps its key
  EXPECT_EQ(sleep.ProcArguments->ShortStringOfArguments, L"dwMilliseconds");

  const Rv_ProcDef& x = *procs.Item(L"VBAProject.GetX");
  EXPECT_EQ(x.Name, L"GetX");
  EXPECT_EQ(x.ProcReturnType, L"Long");  // from the type character
  EXPECT_EQ(x.ProcArguments->ShortStringOfArguments, L"a, b$");
  EXPECT_EQ(Reported(), L"");

  DeclaredProcAdd(s, L"Function", L"Module1", procs, true);
  EXPECT_EQ(procs.Count(), 3);
  EXPECT_NE(Reported().find(L"basGlobal.DeclaredProcAdd"), std::wstring::npos);
}

}  // namespace
