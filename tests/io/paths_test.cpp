#include "io/paths.h"

#include <gtest/gtest.h>

namespace quillet::io {
namespace {

TEST(Paths, JoinSplitAndKindOfPath) {
  EXPECT_EQ(JoinPath(L"C:\\Work\\", L"x.bas"), L"C:\\Work\\x.bas");
  EXPECT_EQ(JoinPath(L"C:\\Work", L"\\x.bas"), L"C:\\Work\\x.bas");
  EXPECT_EQ(JoinPath(L"C:\\", L"x.bas"), L"C:\\x.bas");
  EXPECT_EQ(JoinPath(L"C:\\Work", L"D:\\Other\\y.cls"), L"D:\\Other\\y.cls");
  EXPECT_EQ(JoinPath(L"\\\\srv\\share", L"x"), L"\\\\srv\\share\\x");
  EXPECT_EQ(JoinPath(L"", L"x"), L"x");

  EXPECT_EQ(FolderOf(L"C:\\a\\b.txt"), L"C:\\a\\");
  EXPECT_EQ(FolderOf(L"b.txt"), L"");
  EXPECT_EQ(FileNameOf(L"C:\\a\\b.txt"), L"b.txt");
  EXPECT_EQ(FileNameOf(L"C:b.txt"), L"b.txt");
  EXPECT_EQ(ExtensionOf(L"C:\\a.d\\b.tar.gz"), L".gz");
  EXPECT_EQ(ExtensionOf(L"C:\\a.d\\README"), L"");

  EXPECT_TRUE(IsAbsoluteWindowsPath(L"C:\\x"));
  EXPECT_TRUE(IsAbsoluteWindowsPath(L"c:/x"));
  EXPECT_TRUE(IsAbsoluteWindowsPath(L"\\\\srv\\share\\x"));
  EXPECT_FALSE(IsAbsoluteWindowsPath(L"C:x"));
  EXPECT_FALSE(IsAbsoluteWindowsPath(L"\\x"));
  EXPECT_FALSE(IsAbsoluteWindowsPath(L"x\\y"));
}

TEST(Paths, NormalizeAndCompare) {
  EXPECT_EQ(NormalizePath(L"c:/a/./b/../c//d"), L"C:\\a\\c\\d");
  EXPECT_EQ(NormalizePath(L"C:\\..\\x"), L"C:\\x");  // never above the root
  EXPECT_EQ(NormalizePath(L"C:\\a\\b\\..\\"), L"C:\\a\\");
  EXPECT_EQ(NormalizePath(L"\\\\srv\\share\\a\\..\\..\\b"), L"\\\\srv\\share\\b");
  EXPECT_EQ(NormalizePath(L"a\\..\\..\\b"), L"..\\b");
  EXPECT_EQ(NormalizePath(L"a\\.."), L".");

  EXPECT_TRUE(SamePath(L"C:\\Work\\", L"c:\\WORK"));
  EXPECT_TRUE(SamePath(L"C:\\Été\\x.bas", L"c:/été/./X.BAS"));
  EXPECT_TRUE(SamePath(L"\\\\Srv\\Share\\", L"\\\\srv\\share"));
  EXPECT_FALSE(SamePath(L"C:\\Work\\a", L"C:\\Work\\b"));
  EXPECT_FALSE(SamePath(L"C:\\Work", L"D:\\Work"));
}

}  // namespace
}  // namespace quillet::io
