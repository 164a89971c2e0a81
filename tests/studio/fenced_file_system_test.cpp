// The studio's fence around the engine's file system: inside it everything works, outside
// it nothing exists and nothing is written.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "../support/fixtures.h"
#include "frontends/studio/fenced_file_system.h"
#include "vba/error.h"

namespace quillet::studio {
namespace {

namespace fs = std::filesystem;

TEST(FencedFileSystemTest, OutsideTheFenceNothingExistsAndNothingIsWritten) {
  test::TempFolder temp;
  fs::create_directories(temp.root / "c" / "Work" / "Inside");
  fs::create_directories(temp.root / "c" / "Work" / "Outside");
  {
    std::ofstream(temp.root / "c" / "Work" / "Outside" / "secret.txt") << "secret";
  }
  FencedFileSystem fenced(std::make_unique<io::MappedFileSystem>(temp.root), [](std::wstring_view path) {
    return std::wstring(path).rfind(L"C:\\Work\\Inside", 0) == 0;
  });

  fenced.WriteFile(L"C:\\Work\\Inside\\a.txt", "a");
  EXPECT_TRUE(fenced.FileExists(L"C:\\Work\\Inside\\a.txt"));
  EXPECT_EQ(fenced.ReadFile(L"C:\\Work\\Inside\\a.txt"), "a");
  EXPECT_EQ(fenced.List(L"C:\\Work\\Inside").size(), 1u);

  EXPECT_FALSE(fenced.FileExists(L"C:\\Work\\Outside\\secret.txt"));
  EXPECT_FALSE(fenced.FolderExists(L"C:\\Work\\Outside"));
  auto number = [](const std::function<void()>& f) {
    try {
      f();
    } catch (const vba::Error& e) {
      return e.Number();
    }
    return 0L;
  };
  EXPECT_EQ(number([&] { fenced.ReadFile(L"C:\\Work\\Outside\\secret.txt"); }), vba::kErrFileNotFound);
  EXPECT_EQ(number([&] { fenced.List(L"C:\\Work\\Outside"); }), vba::kErrPathNotFound);
  EXPECT_EQ(number([&] { fenced.WriteFile(L"C:\\Work\\Outside\\b.txt", "b"); }), vba::kErrPathFileAccess);
  EXPECT_EQ(number([&] { fenced.AppendFile(L"C:\\Work\\Outside\\secret.txt", "b"); }), vba::kErrPathFileAccess);
  EXPECT_EQ(number([&] { fenced.DeleteFile(L"C:\\Work\\Outside\\secret.txt"); }), vba::kErrPathFileAccess);
  EXPECT_EQ(number([&] { fenced.Rename(L"C:\\Work\\Inside\\a.txt", L"C:\\Work\\Outside\\a.txt"); }), vba::kErrPathFileAccess);
  EXPECT_EQ(number([&] { fenced.CreateFolder(L"C:\\Work\\Outside\\New"); }), vba::kErrPathFileAccess);
  EXPECT_EQ(number([&] { fenced.DeleteFolder(L"C:\\Work\\Outside"); }), vba::kErrPathFileAccess);

  // Nothing outside changed.
  EXPECT_FALSE(fs::exists(temp.root / "c" / "Work" / "Outside" / "b.txt"));
  EXPECT_FALSE(fs::exists(temp.root / "c" / "Work" / "Outside" / "New"));
  EXPECT_TRUE(fs::exists(temp.root / "c" / "Work" / "Outside" / "secret.txt"));
  EXPECT_TRUE(fs::exists(temp.root / "c" / "Work" / "Inside" / "a.txt"));
}

}  // namespace
}  // namespace quillet::studio
