// Paths of the settings, folder tokens and the code folders.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/folders.h"
#include "settings/items.h"
#include "settings/settings.h"
#include "settings_fixture.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;

class FoldersTest : public SettingsTest {
 protected:
  FoldersTest() { SettingsDefaultsSet(s); }
  std::wstring Home(const std::wstring& rest) { return kProgram + rest; }
};

TEST(PathCombine, JoinsWithOneBackslash) {
  struct Case {
    std::vector<std::wstring> parts;
    std::wstring combined;
  } cases[] = {
      {{L"C:\\a", L"b"}, L"C:\\a\\b"},
      {{L"C:\\a\\", L"\\\\b\\"}, L"C:\\a\\b\\"},
      {{L"C:\\a", L"b", L"c.bas"}, L"C:\\a\\b\\c.bas"},
      {{L"C:\\a"}, L"C:\\a\\"},
      {{L"", L"D:\\code", L"\\x.bas"}, L"D:\\code\\x.bas"},
      {{L"", L"\\\\server\\share\\code\\", L"x.bas"}, L"\\\\server\\share\\code\\x.bas"},
      {{L"C:\\a", L""}, L"C:\\a\\"},
  };
  for (const auto& c : cases) EXPECT_EQ(PathCombine(c.parts), c.combined) << vba::ToUtf8(c.combined);
  EXPECT_EQ(PathAddSlash(L""), L"");
  EXPECT_EQ(PathAddSlash(L"C:\\a"), L"C:\\a\\");
  EXPECT_EQ(PathFolderGet(L"C:\\a\\b.txt"), L"C:\\a\\");
  EXPECT_EQ(PathFolderGet(L"b.txt"), L"");
}

TEST_F(FoldersTest, TheFoldersFollowTheBaseFolder) {
  EXPECT_EQ(CodeFolderGet(s), Home(L"vbcode\\"));
  EXPECT_EQ(LibraryFolderGet(s), Home(L"vbcode\\Library\\"));
  EXPECT_EQ(FragmentsFolderGet(s), Home(L"vbcode\\Fragments"));
  EXPECT_EQ(ErrorHandlersFolderGet(s), Home(L"vbcode\\Fragments\\ErrorHandlers"));
  // The error handling file has its own place, not under <errorhandlers>.
  EXPECT_EQ(ErrorHandleFileGet(s), Home(L"vbcode\\ErrorHandlers\\basErrorHandle.bas"));
  EXPECT_EQ(PrefixStandardsFileGet(s), Home(L"qlttp.ini"));
  EXPECT_EQ(TemplatesFolderGet(s), Home(L"vbcode\\Templates"));

  s.settings[kBaseFolder] = L"D:\\code";
  EXPECT_EQ(FragmentsFolderGet(s), L"D:\\code\\Fragments");
  EXPECT_EQ(ClassesFolderGet(s), L"D:\\code\\Classes");
  s.settings[kBaseFolder] = L"\\\\server\\share\\code\\";
  EXPECT_EQ(CodeFolderGet(s), L"\\\\server\\share\\code\\");
  // A token expands before the relative check, a full path stays as it is.
  s.settings[kCollectionClassTemplate] = L"<code>\\Templates\\x.cls";
  EXPECT_EQ(CollectionClassTemplateGet(s), L"\\\\server\\share\\code\\Templates\\x.cls");
  s.settings[kBaseFolder] = L"code";
  s.settings[kProcedureHeaderFile] = L"<code>\\x.bas";
  EXPECT_EQ(ProcedureHeaderFileGet(s), Home(L"code\\x.bas"));
  s.settings[kModuleHeaderFile] = L"E:\\h.bas";
  EXPECT_EQ(ModuleHeaderFileGet(s), L"E:\\h.bas");
  s.settings[kLibraryFolder] = L"lib";
  EXPECT_EQ(LibraryFolderGet(s), Home(L"lib"));
}

TEST_F(FoldersTest, TokensAndRelativePaths) {
  // Each token once only.
  EXPECT_EQ(PathTokensExpand(s, L"<root>x\\<root>"), Home(L"x\\<root>"));
  EXPECT_EQ(PathTokensExpand(s, L"<fragments>\\ADO\\x.bas"), Home(L"vbcode\\Fragments\\ADO\\x.bas"));
  EXPECT_EQ(PathTokensExpand(s, L"<errorhandlers>"), Home(L"vbcode\\Fragments\\ErrorHandlers\\"));
  EXPECT_EQ(PathTokensExpand(s, L"<CODE>"), L"<CODE>");  // tokens are found case counting
  EXPECT_EQ(PathAbsoluteGet(s, L"a\\b.txt"), Home(L"a\\b.txt"));
  EXPECT_EQ(PathAbsoluteGet(s, L"\\a\\b.txt"), Home(L"a\\b.txt"));
  EXPECT_EQ(PathAbsoluteGet(s, L"c:\\program files\\quillet\\a.txt"), L"c:\\program files\\quillet\\a.txt");
  EXPECT_EQ(PathAbsoluteGet(s, L"\\\\srv\\x"), L"\\\\srv\\x");
  EXPECT_EQ(PathAbsoluteGet(s, L"x.txt", L"D:\\base"), L"D:\\base\\x.txt");
  EXPECT_EQ(PathRootRelativeGet(s, L"C:\\PROGRAM FILES\\Quillet\\vbcode\\x.bas"), L"vbcode\\x.bas");
  EXPECT_EQ(PathRootRelativeGet(s, L"D:\\x.bas"), L"D:\\x.bas");
}

TEST_F(FoldersTest, FoldersCreateMakesOneLevelEach) {
  EXPECT_TRUE(FoldersCreate(s));
  for (const char* folder : {"vbcode", "vbcode/Library", "vbcode/Fragments", "vbcode/Classes", "vbcode/Templates",
                             "vbcode/Fragments/ErrorHandlers"})
    EXPECT_TRUE(Exists(std::string("c/Program Files/Quillet/") + folder)) << folder;
  EXPECT_TRUE(FoldersCreate(s));  // all there: nothing to do
  EXPECT_EQ(Reported(), "");

  // A base folder whose parent is missing: reported, and the chain ends.
  s.settings[kBaseFolder] = L"C:\\Missing\\code\\";
  EXPECT_FALSE(FoldersCreate(s));
  EXPECT_THAT(Reported(), HasSubstr("76: "));
  EXPECT_THAT(Reported(), HasSubstr("modCodeFolders.FoldersCreate"));
  EXPECT_FALSE(Exists("c/Missing"));
}

}  // namespace
}  // namespace quillet::settings::testing
