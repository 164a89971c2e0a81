// The pop-ups at the caret (pick list, text input), their placing, and completion in
// combo boxes.
#include <gmock/gmock.h>

#include "ui/combo_expand.h"
#include "ui/frm_list.h"
#include "ui/frm_text_input.h"
#include "ui/popup.h"
#include "ui_fixture.h"

namespace quillet::ui::testing {
namespace {

using ::testing::ElementsAre;

class PopupTest : public UiTest {
 protected:
  PopupTest() {
    owner.Move(1500, 3000, 6000, 4500);  // 100, 200 pixels; 400 x 300
    owner.txtName.Move(300, 450, 2400, 285);
  }
  void FillList() {
    list.lstList.AddItem(L"Long");
    list.lstList.SetItemData(0, 1);
    list.lstList.AddItem(L"String");
    list.lstList.SetItemData(1, 2);
  }
  FrmSample owner{context, L"frmVar"};
  FrmList list{context};
};

TEST_F(PopupTest, ThePickListTakesTheEntryOnEnterBlankOrDoubleClick) {
  owner.Show();
  FillList();
  host.QueueAction([&] {
    UserInput::KeyDown(list.lstList, vbKeyDown);
    UserInput::Key(list.lstList, vbKeyReturn);
  });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(list.ChosenText(), L"String");
  EXPECT_EQ(list.ChosenItemData(), 2);
  EXPECT_EQ(list.CloseKey(), vbKeyReturn);
  EXPECT_FALSE(list.MouseCaptured());
  EXPECT_TRUE(list.Loaded());  // hidden, kept for the next time
  EXPECT_EQ(context.ActiveForm(), &owner);

  host.QueueAction([&] { UserInput::Key(list.lstList, vbKeySpace); });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(list.ChosenText(), L"Long");  // each showing starts at the first entry

  list.SetUnloadOnClose(true);
  host.QueueAction([&] {
    EXPECT_TRUE(list.MouseCaptured());
    UserInput::Set(list.lstList, "String");
    UserInput::DblClick(list.lstList);
  });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(list.ChosenText(), L"String");
  EXPECT_FALSE(list.Loaded());
  EXPECT_THAT(host.Log(), ElementsAre(L"Show frmVar", L"Show frmList modal", L"Hide frmList", L"Show frmList modal",
                                      L"Hide frmList", L"Show frmList modal", L"Unload frmList"));
}

TEST_F(PopupTest, ThePickListClosesWithoutAChoiceOnEscapeTabOrAPressOutside) {
  owner.Show();
  owner.txtName.SetText(L"Dim x As ");
  owner.txtName.Select(4, 1);
  for (auto close : std::vector<std::function<void()>>{
           [&] { UserInput::Key(list.lstList, vbKeyEscape); },
           [&] { UserInput::Key(list.lstList, vbKeyTab); },
           [&] { list.MouseDownOutside(); },
       }) {
    list.lstList.Clear();
    FillList();
    host.QueueAction(close);
    ShowListForm(owner.txtName, owner, list);
    EXPECT_EQ(list.CloseKey(), vbKeyEscape);
    EXPECT_EQ(list.ChosenText(), L"");
    EXPECT_FALSE(list.Visible());
  }
  EXPECT_EQ(owner.txtName.SelStart(), 4);  // the box keeps its selection
  EXPECT_EQ(owner.txtName.SelLength(), 1);

  list.lstList.Clear();
  ShowListForm(owner.txtName, owner, list);  // an empty list closes at once: nothing to pump
  EXPECT_EQ(list.CloseKey(), vbKeyEscape);
}

TEST_F(PopupTest, APopUpSitsJustBelowTheCaretLine) {
  owner.txtName.SetText(L"Dim x As ");
  owner.txtName.SetSelStart(9);
  // 100 + border 3 + box 20 + caret 9 x 7 + 4 across; 200 + title 20 + border 3 + box 30 + 16 down.
  EXPECT_EQ(PopupPosition(owner.txtName, owner), (PixelPoint{190, 269}));

  TextBox& notes = owner.Add<TextBox>(L"txtNotes", &owner.fraCount);
  owner.fraCount.Move(300, 450);
  notes.Move(120, 240, 2400, 2 * kLineHeightPixels * kTwipsPerPixel);  // two lines show
  notes.SetMultiLine(true);
  notes.SetText(L"a\r\nbc\r\ndef");
  notes.SetSelStart(4);  // line 2, column 1
  EXPECT_EQ(CaretPixels(notes), (PixelPoint{7, 13}));
  notes.SetSelStart(10);  // line 3 lies below the box: the box scrolls it onto its last line
  EXPECT_EQ(CaretPixels(notes), (PixelPoint{21, 13}));
  EXPECT_EQ(PopupPosition(notes, owner), (PixelPoint{100 + 3 + 28 + 21 + 4, 200 + 20 + 3 + 46 + 13 + 16}));

  owner.Show();
  FillList();
  host.QueueAction([&] {
    EXPECT_EQ(list.Left(), 190 * kTwipsPerPixel);
    EXPECT_EQ(list.Top(), 269 * kTwipsPerPixel);
    list.MouseDownOutside();
  });
  ShowListForm(owner.txtName, owner, list);
}

TEST_F(PopupTest, TheTextInputTakesItsTextOnEnterAndDropsItOnEscape) {
  FrmTextInput input(context);
  owner.Show();
  input.Init();
  host.QueueAction([&] {
    UserInput::Set(input.txtInput, "42");
    UserInput::Key(input.txtInput, vbKeyReturn);
  });
  ShowPopUpForm(owner.txtName, owner, input);
  EXPECT_EQ(input.EnteredText(), L"42");
  EXPECT_EQ(input.CloseKey(), vbKeyReturn);

  input.Init();
  EXPECT_EQ(input.txtInput.Text(), L"");
  host.QueueAction([&] {
    UserInput::Key(input.txtInput, 'x');
    UserInput::Key(input.txtInput, vbKeyEscape);
  });
  ShowPopUpForm(owner.txtName, owner, input);
  EXPECT_EQ(input.EnteredText(), L"");
  EXPECT_EQ(input.CloseKey(), vbKeyEscape);

  host.QueueAction([&] { input.MouseDownOutside(); });
  ShowPopUpForm(owner.txtName, owner, input);
  EXPECT_EQ(input.CloseKey(), vbKeyEscape);
  EXPECT_FALSE(input.MouseCaptured());
}

TEST_F(PopupTest, ThePopUpsHoldTheMouseUntilTheyCloseHoweverTheyClose) {
  owner.Show();
  // A press outside a form that does not hold the mouse lands elsewhere: refused.
  EXPECT_THROW(UserInput::PressOutside(owner), InputRefused);

  FillList();
  host.QueueAction([&] {
    EXPECT_EQ(context.Capture(), &list);
    UserInput::PressOutside(list);
  });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(list.CloseKey(), vbKeyEscape);
  EXPECT_EQ(context.Capture(), nullptr);
  EXPECT_EQ(list.Outcome(), (nlohmann::json{{"closeKey", 27}, {"chosenText", ""}, {"chosenItemData", 0},
                                            {"mouseCaptured", false}}));

  // The list loses the focus to another window: Escape, and the mouse is free again.
  host.QueueAction([&] { UserInput::Leave(list); });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(list.CloseKey(), vbKeyEscape);
  EXPECT_EQ(context.Capture(), nullptr);
  // Only the form with the focus can lose it.
  FrmSample other(context, L"frmOther");
  other.Show();
  EXPECT_THROW(UserInput::Leave(owner), InputRefused);
  other.Hide();

  // Closed by code while it holds the mouse, the list lets it go too.
  host.QueueAction([&] { list.Unload(); });
  ShowListForm(owner.txtName, owner, list);
  EXPECT_EQ(context.Capture(), nullptr);

  // The text input keeps the mouse through a loss of the focus (it has no rule for it) and
  // gives it back when it closes.
  FrmTextInput input(context);
  input.Init();
  host.QueueAction([&] {
    UserInput::Set(input.txtInput, "7");
    UserInput::Leave(input);
    EXPECT_TRUE(input.Visible());
    EXPECT_EQ(context.Capture(), &input);
    UserInput::Key(input.txtInput, vbKeyReturn);
  });
  ShowPopUpForm(owner.txtName, owner, input);
  EXPECT_EQ(input.Outcome(), (nlohmann::json{{"closeKey", 13}, {"text", "7"}, {"mouseCaptured", false}}));
  EXPECT_EQ(owner.Outcome(), nullptr);  // a builder decides nothing by closing
}

class ComboExpandTest : public UiTest {
 protected:
  ComboExpandTest() {
    for (const wchar_t* t : {L"Boolean", L"Byte", L"Long", L"Str", L"String"}) cbo.AddItem(t);
    cbo.OnClick = [this] { clicks.push_back(cbo.ListIndex()); };
    cbo.OnChange = [this] { ++changes; };
    expand.Init(cbo, owner);
    owner.Show();
  }
  void Type(std::wstring_view keys) {
    for (wchar_t c : keys) UserInput::Key(cbo, c);
  }
  Form owner{context, L"frmVar"};
  ComboBox& cbo = owner.Add<ComboBox>(L"cboDataType");
  ComboExpand expand;
  std::vector<int> clicks;
  int changes = 0;
};

TEST_F(ComboExpandTest, TypingCompletesToTheFirstEntryAndSelectsTheRest) {
  Type(L"b");
  EXPECT_EQ(cbo.Text(), L"Boolean");
  EXPECT_EQ(cbo.SelStart(), 1);
  EXPECT_EQ(cbo.SelLength(), 6);
  Type(L"y");  // replaces the completed part
  EXPECT_EQ(cbo.Text(), L"Byte");
  EXPECT_EQ(cbo.SelStart(), 2);
  EXPECT_EQ(cbo.ListIndex(), 1);
  Type(L"x");  // nothing begins so: no entry, and the key types as usual
  EXPECT_EQ(cbo.Text(), L"Byx");
  EXPECT_EQ(cbo.ListIndex(), -1);
  EXPECT_EQ(changes, 1);  // completions change the text quietly; only the typed key counted
  // The owner's Click handler runs when the selected entry changed: Boolean, Byte, none.
  EXPECT_THAT(clicks, ElementsAre(0, 1, -1));
}

TEST_F(ComboExpandTest, BackspaceLooksForAnExactEntryAndDeleteForAPrefix) {
  Type(L"stri");
  EXPECT_EQ(cbo.Text(), L"String");
  EXPECT_EQ(cbo.SelText(), L"ng");
  UserInput::Key(cbo, vbKeyBack);  // "Stri" is no entry: the selection goes as usual
  EXPECT_EQ(cbo.Text(), L"Stri");
  EXPECT_EQ(cbo.ListIndex(), -1);
  UserInput::Key(cbo, vbKeyBack);  // "Str" is one
  EXPECT_EQ(cbo.Text(), L"Str");
  EXPECT_EQ(cbo.ListIndex(), 3);
  EXPECT_EQ(cbo.SelStart(), 3);
  EXPECT_EQ(cbo.SelLength(), 0);

  UserInput::Caret(cbo, 0, 0);
  UserInput::KeyDown(cbo, vbKeyDelete);  // "tr" begins no entry
  EXPECT_EQ(cbo.Text(), L"tr");
  UserInput::Caret(cbo, 0, 2);
  UserInput::KeyDown(cbo, vbKeyDelete);  // "" begins every entry: the first is taken
  EXPECT_EQ(cbo.Text(), L"Boolean");
  EXPECT_EQ(cbo.SelStart(), 0);
  UserInput::Key(cbo, vbKeyReturn);  // Enter and Tab are left alone
  EXPECT_EQ(cbo.Text(), L"Boolean");
  EXPECT_THAT(clicks, ElementsAre(3, 4, -1, 3, -1, 0));
}

TEST_F(ComboExpandTest, OnlyTheKnownBoxesCallTheirOwnersHandler) {
  ComboBox& other = owner.Add<ComboBox>(L"cboOther");
  other.AddItem(L"Alpha");
  int otherClicks = 0;
  other.OnClick = [&] { ++otherClicks; };
  ComboExpand second;
  second.Init(other, owner);
  UserInput::Key(other, 'a');
  EXPECT_EQ(other.Text(), L"Alpha");
  EXPECT_EQ(otherClicks, 0);
}

}  // namespace
}  // namespace quillet::ui::testing
