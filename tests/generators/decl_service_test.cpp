// The builders as a service of other dialogs: what the parent receives, and that the
// project's models learn public declarations of standard modules instead.
#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "analysis/project_models.h"
#include "generators/frm_const.h"
#include "generators/frm_var.h"
#include "generators/scope.h"
#include "settings/items.h"

namespace quillet::generators {
namespace {

struct Parent : DeclParent {
  bool pickList = false;
  std::vector<std::wstring> calls;
  void AddNewVar(std::shared_ptr<analysis::clsVariable> v, bool moduleLevel) override {
    calls.push_back(L"AddNewVar " + v->Name + L" " + v->Type_ + (moduleLevel ? L" module" : L" procedure"));
  }
  void AddNewConst(std::shared_ptr<analysis::clsConstant> c, bool moduleLevel) override {
    calls.push_back(L"AddNewConst " + c->Name + L" = " + c->Value + (moduleLevel ? L" module" : L" procedure"));
  }
  void ArgInsert(const std::wstring& name, const std::wstring& type) override { calls.push_back(L"ArgInsert " + name + L" " + type); }
  bool IsPickList() const override { return pickList; }
  void NewVariable(const std::wstring& name, long category) override {
    calls.push_back(L"NewVariable " + name + L" " + std::to_wstring(category));
  }
};

struct Fixture : test::SessionFixture {
  Fixture() {
    module = Code(L"Module1", {L"Option Explicit", L"", L"Sub Main()", L"    |", L"End Sub"});
    session.settings[settings::kDeclarationIndented] = true;
    initialize(session, L"", L"");
  }
  std::wstring Text() { return SessionFixture::Text(module); }
  std::shared_ptr<host::MemoryComponent> module;
};

TEST(DeclService, ParentsReceiveTheNewDeclaration) {
  Fixture fx;
  Parent parent;
  FrmVar var(fx.session);
  var.SetParentForm(&parent);
  var.Init({.types = L"Long"});
  EXPECT_FALSE(var.cmdOKAndPaste.Enabled());  // a parent takes the name itself
  var.txtName.SetText(L"nCount");
  ASSERT_TRUE(var.PressOK(false));
  EXPECT_EQ(var.NewName(), L"nCount");
  EXPECT_EQ(parent.calls, (std::vector<std::wstring>{L"AddNewVar nCount Long procedure", L"ArgInsert nCount Long"}));
  EXPECT_EQ(fx.platform.ClipboardGetText(), L"nCount");

  Parent pick;
  pick.pickList = true;
  FrmVar listed(fx.session);
  listed.SetParentForm(&pick);
  listed.Init({.types = L"Date"});
  listed.txtName.SetText(L"dtWhen");
  ASSERT_TRUE(listed.PressOK(false));
  EXPECT_EQ(pick.calls, (std::vector<std::wstring>{L"NewVariable dtWhen 7"}));

  Parent owner;
  FrmConst constant(fx.session);
  constant.SetParentForm(&owner);
  constant.Init(L"Long", L"5");
  constant.txtName.SetText(L"LIMIT");
  ASSERT_TRUE(constant.PressOK(false));
  EXPECT_EQ(owner.calls, (std::vector<std::wstring>{L"AddNewConst LIMIT = 5 procedure", L"ArgInsert LIMIT "}));
  EXPECT_EQ(fx.Text(), L"Option Explicit\r\n\r\nSub Main()\r\n    Const LIMIT As Long = 5\r\n    Dim nCount As Long\r\n"
                       L"    Dim dtWhen As Date\r\n    \r\nEnd Sub");
}

TEST(DeclService, PublicDeclarationsOfAStandardModuleJoinTheProject) {
  Fixture fx;
  Parent parent;
  FrmVar var(fx.session);
  var.SetParentForm(&parent);
  var.Init({.types = L"String"});
  var.SetAccessibilityItem(4);
  var.txtName.SetText(L"gstrUser");
  ASSERT_TRUE(var.PressOK(false));
  EXPECT_TRUE(ModelsOf(fx.session).ProjectVars.Exists(L"gstrUser"));
  EXPECT_EQ(parent.calls, (std::vector<std::wstring>{L"ArgInsert gstrUser String"}));

  FrmConst constant(fx.session);
  constant.Init(L"String", L"");
  constant.SetAccessibility(1);
  constant.txtName.SetText(L"APP");
  constant.txtValue.SetText(L"Quillet");
  ASSERT_TRUE(constant.PressOK(false));
  EXPECT_TRUE(ModelsOf(fx.session).ProjectConsts.Exists(L"APP"));
  EXPECT_EQ(fx.Text().substr(0, 67), L"Option Explicit\r\nPublic gstrUser As String\r\nPublic Const APP As Str");
}

}  // namespace
}  // namespace quillet::generators
