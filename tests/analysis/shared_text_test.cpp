// Texts the models share between their items: one copy for many holders, and no holder
// ever seeing another's text change.
#include "analysis/module_scan.h"
#include "analysis/refresh.h"
#include "analysis/shared_text.h"
#include "analysis_fixture.h"

using namespace quillet;
using analysis::SharedText;

namespace {

TEST(SharedText, AHolderGivenANewTextLeavesTheOthersAsTheyWere) {
  SharedText module = std::wstring(L"basOrders");
  SharedText a = module, b = module;
  EXPECT_TRUE(a.SharesWith(b));
  b = L"basInvoices";
  EXPECT_EQ(a, L"basOrders");
  EXPECT_EQ(module, L"basOrders");
  EXPECT_EQ(b, L"basInvoices");
  EXPECT_FALSE(a.SharesWith(b));
  // Moved, copied over itself, and dropped: the remaining holders still read their text.
  SharedText c = std::move(a);
  c = c;
  EXPECT_EQ(c, L"basOrders");
  { SharedText gone = module; }
  EXPECT_EQ(module.str(), L"basOrders");

  // A lasting word reads like any other text and passes between holders the same way.
  const SharedText word = SharedText::Lasting(L"ByVal");
  SharedText arg = word;
  EXPECT_TRUE(arg.SharesWith(word));
  arg = L"ByRef";
  EXPECT_EQ(word, L"ByVal");

  // Empty texts are all alike, and none of them counts as shared.
  SharedText none, blank = std::wstring();
  EXPECT_TRUE(none.empty());
  EXPECT_EQ(none, blank);
  EXPECT_FALSE(none.SharesWith(blank));
  EXPECT_EQ(none.c_str(), std::wstring());

  // Read as a string: compared, joined and handed on as a view or a reference.
  EXPECT_EQ(L"basOrders" + std::wstring(L".") + c, L"basOrders.basOrders");
  EXPECT_EQ(c + L".Proc", L"basOrders.Proc");
  EXPECT_EQ(std::wstring_view(c).substr(3), L"Orders");
  const std::wstring& asString = c;
  EXPECT_EQ(asString.size(), 9u);
  EXPECT_NE(c, SharedText(L"basorders"));  // the text as written, case included
}

struct SharedModels : test::AnalysisFixture {
  analysis::ProjectModels models;
  void Scan() {
    analysis::clsScanProject(s, models).init();
    analysis::StdModulesGet(s, models.StdModules);
  }
  const analysis::Rv_ProcDef& Proc(const std::wstring& name) { return *models.ProjectProcs.Item(name); }
};

TEST_F(SharedModels, TheProceduresOfAModuleHoldItsNamesOnceAndARenameChangesOnlyThatModule) {
  auto a = Module(L"basA", {L"Public Sub A1(ByVal x As Long)", L"End Sub", L"Public Function A2(value)", L"End Function"});
  auto b = Module(L"basB", {L"Public gX As Long, gY As String", L"Public Const K1 = 1", L"Public Enum eB",
                            L"    Small = 1", L"    Large", L"End Enum", L"", L"Public Sub B1(ByVal x As Long)",
                            L"End Sub", L"Public Property Get B2()", L"End Property"});
  Scan();
  ASSERT_EQ(models.ProjectProcs.Count(), 4);
  // One text per module for every procedure in it, and one for the project.
  EXPECT_TRUE(Proc(L"A1").ModuleName.SharesWith(Proc(L"A2").ModuleName));
  EXPECT_FALSE(Proc(L"A1").ModuleName.SharesWith(Proc(L"B1").ModuleName));
  EXPECT_TRUE(Proc(L"A1").Project.SharesWith(Proc(L"A1").GroupName));
  EXPECT_TRUE(Proc(L"A1").Project.SharesWith(Proc(L"A2").Project));
  // The repeated words are one text whoever holds them.
  EXPECT_TRUE(Proc(L"A1").ProcKindStr.SharesWith(Proc(L"B1").ProcKindStr));
  EXPECT_EQ(Proc(L"B2").ProcKindStr, L"Property Get");
  const auto& byValA = Proc(L"A1").ProcArguments->Items().Item(1)->PassedBy;
  EXPECT_TRUE(byValA.SharesWith(Proc(L"B1").ProcArguments->Items().Item(1)->PassedBy));
  EXPECT_EQ(Proc(L"A2").ProcArguments->Items().Item(1)->PassedBy, L"ByRef");
  // What the module declares holds the same text of its name; an enum's members hold one
  // text of the enum's name and of the project's.
  EXPECT_TRUE(models.ProjectVars.Item(L"gX")->ModuleName.SharesWith(models.ProjectVars.Item(L"gY")->ModuleName));
  const auto& small = *models.ProjectConsts.Item(L"Small");
  const auto& large = *models.ProjectConsts.Item(L"Large");
  EXPECT_TRUE(small.EnumName.SharesWith(large.EnumName));
  EXPECT_EQ(large.EnumName, L"eB");
  EXPECT_TRUE(small.Project.SharesWith(models.ProjectEnums.Find(L"eB")->Project));
  EXPECT_TRUE(models.ProjectEnums.Find(L"eB")->Module.SharesWith(small.ModuleName));
  EXPECT_FALSE(models.ProjectConsts.Item(L"K1")->EnumMember());

  // One procedure's text given another value changes no other procedure.
  std::shared_ptr<analysis::Rv_ProcDef> a1 = models.ProjectProcs.Item(L"A1");
  a1->ModuleName = L"basElsewhere";
  a1->ProcKindStr = L"Property Let";
  EXPECT_EQ(Proc(L"A2").ModuleName, L"basA");
  EXPECT_EQ(Proc(L"B1").ProcKindStr, L"Sub/Function");
  a1->ModuleName = L"basA";

  // A module renamed is read again under its new name; its procedures are there, the
  // other module's keep their texts, and the procedure kept from before the rename (held
  // elsewhere) still says where it was.
  std::shared_ptr<analysis::Rv_ProcDef> before = models.ProjectProcs.Item(L"B1");
  b->SetName(L"basRenamed");
  analysis::ProjectRefresh(s, models, false);
  ASSERT_EQ(models.ProjectProcs.Count(), 4);
  EXPECT_EQ(Proc(L"B1").ModuleName, L"basRenamed");
  EXPECT_EQ(Proc(L"B2").ModuleName, L"basRenamed");
  EXPECT_TRUE(Proc(L"B1").ModuleName.SharesWith(Proc(L"B2").ModuleName));
  EXPECT_EQ(before->ModuleName, L"basB");
  EXPECT_EQ(Proc(L"A1").ModuleName, L"basA");
  EXPECT_EQ(Proc(L"A2").ModuleName, L"basA");
  EXPECT_EQ(Proc(L"A1").Project, L"VBAProject");
  EXPECT_EQ(models.ProjectVars.Item(L"gY")->ModuleName, L"basRenamed");
  EXPECT_EQ(models.ProjectEnums.Find(L"eB")->Module, L"basRenamed");
  EXPECT_EQ(models.ProjectConsts.Item(L"Large")->ModuleName, L"basRenamed");
  EXPECT_EQ(models.ProjectConsts.Count(), 3);
}

TEST_F(SharedModels, TheProceduresOfALibraryFileHoldTheFilesModuleName) {
  analysis::clsScanLibraryFolder library;
  library.FileRead(s, L"Attribute VB_Name = \"basTools\"\r\nSub T1()\r\nEnd Sub\r\nFunction T2() As Long\r\nEnd Function",
                   L"tools.bas");
  ASSERT_EQ(library.Procs.Count(), 2);
  const auto& t1 = *library.Procs.Items().Item(1);
  const auto& t2 = *library.Procs.Items().Item(2);
  EXPECT_EQ(t1.ModuleName, L"basTools");
  EXPECT_TRUE(t1.ModuleName.SharesWith(t2.ModuleName));
  EXPECT_TRUE(t1.GroupName.SharesWith(t1.ModuleName));
  EXPECT_EQ(t2.Project, L"Library");
  EXPECT_EQ(t2.ProcReturnType, L"Long");
}

}  // namespace
