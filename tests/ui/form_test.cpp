// Forms: life cycle, modal showing through the host, the Forms collection, the design
// state coming back at Unload, handlers by name, and timers on the session's clock.
#include <gmock/gmock.h>

#include "ui_fixture.h"
#include "vba/error.h"

namespace quillet::ui::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST_F(UiTest, ShowHideAndUnloadRaiseTheLifeCycleEventsInOrder) {
  FrmSample frm(context);
  EXPECT_EQ(context.FindForm(L"frmSample"), nullptr);
  frm.Show();
  EXPECT_EQ(context.FindForm(L"FRMSAMPLE"), &frm);
  EXPECT_EQ(context.ActiveForm(), &frm);
  frm.Show();  // already showing: nothing again
  frm.Hide();
  EXPECT_TRUE(frm.Loaded());
  EXPECT_EQ(context.ActiveForm(), nullptr);

  frm.refuseUnload = true;
  EXPECT_FALSE(frm.Unload());
  EXPECT_TRUE(frm.Loaded());
  frm.refuseUnload = false;
  EXPECT_TRUE(frm.Unload());
  EXPECT_EQ(context.FindForm(L"frmSample"), nullptr);
  EXPECT_THAT(frm.events, ElementsAre(L"Load", L"Activate", L"txtName_GotFocus", L"Deactivate", L"QueryUnload 1",
                                      L"QueryUnload 1", L"Unload"));
  EXPECT_THAT(host.Log(), ElementsAre(L"Show frmSample", L"Hide frmSample", L"Unload frmSample"));
}

TEST_F(UiTest, ModelessFormsTakeTurnsAsTheActiveForm) {
  FrmSample a(context, L"frmA");
  FrmSample b(context, L"frmB");
  a.Show();
  b.Show();
  a.SetFocus();
  EXPECT_EQ(context.ActiveForm(), &a);
  b.Unload();  // not the active one: nothing changes for a
  a.Hide();
  EXPECT_EQ(context.ActiveForm(), nullptr);
  EXPECT_THAT(a.events, ElementsAre(L"Load", L"Activate", L"txtName_GotFocus", L"Deactivate", L"Activate",
                                    L"Deactivate"));
  EXPECT_THAT(b.events, ElementsAre(L"Load", L"Activate", L"txtName_GotFocus", L"Deactivate", L"QueryUnload 1",
                                    L"Unload"));
  EXPECT_THAT(context.Forms(), ElementsAre(&a));
}

TEST_F(UiTest, AModalFormBlocksItsCallerUntilItHides) {
  FrmSample frm(context);
  std::vector<std::wstring> order;
  host.QueueAction([&] {
    order.push_back(L"typing");
    UserInput::Set(frm, L"txtName", "Foo");
  });
  host.QueueAction([&] {
    order.push_back(L"Enter");
    UserInput::Key(frm.txtName, vbKeyReturn);  // the Default button hides the form
  });
  frm.Show(true);
  order.push_back(L"caller goes on");
  EXPECT_THAT(order, ElementsAre(L"typing", L"Enter", L"caller goes on"));
  EXPECT_EQ(frm.txtName.Text(), L"Foo");
  EXPECT_FALSE(frm.Visible());
  EXPECT_EQ(context.TopModal(), nullptr);
  EXPECT_THAT(host.Log(), ElementsAre(L"Show frmSample modal", L"Hide frmSample"));

  // With nothing left to feed it, the test host says so rather than wait forever.
  try {
    frm.Show(true);
    FAIL() << "a modal form without input must not wait";
  } catch (const UnscriptedInput& e) {
    EXPECT_THAT(e.what(), HasSubstr("frmSample"));
  }
  EXPECT_EQ(context.TopModal(), nullptr);
}

TEST_F(UiTest, NestedModalFormsReturnInTurnAndReactivateTheirOwner) {
  FrmSample owner(context, L"frmOwner");
  FrmSample child(context, L"frmChild");
  bool childDone = false;
  owner.cmdOK.OnClick = [&] {
    child.Show(true);  // blocks inside the owner's handler
    childDone = true;
  };
  host.QueueAction([&] { UserInput::Click(owner.cmdOK); });
  host.QueueAction([&] {
    EXPECT_THROW(UserInput::Click(owner.chkStatic), InputRefused);  // the owner is behind the child
    UserInput::Key(child.txtName, vbKeyEscape);                     // Cancel unloads the child
  });
  host.QueueAction([&] {
    EXPECT_TRUE(childDone);
    owner.Hide();
  });
  owner.Show(true);
  EXPECT_EQ(host.PendingActions(), 0u);
  EXPECT_THAT(owner.events, ElementsAre(L"Load", L"Activate", L"txtName_GotFocus", L"txtName_Validate",
                                        L"txtName_LostFocus", L"Deactivate", L"Activate", L"Deactivate"));
  EXPECT_FALSE(child.Loaded());
  // A modal form shown already cannot be shown modally again, and while one is up no
  // other form may open modeless.
  host.QueueAction([&] {
    EXPECT_THROW(owner.Show(true), vba::Error);
    EXPECT_THROW(child.Show(), vba::Error);
    owner.Hide();
  });
  owner.Show(true);
}

TEST_F(UiTest, UnloadBringsBackTheDesignStateButKeepsTheFormsOwnData) {
  FrmSample frm(context);
  frm.txtName.SetText(L"designed");
  frm.Show();
  frm.txtName.SetText(L"typed");
  frm.chkStatic.SetValue(1);
  frm.cboType.AddItem(L"Event");
  frm.cboType.SetListIndex(3);
  frm.cmdOK.SetEnabled(false);
  frm.Unload();
  EXPECT_EQ(frm.txtName.Text(), L"designed");
  EXPECT_EQ(frm.chkStatic.Value(), 0);
  EXPECT_EQ(frm.cboType.ListCount(), 3);
  EXPECT_EQ(frm.cboType.ListIndex(), -1);
  EXPECT_TRUE(frm.cmdOK.Enabled());
  EXPECT_FALSE(frm.events.empty());  // the dialog's own fields outlive the unload

  frm.events.clear();
  frm.Show();  // loads afresh
  EXPECT_THAT(frm.events, ElementsAre(L"Load", L"Activate", L"txtName_GotFocus"));
}

TEST_F(UiTest, ALoadHandlerThatUnloadsKeepsTheFormFromShowing) {
  FrmSample frm(context);
  frm.OnLoad = [&] { frm.Unload(); };
  frm.Show(true);  // returns at once: no Pump needed
  EXPECT_FALSE(frm.Loaded());
  EXPECT_THAT(host.Log(), ElementsAre(L"Unload frmSample"));
}

TEST_F(UiTest, HandlersAreCalledByTheirClassicNames) {
  FrmSample frm(context);
  TextBox& second = frm.Add<TextBox>(L"txtPS", nullptr, 1);
  int changes = 0, listened = 0;
  second.OnChange = [&] { ++changes; };
  frm.cboType.OnClick.Listen([&] { ++listened; });
  frm.Load();
  frm.events.clear();
  EXPECT_TRUE(frm.CallHandler(L"cboType_Click"));
  EXPECT_TRUE(frm.CallHandler(L"txtPS(1)_Change"));
  EXPECT_TRUE(frm.CallHandler(L"Form_Load"));
  EXPECT_FALSE(frm.CallHandler(L"cboMissing_Click"));
  EXPECT_FALSE(frm.CallHandler(L"txtName_DropDown"));
  EXPECT_FALSE(frm.CallHandler(L"fraCount_Click"));  // the event exists, no handler does
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(listened, 0);  // only the owner's handler, not other sinks
  EXPECT_THAT(frm.events, ElementsAre(L"cboType_Click ", L"Load"));
  EXPECT_EQ(frm.Find(L"TXTps(1)"), &second);
  EXPECT_EQ(frm.FindAs<CheckBox>(L"txtPS(1)"), nullptr);
}

TEST_F(UiTest, UserInputIsRefusedWhereAUserCouldNotGiveIt) {
  FrmSample frm(context);
  EXPECT_THROW(UserInput::FindForm(context, L"frmSample"), InputRefused);
  frm.Load();
  EXPECT_EQ(&UserInput::FindForm(context, L"frmsample"), &frm);
  EXPECT_THROW(UserInput::Click(frm.cmdOK), InputRefused);  // loaded but not showing
  frm.Show();
  EXPECT_THROW(UserInput::FindControl(frm, L"txtNothing"), InputRefused);
  frm.cmdOK.SetEnabled(false);
  EXPECT_THROW(UserInput::Click(frm.cmdOK), InputRefused);
  EXPECT_THROW(UserInput::Set(frm, L"cboType", "Enum"), InputRefused);  // not in a drop-down list
  EXPECT_THROW(UserInput::Set(frm, L"chkStatic", 5), InputRefused);
  EXPECT_THROW(UserInput::Set(frm, L"optPublic", false), InputRefused);
  EXPECT_THROW(UserInput::Set(frm, L"cmdCancel", 1), InputRefused);

  UserInput::Set(frm, L"cboType", "Function");
  UserInput::Set(frm, L"chkStatic", true);
  UserInput::Set(frm, L"optPrivate", true);
  UserInput::Set(frm, L"cboType", 0);
  EXPECT_THAT(frm.events, ::testing::Contains(L"cboType_Click Function"));
  EXPECT_EQ(frm.cboType.Text(), L"Sub");
  EXPECT_EQ(frm.chkStatic.Value(), 1);
  EXPECT_TRUE(frm.optPrivate.Value());

  frm.refuseUnload = true;
  EXPECT_FALSE(UserInput::CloseForm(frm));
  EXPECT_EQ(frm.events.back(), L"QueryUnload 0");  // the close box's unload mode
}

TEST_F(UiTest, TimersRunOnTheSessionClockWhileTheirFormIsLoaded) {
  FrmSample frm(context);
  Timer& tmr = frm.Add<Timer>(L"Timer1");
  tmr.SetInterval(500);
  int ticks = 0;
  tmr.OnTimer = [&] { ++ticks; };
  clock.Advance(1000);
  EXPECT_EQ(ticks, 0);  // not loaded: no timer
  frm.Load();
  clock.Advance(1200);
  EXPECT_EQ(ticks, 2);
  tmr.SetEnabled(false);
  clock.Advance(1000);
  EXPECT_EQ(ticks, 2);
  tmr.SetEnabled(true);  // the count starts afresh
  clock.Advance(499);
  EXPECT_EQ(ticks, 2);
  clock.Advance(1);
  EXPECT_EQ(ticks, 3);
  EXPECT_TRUE(frm.CallHandler(L"Timer1_Timer"));
  EXPECT_EQ(ticks, 4);
  frm.Unload();
  clock.Advance(5000);
  EXPECT_EQ(ticks, 4);
  frm.Load();  // the design interval comes back with the form
  clock.Advance(500);
  EXPECT_EQ(ticks, 5);
}

TEST_F(UiTest, TheClientAreaIsTheOuterSizeLessBorderAndTitleBar) {
  FrmSample frm(context);
  frm.Move(1500, 1500, 6000, 4500);
  EXPECT_EQ(frm.ScaleWidth(), 6000 - 2 * 3 * 15);
  EXPECT_EQ(frm.ScaleHeight(), 4500 - (2 * 3 + 20) * 15);
  frm.SetBorderStyle(vbBSNone);
  EXPECT_EQ(frm.ScaleWidth(), 6000);
  EXPECT_EQ(frm.ScaleHeight(), 4500);
}

}  // namespace
}  // namespace quillet::ui::testing
