// Shortcut files through the session's file system.
#include <gtest/gtest.h>

#include "settings/shortcut_files.h"
#include "settings_fixture.h"
#include "vba/error.h"

namespace quillet::settings::testing {
namespace {

class ShortcutFilesTest : public SettingsTest {};

TEST_F(ShortcutFilesTest, CreateReadAndRetargetOnDisk) {
  Put("c/Lib/Loops/For.bas", "For i = 1 To 10\r\nNext\r\n");
  Put("c/Lib/Short/.keep", "");
  ShortcutCreate(s, L"C:\\Lib\\Short\\For.bas.lnk", L"C:\\Lib\\Loops\\For.bas");
  ASSERT_TRUE(Exists("c/Lib/Short/For.bas.lnk"));
  EXPECT_EQ(Get("c/Lib/Short/For.bas.lnk").substr(0, 4), std::string("\x4C\0\0\0", 4));
  EXPECT_EQ(ShortcutTarget(s, L"C:\\Lib\\Short\\For.bas.lnk"), L"C:\\Lib\\Loops\\For.bas");
  io::ShellLink link = ShortcutRead(s, L"C:\\Lib\\Short\\For.bas.lnk");
  EXPECT_EQ(link.relativePath, L"..\\Loops\\For.bas");

  // Retargeting keeps the other strings and renews the relative path.
  link.description = L"loop";
  ShortcutWrite(s, L"C:\\Lib\\Short\\For.bas.lnk", link);
  ShortcutRetarget(s, L"C:\\Lib\\Short\\For.bas.lnk", L"C:\\Lib\\Short\\Other.bas");
  link = ShortcutRead(s, L"C:\\Lib\\Short\\For.bas.lnk");
  EXPECT_EQ(link.targetPath, L"C:\\Lib\\Short\\Other.bas");
  EXPECT_EQ(link.relativePath, L".\\Other.bas");
  EXPECT_EQ(link.description, L"loop");

  // A missing file and a file that is no link raise, naming what is wrong.
  EXPECT_THROW(ShortcutTarget(s, L"C:\\Lib\\Short\\Missing.lnk"), vba::Error);
  Put("c/Lib/Short/Text.lnk", "C:\\Lib\\Loops\\For.bas");
  try {
    ShortcutTarget(s, L"C:\\Lib\\Short\\Text.lnk");
    ADD_FAILURE() << "a text file was read as a link";
  } catch (const vba::Error& e) {
    EXPECT_NE(e.Description().find(L"ShellLinkHeader"), std::wstring::npos);
  }
}

}  // namespace
}  // namespace quillet::settings::testing
