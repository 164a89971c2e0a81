#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "fragments/fragment_library.h"
#include "fragments/frm_fragment_editor.h"
#include "fragments/frm_fragments.h"
#include "settings/items.h"
#include "settings/shortcut_files.h"
#include "ui/frm_list.h"
#include "ui/user_input.h"
#include "vba/encoding.h"

using namespace quillet;
using fragments::FrmFragmentEditor;
using fragments::FrmFragments;

namespace {

constexpr const wchar_t* kRoot = L"C:\\Program Files\\Quillet\\vbcode\\Fragments";

struct Builder : ::testing::Test, test::SessionFixture {
  Builder() {
    session.settings[settings::kBaseFolder] = std::wstring(L"\\vbcode\\");
    session.settings[settings::kDeclarationIndented] = true;
    module = Module(L"Module1", {L"Sub Main()", L"    ", L"End Sub"});
    Caret(2, 5);
  }
  std::wstring Path(const std::wstring& relative) { return std::wstring(kRoot) + L"\\" + relative; }
  std::shared_ptr<host::MemoryComponent> module;
  std::vector<std::wstring> Items(const FrmFragments& f) {
    std::vector<std::wstring> out;
    for (const auto& item : f.lvList.Items().All()) out.push_back(item->Text());
    return out;
  }
};

TEST(FragmentTokens, EachTokenOnceInTheOrderMetWithoutRegardToCase) {
  EXPECT_EQ(FrmFragments::TokensOf(L"{LONG:i} = {long:I} + {STRING}\r\n{x\r\n} {} \"{Q}\" {open"),
            (std::vector<std::wstring>{L"{LONG:i}", L"{STRING}", L"{Q}"}));
  EXPECT_TRUE(FrmFragments::TokensOf(L"no tokens <cursor>").empty());
}

TEST(FragmentTokens, TheTokenUnderTheCaretButNotABraceInAStringLiteral) {
  using Span = std::optional<std::pair<long, long>>;
  const std::wstring text = L"x = {LONG:n} & \"{no}\" & {}\r\ny = {STRING}";
  EXPECT_EQ(FrmFragments::TokenAt(text, 4), std::nullopt);     // in front of the brace
  EXPECT_EQ(FrmFragments::TokenAt(text, 5), (Span{{4, 8}}));   // behind it
  EXPECT_EQ(FrmFragments::TokenAt(text, 8), (Span{{4, 8}}));   // inside
  EXPECT_EQ(FrmFragments::TokenAt(text, 12), std::nullopt);    // behind the closing brace
  EXPECT_EQ(FrmFragments::TokenAt(text, 18), std::nullopt);    // "{no}" is text in quotes
  EXPECT_EQ(FrmFragments::TokenAt(text, 26), std::nullopt);    // "{}" names nothing
  EXPECT_EQ(FrmFragments::TokenAt(text, 34), (Span{{32, 8}}));  // the next line's own token
  EXPECT_EQ(FrmFragments::TokenAt(text, 2), std::nullopt);
  EXPECT_EQ(FrmFragments::TokenAt(L"{LONG\r\n}", 3), std::nullopt);  // a token ends on its line
}

TEST(FragmentTokens, TabGoesToTheNextTokenAndShiftTabToThePreviousComingRoundAtTheEnds) {
  using Span = std::optional<std::pair<long, long>>;
  const std::wstring text = L"x = {LONG:n} & \"{no}\" & {}\r\ny = {STRING}";
  const Span first{{4, 8}}, last{{32, 8}};
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 0, 0, true), first);
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 4, 0, true), first);   // the caret in front of it
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 4, 8, true), last);    // the string's "{no}" and "{}" are passed
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 6, 0, true), last);    // from inside a token
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 32, 8, true), first);  // round to the first
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 32, 8, false), first);
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 34, 0, false), first);
  EXPECT_EQ(FrmFragments::NextWordBounds(text, 4, 8, false), last);   // round to the last
  EXPECT_EQ(FrmFragments::NextWordBounds(L"{a{b} {c\r\n}", 0, 0, true), (Span{{2, 3}}));
  EXPECT_EQ(FrmFragments::NextWordBounds(L"no \"{tokens}\" here", 0, 0, true), std::nullopt);
  EXPECT_EQ(FrmFragments::NextWordBounds(L"", 0, 0, false), std::nullopt);
}

TEST_F(Builder, TabAndShiftTabInTheTextSelectAndOfferTheTokensAndKeepTheFocus) {
  const std::wstring text = L"For {LONG:i} = 1 To {LONG:n}\r\nNext {LONG:i}\r\n";
  Write("vbcode/Fragments/Loops/For Next.bas", vba::ToUtf8(text));
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  ui::UserInput::Caret(f.rtxtContent, 0, 0);
  std::vector<std::wstring> offered;
  auto escape = [&] {
    offered.push_back(f.rtxtContent.SelText() + L"@" + std::to_wstring(f.rtxtContent.SelStart()));
    auto& list = ui::UserInput::FindForm(ui, L"frmList");
    ui::UserInput::Key(*list.Find(L"lstList"), ui::vbKeyEscape);
  };
  for (int i = 0; i < 4; ++i) uiHost.QueueAction(escape);
  ui::UserInput::KeyDown(f.rtxtContent, ui::vbKeyTab);
  ui::UserInput::Key(f.rtxtContent, ui::vbKeyTab);
  ui::UserInput::KeyDown(f.rtxtContent, ui::vbKeyTab);
  ui::UserInput::KeyDown(f.rtxtContent, ui::vbKeyTab, ui::vbShiftMask);
  const long second = static_cast<long>(text.find(L"{LONG:n}")), third = static_cast<long>(text.rfind(L"{LONG:i}"));
  EXPECT_EQ(offered, (std::vector<std::wstring>{L"{LONG:i}@4", L"{LONG:n}@" + std::to_wstring(second),
                                                L"{LONG:i}@" + std::to_wstring(third),
                                                L"{LONG:n}@" + std::to_wstring(second)}));
  EXPECT_EQ(uiHost.PendingActions(), 0u);
  EXPECT_EQ(f.rtxtContent.Text(), text) << "no tab typed into the text";
  EXPECT_EQ(f.ActiveControl(), &f.rtxtContent);
  // Every other control of the dialog still passes the focus on with Tab.
  ui::UserInput::Key(f.lvList, ui::vbKeyTab);
  EXPECT_NE(f.ActiveControl(), &f.lvList);
}

TEST_F(Builder, TheCaretMovedIntoATokenOffersItAndTheChoiceFillsEveryOccurrence) {
  Write("vbcode/Fragments/Loops/For Next.bas", "For {LONG:i} = 1 To 3\r\nNext {LONG:i}\r\n");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  uiHost.QueueAction([&] {
    auto& list = dynamic_cast<ui::FrmList&>(ui::UserInput::FindForm(ui, L"frmList"));
    EXPECT_EQ(f.rtxtContent.SelText(), L"{LONG:i}");
    ui::UserInput::Set(list.lstList, nlohmann::json("<Start Typing>"));
    ui::UserInput::Key(list.lstList, ui::vbKeyReturn);
  });
  uiHost.QueueAction([&] {
    auto& input = ui::UserInput::FindForm(ui, L"frmTextInput");
    ui::UserInput::Set(input, L"txtInput", nlohmann::json("k"));
    ui::UserInput::Key(*input.Find(L"txtInput"), ui::vbKeyReturn);
  });
  ui::UserInput::Caret(f.rtxtContent, 7, 0);
  EXPECT_EQ(f.rtxtContent.Text(), L"For k = 1 To 3\r\nNext k\r\n");
  EXPECT_EQ(uiHost.PendingActions(), 0u);
  ui::UserInput::Caret(f.rtxtContent, 2, 0);  // outside every token: nothing pops up
}

TEST_F(Builder, OpensAtTheFolderAndFragmentOfTheLastOpeningAndListsShortcutsAfterFragments) {
  Write("vbcode/Fragments/Loops/For Next.bas", "For {LONG:i} = 1 To 10\r\n    <cursor>\r\nNext {LONG:i}\r\n");
  Write("vbcode/Fragments/Loops/Do While.bas", "Do While {BOOLEAN:Going}\r\nLoop\r\n");
  Write("vbcode/Fragments/Mine/Zeta.bas", "x = 1\r\n");
  settings::ShortcutCreate(session, Path(L"Mine\\Shared.lnk"), Path(L"Loops\\For Next.bas"));
  settings::ShortcutCreate(session, Path(L"Mine\\Dangling.bas.lnk"), Path(L"Loops\\Gone.bas"));
  {
    FrmFragments f(session);
    f.Init(vba::Variant(Path(L"Loops")), vba::Variant(Path(L"Loops\\For Next.bas")));
    EXPECT_EQ(Items(f), (std::vector<std::wstring>{L"Do While", L"For Next"}));
    EXPECT_EQ(f.lvList.SelectedItem()->Text(), L"For Next");
    EXPECT_EQ(f.rtxtContent.Text(), L"For {LONG:i} = 1 To 10\r\n    <cursor>\r\nNext {LONG:i}\r\n");
    EXPECT_EQ(f.lstVars.ListCount(), 1);
    EXPECT_TRUE(f.cmdOk.Enabled());
    ASSERT_TRUE(f.tvFiles.SelectedItem());
    EXPECT_EQ(f.tvFiles.SelectedItem()->Key(), Path(L"Loops"));
    f.Show(false);
    ui::UserInput::ClickNode(f.tvFiles, Path(L"Mine"));
    // The fragment first, then the shortcut: grey, under the key of its target; the one
    // whose target is gone is left out without a word.
    ASSERT_EQ(Items(f), (std::vector<std::wstring>{L"Zeta", L"Shared"}));
    const ui::ListItem& shortcut = f.lvList.Items().Item(2);
    EXPECT_EQ(shortcut.Key(), Path(L"Loops\\For Next.bas"));
    EXPECT_EQ(shortcut.Tag(), Path(L"Mine\\Shared.lnk"));
    EXPECT_EQ(shortcut.ForeColor(), fragments::kShortcutColor);
    ui::UserInput::ClickItem(f.lvList, L"Shared");
    EXPECT_EQ(f.rtxtContent.Text().substr(0, 12), L"For {LONG:i}");
    f.Unload();
  }
  FrmFragments again(session);
  again.Init();
  EXPECT_EQ(again.tvFiles.SelectedItem()->Key(), Path(L"Mine"));
  EXPECT_EQ(again.lvList.SelectedItem()->Text(), L"Shared");
  EXPECT_EQ(vbe.ImmediateText(), L"");
}

TEST_F(Builder, AnEmptyFolderEmptiesThePreviewAndDisablesInsert) {
  Write("vbcode/Fragments/Loops/For Next.bas", "Next\r\n");
  std::filesystem::create_directories(temp.root / "c/Program Files/Quillet/vbcode/Fragments/Empty");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Empty")));
  EXPECT_EQ(f.lvList.Items().Count(), 0);
  EXPECT_EQ(f.rtxtContent.Text(), L"");
  EXPECT_FALSE(f.cmdOk.Enabled());
  EXPECT_FALSE(f.cmdDel.Enabled());
  EXPECT_FALSE(f.mnuRename.Enabled());
}

TEST_F(Builder, AChosenValueReplacesEveryOccurrenceAndTheCaretGoesBehindTheFirst) {
  Write("vbcode/Fragments/Loops/For Next.bas", "For {LONG:i} = 1 To {LONG:n}\r\nNext {long:I}\r\n");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  f.rtxtContent.Find(L"{LONG:i}");
  f.ReplaceVar(L"k");
  EXPECT_EQ(f.rtxtContent.Text(), L"For k = 1 To {LONG:n}\r\nNext k\r\n");
  EXPECT_EQ(f.rtxtContent.SelStart(), 5);  // behind the first value put in
  EXPECT_EQ(f.lstVars.ListCount(), 1);
  f.rtxtContent.Find(L"{LONG:n}");
  f.ReplaceVar(L"cN");
  EXPECT_EQ(f.rtxtContent.Text(), L"For k = 1 To cN\r\nNext k\r\n");
  EXPECT_EQ(f.rtxtContent.SelStart(), 15);
  EXPECT_EQ(f.lstVars.ListCount(), 0);
}

TEST_F(Builder, DeletingAShortcutAsksAboutTheShortcutAndKeepsTheFragment) {
  Write("vbcode/Fragments/Loops/For Next.bas", "Next\r\n");
  Write("vbcode/Fragments/Mine/keep.txt", "");
  settings::ShortcutCreate(session, Path(L"Mine\\For Next.bas.lnk"), Path(L"Loops\\For Next.bas"));
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Mine")));
  f.Show(false);
  uiHost.AnswerMsgBox(ui::vbNo);
  ui::UserInput::Click(f.cmdDel);
  EXPECT_TRUE(platform.Files().FileExists(Path(L"Mine\\For Next.bas.lnk")));
  uiHost.AnswerMsgBox(ui::vbYes);
  ui::UserInput::Click(f.mnuDelete);
  EXPECT_EQ(uiHost.Log()[uiHost.Log().size() - 1].find(L"MsgBox(Do you want to delete the shortcut to the fragment 'For Next'?, 292"), 0u)
      << vba::ToUtf8(uiHost.Log().back());
  EXPECT_FALSE(platform.Files().FileExists(Path(L"Mine\\For Next.bas.lnk")));
  EXPECT_TRUE(platform.Files().FileExists(Path(L"Loops\\For Next.bas")));
  EXPECT_EQ(f.lvList.Items().Count(), 0);
}

TEST_F(Builder, InsertMergesThePreviewAtTheCaretAndCloses) {
  Write("vbcode/Fragments/Loops/Count.bas", "{LONG:count} = {LONG:count} + 1\r\n");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  ui::UserInput::Click(f.cmdOk);
  EXPECT_FALSE(f.Loaded());
  EXPECT_EQ(Text(module), L"Sub Main()\r\n    Dim count As Long\r\n    count = count + 1\r\nEnd Sub");
}

TEST_F(Builder, ThePopUpMenusAndTheOpenLabelAreToldToTheFrontEnds) {
  Write("vbcode/Fragments/Loops/For Next.bas", "Next\r\n");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  auto control = [&](const nlohmann::json& form, const std::string& name) {
    for (const auto& c : form["controls"])
      if (c["name"] == name) return c;
    return nlohmann::json();
  };
  nlohmann::json form = f.Describe();
  EXPECT_EQ(control(form, "mnuLvPopUp")["popupFor"], "lvList");
  EXPECT_EQ(control(form, "mnuTvPopUp")["popupFor"], "tvFiles");
  EXPECT_EQ(control(form, "mnuRename")["menu"], "mnuLvPopUp");
  EXPECT_EQ(control(form, "mnuCreateShortcut")["enabled"], false);
  EXPECT_FALSE(control(form, "lvList").contains("editing"));
  ui::UserInput::Click(f.mnuRename);
  EXPECT_EQ(control(f.Describe(), "lvList")["editing"], vba::ToUtf8(Path(L"Loops\\For Next.bas")));
  ui::UserInput::EditLabel(f.lvList, L"");  // an empty name is refused: nothing changes
  EXPECT_TRUE(platform.Files().FileExists(Path(L"Loops\\For Next.bas")));
  EXPECT_EQ(f.lvList.Items().Item(1).Text(), L"For Next");
}

TEST_F(Builder, ANewFragmentSavedInAnotherFolderIsShownThereChosen) {
  Write("vbcode/Fragments/Loops/For Next.bas", "Next\r\n");
  Write("vbcode/Fragments/Mine/keep.txt", "");
  FrmFragments f(session);
  f.Init(vba::Variant(Path(L"Loops")));
  f.Show(false);
  uiHost.QueueAction([&] {
    ui::Form& editor = ui::UserInput::FindForm(ui, L"frmFragmentEditor");
    ui::UserInput::Set(editor, L"txtContent", nlohmann::json("Beep"));
    uiHost.AnswerFile(Path(L"Mine\\Bell"));
    ui::UserInput::Click(*editor.Find(L"cmdSave"));
    ui::UserInput::Click(*editor.Find(L"cmdClose"));
  });
  ui::UserInput::Click(f.cmdNew);
  EXPECT_EQ(f.tvFiles.SelectedItem()->Key(), Path(L"Mine"));
  ASSERT_TRUE(f.lvList.SelectedItem());
  EXPECT_EQ(f.lvList.SelectedItem()->Text(), L"Bell");
  EXPECT_EQ(f.rtxtContent.Text(), L"Beep");
}

struct Editor : Builder {
  FrmFragmentEditor editor{session};
};

TEST_F(Editor, TheListHoldsTheTokensAndMarksInTheirOrder) {
  editor.Init(L"", Path(L"Loops"), true);
  ASSERT_EQ(editor.lstList.ListCount(), 19);
  EXPECT_EQ(editor.lstList.List(0), L"{VARIABLE}");
  EXPECT_EQ(editor.lstList.List(15), L"{INCLUDE}");
  EXPECT_EQ(editor.lstList.List(18), L"<begin_of_bottom>");
  EXPECT_EQ(editor.cmdSave.Caption(), L"&Save As");
}

TEST_F(Editor, ANamedVariableTakesTheTypeInCapitalsAndACancelledNameChangesNothing) {
  editor.Init(L"", Path(L"Loops"), true);
  editor.Show(false);
  editor.lstList.SetListIndex(1);  // {VARIABLE (NAMED)}
  auto chooseString = [&] {
    uiHost.QueueAction([&] {
      auto& list = dynamic_cast<ui::FrmList&>(ui::UserInput::FindForm(ui, L"frmList"));
      ui::UserInput::Set(list.lstList, nlohmann::json("String"));
      ui::UserInput::Key(list.lstList, ui::vbKeyReturn);
    });
  };
  chooseString();
  uiHost.AnswerInputBox(L"Count");
  ui::UserInput::Click(editor.cmdInsert);
  EXPECT_EQ(editor.txtContent.Text(), L"{STRING:Count}");
  chooseString();
  uiHost.AnswerInputBox(std::nullopt);
  ui::UserInput::Click(editor.cmdInsert);
  EXPECT_EQ(editor.txtContent.Text(), L"{STRING:Count}");
  editor.lstList.SetListIndex(16);  // <cursor>
  ui::UserInput::DblClick(editor.lstList);
  EXPECT_EQ(editor.txtContent.Text(), L"{STRING:Count}<cursor>");
}

TEST_F(Editor, AnUnsavedChangeIsAskedForAndAFailedSaveKeepsTheEditorOpen) {
  Write("vbcode/Fragments/Loops/Locked.bas", "old\r\n");
  std::filesystem::permissions(temp.root / "c/Program Files/Quillet/vbcode/Fragments/Loops/Locked.bas",
                               std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
  editor.Init(Path(L"Loops\\Locked.bas"), Path(L"Loops"), false);
  EXPECT_EQ(editor.Caption(), L"Locked (edit)");
  EXPECT_EQ(editor.cmdSave.Caption(), L"&Save");
  editor.Show(false);
  EXPECT_FALSE(editor.Dirty());
  ui::UserInput::Set(editor.txtContent, nlohmann::json("new"));
  EXPECT_TRUE(editor.Dirty());
  uiHost.AnswerMsgBox(ui::vbYes);  // save: refused by the file, so the editor stays
  ui::UserInput::Click(editor.cmdClose);
  EXPECT_TRUE(editor.Loaded());
  EXPECT_EQ(platform.Files().ReadFile(Path(L"Loops\\Locked.bas")), "old\r\n");
  EXPECT_NE(vbe.ImmediateText().find(L"Error - 75"), std::wstring::npos);
  uiHost.AnswerMsgBox(ui::vbCancel);
  ui::UserInput::Click(editor.cmdClose);
  EXPECT_TRUE(editor.Loaded());
  uiHost.AnswerMsgBox(ui::vbNo);
  ui::UserInput::Click(editor.cmdClose);
  EXPECT_FALSE(editor.Loaded());
  EXPECT_EQ(editor.SavedFile(), L"");
}

TEST_F(Editor, SaveAsWritesTheNewFileAndTurnsToEditingIt) {
  std::filesystem::create_directories(temp.root / "c/Program Files/Quillet/vbcode/Fragments/Loops");
  editor.Init(L"", Path(L"Loops"), true);
  editor.Show(false);
  ui::UserInput::Set(editor.txtContent, nlohmann::json("Beep"));
  uiHost.AnswerFile(Path(L"Loops\\Bell"));
  ui::UserInput::Click(editor.cmdSave);
  ASSERT_EQ(uiHost.FileRequests().size(), 1u);
  EXPECT_EQ(uiHost.FileRequests()[0].initialFolder, Path(L"Loops"));
  EXPECT_EQ(uiHost.FileRequests()[0].defaultExtension, L"bas");
  EXPECT_EQ(platform.Files().ReadFile(Path(L"Loops\\Bell.bas")), "Beep");
  EXPECT_EQ(editor.SavedFile(), Path(L"Loops\\Bell.bas"));
  EXPECT_EQ(editor.cmdSave.Caption(), L"&Save");
  EXPECT_FALSE(editor.Dirty());
  ui::UserInput::Click(editor.cmdClose);  // nothing to ask
  EXPECT_FALSE(editor.Loaded());
}

}  // namespace
