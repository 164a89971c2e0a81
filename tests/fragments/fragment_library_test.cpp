#include <gtest/gtest.h>

#include <filesystem>

#include "../support/fixtures.h"
#include "fragments/fragment_library.h"
#include "fragments/splitter.h"
#include "io/shell_link.h"
#include "settings/items.h"
#include "settings/shortcut_files.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "vba/encoding.h"

using namespace quillet;

namespace {

constexpr const wchar_t* kRoot = L"C:\\Program Files\\Quillet\\vbcode\\Fragments";

struct Library : ::testing::Test, test::SessionFixture {
  Library() { session.settings[settings::kBaseFolder] = std::wstring(L"\\vbcode\\"); }
  std::wstring Path(const std::wstring& relative) { return std::wstring(kRoot) + L"\\" + relative; }
  io::FileSystem& Files() { return platform.Files(); }
  std::string Reported() const { return vba::ToUtf8(vbe.ImmediateText() + session.pendingMessage); }
};

TEST_F(Library, FragmentReadAddsTheExtensionOnlyWhenMissing) {
  Write("vbcode/Fragments/Loops/For Next.bas", "For i = 1 To 10\n    x\nNext");
  EXPECT_EQ(fragments::FragmentRead(session, L"Loops\\For Next"), L"For i = 1 To 10\r\n    x\r\nNext");
  EXPECT_EQ(fragments::FragmentRead(session, L"Loops\\For Next.BAS"), L"For i = 1 To 10\r\n    x\r\nNext");
  EXPECT_EQ(Reported(), "");
}

TEST_F(Library, AShortcutNamedAfterItsFragmentPointsThereAndAMissingTargetGivesNothing) {
  Write("vbcode/Fragments/Loops/For Next.bas", "x");
  Write("vbcode/Fragments/Favourites/keep.txt", "");
  ASSERT_TRUE(fragments::ShortCutCreate(session, Path(L"Loops\\For Next.bas"), Path(L"Favourites")));
  const std::wstring link = Path(L"Favourites\\For Next.bas.lnk");
  EXPECT_EQ(fragments::ShortCutName(Path(L"Loops\\For Next.bas"), Path(L"Favourites\\")), link);
  EXPECT_EQ(fragments::ShortCutTargetPath(session, link), Path(L"Loops\\For Next.bas"));
  // A second shortcut of the same name is refused and the first stays.
  EXPECT_FALSE(fragments::ShortCutCreate(session, Path(L"Loops\\For Next.bas"), Path(L"Favourites")));
  EXPECT_NE(Reported().find("Error - 58"), std::string::npos);
  // Missing pieces: no folder, no target, no shortcut file.
  EXPECT_FALSE(fragments::ShortCutCreate(session, Path(L"Loops\\For Next.bas"), Path(L"Gone")));
  EXPECT_FALSE(fragments::ShortCutCreate(session, Path(L"Loops\\Nothing.bas"), Path(L"Favourites")));
  EXPECT_EQ(fragments::ShortCutTargetPath(session, Path(L"Favourites\\Nothing.lnk")), L"");
  // A file that is no shell link is left out, not reported.
  Write("vbcode/Fragments/Favourites/Broken.lnk", "not a link");
  EXPECT_EQ(fragments::ShortCutTargetPath(session, Path(L"Favourites\\Broken.lnk")), L"");
}

TEST_F(Library, AShortcutIntoAMovedLibraryIsRepairedAndSaved) {
  Write("vbcode/Fragments/Loops/For Next.bas", "x");
  Write("vbcode/Fragments/Favourites/keep.txt", "");
  const std::wstring link = Path(L"Favourites\\For Next.bas.lnk");
  io::ShellLink old;
  old.targetPath = L"D:\\Old Place\\vbcode\\Fragments\\Loops\\For Next.bas";
  settings::ShortcutWrite(session, link, old);
  EXPECT_EQ(fragments::ShortCutTargetPath(session, link), Path(L"Loops\\For Next.bas"));
  // Saved: the link read alone now names this library.
  EXPECT_EQ(settings::ShortcutRead(session, link).targetPath, Path(L"Loops\\For Next.bas"));
  // A target outside any folder "Fragments" stays as it is.
  io::ShellLink elsewhere;
  elsewhere.targetPath = L"D:\\Snippets\\x.bas";
  settings::ShortcutWrite(session, link, elsewhere);
  EXPECT_EQ(fragments::ShortCutTargetPath(session, link), L"D:\\Snippets\\x.bas");
}

TEST_F(Library, ARenameNeverReplacesAFileAndKeepsBothOnEveryFailure) {
  Write("vbcode/Fragments/Mine/Alpha.bas", "alpha");
  Write("vbcode/Fragments/Mine/Beta.bas", "beta");
  const std::wstring alpha = Path(L"Mine\\Alpha.bas"), beta = Path(L"Mine\\Beta.bas");
  EXPECT_FALSE(fragments::FragmentFileRename(session, alpha, Path(L"Mine\\BETA.bas"), L"t.Rename"));
  EXPECT_FALSE(fragments::FragmentFileRename(session, alpha, Path(L"Mine\\A|B.bas"), L"t.Rename"));
  EXPECT_FALSE(fragments::FragmentFileRename(session, alpha, Path(L"Gone\\Alpha.bas"), L"t.Move"));
  EXPECT_EQ(Files().ReadFile(alpha), "alpha");
  EXPECT_EQ(Files().ReadFile(beta), "beta");
  const std::string reported = Reported();
  for (const char* piece : {"Error - 58", "Error - 52", "Error - 76", "t.Rename", "t.Move"})
    EXPECT_NE(reported.find(piece), std::string::npos) << piece;
  // A change of case only, and a real move, are done in one step each.
  EXPECT_TRUE(fragments::FragmentFileRename(session, alpha, Path(L"Mine\\ALPHA.bas"), L"t.Rename"));
  Write("vbcode/Fragments/Other/keep.txt", "");
  EXPECT_TRUE(fragments::FragmentFileRename(session, beta, Path(L"Other\\Beta.bas"), L"t.Move"));
  EXPECT_FALSE(Files().FileExists(beta));
  EXPECT_EQ(Files().ReadFile(Path(L"Other\\Beta.bas")), "beta");
}

TEST_F(Library, ShortcutsFollowTheirFragmentAndOneThatCannotBeRewrittenIsReportedAndStays) {
  Write("vbcode/Fragments/Loops/For Next.bas", "x");
  Write("vbcode/Fragments/Loops/Other.bas", "y");
  Write("vbcode/Fragments/Mine/keep.txt", "");
  Write("vbcode/Fragments/Mine/Deep/keep.txt", "");
  const std::wstring fragment = Path(L"Loops\\For Next.bas");
  const std::wstring near = Path(L"Mine\\For Next.bas.lnk"), deep = Path(L"Mine\\Deep\\Loop.lnk");
  const std::wstring locked = Path(L"Mine\\Locked.lnk"), other = Path(L"Mine\\Other.bas.lnk");
  for (const std::wstring& link : {near, deep, locked}) settings::ShortcutCreate(session, link, fragment);
  settings::ShortcutCreate(session, other, Path(L"Loops\\Other.bas"));
  const std::string lockedBytes = Files().ReadFile(locked), otherBytes = Files().ReadFile(other);
  std::filesystem::path real = temp.root / "c" / "Program Files" / "Quillet" / "vbcode" / "Fragments" / "Mine" / "Locked.lnk";
  std::filesystem::permissions(real, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);

  const std::wstring renamed = Path(L"Loops\\For Each.bas");
  EXPECT_TRUE(fragments::FragmentFileRename(session, fragment, renamed, L"t.Rename"));
  EXPECT_EQ(fragments::ShortCutTargetPath(session, near), renamed);
  EXPECT_EQ(fragments::ShortCutTargetPath(session, deep), renamed);
  EXPECT_EQ(Files().ReadFile(locked), lockedBytes);
  EXPECT_EQ(Files().ReadFile(other), otherBytes) << "a shortcut to another fragment is left alone";
  const std::string reported = Reported();
  EXPECT_NE(reported.find("Error - 75"), std::string::npos) << reported;
  EXPECT_NE(reported.find("t.Rename"), std::string::npos) << reported;
  // A move to another folder takes them along again, whatever the case the shortcut wrote.
  Write("vbcode/Fragments/Other/keep.txt", "");
  const std::wstring moved = Path(L"Other\\For Each.bas");
  EXPECT_TRUE(fragments::FragmentFileRename(session, Path(L"LOOPS\\for each.bas"), moved, L"t.Move"));
  EXPECT_EQ(fragments::ShortCutTargetPath(session, near), moved);
  EXPECT_EQ(fragments::ShortCutTargetPath(session, deep), moved);
  EXPECT_EQ(fragments::ShortcutsFollow(session, moved, fragment, L"t"), 2);
  // A shortcut renamed is no fragment: nothing follows it.
  const std::string nearBytes = Files().ReadFile(near);
  EXPECT_TRUE(fragments::FragmentFileRename(session, deep, Path(L"Mine\\Deep\\Loop Too.lnk"), L"t.Rename"));
  EXPECT_EQ(Files().ReadFile(near), nearBytes);
}

TEST_F(Library, AReadOnlyFragmentIsNeitherDeletedNorWrittenButCanBeRenamed) {
  Write("vbcode/Fragments/Mine/Locked.bas", "locked");
  const std::wstring locked = Path(L"Mine\\Locked.bas");
  std::filesystem::path real = temp.root / "c" / "Program Files" / "Quillet" / "vbcode" / "Fragments" / "Mine" / "Locked.bas";
  std::filesystem::permissions(real, std::filesystem::perms::owner_write, std::filesystem::perm_options::remove);
  EXPECT_FALSE(fragments::FragmentFileDelete(session, locked, L"t.Delete"));
  EXPECT_FALSE(fragments::FragmentFileWrite(session, locked, L"changed", L"t.Save"));
  EXPECT_EQ(Files().ReadFile(locked), "locked");
  EXPECT_NE(Reported().find("Error - 75"), std::string::npos);
  EXPECT_TRUE(fragments::FragmentFileRename(session, locked, Path(L"Mine\\Kept.bas"), L"t.Rename"));
  EXPECT_EQ(Files().ReadFile(Path(L"Mine\\Kept.bas")), "locked");
}

TEST_F(Library, FoldersTiedToALibraryAreOfferedOnlyWithItsReference) {
  Write("qltrefra.ini", "[fragments/reference]\r\nWord=Word\r\nFile Dialogs=Office\r\n=Excel\r\n");
  // The default references of the fixture's project hold no Word.
  EXPECT_FALSE(fragments::FragmentFolderAvailable(session, Path(L"Word")));
  EXPECT_FALSE(fragments::FragmentFolderAvailable(session, Path(L"Word\\Tables")));
  EXPECT_TRUE(fragments::FragmentFolderAvailable(session, Path(L"Loops")));
  EXPECT_TRUE(fragments::FragmentFolderAvailable(session, std::wstring(kRoot) + L"\\"));
  EXPECT_TRUE(fragments::FragmentFolderAvailable(session, L"Loops\\Inner"));
}

TEST(Splitter, TheBarMovesWithinWhatThePanesAllow) {
  test::SessionFixture fx;
  ui::Form form(fx.ui, L"frmSplit");
  auto& left = form.Add<ui::TreeView>(L"tvLeft");
  auto& bar = form.Add<ui::Image>(L"imgBar");
  auto& right = form.Add<ui::ListView>(L"lvRight");
  auto& ghost = form.Add<ui::PictureBox>(L"picBar");
  left.Move(100, 0, 2000, 1000);
  bar.Move(2100, 0, 75, 1000);
  right.Move(2175, 0, 3000, 1000);
  fragments::Splitter split(bar, ghost, {&left}, {&right});
  split.MoveTo(3000);
  EXPECT_EQ(left.Width(), 2900);
  EXPECT_EQ(bar.Left(), 3000);
  EXPECT_EQ(right.Left(), 3075);
  EXPECT_EQ(right.Left() + right.Width(), 5175);  // the right edge stays
  split.MoveTo(0);                                // not narrower than the minimum on the left
  EXPECT_EQ(left.Width(), fragments::Splitter::kMinPane);
  split.MoveTo(100000);                           // nor on the right
  EXPECT_EQ(right.Width(), fragments::Splitter::kMinPane);
  EXPECT_EQ(right.Left() + right.Width(), 5175);
  EXPECT_EQ(ghost.Left(), bar.Left());
}

TEST(Splitter, ADraggedBarShowsItsGhostWhileTheButtonIsDownAndThePanesFollowAtTheRelease) {
  test::SessionFixture fx;
  ui::Form form(fx.ui, L"frmSplit");
  auto& left = form.Add<ui::TreeView>(L"tvLeft");
  auto& bar = form.Add<ui::Image>(L"imgBar");
  auto& ghost = form.Add<ui::PictureBox>(L"picBar");
  auto& right = form.Add<ui::ListView>(L"lvRight");
  left.Move(100, 0, 2000, 1000);
  bar.Move(2100, 0, 75, 1000);
  ghost.Move(2100, 0, 75, 1000);
  ghost.SetVisible(false);
  right.Move(2175, 0, 3000, 1000);
  fragments::Splitter split(bar, ghost, {&left}, {&right});
  int after = 0;
  split.AfterSplitting = [&] { ++after; };
  EXPECT_EQ(bar.Describe()["mousePointer"], ui::vbSizeWE);
  EXPECT_FALSE(ghost.Describe().contains("mousePointer"));
  form.Show();
  bar.OnMouseDown(ui::vbLeftButton, 0, 30, 500);  // taken 30 twips into the bar
  EXPECT_TRUE(ghost.Visible());
  bar.OnMouseMove(ui::vbLeftButton, 0, 530, 500);
  EXPECT_EQ(ghost.Left(), 2600);
  EXPECT_EQ(left.Width(), 2000) << "the panes wait for the release";
  bar.OnMouseMove(0, 0, 9000, 500);  // no button held: not a drag
  EXPECT_EQ(ghost.Left(), 2600);
  bar.OnMouseUp(ui::vbLeftButton, 0, 530, 500);
  EXPECT_FALSE(ghost.Visible());
  EXPECT_EQ(bar.Left(), 2600);
  EXPECT_EQ(left.Width(), 2500);
  EXPECT_EQ(right.Left(), 2675);
  EXPECT_EQ(right.Left() + right.Width(), 5175);
  EXPECT_EQ(after, 1);
  // A move without a press moves nothing; the ghost stops at the panes' limit.
  bar.OnMouseUp(ui::vbLeftButton, 0, -2000, 500);
  EXPECT_EQ(bar.Left(), 2600);
  EXPECT_EQ(after, 1);
  bar.OnMouseDown(ui::vbLeftButton, 0, 0, 0);
  bar.OnMouseMove(ui::vbLeftButton, 0, -5000, 0);
  EXPECT_EQ(ghost.Left(), 100 + fragments::Splitter::kMinPane);
  bar.OnMouseUp(ui::vbLeftButton, 0, -5000, 0);
  EXPECT_EQ(left.Width(), fragments::Splitter::kMinPane);
  EXPECT_EQ(ghost.Left(), bar.Left());
}

}  // namespace
