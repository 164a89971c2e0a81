#include <fstream>

#include "analysis/library_folder.h"
#include "analysis/live_code.h"
#include "analysis/module_scan.h"
#include "analysis_fixture.h"

using namespace quillet;

namespace {

struct ModuleScan : test::AnalysisFixture {
  analysis::ProjectModels models;
  void ScanProject() { analysis::clsScanProject(s, models).init(); }
};

template <class C>
std::vector<std::wstring> Names(const C& items) {
  std::vector<std::wstring> out;
  for (const auto& item : items) out.push_back(item->Name);
  return out;
}

TEST_F(ModuleScan, TheModuleViewReadsPrivateDeclarationsJoinedAndWithTheirKinds) {
  auto c = Module(L"Module1", {L"Option Explicit", L"Dim a As Long, _", L"    b As String",
                               L"Private Const K1 = 1, K2 = \"x, y\"", L"Const K3 As Long = 3",
                               L"Private Enum eColour", L"    Red = 1", L"    Green", L"End Enum",
                               L"Private Type tPoint", L"    X As Long", L"    Y As Long", L"End Type",
                               L"Private Declare Function GetTickCount Lib \"kernel32\" () As Long",
                               L"Public Shared As Long", L"", L"Private Sub Hidden()", L"End Sub",
                               L"Public Sub Shown()", L"End Sub"});
  analysis::clsScanModule scan;
  scan.init(s, c);
  EXPECT_EQ(Names(scan.ModuleVars), (std::vector<std::wstring>{L"a", L"b"}));
  EXPECT_EQ(scan.ModuleVars.Item(L"b")->Type_, L"String");
  EXPECT_EQ(Names(scan.ModuleConsts), (std::vector<std::wstring>{L"K1", L"K2", L"K3"}));
  EXPECT_EQ(scan.ModuleConsts.Item(L"K2")->Value, L"\"x, y\"");
  ASSERT_EQ(scan.ModuleEnums.Count(), 1);
  EXPECT_EQ(Names(*scan.ModuleEnums.Find(L"eColour")), (std::vector<std::wstring>{L"Red", L"Green"}));
  EXPECT_EQ(scan.ModuleEnums.Find(L"eColour")->Item(1)->Value, L"1");
  EXPECT_EQ(Names(*scan.ModuleTypes.Find(L"tPoint")), (std::vector<std::wstring>{L"X", L"Y"}));
  // The private procedures of a standard module, and its private declared one.
  EXPECT_EQ(Names(scan.ModuleProcs), (std::vector<std::wstring>{L"Hidden", L"GetTickCount"}));
}

TEST_F(ModuleScan, TheProjectViewTakesWhatStandardModulesMakePublic) {
  Module(L"basA", {L"Public Const A1 = 1, A2 = 2", L"Global gName As String", L"Public Enum eSize", L"    Small",
                   L"    Large = 9", L"End Enum", L"Type tRow", L"    Id As Long", L"End Type",
                   L"Public Declare Sub Sleep Lib \"kernel32\" (ByVal ms As Long)", L"Private Const P = 1", L"",
                   L"Public Function Total() As Long", L"End Function", L"Private Sub Inner()", L"End Sub"});
  Module(L"clsThing", {L"Public Enum eState", L"    Idle", L"End Enum", L"Public Name As String", L"",
                       L"Public Sub Run()", L"End Sub"},
         host::kClassModule);
  ScanProject();
  EXPECT_EQ(Names(models.ProjectConsts), (std::vector<std::wstring>{L"A1", L"A2", L"Small", L"Large"}));
  EXPECT_EQ(Names(models.ProjectVars), (std::vector<std::wstring>{L"gName"}));
  EXPECT_EQ(Names(models.ProjectEnums), (std::vector<std::wstring>{L"eSize"}));
  EXPECT_EQ(Names(models.ProjectTypes), (std::vector<std::wstring>{L"tRow"}));
  EXPECT_EQ(Names(models.ProjectProcs), (std::vector<std::wstring>{L"Total", L"Sleep"}));
  EXPECT_TRUE(models.ProjectClasses.Exists(L"clsThing"));

  // A class's Public Enum is the module's own, not the project's.
  auto cls = project->VBComponents()->Item(L"clsThing");
  analysis::clsScanModule classScan;
  classScan.init(s, cls);
  EXPECT_TRUE(classScan.ModuleEnums.Find(L"eState"));

  // A locked project reads as empty.
  project->SetProtection(1);
  analysis::ProjectModels locked;
  analysis::clsScanProject(s, locked).init();
  EXPECT_EQ(locked.ProjectProcs.Count() + locked.ProjectConsts.Count(), 0);
}

TEST_F(ModuleScan, MalformedDeclarationsKeepTheDeclarationsAroundThem) {
  std::wstring many = L"Public Const C1 = 1";
  for (int i = 2; i <= 5000; ++i) many += L", C" + std::to_wstring(i) + L" = " + std::to_wstring(i);
  Module(L"basBad", {L"Public Before As Long", L"Public Const S = \"open", L"Public Type tOpen", L"    F As Long",
                     many, L"Public After As Long", L"Public Last As Long _"});
  ScanProject();
  EXPECT_EQ(Reported(), L"");
  EXPECT_TRUE(models.ProjectVars.Exists(L"Before"));
  EXPECT_TRUE(models.ProjectConsts.Exists(L"S"));
  // The type that never ends takes the rest of the section as its fields.
  ASSERT_TRUE(models.ProjectTypes.Find(L"tOpen"));
  EXPECT_TRUE(models.ProjectTypes.Find(L"tOpen")->Find(L"F"));
  analysis::ProjectModels lone;
  Module(L"basMany", {many, L"Public After As Long"});
  analysis::clsScanProject(s, lone).init(L"basMany");
  EXPECT_EQ(lone.ProjectConsts.Count(), 5000);
  EXPECT_TRUE(lone.ProjectVars.Exists(L"After"));
}

TEST_F(ModuleScan, LibraryFilesGiveTheirPublicProceduresUnderTheirModuleNames) {
  analysis::clsScanLibraryFolder library;
  library.FileRead(s,
                   L"Attribute VB_Name = \"modText\"\r\nPublic Function Pad(ByVal s As String) As String\r\n"
                   L"    ' End Function is not here\r\n    Pad = s & \" End Function\"\r\nEnd Function\r\n"
                   L"Private Sub Hidden()\r\nEnd Sub\r\nSub Open()\r\n    x = 1",
                   L"text");
  library.FileRead(s, L"Function Twice(x)\r\n    Twice = 2 * x\r\nEnd Function", L"noname");
  EXPECT_TRUE(library.Modules.Exists(L"Library.modText"));
  EXPECT_TRUE(library.Modules.Exists(L"Library.noname"));
  ASSERT_TRUE(library.Procs.Items().Exists(L"Pad.Library"));
  EXPECT_EQ(library.Procs.Items().Item(L"Pad.Library")->ProcReturnType, L"String");
  EXPECT_FALSE(library.Procs.Items().Exists(L"Hidden.Library"));
  // A Sub that never ends runs to the end of the file.
  ASSERT_TRUE(library.Procs.Items().Exists(L"Open.Library"));
  EXPECT_EQ(library.Procs.Items().Item(L"Twice.Library")->ModuleName, L"noname");
}

TEST(LiveCode, CommentsAndStringsHideTheTextAndAStringCarriesOver) {
  EXPECT_TRUE(analysis::CodeHasText(L"x = 1\r\nEnd Sub", L"end sub"));
  EXPECT_FALSE(analysis::CodeHasText(L"' End Sub", L"End Sub"));
  EXPECT_FALSE(analysis::CodeHasText(L"x = 1: Rem End Sub", L"End Sub"));
  EXPECT_FALSE(analysis::CodeHasText(L"", L"End Sub"));
  // Once a quote stood in front of the text, later lines are misses as well.
  EXPECT_FALSE(analysis::CodeHasText(L"s = \"a\": End Sub\r\nEnd Sub", L"End Sub"));
  EXPECT_TRUE(analysis::CodeHasText(L"End Sub\r\ns = \"a\": End Sub", L"End Sub"));
}

}  // namespace
