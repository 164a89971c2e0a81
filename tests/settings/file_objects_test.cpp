// The text file and folder tree objects.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/file_objects.h"
#include "settings_fixture.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;

class FileObjectsTest : public SettingsTest {};

std::vector<std::wstring> Names(const vba::Collection<std::shared_ptr<File>>& files) {
  std::vector<std::wstring> names;
  for (const auto& f : files) names.push_back(f->NameWithExtension());
  return names;
}

TEST_F(FileObjectsTest, AFileReadsAndWritesWholeText) {
  File f(s, L"C:\\Work\\Notes.v2.txt");
  EXPECT_EQ(f.Path(), L"C:\\Work");
  EXPECT_EQ(f.NameWithExtension(), L"Notes.v2.txt");
  EXPECT_EQ(f.Name(), L"Notes.v2");
  EXPECT_EQ(f.Extension(), L"txt");
  File bare(s, L"README");
  EXPECT_EQ(bare.Path(), L"");
  EXPECT_EQ(bare.Name(), L"README");
  EXPECT_EQ(bare.Extension(), L"");

  Put("c/Work/Notes.v2.txt", "one\ntwo\rthree\r\nCaf\xE9");
  EXPECT_EQ(f.Contents(), L"one\r\ntwo\r\nthree\r\nCaf\u00e9");
  f.SetContents(L"line \u00e9\r\nnext");
  EXPECT_EQ(Get("c/Work/Notes.v2.txt"), "line \xE9\r\nnext");
  EXPECT_TRUE(f.Delete());
  EXPECT_FALSE(Exists("c/Work/Notes.v2.txt"));
  EXPECT_FALSE(f.Error());
  EXPECT_EQ(Reported(), "");

  // A failure is kept; a silent file does not report it.
  f.silent = true;
  EXPECT_EQ(f.ReadFile(), L"");
  ASSERT_TRUE(f.Error());
  EXPECT_EQ(f.Error()->Number(), 53);
  EXPECT_EQ(Reported(), "");
  f.silent = false;
  File nowhere(s, L"C:\\Missing\\x.txt");
  EXPECT_FALSE(nowhere.WriteFile(L"x"));
  EXPECT_THAT(Reported(), HasSubstr("clsFile.WriteFile"));
}

TEST_F(FileObjectsTest, AFolderListsItsTreeThroughTheFilter) {
  Put("c/Lib/B.bas", "");
  Put("c/Lib/a.BAS", "");
  Put("c/Lib/link.lnk", "");
  Put("c/Lib/notes.txt", "");
  Put("c/Lib/Sub/deep.bas", "");
  Put("c/Lib/Sub/Deeper/x.lnk", "");
  Put("c/Lib/Empty/.keep", "");
  Folder lib(s);
  lib.InitFolder(L"C:\\Lib\\", L"*.bas; *.lnk;*.BAS");
  EXPECT_EQ(lib.FullPath(), L"C:\\Lib");
  EXPECT_EQ(lib.Name(), L"Lib");
  EXPECT_EQ(Names(lib.files), (std::vector<std::wstring>{L"a.BAS", L"B.bas", L"link.lnk"}));
  EXPECT_EQ(lib.files.Item(L"b.BAS")->FullName(), L"C:\\Lib\\B.bas");
  ASSERT_EQ(lib.folders.Count(), 2);
  const Folder& sub = *lib.folders.Item(L"SUB");
  EXPECT_EQ(sub.FullPath(), L"C:\\Lib\\Sub");
  EXPECT_EQ(Names(sub.files), std::vector<std::wstring>{L"deep.bas"});
  EXPECT_EQ(Names(sub.folders.Item(L"Deeper")->files), std::vector<std::wstring>{L"x.lnk"});
  EXPECT_EQ(lib.folders.Item(L"Empty")->files.Count(), 0);

  Folder all(s);
  all.InitFolder(L"C:\\Lib", L"");
  EXPECT_EQ(all.files.Count(), 4);
  Folder missing(s);
  missing.InitFolder(L"C:\\NoSuchFolder", L"*.bas");
  EXPECT_EQ(missing.files.Count(), 0);
  EXPECT_THAT(Reported(), HasSubstr("clsFolder.InitFolder"));
}

TEST(FileNameMatches, TheDirectorySearchPatterns) {
  EXPECT_TRUE(FileNameMatches(L"README", L"*.*"));
  EXPECT_TRUE(FileNameMatches(L"x.BAS", L"*.bas"));
  EXPECT_FALSE(FileNameMatches(L"x.bas.txt", L"*.bas"));
  EXPECT_FALSE(FileNameMatches(L"x.bas.lnk", L"*.bas"));
  EXPECT_TRUE(FileNameMatches(L".bas", L"*.bas"));
  EXPECT_FALSE(FileNameMatches(L"bas", L"*.bas"));
  EXPECT_FALSE(FileNameMatches(L"xbas", L"*.bas"));
  EXPECT_TRUE(FileNameMatches(L"README", L"READ*.*"));
  EXPECT_TRUE(FileNameMatches(L"a#1.bas", L"a#?.bas"));
  EXPECT_FALSE(FileNameMatches(L"a11.bas", L"a#?.bas"));
  EXPECT_TRUE(FileNameMatches(L"[x].bas", L"[x].bas"));
}

}  // namespace
}  // namespace quillet::settings::testing
