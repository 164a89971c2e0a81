#include "io/filesystem.h"

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "support.h"
#include "vba/error.h"

namespace quillet::io {
namespace {

using testing::Caught;
using testing::TempDrives;
using testing::Text;

TEST(MappedFileSystem, FindsNamesWhateverTheirCase) {
  TempDrives d;
  d.Put("c/Work/Sub Folder/Module1.BAS", "abc");
  MappedFileSystem& fs = d.files();

  EXPECT_TRUE(fs.FileExists(L"C:\\WORK\\sub folder\\module1.bas"));
  EXPECT_TRUE(fs.FolderExists(L"c:\\work\\SUB FOLDER\\"));
  EXPECT_FALSE(fs.FileExists(L"C:\\Work\\Sub Folder"));
  EXPECT_FALSE(fs.FolderExists(L"C:\\Work\\Sub Folder\\Module1.bas"));
  EXPECT_FALSE(fs.FileExists(L"C:\\Work\\Module?.bas"));
  EXPECT_FALSE(fs.FileExists(L"Work\\Module1.bas"));
  EXPECT_EQ(fs.ReadFile(L"c:/work/sub folder/./MODULE1.bas"), "abc");

  // Existing names are found as stored, missing ones appended as given.
  EXPECT_EQ(fs.RealPath(L"C:\\work\\SUB FOLDER\\New.txt"), d.root() / "c/Work/Sub Folder/New.txt");
  EXPECT_EQ(fs.WindowsPath(d.root() / "c/Work/Sub Folder/Module1.BAS"), L"C:\\Work\\Sub Folder\\Module1.BAS");
  EXPECT_EQ(fs.WindowsPath(d.root() / "c"), L"C:\\");
  EXPECT_EQ(fs.WindowsPath("/elsewhere/x"), std::nullopt);

  // Writing through another case replaces the existing file instead of adding one.
  fs.WriteFile(L"C:\\WORK\\SUB FOLDER\\MODULE1.BAS", "xyz");
  EXPECT_EQ(d.Get("c/Work/Sub Folder/Module1.BAS"), "xyz");
  EXPECT_EQ(fs.List(L"C:\\Work\\Sub Folder").size(), 1u);

  // Names beyond Latin letters are stored as UTF-8 and found in any case.
  fs.CreateFolder(L"C:\\Été");
  fs.WriteFile(L"C:\\Été\\Жук.txt", "1");
  EXPECT_EQ(d.Get("c/Été/Жук.txt"), "1");
  EXPECT_TRUE(fs.FileExists(L"C:\\éTÉ\\жУК.TXT"));
}

TEST(MappedFileSystem, MapsSharesAndTheRootDrive) {
  TempDrives d;
  MappedFileSystem& fs = d.files();
  // A share (like a drive) exists once it is written to.
  fs.WriteFile(L"\\\\Server\\Share\\x.txt", "unc");
  EXPECT_EQ(d.Get("unc/Server/Share/x.txt"), "unc");
  EXPECT_EQ(fs.ReadFile(L"\\\\SERVER\\share\\X.TXT"), "unc");
  EXPECT_EQ(fs.WindowsPath(d.root() / "unc/Server/Share/x.txt"), L"\\\\Server\\Share\\x.txt");
  fs.WriteFile(L"D:\\y.txt", "d");
  EXPECT_EQ(d.Get("d/y.txt"), "d");

  MappedFileSystem rooted(d.root(), true);
  std::wstring z = L"Z:" + vba::FromUtf8(d.root().string());
  for (auto& c : z)
    if (c == L'/') c = L'\\';
  EXPECT_EQ(rooted.RealPath(L"Z:\\tmp\\none"), std::filesystem::path("/tmp/none"));
  EXPECT_EQ(rooted.ReadFile(z + L"\\UNC\\server\\share\\x.txt"), "unc");
  EXPECT_EQ(rooted.WindowsPath("/usr/lib"), L"Z:\\usr\\lib");
  // Under the drives folder the drive letter wins over Z:.
  EXPECT_EQ(rooted.WindowsPath(d.root() / "d/y.txt"), L"D:\\y.txt");
  EXPECT_FALSE(rooted.FileExists(L"C:\\..\\d\\y.txt"));  // ".." stops at the root
}

TEST(MappedFileSystem, WritesAtomicallyAndKeepsTheFileMode) {
  TempDrives d;
  d.Put("c/Work/a.txt", "old");
  ::chmod((d.root() / "c/Work/a.txt").c_str(), 0640);
  MappedFileSystem& fs = d.files();

  fs.WriteFile(L"C:\\Work\\a.txt", std::string("new\0bytes", 9));
  EXPECT_EQ(d.Get("c/Work/a.txt"), std::string("new\0bytes", 9));
  struct stat st {};
  ::stat((d.root() / "c/Work/a.txt").c_str(), &st);
  EXPECT_EQ(st.st_mode & 0777, 0640u);

  fs.AppendFile(L"C:\\Work\\b.txt", "1");
  fs.AppendFile(L"C:\\Work\\B.TXT", "2");
  EXPECT_EQ(d.Get("c/Work/b.txt"), "12");

  // A failed write leaves neither the target changed nor a temporary file behind.
  std::filesystem::create_directories(d.root() / "c/Work/dir");
  EXPECT_EQ(Caught([&] { fs.WriteFile(L"C:\\Work\\dir", "x"); }).Number(), vba::kErrPathFileAccess);
  auto missing = Caught([&] { fs.WriteFile(L"C:\\Work\\Nope\\x.txt", "x"); });
  EXPECT_EQ(missing.Number(), vba::kErrPathNotFound);
  EXPECT_EQ(Text(missing), "Path not found: C:\\Work\\Nope\\x.txt");
  auto names = fs.List(L"C:\\Work");
  ASSERT_EQ(names.size(), 3u);
  EXPECT_EQ(names[0].name, L"a.txt");
  EXPECT_EQ(names[1].name, L"b.txt");
  EXPECT_EQ(names[2].name, L"dir");
  EXPECT_TRUE(names[2].isFolder);
}

TEST(MappedFileSystem, RaisesTheErrorsOfFileStatements) {
  TempDrives d;
  d.Put("c/Work/a.txt", "a");
  d.Put("c/Work/Full/x.txt", "x");
  MappedFileSystem& fs = d.files();

  auto notFound = Caught([&] { fs.ReadFile(L"C:\\Work\\none.bas"); });
  EXPECT_EQ(notFound.Number(), vba::kErrFileNotFound);
  EXPECT_EQ(Text(notFound), "File not found: C:\\Work\\none.bas");
  EXPECT_EQ(Caught([&] { fs.ReadFile(L"C:\\Work"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(Caught([&] { fs.DeleteFile(L"C:\\Work\\none"); }).Number(), vba::kErrFileNotFound);
  EXPECT_EQ(Caught([&] { fs.CreateFolder(L"C:\\Work\\full"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(Caught([&] { fs.CreateFolder(L"C:\\No\\New"); }).Number(), vba::kErrPathNotFound);
  EXPECT_EQ(Caught([&] { fs.DeleteFolder(L"C:\\Work\\Full"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(Caught([&] { fs.List(L"C:\\Nothing"); }).Number(), vba::kErrPathNotFound);
  EXPECT_EQ(Caught([&] { fs.Rename(L"C:\\Work\\a.txt", L"C:\\Work\\FULL\\X.TXT"); }).Number(),
            vba::kErrFileAlreadyExists);
  EXPECT_EQ(Caught([&] { fs.ReadFile(L"C:\\Work\\a|b"); }).Number(), 52);

  // A change of case only is a rename, not a clash with itself.
  fs.Rename(L"C:\\Work\\a.txt", L"C:\\Work\\A.TXT");
  EXPECT_EQ(d.Get("c/Work/A.TXT"), "a");
  fs.Rename(L"C:\\Work\\a.txt", L"C:\\Work\\Full\\moved.txt");
  EXPECT_EQ(d.Get("c/Work/Full/moved.txt"), "a");
  fs.DeleteFile(L"C:\\Work\\full\\X.txt");
  fs.DeleteFile(L"C:\\Work\\full\\moved.txt");
  fs.DeleteFolder(L"C:\\Work\\FULL");
  EXPECT_FALSE(fs.Exists(L"C:\\Work\\Full"));
}

TEST(MappedFileSystem, AReadOnlyFileIsReadAndRenamedButNeitherWrittenNorDeleted) {
  TempDrives d;
  d.Put("c/Work/locked.txt", "kept");
  ::chmod((d.root() / "c/Work/locked.txt").c_str(), 0444);
  MappedFileSystem& fs = d.files();
  EXPECT_EQ(fs.ReadFile(L"C:\\Work\\locked.txt"), "kept");
  EXPECT_EQ(Caught([&] { fs.WriteFile(L"C:\\Work\\locked.txt", "x"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(Caught([&] { fs.WriteFiles({{L"C:\\Work\\other.txt", "y"}, {L"C:\\Work\\LOCKED.txt", "x"}}); }).Number(),
            vba::kErrPathFileAccess);
  EXPECT_FALSE(fs.FileExists(L"C:\\Work\\other.txt"));  // all or nothing
  EXPECT_EQ(Caught([&] { fs.AppendFile(L"C:\\Work\\locked.txt", "x"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(Caught([&] { fs.DeleteFile(L"C:\\Work\\locked.txt"); }).Number(), vba::kErrPathFileAccess);
  EXPECT_EQ(d.Get("c/Work/locked.txt"), "kept");
  fs.Rename(L"C:\\Work\\locked.txt", L"C:\\Work\\still.txt");
  EXPECT_EQ(d.Get("c/Work/still.txt"), "kept");
}

TEST(MappedFileSystem, ListsInNameOrderWithoutRegardToCaseThenByExactName) {
  TempDrives d;
  for (const char* name : {"c/W/b.txt", "c/W/B2.txt", "c/W/a.TXT", "c/W/Z/x", "c/W/\xc3\xa9t\xc3\xa9.txt", "c/W/E.txt"})
    d.Put(name, "");
  std::vector<std::wstring> names;
  for (const DirEntry& e : d.files().List(L"C:\\W")) names.push_back(e.name);
  EXPECT_EQ(names, (std::vector<std::wstring>{L"a.TXT", L"b.txt", L"B2.txt", L"E.txt", L"Z", L"\u00e9t\u00e9.txt"}));
}

}  // namespace
}  // namespace quillet::io
