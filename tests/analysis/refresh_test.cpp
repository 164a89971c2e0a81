#include <filesystem>
#include <fstream>

#include "analysis/module_scan.h"
#include "analysis/refresh.h"
#include "analysis_fixture.h"
#include "ui/form.h"
#include "ui/list_controls.h"

using namespace quillet;

namespace {

struct TestForm : ui::Form {
  explicit TestForm(ui::UiContext& c) : Form(c, L"frmTest") {}
};

struct Refresh : test::AnalysisFixture {
  analysis::ProjectModels models;
  void Initial() {
    analysis::clsScanProject(s, models).init();
    analysis::StdModulesGet(s, models.StdModules);
  }
  bool Public(const std::wstring& proc) { return models.ProjectProcs.Exists(proc); }
};

TEST_F(Refresh, OnlyAModuleWhoseLengthChangedIsScannedAgain) {
  auto a = Module(L"basA", {L"Public Sub One()", L"End Sub"});
  auto b = Module(L"basB", {L"Public Sub Two()", L"End Sub"});
  Initial();
  // An edit of the same length goes unseen: the fingerprint is the text's length.
  a->Module()->ReplaceLine(1, L"Public Sub Uno()");
  analysis::ProjectRefresh(s, models, false);
  EXPECT_TRUE(Public(L"One"));
  EXPECT_FALSE(Public(L"Uno"));
  // One character more: that module alone is read again.
  a->Module()->ReplaceLine(1, L"Public Sub Uno1()");
  b->Module()->ReplaceLine(1, L"Public Sub Dos()");  // same length as before: stays
  analysis::ProjectRefresh(s, models, false);
  EXPECT_FALSE(Public(L"One"));
  EXPECT_TRUE(Public(L"Uno1"));
  EXPECT_TRUE(Public(L"Two"));
  // A module that appears is read; one that goes takes its entries along.
  Module(L"basC", {L"Public Const Three = 3"});
  project->VBComponents()->Remove(project->VBComponents()->Item(L"basB"));
  analysis::ProjectRefresh(s, models, false);
  EXPECT_TRUE(models.ProjectConsts.Exists(L"Three"));
  EXPECT_FALSE(Public(L"Two"));
  EXPECT_FALSE(models.StdModules.Exists(L"basB"));
}

TEST_F(Refresh, ReferencesDecideWhichLibrariesAndExpressionsCount) {
  auto refs = io::DefaultReferences();
  refs.push_back({L"DAO", L"C:\\dao.dll"});
  refs.push_back({L"Broken", L"C:\\gone.dll", {}, {}, 0, 0, true});
  project->SetReferences(refs);
  Module(L"basA", {L"Sub A()", L"End Sub"}, host::kStdModule);
  std::ofstream(temp.root / "c" / "Program Files" / "Quillet" / "qltvars.ini", std::ios::binary)
      << "[DAO]\r\nRecordset=Form.Recordset,rs,CurrentDb.OpenRecordset(\"\")\r\n"
         "[ADODB]\r\nRecordset=adoRs\r\n";
  analysis::ProjectRefresh(s, models, true);
  EXPECT_TRUE(models.ReferenceNames.Exists(L"DAO"));
  EXPECT_FALSE(models.ReferenceNames.Exists(L"Broken"));
  ASSERT_EQ(models.KnownExpressions.Count(), 1);  // ADODB is not referenced

  TestForm form(ui);
  auto& combo = form.Add<ui::ComboBox>(L"cboValue");
  analysis::KnownExpressionsGet(s, models, combo, L"recordset");
  // Outside a form's module the form's own recordset is not offered.
  ASSERT_EQ(combo.ListCount(), 2);
  EXPECT_EQ(combo.List(0), L"rs");
  EXPECT_EQ(combo.ItemData(0), analysis::kKindObject);
  Module(L"Form_Orders", {L"Option Compare Database"}, 100);
  combo.Clear();
  analysis::KnownExpressionsGet(s, models, combo, L"Recordset");
  EXPECT_EQ(combo.List(0), L"Me.Recordset");

  // A reference that goes takes its library's entries out of the models.
  auto daoConst = std::make_shared<analysis::clsConstant>();
  daoConst->Name = L"dbOpenTable";
  daoConst->Project = L"DAO";
  models.LibraryConsts.Add(daoConst, L"dbOpenTable");
  refs.erase(refs.begin() + 4);
  project->SetReferences(refs);
  analysis::ProjectRefresh(s, models, false);
  EXPECT_FALSE(models.LibraryConsts.Exists(L"dbOpenTable"));
  // ...and its known expressions with it, without being asked to read them again.
  EXPECT_EQ(models.KnownExpressions.Count(), 0);

  // Unchanged references leave the expressions as they were read; one that comes back
  // brings its own again.
  models.KnownExpressions.Add(std::make_shared<analysis::clsItem>(), L"Kept.Mark");
  analysis::ProjectRefresh(s, models, false);
  EXPECT_TRUE(models.KnownExpressions.Exists(L"Kept.Mark"));
  refs.push_back({L"dao", L"C:\\dao.dll"});
  project->SetReferences(refs);
  analysis::ProjectRefresh(s, models, false);
  EXPECT_FALSE(models.KnownExpressions.Exists(L"Kept.Mark"));
  EXPECT_TRUE(models.KnownExpressions.Exists(L"DAO.Recordset"));
}

TEST_F(Refresh, TypeListsCarryTheirKindsAndChooseTheFirstWhenAsked) {
  Module(L"basTypes", {L"Public Enum eSize", L"    Small", L"End Enum", L"Public Type tRow", L"    Id As Long",
                       L"End Type"});
  Module(L"clsItem", {L"Option Explicit"}, host::kClassModule);
  Initial();
  TestForm form(ui);
  auto& list = form.Add<ui::ComboBox>(L"cboType");
  analysis::colEnums none;
  analysis::DataTypeList(s, models, none, list, L"Long", {});
  ASSERT_EQ(list.ListCount(), 9 + 3 + 1 + 2);
  EXPECT_EQ(list.List(list.ListIndex()), L"Long");
  EXPECT_EQ(list.ItemData(0), 17);  // Byte
  EXPECT_EQ(list.List(9), L"Variant");
  EXPECT_EQ(list.ItemData(12), analysis::kKindObject);  // clsItem
  EXPECT_EQ(list.ItemData(list.FindStringExact(L"eSize")), analysis::kKindEnum);
  EXPECT_EQ(list.ItemData(list.FindStringExact(L"tRow")), analysis::kKindType);
  // Without user types: no basic types, no enums, but the user-defined types stay.
  analysis::DataTypeList(s, models, none, list, L"Nowhere", {.noUserTypes = true});
  EXPECT_EQ(list.FindStringExact(L"Long"), -1);
  EXPECT_EQ(list.FindStringExact(L"eSize"), -1);
  EXPECT_GE(list.FindStringExact(L"tRow"), 0);
  EXPECT_EQ(list.ListIndex(), 0);

  EXPECT_FALSE(analysis::TypeIsObject(models, L"eSize", none, {}));
  EXPECT_FALSE(analysis::TypeIsObject(models, L"tRow", none, {}));
  EXPECT_FALSE(analysis::TypeIsObject(models, L"String", none, {}));
  EXPECT_TRUE(analysis::TypeIsObject(models, L"string", none, {}));  // exact spelling only
  EXPECT_TRUE(analysis::TypeIsObject(models, L"clsItem", none, {}));

  auto& types = form.Add<ui::ListBox>(L"lstTypes");
  analysis::AddTypeItem(types, L" (Long, String) ");
  EXPECT_EQ(types.ListCount(), 2);
  EXPECT_EQ(types.List(1), L"String");
}

TEST_F(Refresh, TheSelectedWordIsProposedOnlyWhenShortAndOnOneLine) {
  Code({L"    Call Show(\"Customer.Name\")", L"    x = 1"});
  Select(1, 15, 1, 30);
  EXPECT_EQ(analysis::CurrentWordGet(s), L"CustomerName");
  Select(1, 15, 2, 3);
  EXPECT_EQ(analysis::CurrentWordGet(s), L"");
  Code({L"    " + std::wstring(32, L'a')});
  Select(1, 5, 1, 37);
  EXPECT_EQ(analysis::CurrentWordGet(s), L"");
}

}  // namespace
