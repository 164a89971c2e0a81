// The settings items: the table, loading with missing keys written, damaged files, the
// first-load dialogue, and the files the scenario runner starts from.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "settings/ini_file.h"
#include "settings/items.h"
#include "settings/settings.h"
#include "settings_fixture.h"
#include "ui/form.h"
#include "ui/user_input.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class LoadTest : public SettingsTest {
 protected:
  void Load(bool firstLoad = true) {
    InitializeGlobalVars(s, firstLoad);
    EXPECT_FALSE(firstLoad);
  }
  std::wstring Setting(int item) { return IniText(s.settings[item]); }
  // The questions and boxes shown, without their long texts.
  std::vector<std::wstring> Boxes() {
    std::vector<std::wstring> boxes;
    for (const auto& line : uiHost.Log())
      if (line.starts_with(L"MsgBox(")) boxes.push_back(line.substr(0, line.find(L'\r')));
    return boxes;
  }
  // The settings dialog opens for a first run: it asks for the personal data, and the user
  // closes it with OK.
  void CloseSettingsDialog() {
    uiHost.AnswerMsgBox(ui::vbOK);
    uiHost.QueueAction([this] { ui::UserInput::Click(*ui::UserInput::FindForm(ui, L"frmSettings").Find(L"cmdOK")); });
  }
  static constexpr const wchar_t* kPersonalData = L"MsgBox(Please enter your personal data, 64, Quillet) = OK";
  const std::vector<std::wstring> kDialogOnly{L"Show frmSettings modal", kPersonalData, L"Unload frmSettings"};
};

TEST(SettingItems, TheTableAndItsLookups) {
  ASSERT_EQ(SettingItems().size(), 54u);
  std::set<int> numbers;
  std::set<std::wstring> controls;
  for (const auto& item : SettingItems()) {
    numbers.insert(item.number);
    controls.insert(ItemControlName(item));
    EXPECT_NE(FindSection(item.section), nullptr) << item.number;
  }
  EXPECT_EQ(numbers.size(), 54u);
  EXPECT_EQ(controls.size(), 54u);
  for (int reserved : {15, 16, 17, 50, 58, -1}) EXPECT_EQ(FindItem(reserved), nullptr);
  EXPECT_EQ(ItemControlName(*FindItem(kViewQuilletWindow)), L"chkViewQuilletWindow");
  EXPECT_EQ(ItemControlName(*FindItem(kMakeProcedureConstantTrue)), L"chkMakeProcedureConstantTrue");
  EXPECT_EQ(ItemControlName(*FindItem(kAddErrorHandlingProcedure)), L"cboAddErrorHandlingProcedure");
  EXPECT_EQ(ItemControlName(*FindItem(kAutoPrefixVariableName)), L"cboAutoPrefixVariableName");
  EXPECT_EQ(ItemControlName(*FindItem(kBaseFolder)), L"txtBaseFolder");
  EXPECT_EQ(ItemControlName(*FindItem(kAddPropertyConstant)), L"chkAddPropertyConstant");
  EXPECT_EQ(FindItemByKey(L"prefix byval")->number, kPrefixByVal);
  EXPECT_EQ(FindItemByKey(L"Prefix"), nullptr);
  EXPECT_EQ(IniFileOf(*FindItem(kPrefixModule)), L"qlttp.ini");
  EXPECT_EQ(IniFileOf(*FindItem(kConstTag)), L"qltusr.ini");
  EXPECT_EQ(DefaultValue(*FindItem(kAddPropertyConstant)), vba::Variant(L""));
  EXPECT_EQ(DefaultValue(*FindItem(kAutoPrefixVariableName)), vba::Variant(2));
  EXPECT_EQ(DefaultValue(*FindItem(kAddHeaderProcedure)), vba::Variant(true));
  EXPECT_EQ(AutoPrefixName(2), L"Auto Prefix before capital char");
  // Truth values as the files hold them.
  for (const wchar_t* yes : {L"true", L"Yes", L"-1", L"1", L" TRUE "}) EXPECT_EQ(IniTruth(yes), true) << yes;
  for (const wchar_t* no : {L"false", L"no", L"0"}) EXPECT_EQ(IniTruth(no), false) << no;
  for (const wchar_t* neither : {L"", L"maybe", L"on"}) EXPECT_EQ(IniTruth(neither), std::nullopt) << neither;
}

TEST_F(LoadTest, LookupsOutsideTheTableSayWhichMissed) {
  uiHost.AnswerMsgBox(ui::vbOK);
  uiHost.AnswerMsgBox(ui::vbOK);
  EXPECT_EQ(Item2Name(s, 16), L"");
  EXPECT_EQ(Section2Name(s, 4), L"");
  EXPECT_EQ(Item2Name(s, 47), L"View Quillet Window");
  EXPECT_EQ(Section2IniFile(s, kSectionArgumentPrefix), kPrefixIni);
  EXPECT_EQ(Item2Control(s, 9), L"chkMakeProcedureConstantTrue");
  EXPECT_EQ(Boxes(), (std::vector<std::wstring>{L"MsgBox(Missing Case in Item2Name16, 0, Quillet) = OK",
                                                L"MsgBox(Missing Case in Section2Name for Section 4, 0, Quillet) = OK"}));
}

TEST_F(LoadTest, AFirstLoadWritesEveryKeyAndOpensTheDialogWithoutQuestions) {
  CloseSettingsDialog();
  Load();
  EXPECT_EQ(uiHost.Log(), kDialogOnly);  // the settings dialog opens; no dockable-window questions
  std::string user = GetHome("qltusr.ini");
  std::string prefixes = GetHome("qlttp.ini");
  for (const auto& item : SettingItems()) {
    EXPECT_EQ(s.settings[item.number], DefaultValue(item)) << item.number;
    const std::string& file = SectionOf(item).file == kUserIni ? user : prefixes;
    EXPECT_THAT(file, HasSubstr(vba::ToUtf8(std::wstring(item.key) + L"=" + IniText(DefaultValue(item)) + L"\r\n")));
  }
  EXPECT_THAT(user, HasSubstr("[Developer]\r\nDeveloper=\r\nInitials=\r\n"));
  EXPECT_THAT(user, HasSubstr("Make Procedure Constant True=-1\r\n"));
  EXPECT_THAT(user, HasSubstr("Add Property Constant=\r\nAdd Module Constant Property=\r\n"));
  EXPECT_THAT(user, HasSubstr("Auto Prefix Variable Name=2\r\n"));
  EXPECT_THAT(user, Not(HasSubstr("Prefix Module")));
  EXPECT_EQ(prefixes, "[Scope Prefix]\r\nPrefix Module=m\r\nPrefix Global=g\r\n[Argument Prefix]\r\nPrefix ByRef=r\r\n"
                      "Prefix ByVal=v\r\n");

  // What the scenario runner writes for a start that is not the first one is the same file,
  // with the developer's name.
  Remove("c/Program Files/Quillet/qltusr.ini");
  Remove("c/Program Files/Quillet/qlttp.ini");
  WriteDefaultSettingsFiles(platform.Files(), kProgram, L"");
  EXPECT_EQ(GetHome("qltusr.ini"), user);
  EXPECT_EQ(GetHome("qlttp.ini"), prefixes);

  // Reading back: items 19 and 20 stay empty, nothing is written again.
  Load(false);
  EXPECT_EQ(s.settings[kAddPropertyConstant], vba::Variant(L""));
  EXPECT_EQ(GetHome("qltusr.ini"), user);
  EXPECT_EQ(Reported(), "");
}

TEST_F(LoadTest, ADamagedFileLoadsWithDefaultsAndLosesNoKey) {
  PutHome("qltusr.ini",
          "this line is garbage\r\n"
          "[Developer]\r\n"
          "Developer=Ada\r\n"
          "Initials=AL\r\n"
          "no equals sign here\r\n"
          "My Own Key=kept\r\n"
          "[Error Handling]\r\n"
          "Make Procedure Constant True=perhaps\r\n"
          "Make Module Constant True=0\r\n"
          "ErrorHandler=\r\n"
          "[Other]\r\n"
          "Declaration Indented=\r\n"
          "View Quillet Window=yes\r\n"
          "Auto Prefix Variable Name=1\r\n"
          "[Unknown Section]\r\n"
          "u=1\r\n");
  // "Procedure Builder" and the others are missing; the prefixes file too.
  CloseSettingsDialog();
  Load();
  EXPECT_EQ(Setting(kDeveloper), L"Ada");
  EXPECT_EQ(Setting(kMakeProcedureConstantTrue), L"-1");  // unreadable: the default stays
  EXPECT_EQ(s.settings[kMakeModuleConstantTrue], vba::Variant(false));
  EXPECT_EQ(s.settings[kErrorHandler], vba::Variant(L""));   // text items take the empty value
  EXPECT_EQ(s.settings[kDeclarationIndented], vba::Variant(true));  // others keep the default
  EXPECT_EQ(s.settings[kViewQuilletWindow], vba::Variant(true));
  EXPECT_EQ(s.settings[kAutoPrefixVariableName], vba::Variant(L"1"));
  EXPECT_EQ(s.settings[kAddHeaderProcedure], vba::Variant(true));

  std::string after = GetHome("qltusr.ini");
  for (const char* kept : {"this line is garbage\r\n[Developer]\r\nDeveloper=Ada\r\nInitials=AL\r\n",
                           "no equals sign here=\r\nMy Own Key=kept\r\n", "Make Procedure Constant True=perhaps\r\n",
                           "ErrorHandler=\r\n", "View Quillet Window=yes\r\n", "[Unknown Section]\r\nu=1\r\n",
                           "[Procedure Builder]\r\nAdd Error Handling Procedure=On Error GoTo HandleError\r\n"})
    EXPECT_THAT(after, HasSubstr(kept));
  EXPECT_TRUE(Exists("c/Program Files/Quillet/qlttp.ini"));
  // Keys were missing, so the dialog opened and nothing was asked.
  EXPECT_EQ(uiHost.Log(), kDialogOnly);
  // A second load reads the same values and changes nothing.
  Load();
  EXPECT_EQ(GetHome("qltusr.ini"), after);
}

TEST_F(LoadTest, WithoutPersonalDataTheDockableWindowsAreOffered) {
  WriteDefaultSettingsFiles(platform.Files(), kProgram, L"");
  CloseSettingsDialog();
  uiHost.AnswerMsgBox(ui::vbYes);  // Code Explorer
  uiHost.AnswerMsgBox(ui::vbNo);   // Shortcuts and Search
  uiHost.AnswerMsgBox(ui::vbOK);
  Load();
  EXPECT_EQ(Boxes(), (std::vector<std::wstring>{
                         kPersonalData, L"MsgBox(Quillet Code Explorer is a replacement of the VB Project Explorer",
                         L"MsgBox(Quillet Shortcuts and Search is a dockable window to give fast access",
                         L"MsgBox(Don't forget to dock it, 0, Quillet) = OK"}));
  EXPECT_THAT(vba::ToUtf8(uiHost.Log()[3]),
              HasSubstr("code pane.\r\n\r\nAvailability of the Code Explorer can be set on the Settings dialog "
                        "(Other)\r\nThe Code Explorer can also be activated from menu: Quillet > Tools\r\n\r\n"
                        "Do you want the Code Explorer dockable window opened?, 36, Quillet) = Yes"));
  EXPECT_EQ(s.settings[kViewCodeExplorerWindow], vba::Variant(true));
  EXPECT_EQ(s.settings[kViewQuilletWindow], vba::Variant(false));
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("View Quillet Window=0\r\nView Code Explorer Window=-1\r\n"));

  // Next time only the window still off is offered; a No needs no reminder.
  uiHost.ClearLog();
  CloseSettingsDialog();
  uiHost.AnswerMsgBox(ui::vbNo);
  Load();
  ASSERT_EQ(Boxes().size(), 2u);
  EXPECT_THAT(vba::ToUtf8(Boxes()[1]), HasSubstr("Shortcuts and Search"));

  // With a name filled in, nothing is asked; without firstLoad neither.
  uiHost.ClearLog();
  Load(false);
  WriteSettingValues(platform.Files(), kProgram, {{L"copyright", L"(c) Ada"}});
  Load();
  EXPECT_TRUE(uiHost.Log().empty());
  EXPECT_EQ(Setting(kCopyright), L"(c) Ada");
}

TEST_F(LoadTest, SettingValuesGoIntoTheFileOfTheirItem) {
  WriteDefaultSettingsFiles(platform.Files(), kProgram, L"Developer");
  std::vector<std::wstring> unknown = WriteSettingValues(
      platform.Files(), kProgram,
      {{L"Prefix Module", L"mod"}, {L"Add Error Handling Procedure", L"Simple"}, {L"No Such Key", L"1"},
       {L"add header procedure", L"0"}});
  EXPECT_EQ(unknown, std::vector<std::wstring>{L"No Such Key"});
  Load();
  EXPECT_EQ(Setting(kDeveloper), L"Developer");
  EXPECT_EQ(Setting(kPrefixModule), L"mod");
  EXPECT_EQ(Setting(kAddErrorHandlingProcedure), L"Simple");
  EXPECT_EQ(s.settings[kAddHeaderProcedure], vba::Variant(false));
  EXPECT_THAT(GetHome("qlttp.ini"), HasSubstr("Prefix Module=mod\r\n"));
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("Add Header Procedure=0\r\n"));
  // Keys already present are left as they are by the defaults writer.
  WriteDefaultSettingsFiles(platform.Files(), kProgram, L"Someone Else");
  Load();
  EXPECT_EQ(Setting(kDeveloper), L"Developer");
  EXPECT_TRUE(uiHost.Log().empty());
}

}  // namespace
}  // namespace quillet::settings::testing
