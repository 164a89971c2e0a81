#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "generators/frm_procedure.h"
#include "generators/scope.h"
#include "settings/items.h"
#include "ui/user_input.h"

using namespace quillet;
using generators::clsArgument;
using generators::clsProcedure;
using generators::FrmArgument;
using generators::FrmProcedure;
using ui::UserInput;

namespace {

std::vector<std::wstring> ListOf(const ui::ComboBox& c) {
  std::vector<std::wstring> items;
  for (int i = 0; i < c.ListCount(); ++i) items.push_back(c.List(i));
  return items;
}

struct ProcedureDialog : ::testing::Test, test::SessionFixture {
  ProcedureDialog() {
    session.settings[settings::kAddHeaderProcedure] = true;
    session.settings[settings::kAddHeaderMethod] = std::wstring(L"no");
    session.settings[settings::kAddMethodConstant] = std::wstring(L"Yes");
    session.settings[settings::kAddProcedureConstant] = false;
    Code(L"basMain", {L"Option Explicit", L"|"});
  }
};

TEST_F(ProcedureDialog, TheMethodBuilderHandsItsProcedureBackAndWritesNothing) {
  const std::wstring before = Text(project->AddComponent(L"Class1", host::kClassModule, {L"Option Explicit"}));
  platform.ClipboardSetText(L"kept");
  FrmProcedure* shown = nullptr;
  uiHost.QueueAction([&] {
    shown = dynamic_cast<FrmProcedure*>(&UserInput::FindForm(ui, L"frmProcedure"));
    ASSERT_NE(shown, nullptr);
    // The method defaults, read as truth values whatever their spelling; Friend offered.
    EXPECT_EQ(shown->Caption(), L"Method Builder");
    EXPECT_EQ(shown->chkAddHeader.Value(), ui::vbUnchecked);
    EXPECT_EQ(shown->chkAddProcedureConstant.Value(), ui::vbChecked);
    EXPECT_EQ(ListOf(shown->cboAccessibility), (std::vector<std::wstring>{L"Public", L"Private", L"Friend"}));
    EXPECT_FALSE(shown->cboModule.Enabled());
    UserInput::Set(*shown, L"txtName", "Refresh");
    UserInput::Set(*shown, L"cboProcType", "Function");
    UserInput::Set(*shown, L"cboReturnValueType", "Boolean");
    UserInput::Set(*shown, L"cboAccessibility", "Friend");
    UserInput::Click(shown->cmdOK);
  });
  std::shared_ptr<clsProcedure> m = generators::MethodBuilderRun(session, nullptr);
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(m->Name, L"Refresh");
  EXPECT_EQ(m->ProcType, L"Function");
  EXPECT_EQ(m->ReturnValueType, L"Boolean");
  EXPECT_EQ(m->AccessibleType, L"Friend");
  EXPECT_TRUE(m->ProcedureNameConstant);
  EXPECT_FALSE(m->IncludeComment);
  // Nothing reached a module or the clipboard.
  EXPECT_EQ(Marked(), (std::vector<std::wstring>{L"Option Explicit", L"|"}));
  EXPECT_EQ(Text(std::static_pointer_cast<host::MemoryComponent>(project->VBComponents()->Item(L"Class1"))), before);
  EXPECT_EQ(platform.ClipboardGetText(), L"kept");
}

TEST_F(ProcedureDialog, AMethodBeingChangedIsReplacedOnOkAndUntouchedOnCancel) {
  auto method = std::make_shared<clsProcedure>();
  method->Name = L"Load";
  method->ProcType = L"Sub";
  method->AccessibleType = L"Private";
  method->ModuleName = L"Class1";
  for (const wchar_t* name : {L"vlngId", L"vblnFresh"}) {
    auto a = std::make_shared<clsArgument>();
    a->Name = name;
    a->Number = method->Arguments().Count() + 1;
    method->Arguments().Add(a);
  }
  // Cancel after deleting an argument in the dialog: the method keeps both.
  uiHost.QueueAction([&] {
    auto& f = dynamic_cast<FrmProcedure&>(UserInput::FindForm(ui, L"frmProcedure"));
    EXPECT_EQ(f.txtName.Text(), L"Load");
    EXPECT_EQ(f.Accessibility(), L"Private");
    EXPECT_EQ(f.lstArguments.ListCount(), 2);
    f.lstArguments.SetListIndex(0);
    uiHost.AnswerMsgBox(ui::vbYes);
    UserInput::Click(f.cmdDelArg);
    EXPECT_EQ(f.lstArguments.ListCount(), 1);
    UserInput::Click(f.cmdCancel);
  });
  EXPECT_EQ(generators::MethodBuilderRun(session, method), nullptr);
  EXPECT_EQ(method->Arguments().Count(), 2);

  uiHost.QueueAction([&] {
    auto& f = dynamic_cast<FrmProcedure&>(UserInput::FindForm(ui, L"frmProcedure"));
    UserInput::Set(f, L"txtName", "Reload");
    f.lstArguments.SetListIndex(1);
    UserInput::Click(f.cmdUpArg);
    UserInput::Click(f.cmdOK);
  });
  std::shared_ptr<clsProcedure> back = generators::MethodBuilderRun(session, method);
  EXPECT_EQ(back, method);
  EXPECT_EQ(method->Name, L"Reload");
  EXPECT_EQ(method->ModuleName, L"Class1");
  std::vector<std::wstring> order;
  for (const auto& a : method->Arguments().Items()) order.push_back(a->Name);
  EXPECT_EQ(order, (std::vector<std::wstring>{L"vblnFresh", L"vlngId"}));
  EXPECT_EQ(method->GenerateCode(session).substr(0, 42), L"Private Sub Reload(vblnFresh, vlngId)\r\n\r\nE");
}

// A parent holding a procedure, as the Procedure Builder does.
struct Parent : generators::ArgumentParent {
  clsProcedure procedure;
  int redrawn = 0;
  clsProcedure& Procedure() override { return procedure; }
  void ArgumentsList() override { ++redrawn; }
};

TEST_F(ProcedureDialog, DefaultValuesAreTheConstantsOfTheTypeOnceEach) {
  Code(L"basMain", {L"Option Explicit", L"Private Const cMax As Long = 9", L"Private Const cMin As Long = 1",
                    L"Private Const cName As String = \"x\"", L"|"});
  generators::initialize(session, L"", L"");
  Parent parent;
  FrmArgument form(session);
  form.SetParentForm(&parent);
  form.Init(nullptr, L"Long");
  form.Show(false);
  EXPECT_EQ(ListOf(form.cboDefaultValue), (std::vector<std::wstring>{L"<New Constant>", L"cMax", L"cMin"}));
  UserInput::Set(form, L"cboDataType", "(none)");
  EXPECT_EQ(ListOf(form.cboDefaultValue), (std::vector<std::wstring>{L"<New Constant>", L"cMax", L"cMin", L"cName"}));
  UserInput::Set(form, L"cboDataType", "String");
  EXPECT_EQ(ListOf(form.cboDefaultValue), (std::vector<std::wstring>{L"<New Constant>", L"cName"}));

  // A typed default of a String is quoted; a constant of the list stays its name.
  UserInput::Set(form, L"txtName", "vstrTitle");
  UserInput::Set(form, L"chkOptional", 1);
  UserInput::Set(form, L"cboDefaultValue", "Untitled");
  EXPECT_TRUE(form.PressOK(true));
  UserInput::Set(form, L"txtName", "vstrOther");
  UserInput::Set(form, L"chkOptional", 1);
  UserInput::Set(form, L"cboDefaultValue", "cName");
  EXPECT_TRUE(form.PressOK(false));
  EXPECT_EQ(parent.redrawn, 2);
  EXPECT_EQ(parent.procedure.GetArgString(0), L"Optional vstrTitle As String = \"Untitled\", Optional vstrOther As String = cName");
}

TEST_F(ProcedureDialog, AParamArrayForcesArrayAndByRefAndClosesTheListBehindIt) {
  Parent parent;
  FrmArgument form(session);
  form.SetParentForm(&parent);
  form.Init(nullptr, L"Variant");
  form.Show(false);
  UserInput::Set(form, L"optByVal(0)", true);
  UserInput::Set(form, L"chkOptional", 1);
  UserInput::Set(form, L"cboDefaultValue", "1");
  UserInput::Set(form, L"chkOptional", 0);
  UserInput::Set(form, L"chkParamArray", 1);
  EXPECT_EQ(form.chkArray.Value(), ui::vbChecked);
  EXPECT_FALSE(form.chkByVal());
  EXPECT_FALSE(form.optByVal0.Enabled());
  EXPECT_FALSE(form.chkOptional.Enabled());
  EXPECT_EQ(form.cboDefaultValue.Text(), L"");
  UserInput::Set(form, L"txtName", "avarRest");
  EXPECT_TRUE(form.PressOK(true));
  EXPECT_EQ(parent.procedure.GetArgString(0), L"ParamArray avarRest()");
  // The next one: nothing optional, no array, no second ParamArray.
  EXPECT_FALSE(form.chkOptional.Enabled());
  EXPECT_FALSE(form.chkArray.Enabled());
  EXPECT_FALSE(form.chkParamArray.Enabled());
  // The same name again is refused unless the user insists; "(none)" writes no type.
  UserInput::Set(form, L"txtName", "AVARREST");
  uiHost.AnswerMsgBox(ui::vbNo);
  EXPECT_FALSE(form.PressOK(false));
  UserInput::Set(form, L"txtName", "vRest");
  UserInput::Set(form, L"cboDataType", "(none)");
  EXPECT_TRUE(form.PressOK(false));
  EXPECT_EQ(parent.procedure.GetArgString(0), L"ParamArray avarRest(), vRest");
}

}  // namespace
