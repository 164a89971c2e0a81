#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/procedure.h"
#include "settings/items.h"
#include "vba/strings.h"

using namespace quillet;
using generators::clsArgument;
using generators::clsProcedure;

namespace {

std::shared_ptr<clsArgument> Arg(const std::wstring& name, const std::wstring& type, long number) {
  auto a = std::make_shared<clsArgument>();
  a->Name = name;
  a->ValueType = type;
  a->Number = number;
  return a;
}

std::vector<std::wstring> Lines(const std::wstring& text) { return vba::Split(text, L"\r\n"); }

TEST(Arguments, EachKindWritesItselfAsInADefinition) {
  auto a = Arg(L"vlngCount", L"Long", 1);
  EXPECT_EQ(a->ArgumentString(), L"vlngCount As Long");  // ByRef is never written
  a->IsByVal = true;
  a->IsArray = true;
  EXPECT_EQ(a->ArgumentString(), L"ByVal vlngCount() As Long");
  a->IsOptional = true;
  EXPECT_EQ(a->ArgumentString(), L"Optional ByVal vlngCount() As Long");  // no default, no " = "
  a->DefaultValue = L"10";
  EXPECT_EQ(a->ArgumentString(), L"Optional ByVal vlngCount() As Long = 10");
  // A default without Optional is not written.
  a->IsOptional = false;
  EXPECT_EQ(a->ArgumentString(), L"ByVal vlngCount() As Long");
  // ParamArray: the name and "()" whatever else is set.
  a->IsOptional = true;
  a->IsParamArray = true;
  EXPECT_EQ(a->ArgumentString(), L"ParamArray vlngCount()");
  EXPECT_EQ(Arg(L"x", L"", 1)->ArgumentString(), L"x");
}

TEST(Arguments, OrderRulesWalkByNumberAndRenumberingClosesTheGap) {
  clsProcedure p;
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kArgumentsOrderGood);
  // Added out of order: the numbers decide.
  auto b = Arg(L"b", L"", 2);
  b->IsOptional = true;
  p.Arguments().Add(b);
  p.Arguments().Add(Arg(L"a", L"", 1));
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kArgumentsOrderGood);
  b->Number = 0;  // now the optional one comes first
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kRequiredAfterOptional);
  b->Number = 2;
  // A ParamArray behind an optional argument is refused as a required one would be.
  auto rest = Arg(L"rest", L"", 3);
  rest->IsParamArray = true;
  p.Arguments().Add(rest);
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kRequiredAfterOptional);
  b->IsOptional = false;
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kArgumentsOrderGood);
  p.Arguments().Add(Arg(L"z", L"", 4));
  EXPECT_EQ(p.ArgumentsOrderIsBad(), generators::kParamArrayNotLast);
  // Keys ignore case: the same name twice is refused.
  EXPECT_THROW(p.Arguments().Add(Arg(L"A", L"", 5)), vba::Error);
  // Removing "b" (number 2) moves the later ones up.
  p.Arguments().Remove(L"B");
  p.ArgumentsRenumber(2);
  std::vector<std::wstring> order;
  for (const auto& x : p.Arguments().Items()) order.push_back(x->Name + std::to_wstring(x->Number));
  EXPECT_EQ(order, (std::vector<std::wstring>{L"a1", L"rest2", L"z3"}));
}

struct Procedure : ::testing::Test, test::SessionFixture {
  Procedure() {
    session.hostName = L"Excel";
    session.settings[settings::kErrorHandler] = std::wstring(L"HandleError");
    session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
    session.settings[settings::kModuleNameConstant] = std::wstring(L"cstrModule");
    session.settings[settings::kProcedureNameConstant] = std::wstring(L"cstrProcedure");
    session.settings[settings::kProcedureHeaderFile] = std::wstring(L"C:\\Program Files\\Quillet\\proc.txt");
    Write("proc.txt", "' {PROCEDURENAME}: {DESCRIPTION}\r\n");
  }
  static std::wstring Handler() {
    return L"    On Error GoTo {HANDLEERRORLABEL}\r\n<end_of_top>\r\n<begin_of_bottom>\r\n{HANDLEEXITLABEL}:\r\n"
           L"    Exit {PROCEDURETYPE}\r\n\r\n{HANDLEERRORLABEL}:\r\n"
           L"    Err.Raise Err.Number, \"{MODULENAME}.{PROCEDURENAME}\"\r\n";
  }
};

TEST_F(Procedure, DefinitionsOfEveryShapeWithoutOptions) {
  clsProcedure p;
  p.Name = L"Main";
  p.ProcType = L"Sub";
  EXPECT_EQ(p.GenerateCode(session), L"Sub Main()\r\n\r\nEnd Sub\r\n");
  EXPECT_EQ(p.Definition(), L"Sub Main()");

  clsProcedure g;
  g.Name = L"Foo";
  g.AccessibleType = L"Public";
  g.ProcType = L"Property";
  g.PropertyType = L"Get";
  g.ReturnValueType = L"Long";
  EXPECT_EQ(g.GenerateCode(session), L"Public Property Get Foo() As Long\r\n\r\nEnd Property\r\n");

  clsProcedure f;
  f.Name = L"Total";
  f.AccessibleType = L"Private";
  f.IsStatic = true;
  f.ProcType = L"Function";
  f.ReturnValueType = L"Currency";
  f.Arguments().Add(Arg(L"vcurNet", L"Currency", 1));
  EXPECT_EQ(f.GenerateCode(session),
            L"Private Static Function Total(vcurNet As Currency) As Currency\r\n\r\nEnd Function\r\n");
  // Set content stands for everything, whatever the options.
  f.IncludeComment = f.AddReturnStatement = f.IncludeHourglass = true;
  f.ProcContent(L"Sub X()\r\nEnd Sub");
  EXPECT_EQ(f.GenerateCode(session), L"Sub X()\r\nEnd Sub");
}

TEST_F(Procedure, WrappedArgumentsStandUnderTheFirstOne) {
  clsProcedure p;
  p.Name = L"Foo";
  p.AccessibleType = L"Public";
  p.ProcType = L"Sub";
  p.ArgumentsOnSeparateLine = true;
  auto a = Arg(L"a", L"Long", 1);
  a->IsByVal = true;
  p.Arguments().Add(a);
  // One argument: no continuation.
  EXPECT_EQ(p.GenerateCode(session), L"Public Sub Foo(ByVal a As Long)\r\n\r\nEnd Sub\r\n");
  auto b = Arg(L"b", L"String", 2);
  b->IsByVal = true;
  p.Arguments().Add(b);
  EXPECT_EQ(Lines(p.GenerateCode(session)),
            (std::vector<std::wstring>{L"Public Sub Foo(ByVal a As Long, _", std::wstring(15, L' ') + L"ByVal b As String)",
                                       L"", L"End Sub", L""}));
  EXPECT_EQ(p.Definition(), L"Public Sub Foo(ByVal a As Long, _\r\n" + std::wstring(15, L' ') + L"ByVal b As String)");
  // Without a start there is never a break.
  EXPECT_EQ(p.GetArgString(0), L"ByVal a As Long, ByVal b As String");
}

TEST_F(Procedure, EveryOptionOnGivesTheFixedOrder) {
  clsProcedure p;
  p.Name = L"Total";
  p.ModuleName = L"basMain";
  p.ProcType = L"Function";
  p.ReturnValueType = L"Long";
  p.IncludeComment = p.ProcedureNameConstant = p.IncludeErrorHandler = p.AddReturnStatement = p.IncludeHourglass =
      true;
  p.Description = L"Adds up";
  p.ErrorHandler = Handler();
  p.ModuleNameConstant = true;
  EXPECT_EQ(Lines(p.GenerateCode(session)),
            (std::vector<std::wstring>{
                L"Function Total() As Long",
                L"' Total: Adds up",
                L"    ",
                L"    Const cstrProcedure = \"Total\"",
                L"    On Error GoTo HandleError",
                L"    Application.Cursor=xlWait",
                L"",
                L"",
                L"    Total = Empty",
                L"    Application.Cursor=xlDefault",
                L"HandleExit:",
                L"    Exit Function",
                L"",
                L"HandleError:",
                L"    Err.Raise Err.Number, cstrModule & \".\" & cstrProcedure",
                L"End Function",
                L"",
            }));
}

TEST_F(Procedure, ReturnLinesByTypeAndHourglassByHost) {
  clsProcedure p;
  p.Name = L"Sheet";
  p.ProcType = L"Function";
  p.ReturnValueType = L"Worksheet";
  p.AddReturnStatement = true;
  // An object is set to Nothing; the return fragment leaves an empty line above the body.
  EXPECT_EQ(p.GenerateCode(session), L"Function Sheet() As Worksheet\r\n\r\n\r\n    Set Sheet = Nothing\r\nEnd Function\r\n");
  p.ReturnValueType.clear();
  EXPECT_EQ(p.GenerateCode(session), L"Function Sheet()\r\n\r\n\r\n    Sheet = Empty\r\nEnd Function\r\n");
  EXPECT_TRUE(generators::IsPlainReturnType(L"variant"));
  EXPECT_FALSE(generators::IsPlainReturnType(L"Object"));

  clsProcedure h;
  h.Name = L"Run";
  h.ProcType = L"Sub";
  h.IncludeHourglass = true;
  session.hostName = L"Word";
  EXPECT_EQ(h.GenerateCode(session),
            L"Sub Run()\r\n    System.Cursor=wdCursorWait\r\n\r\n    System.Cursor=wdCursorNormal\r\nEnd Sub\r\n");
  session.hostName = L"Access";
  EXPECT_EQ(generators::BuildHourglass(session, true), L"    Screen.MousePointer = 11\r\n");
  EXPECT_EQ(generators::BuildHourglass(session, false), L"    Screen.MousePointer = 0\r\n");
  // A host without an hourglass: bare line breaks, and the procedure stays as it was.
  session.hostName = L"Outlook";
  EXPECT_EQ(generators::BuildHourglass(session, true), L"\r\n");
  EXPECT_EQ(h.GenerateCode(session), L"Sub Run()\r\n\r\nEnd Sub\r\n");
  // The indent follows the editor's tab width.
  session.hostName = L"Excel";
  platform.SetRegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth", L"2");
  EXPECT_EQ(generators::BuildHourglass(session, true), L"  Application.Cursor=xlWait\r\n");
  EXPECT_EQ(generators::ProcedureConstantLine(session, L"Run"), L"  Const cstrProcedure = \"Run\"\r\n");
}

TEST_F(Procedure, CreateAppendsAndLeavesTheCaretInTheBody) {
  auto module = Code(L"basMain", {L"Option Explicit|"});
  clsProcedure p;
  p.Name = L"Total";
  p.ModuleName = L"basMain";
  p.ProcType = L"Function";
  p.ReturnValueType = L"Long";
  p.AddReturnStatement = true;
  p.Create(session, p.GenerateCode(session), project, true, true);
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Option Explicit", L"Function Total() As Long", L"    |", L"",
                                                 L"    Total = Empty", L"End Function", L""}));
  // A "<cursor>" mark wins over the body line.
  clsProcedure q;
  q.Name = L"Other";
  q.ModuleName = L"basMain";
  q.ProcContent(L"Sub Other()\r\n    x = <cursor>1\r\nEnd Sub\r\n");
  q.Create(session, q.GenerateCode(session), project, true, true);
  EXPECT_EQ(Marked().at(8), L"    x = |1");
  // Into a module that is not in front: the marks go, the caret stays.
  auto other = Module(L"basOther", {L"Option Explicit"});
  Code(L"basMain", {L"Option Explicit|"});
  clsProcedure r;
  r.ModuleName = L"basOther";
  r.ProcContent(L"Sub R()\r\n    <cursor>\r\nEnd Sub\r\n");
  r.Create(session, r.GenerateCode(session), project, true, true);
  EXPECT_EQ(Text(other), L"Option Explicit\r\nSub R()\r\n    \r\nEnd Sub\r\n");
  EXPECT_EQ(Selection(), (std::vector<long>{1, 16, 1, 16}));
  // Empty code writes nothing.
  r.Create(session, L"", project, true, true);
  EXPECT_EQ(other->Module()->CountOfLines(), 5);
  (void)module;
}

}  // namespace
