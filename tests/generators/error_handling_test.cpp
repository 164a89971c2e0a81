#include <gtest/gtest.h>

#include <fstream>

#include "../support/fixtures.h"
#include "generators/error_handling.h"
#include "generators/error_module.h"
#include "generators/fragment_zones.h"
#include "settings/items.h"

using namespace quillet;
using generators::NameConstantsApply;

namespace {

TEST(FragmentZones, MarksSplitTopMiddleAndBottomWithTheirOwnLineEnds) {
  generators::FragmentZones z = generators::FragmentZonesSplit(
      L"    On Error GoTo E\r\n<END_OF_TOP>\r\n    x = 1\r\n<begin_of_bottom>\r\nX:\r\n    Exit Sub\r\n");
  EXPECT_TRUE(z.hasTop);
  EXPECT_TRUE(z.hasBottom);
  EXPECT_EQ(z.top, L"    On Error GoTo E");
  EXPECT_EQ(z.middle, L"    x = 1");
  EXPECT_EQ(z.bottom, L"\r\nX:\r\n    Exit Sub");
  // Without marks everything is the middle, placed as it stands.
  z = generators::FragmentZonesSplit(L"Beep\r\n");
  EXPECT_FALSE(z.hasTop || z.hasBottom);
  EXPECT_EQ(z.middle, L"Beep");
  // A bottom mark alone leaves no top.
  z = generators::FragmentZonesSplit(L"<begin_of_bottom>\r\nX:");
  EXPECT_FALSE(z.hasTop);
  EXPECT_EQ(z.bottom, L"\r\nX:");
}

TEST(NameConstants, NamesInLiteralsBecomeConstantsOnlyWhenAsked) {
  const std::wstring M = L"cstrModule", P = L"cstrProcedure";
  EXPECT_EQ(NameConstantsApply(L"Err.Raise 1, \"basX.Foo\"", L"basX", L"Foo", M, P, true, true),
            L"Err.Raise 1, cstrModule & \".\" & cstrProcedure");
  // Both flags off: the literal stays.
  EXPECT_EQ(NameConstantsApply(L"x = \"basX\"", L"basX", L"Foo", M, P, false, false), L"x = \"basX\"");
  // Module only: the dot stays as the literal that follows.
  EXPECT_EQ(NameConstantsApply(L"x = \"basX.\"", L"basX", L"Foo", M, P, true, false), L"x = cstrModule & \".\"");
  // A literal holding only a name becomes the bare constant; the case of the name does not matter.
  EXPECT_EQ(NameConstantsApply(L"x = \"FOO\"", L"basX", L"Foo", M, P, false, true), L"x = cstrProcedure");
  // Procedure only: the module's name stays inside the literal.
  EXPECT_EQ(NameConstantsApply(L"\"basX.Foo\"", L"basX", L"Foo", M, P, false, true), L"\"basX.\" & cstrProcedure");
}

TEST(NameConstants, TheErrorLabelWithItsColonMarksAHandledProcedureEvenInAComment) {
  EXPECT_TRUE(generators::HasErrorHandling(L"Sub A()\r\nhandleerror:\r\nEnd Sub", L"HandleError"));
  EXPECT_TRUE(generators::HasErrorHandling(L"Sub A()\r\n' HandleError: later\r\nEnd Sub", L"HandleError"));
  EXPECT_FALSE(generators::HasErrorHandling(L"Sub A()\r\n    GoTo HandleError\r\nEnd Sub", L"HandleError"));
  EXPECT_FALSE(generators::HasErrorHandling(L"Sub A()\r\nEnd Sub", L""));
}

struct ErrorHandling : ::testing::Test, test::SessionFixture {
  ErrorHandling() {
    session.settings[settings::kErrorHandler] = std::wstring(L"HandleError");
    session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
    session.settings[settings::kErrorHandleProcedure] = std::wstring(L"ErrorHandle");
    session.settings[settings::kErrorHandleModule] = std::wstring(L"basErrorHandle");
    session.settings[settings::kModuleNameConstant] = std::wstring(L"cstrModule");
    session.settings[settings::kProcedureNameConstant] = std::wstring(L"cstrProcedure");
    session.settings[settings::kDefaultErrorHandle] = std::wstring(L"Plain");
    session.settings[settings::kBaseFolder] = std::wstring(L"\\vbcode\\");
    Flags(false, false);
    Write("vbcode/Fragments/ErrorHandlers/Plain.bas",
          "    On Error GoTo {HANDLEERRORLABEL}\r\n<end_of_top>\r\n<begin_of_bottom>\r\n{HANDLEEXITLABEL}:\r\n"
          "    Exit {PROCEDURETYPE}\r\n\r\n{HANDLEERRORLABEL}:\r\n    Err.Raise Err.Number, \"{MODULENAME}.{PROCEDURENAME}\"\r\n");
  }
  void Flags(bool module, bool procedure) {
    session.settings[settings::kMakeModuleConstantTrue] = module;
    session.settings[settings::kMakeProcedureConstantTrue] = procedure;
  }
};

TEST_F(ErrorHandling, TheBlockWrapsTheBodyOnceAndAFragmentNameMayCarryItsExtension) {
  Code(L"Module1", {L"Function Total() As Long", L"    Dim x As Long", L"    x = 1|", L"    Total = x", L"End Function"});
  EXPECT_TRUE(generators::ErrorHandlingAdd(session, L"Plain.BAS"));
  const std::vector<std::wstring> once = Marked();
  EXPECT_EQ(once, (std::vector<std::wstring>{L"Function Total() As Long", L"    Dim x As Long",
                                             L"    On Error GoTo HandleError", L"    x = 1|", L"    Total = x", L"",
                                             L"HandleExit:", L"    Exit Function", L"", L"HandleError:",
                                             L"    Err.Raise Err.Number, \"Module1.Total\"", L"End Function"}));
  // The second time the label is found and nothing changes.
  EXPECT_FALSE(generators::ErrorHandlingAdd(session));
  EXPECT_EQ(Marked(), once);
}

TEST_F(ErrorHandling, ConstantsAreDeclaredOnceAndOutsideAProcedureNothingHappens) {
  Flags(true, true);
  auto module = Code(L"Module1", {L"Option Explicit", L"Private Const cstrModule As String = \"Module1\"", L"", L"Sub Main()",
                    L"    Const cstrProcedure = \"Main\"", L"    |", L"End Sub"});
  EXPECT_TRUE(generators::ErrorHandlingAdd(session));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Option Explicit", L"Private Const cstrModule As String = \"Module1\"",
                                                 L"", L"Sub Main()", L"    Const cstrProcedure = \"Main\"",
                                                 L"    On Error GoTo HandleError", L"    |", L"", L"HandleExit:",
                                                 L"    Exit Sub", L"", L"HandleError:",
                                                 L"    Err.Raise Err.Number, cstrModule & \".\" & cstrProcedure",
                                                 L"End Sub"}));
  Caret(1, 1);
  const std::wstring before = Text(module);
  EXPECT_FALSE(generators::ErrorHandlingAdd(session));
  EXPECT_EQ(Text(module), before);
}

TEST_F(ErrorHandling, AMissingSchemeWritesNothing) {
  Code(L"Module1", {L"Sub Main()", L"    |", L"End Sub"});
  EXPECT_FALSE(generators::ErrorHandlingAdd(session, L"Nowhere"));
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    |", L"End Sub"}));
}

TEST_F(ErrorHandling, TheErrorModuleComesFromItsTemplateOnceAndNotWithoutOne) {
  session.settings[settings::kErrorHandleFile] = std::wstring(L"\\vbcode\\ErrorHandlers\\basErrorHandle.bas");
  Code(L"Module1", {L"Sub Main()", L"    |", L"End Sub"});
  auto components = project->VBComponents();
  const long before = components->Count();
  // No template: nothing is made and nothing is said.
  EXPECT_FALSE(generators::ErrorHandleModuleAdd(session));
  generators::ErrorHandlerEnsure(session);
  EXPECT_EQ(components->Count(), before);
  EXPECT_TRUE(uiHost.Log().empty());

  platform.SetRegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth", L"2");
  std::filesystem::create_directories(temp.root / "c" / "Temp");
  Write("vbcode/ErrorHandlers/basErrorHandle.bas",
        "Attribute VB_Name = \"{MODULENAME}\"\r\nOption Explicit\r\n' {PROJECTNAME}\r\n"
        "Public Sub {PROCEDURENAME}()\r\n    Beep\r\nEnd Sub\r\n");
  generators::ErrorHandlerEnsure(session);
  ASSERT_EQ(components->Count(), before + 1);
  host::Ptr<host::CodeModule> made = components->Item(L"basErrorHandle")->CodeModule();
  EXPECT_EQ(made->Lines(1, made->CountOfLines()),
            L"Option Explicit\r\n' VBAProject\r\nPublic Sub ErrorHandle()\r\n  Beep\r\nEnd Sub");
  EXPECT_FALSE(platform.Files().FileExists(platform.TempFolder() + L"basErrorHandle.bas"));
  // The project holds the procedure now: it keeps its own.
  generators::ErrorHandlerEnsure(session);
  EXPECT_EQ(components->Count(), before + 1);
  // The user's module is still the one being edited.
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Sub Main()", L"    |", L"End Sub"}));
}

}  // namespace
