// The event rules dialogs depend on: what raises Change and Click, guard flags, option
// groups, focus with Validate, and keys.
#include <gmock/gmock.h>

#include "ui_fixture.h"
#include "vba/error.h"

namespace quillet::ui::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(UiTest, DesignStateRaisesNothingAndCodeChangesRaiseTheClassicEvents) {
  FrmSample frm(context);
  frm.txtName.SetText(L"before load");  // still design: no form loaded
  frm.chkStatic.SetValue(1);
  EXPECT_THAT(frm.events, IsEmpty());

  frm.Load();
  frm.events.clear();
  frm.txtName.SetText(L"Foo");
  frm.txtName.SetText(L"Foo");  // the same text: no Change
  frm.chkStatic.SetValue(0);    // set in code: Click all the same
  frm.chkStatic.SetValue(0);
  frm.cboType.SetListIndex(1);
  frm.cboType.SetListIndex(1);  // the same index: no Click
  EXPECT_THAT(frm.events, ElementsAre(L"txtName_Change Foo", L"chkStatic_Click 0", L"cboType_Click Function"));
  EXPECT_THROW(frm.chkStatic.SetValue(3), vba::Error);
}

TEST_F(UiTest, GuardFlagKeepsHandlersQuietAndIsRestored) {
  FrmSample frm(context);
  frm.Load();
  frm.InitFromSettings(1);
  EXPECT_EQ(frm.chkStatic.Value(), 1);
  EXPECT_FALSE(frm.updating);
  EXPECT_THAT(frm.events, ElementsAre(L"Load"));
  frm.chkStatic.SetValue(0);
  EXPECT_THAT(frm.events, ElementsAre(L"Load", L"chkStatic_Click 0"));
}

TEST_F(UiTest, OptionButtonsExcludeEachOtherWithinTheirContainerOnly) {
  FrmSample frm(context);
  frm.Load();
  frm.optOne.SetValue(true);
  frm.optPublic.SetValue(true);
  frm.optPrivate.SetValue(true);
  EXPECT_FALSE(frm.optPublic.Value());
  EXPECT_TRUE(frm.optPrivate.Value());
  EXPECT_TRUE(frm.optOne.Value());  // inside the frame: a group of its own
  frm.optTwo.SetValue(true);
  EXPECT_FALSE(frm.optOne.Value());
  EXPECT_TRUE(frm.optPrivate.Value());
  frm.optPrivate.SetValue(true);  // already chosen: no Click from code
  // The cleared buttons raise nothing; only the chosen ones click.
  EXPECT_THAT(frm.events, ElementsAre(L"Load", L"optOne_Click", L"optPublic_Click", L"optPrivate_Click"));
}

TEST_F(UiTest, ComboBoxStylesFollowTheClassicTextRules) {
  FrmSample frm(context);
  frm.Load();
  ComboBox& list = frm.cboType;  // drop-down list
  list.SetText(L"property");     // an entry's text, without regard to case, selects it
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.Text(), L"Property");
  EXPECT_THROW(list.SetText(L"Enum"), vba::Error);  // 383: the text is read-only

  ComboBox& combo = frm.Add<ComboBox>(L"cboFree");
  int changes = 0, clicks = 0;
  combo.OnChange = [&] { ++changes; };
  combo.OnClick = [&] { ++clicks; };
  combo.AddItem(L"Long");
  combo.AddItem(L"String");
  combo.SetListIndex(1);  // choosing fills the text without a Change
  EXPECT_EQ(combo.Text(), L"String");
  EXPECT_EQ(combo.SelLength(), 6);
  combo.SetText(L"Lon");  // free text: Change, and no entry selected
  EXPECT_EQ(combo.ListIndex(), -1);
  combo.SetText(L"long");  // equal to an entry: it counts as selected, quietly
  EXPECT_EQ(combo.ListIndex(), 0);
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(clicks, 1);
  combo.Clear();
  EXPECT_EQ(combo.Text(), L"");
}

TEST_F(UiTest, ListEntriesKeepTheSelectionAndSortWithoutRegardToCase) {
  FrmSample frm(context);
  ListBox& lst = frm.Add<ListBox>(L"lstVars");
  lst.SetSorted(true);
  for (const wchar_t* t : {L"beta", L"Alpha", L"gamma"}) lst.AddItem(t);
  EXPECT_EQ(lst.List(0), L"Alpha");
  EXPECT_EQ(lst.NewIndex(), 2);
  frm.Load();
  lst.SetListIndex(1);  // beta
  lst.AddItem(L"Aaron");
  EXPECT_EQ(lst.ListIndex(), 2);
  EXPECT_EQ(lst.Text(), L"beta");
  lst.RemoveItem(0);
  EXPECT_EQ(lst.Text(), L"beta");
  lst.RemoveItem(1);  // the selected one: none is selected afterwards
  EXPECT_EQ(lst.ListIndex(), -1);
  EXPECT_EQ(lst.List(7), L"");  // out of range reads as empty
  EXPECT_THROW(lst.ItemData(7), vba::Error);
  EXPECT_THROW(lst.SetListIndex(5), vba::Error);
  EXPECT_THROW(lst.RemoveItem(5), vba::Error);

  // The platform's searches: from after a start, wrapping round, without regard to case.
  ListBox& names = frm.Add<ListBox>(L"lstNames");
  for (const wchar_t* t : {L"Sub", L"String", L"Single", L"string"}) names.AddItem(t);
  EXPECT_EQ(names.FindString(L"s"), 0);
  EXPECT_EQ(names.FindString(L"s", 0), 1);
  EXPECT_EQ(names.FindString(L"SI", 2), 2);
  EXPECT_EQ(names.FindStringExact(L"STRING", 1), 3);
  EXPECT_EQ(names.FindStringExact(L"Str"), -1);
}

TEST_F(UiTest, MultiSelectListsTrackTheirSelectionApart) {
  FrmSample frm(context);
  ListBox& lst = frm.Add<ListBox>(L"lstMany");
  lst.SetMultiSelect(vbMultiSelectSimple);
  for (const wchar_t* t : {L"a", L"b", L"c"}) lst.AddItem(t);
  frm.Show();
  int clicks = 0;
  lst.OnClick = [&] { ++clicks; };
  lst.SetSelected(0, true);
  lst.SetSelected(2, true);
  lst.SetSelected(2, true);
  EXPECT_EQ(lst.SelCount(), 2);
  EXPECT_EQ(clicks, 2);
  UserInput::Set(lst, nlohmann::json::array({"b"}));
  EXPECT_FALSE(lst.Selected(0));
  EXPECT_TRUE(lst.Selected(1));
  EXPECT_EQ(lst.SelCount(), 1);
}

TEST_F(UiTest, ValidateCanKeepTheFocusAndLostFocusFollowsIt) {
  FrmSample frm(context);
  frm.requireName = true;
  frm.Show();
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);  // the first tab stop
  frm.events.clear();

  EXPECT_FALSE(UserInput::Click(frm.chkStatic));  // empty name: Validate cancels
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
  EXPECT_EQ(frm.chkStatic.Value(), 0);  // the click was lost with the focus
  UserInput::Set(frm.txtName, "Foo");
  EXPECT_TRUE(UserInput::Click(frm.chkStatic));
  EXPECT_EQ(frm.ActiveControl(), &frm.chkStatic);
  EXPECT_THAT(frm.events, ElementsAre(L"txtName_Validate", L"txtName_Change Foo", L"txtName_Validate",
                                      L"txtName_LostFocus", L"chkStatic_GotFocus", L"chkStatic_Click 1"));

  // A target that does not cause validation lets the focus go without asking.
  frm.events.clear();
  frm.txtName.SetFocus();
  frm.txtName.SetText(L"");
  frm.events.clear();
  frm.cmdCancel.SetCausesValidation(false);
  frm.cmdCancel.SetFocus();
  EXPECT_THAT(frm.events, ElementsAre(L"txtName_LostFocus"));

  frm.chkStatic.SetEnabled(false);
  EXPECT_THROW(frm.chkStatic.SetFocus(), vba::Error);
  frm.fraCount.SetVisible(false);  // a hidden frame hides what it holds
  EXPECT_FALSE(frm.optOne.CanFocus());
}

TEST_F(UiTest, KeysGoThroughKeyPressThatCanCancelThem) {
  FrmSample frm(context);
  frm.Show();
  std::vector<std::wstring> keys;
  frm.txtName.OnKeyDown = [&](int& code, int shift) { keys.push_back(L"down " + std::to_wstring(code)); };
  frm.txtName.OnKeyUp = [&](int& code, int shift) { keys.push_back(L"up " + std::to_wstring(code)); };
  for (int c : {'a', 'B', '!', 'c'}) UserInput::Key(frm.txtName, c);
  EXPECT_EQ(frm.txtName.Text(), L"aBc");  // "!" was cancelled by the handler
  EXPECT_EQ(keys.front(), L"down 65");
  EXPECT_EQ(keys[1], L"up 65");

  UserInput::Key(frm.txtName, vbKeyBack);
  EXPECT_EQ(frm.txtName.Text(), L"aB");
  UserInput::Caret(frm.txtName, 0, 1);
  UserInput::Key(frm.txtName, 'x');  // typing replaces the selection
  EXPECT_EQ(frm.txtName.Text(), L"xB");
  EXPECT_EQ(frm.txtName.SelStart(), 1);
  UserInput::KeyDown(frm.txtName, vbKeyDelete);
  EXPECT_EQ(frm.txtName.Text(), L"x");
  frm.txtName.SetMaxLength(2);
  for (int c : {'y', 'z'}) UserInput::Key(frm.txtName, c);
  EXPECT_EQ(frm.txtName.Text(), L"xy");
  frm.txtName.SetLocked(true);
  UserInput::Key(frm.txtName, vbKeyBack);
  EXPECT_EQ(frm.txtName.Text(), L"xy");
  EXPECT_THROW(UserInput::Set(frm.txtName, "typed"), InputRefused);

  // KeyPreview: the form sees the key first and may cancel it for the control.
  frm.txtName.SetLocked(false);
  frm.SetKeyPreview(true);
  frm.OnKeyPress = [](int& key) {
    if (key == 'q') key = 0;
  };
  UserInput::Key(frm.txtName, 'q');
  EXPECT_EQ(frm.txtName.Text(), L"xy");
}

TEST_F(UiTest, EnterPressesTheDefaultButtonAndEscapeTheCancelButton) {
  FrmSample frm(context);
  frm.hideOnOk = false;
  frm.Show();
  TextBox& txtNotes = frm.Add<TextBox>(L"txtNotes");
  txtNotes.SetMultiLine(true);
  frm.events.clear();

  UserInput::Key(frm.txtName, vbKeyReturn);
  EXPECT_EQ(frm.txtName.Text(), L"");
  UserInput::Key(txtNotes, 'a');
  UserInput::Key(txtNotes, vbKeyReturn);  // a multi-line box takes Enter as a line break
  EXPECT_EQ(txtNotes.Text(), L"a\r\n");
  UserInput::Key(frm.cmdCancel, vbKeyReturn);  // the focused button is the one pressed
  EXPECT_THAT(frm.events, ElementsAre(L"cmdOK_Click", L"txtName_Validate", L"txtName_LostFocus", L"cmdCancel_Click",
                                      L"QueryUnload 1", L"Unload"));

  FrmSample again(context, L"frmAgain");
  again.Show();
  again.cmdCancel.SetEnabled(false);  // no enabled Cancel button: Escape is an ordinary key
  UserInput::Key(again.txtName, vbKeyEscape);
  EXPECT_TRUE(again.Loaded());
  again.cmdCancel.SetEnabled(true);
  again.cmdOK.SetDefault(false);
  UserInput::Key(again.txtName, vbKeyReturn);  // no Default button: nothing happens
  UserInput::Key(again.txtName, vbKeyEscape);
  EXPECT_FALSE(again.Loaded());
}

TEST_F(UiTest, TabMovesAlongTheTabOrder) {
  FrmSample frm(context);
  frm.chkStatic.SetTabIndex(0);
  EXPECT_EQ(frm.chkStatic.TabIndex(), 0);
  EXPECT_EQ(frm.txtName.TabIndex(), 1);
  frm.cboType.SetTabStop(false);
  frm.Show();
  EXPECT_EQ(frm.ActiveControl(), &frm.chkStatic);
  UserInput::Key(frm.chkStatic, vbKeyTab);
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
  UserInput::Key(frm.txtName, vbKeyTab);  // cboType is no tab stop; the frame takes no focus
  EXPECT_EQ(frm.ActiveControl(), &frm.optPublic);
  UserInput::KeyDown(frm.optPublic, vbKeyTab, vbShiftMask);
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
}

TEST_F(UiTest, AControlThatTakesTabKeepsItAndEveryOtherStillMovesOn) {
  FrmSample frm(context);
  frm.txtName.SetTakesTab(true);
  std::vector<std::pair<int, int>> downs;
  frm.txtName.OnKeyDown = [&](int& code, int shift) { downs.emplace_back(code, shift); };
  frm.Show();
  UserInput::Key(frm.txtName, vbKeyTab);  // typed like any character
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
  EXPECT_EQ(frm.txtName.Text(), L"\t");
  UserInput::KeyDown(frm.txtName, vbKeyTab, vbShiftMask);
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
  EXPECT_EQ(downs, (std::vector<std::pair<int, int>>{{vbKeyTab, 0}, {vbKeyTab, vbShiftMask}}));
  // A handler that cancels the key keeps the text as it is.
  frm.txtName.OnKeyPress = [](int& key) { key = key == vbKeyTab ? 0 : key; };
  UserInput::Key(frm.txtName, vbKeyTab);
  EXPECT_EQ(frm.txtName.Text(), L"\t");
  // Tab on the other controls, and into the box, moves the focus as before.
  UserInput::Key(frm.cboType, vbKeyTab);
  EXPECT_EQ(frm.ActiveControl(), &frm.chkStatic);
  UserInput::KeyDown(frm.cboType, vbKeyTab, vbShiftMask);
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName);
}

TEST_F(UiTest, ADragPressesMovesAndReleasesTheLeftButtonInTheControlsOwnTwips) {
  FrmSample frm(context);
  Image& bar = frm.Add<Image>(L"imgBar");
  bar.Move(2000, 100, 80, 1000);
  std::vector<std::string> seen;
  auto note = [&](const char* what) {
    return [&seen, what](int button, int shift, long x, long y) {
      seen.push_back(std::string(what) + " " + std::to_string(button) + " " + std::to_string(shift) + " " +
                     std::to_string(x) + " " + std::to_string(y));
    };
  };
  bar.OnMouseDown = note("down");
  bar.OnMouseMove = note("move");
  bar.OnMouseUp = note("up");
  frm.Show();
  EXPECT_TRUE(UserInput::Drag(bar, 300, -20));
  EXPECT_EQ(seen, (std::vector<std::string>{"down 1 0 40 500", "move 1 0 340 480", "up 1 0 340 480"}));
  EXPECT_EQ(frm.ActiveControl(), &frm.txtName) << "an image takes no focus";
  bar.SetEnabled(false);
  EXPECT_THROW(UserInput::Drag(bar, 10, 0), InputRefused);
  EXPECT_EQ(seen.size(), 3u);
  bar.SetEnabled(true);
  frm.Hide();
  EXPECT_THROW(UserInput::Drag(bar, 10, 0), InputRefused);
}

}  // namespace
}  // namespace quillet::ui::testing
