// The INI file objects: loading, the platform's quirks the system relies on, saving.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/ini_file.h"
#include "settings_fixture.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;

class IniFileTest : public SettingsTest {};

TEST(IniSplit, DropsEmptyPieces) {
  EXPECT_EQ(IniSplit(L"a,,b", L","), (std::vector<std::wstring>{L"a", L"b"}));
  EXPECT_EQ(IniSplit(L"", L","), std::vector<std::wstring>{L""});
  EXPECT_EQ(IniSplit(L",a,", L","), std::vector<std::wstring>{L"a"});
  EXPECT_EQ(IniSplit(L",,", L","), std::vector<std::wstring>{L""});
  EXPECT_EQ(IniSplit(L"a<>b<><>c", L"<>"), (std::vector<std::wstring>{L"a", L"b", L"c"}));
}

TEST_F(IniFileTest, ReadsTheLinesAsThePlatformGivesThem) {
  PutHome("t.ini",
          "[First]\r\n"
          "# a comment\r\n"
          "empty=\r\n"
          "a=b=c\r\n"
          "d==e\r\n"
          " spaced  =  value \r\n"
          "[second]\r\n");
  IniFile ini(s);
  ini.SetName(L"t.ini");  // a bare name lies in the program's folder
  EXPECT_EQ(ini.Name(), std::wstring(kProgram) + L"t.ini");
  ASSERT_EQ(ini.Count(), 2);
  EXPECT_EQ(ini.Item(2L)->name, L"second");
  EXPECT_EQ(ini.Item(std::wstring(L"SECOND"))->Count(), 0);
  EXPECT_TRUE(ini.ValueExists(L"first", L"EMPTY"));
  EXPECT_EQ(ini.Value(L"First", L"empty"), L"");
  EXPECT_EQ(ini.Value(L"First", L"a"), L"c");
  EXPECT_EQ(ini.Value(L"First", L"d"), L"e");
  EXPECT_EQ(ini.Value(L"First", L"spaced"), L"value");
  EXPECT_TRUE(ini.ValueExists(L"First", L"# a comment"));
  EXPECT_EQ(ini.Value(L"First", L"missing"), L"");
  EXPECT_EQ(ini.Value(L"Missing", L"a"), L"");
  EXPECT_FALSE(ini.ValueExists(L"Missing", L"a"));
  EXPECT_EQ(ini.SectionContent(L"first"), std::wstring(L"# a comment\0empty=\0a=b=c\0d==e\0spaced  =  value", 46));
  EXPECT_EQ(Reported(), "");
  // An empty file, or one that does not exist yet in an existing folder, has no sections.
  PutHome("empty.ini", "");
  IniFile empty(s);
  empty.SetName(L"\\empty.ini");
  EXPECT_EQ(empty.Count(), 0);
  empty.SetName(L"new.ini");
  EXPECT_EQ(empty.Name(), std::wstring(kProgram) + L"new.ini");
  EXPECT_EQ(empty.Count(), 0);
}

TEST_F(IniFileTest, CommentsStayInPlaceAndSavesRewriteOnlyTheirSections) {
  std::string before =
      "; written by hand\n"
      "[Keep]\n"
      "x = 1\n"
      "\n"
      "[Edit]\r\n"
      "# first comment\r\n"
      "one=1\r\n"
      "# second comment\r\n"
      "two=2\r\n"
      "\r\n"
      "[Tail]\r\n"
      "t=1\r\n";
  PutHome("c.ini", before);
  IniFile ini(s);
  ini.SetName(std::wstring(kProgram) + L"c.ini");
  ini.SetValue(L"Edit", L"one", L"10");
  ini.Item(std::wstring(L"Edit"))->Save();
  EXPECT_EQ(GetHome("c.ini"),
            "; written by hand\n[Keep]\nx = 1\n\n[Edit]\r\n# first comment\r\none=10\r\n# second comment\r\ntwo=2\r\n"
            "\r\n[Tail]\r\nt=1\r\n");
  // ValueEx writes the whole model: the untouched sections keep their keys.
  ini.SetValueEx(L"New Section", L"k", L"v");
  EXPECT_EQ(GetHome("c.ini"),
            "; written by hand\n[Keep]\nx=1\r\n\n[Edit]\r\n# first comment\r\none=10\r\n# second comment\r\ntwo=2\r\n"
            "\r\n[Tail]\r\nt=1\r\n[New Section]\r\nk=v\r\n");
  // A deleted section keeps its header with no lines.
  ini.DeleteSection(std::wstring(L"Edit"));
  EXPECT_EQ(ini.Count(), 4);
  EXPECT_FALSE(ini.ValueExists(L"Edit", L"one"));
  ini.Save();
  EXPECT_EQ(GetHome("c.ini"),
            "; written by hand\n[Keep]\nx=1\r\n\n[Edit]\r\n\r\n[Tail]\r\nt=1\r\n[New Section]\r\nk=v\r\n");
  EXPECT_EQ(Reported(), "");
}

TEST_F(IniFileTest, ASectionLongerThanTheFirstBufferReadsWhole) {
  std::string text = "[Long]\r\n";
  for (int i = 0; i < 300; ++i) text += "key" + std::to_string(i) + "=value number " + std::to_string(i) + "\r\n";
  text += "[After]\r\nlast=1\r\n";
  ASSERT_GT(text.size(), 4 * 1024u);
  PutHome("long.ini", text);
  IniFile ini(s);
  ini.SetName(L"long.ini");
  ASSERT_EQ(ini.Count(), 2);
  EXPECT_EQ(ini.Item(1L)->Count(), 300);
  EXPECT_EQ(ini.Value(L"Long", L"key299"), L"value number 299");
  EXPECT_EQ(ini.Value(L"After", L"last"), L"1");
  // Many sections: the list of names grows past the buffer too.
  std::string many;
  for (int i = 0; i < 200; ++i) many += "[Section number " + std::to_string(i) + "]\r\nk=" + std::to_string(i) + "\r\n";
  PutHome("many.ini", many);
  ini.SetName(L"many.ini");
  EXPECT_EQ(ini.Count(), 200);
  EXPECT_EQ(ini.Value(L"section number 199", L"K"), L"199");
}

TEST_F(IniFileTest, AMissingFolderClearsTheNameAndLaterSavesDoNothing) {
  IniFile ini(s);
  ini.SetName(L"C:\\Nowhere\\x.ini");
  EXPECT_EQ(ini.Name(), L"");
  ini.SetValueEx(L"A", L"k", L"v");
  ini.SetName(L"sub\\y.ini");  // relative to the program's folder, which has no "sub"
  EXPECT_EQ(ini.Name(), L"");
  ini.Save();
  EXPECT_FALSE(Exists("c/Nowhere"));
  EXPECT_FALSE(Exists("c/Program Files/Quillet/sub"));
  EXPECT_EQ(Reported(), "");
  // An empty name changes nothing.
  ini.SetName(L"z.ini");
  ini.SetName(L"");
  EXPECT_EQ(ini.Name(), std::wstring(kProgram) + L"z.ini");
}

TEST_F(IniFileTest, FailuresAreReportedAndTheRestGoesOn) {
  PutHome("d.ini", "[A]\r\nkey=1\r\nKEY=2\r\nnext=3\r\n");
  IniFile ini(s);
  ini.SetName(L"d.ini");
  // The repeated key is reported; the first one stays and the loading goes on.
  EXPECT_THAT(Reported(), HasSubstr("457: "));
  EXPECT_THAT(Reported(), HasSubstr("Rv_IniFileSection.Add"));
  EXPECT_EQ(ini.Value(L"A", L"key"), L"1");
  EXPECT_EQ(ini.Value(L"A", L"next"), L"3");

  vbe.ClearImmediate();
  EXPECT_EQ(ini.Add(L"a"), nullptr);  // the section exists
  EXPECT_THAT(Reported(), HasSubstr("Rv_IniFile.Add"));
  EXPECT_EQ(ini.Item(std::wstring(L"none")), nullptr);
  EXPECT_THAT(Reported(), HasSubstr("Rv_IniFile.Item"));
  IniFileSection* added = ini.Add(L"B", L"k", L"v");
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(ini.Value(L"B", L"k"), L"v");
  ini.RemoveValue(L"B", L"k");
  EXPECT_FALSE(ini.ValueExists(L"B", L"k"));

  // A write that fails names the section and keeps the file system's error number.
  vbe.ClearImmediate();
  IniFile lost(s);
  Put("c/Work/Gone/w.ini", "[W]\r\nw=1\r\n");
  lost.SetName(L"C:\\Work\\Gone\\w.ini");
  Remove("c/Work/Gone");
  lost.SetValueEx(L"W", L"w", L"2");
  EXPECT_THAT(Reported(), HasSubstr("76: Unable to save INI file section 'W'"));
  EXPECT_THAT(Reported(), HasSubstr("Rv_IniFileSection.Save"));
}

}  // namespace
}  // namespace quillet::settings::testing
