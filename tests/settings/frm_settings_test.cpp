// The settings dialog: its controls and pages, Apply and the state it compares, the type
// prefix text, the tip of the day, Enter, the path pickers, the tool windows, the first run.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/folders.h"
#include "settings/frm_settings.h"
#include "settings/items.h"
#include "settings/naming.h"
#include "settings/registry.h"
#include "settings/settings.h"
#include "settings/settings_controls.h"
#include "settings_fixture.h"
#include "ui/user_input.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;
using ui::UserInput;

constexpr const char* kPrefixFile =
    "[Scope Prefix]\r\nPrefix Module=m\r\nPrefix Global=g\r\n[Argument Prefix]\r\nPrefix ByRef=r\r\n"
    "Prefix ByVal=v\r\n[Prefix]\r\nString=str\r\nLong=lng\r\n";

class FrmSettingsTest : public SettingsTest {
 protected:
  FrmSettingsTest() {
    WriteDefaultSettingsFiles(platform.Files(), kProgram, L"Developer");
    PutHome("qlttp.ini", kPrefixFile);
    PutHome("vbcode/Fragments/ErrorHandlers/Simple.bas", "On Error GoTo {HANDLEERRORLABEL}\r\n");
    Reload();
  }
  void Reload() {
    bool firstLoad = false;
    InitializeGlobalVars(s, firstLoad);
    TypePrefixFromIniFile(s);
  }
  // Opens a fresh dialog modeless, so that the test drives it step by step.
  FrmSettings& Open() {
    frm = std::make_unique<FrmSettings>(s);
    frm->Show(false);
    return *frm;
  }
  template <class C = ui::Control>
  C& Control(std::wstring_view name) {
    C* c = frm->FindAs<C>(name);
    EXPECT_NE(c, nullptr) << vba::ToUtf8(std::wstring(name));
    return *c;
  }
  // Chooses a tab by its caption, as the user does before touching its controls.
  void Tab(const char* caption) { UserInput::Set(frm->tabOptions, caption); }
  void Set(std::wstring_view name, const nlohmann::json& value) { UserInput::Set(*frm, name, value); }
  void Click(std::wstring_view name) { UserInput::Click(Control(name)); }

  std::unique_ptr<FrmSettings> frm;
};

TEST(TruthValue, AsACheckBoxOrAsAFlag) {
  for (const wchar_t* yes : {L"true", L"Yes", L"-1", L"1", L"TRUE"}) {
    EXPECT_EQ(TruthValue(yes, true), 1) << yes;
    EXPECT_EQ(TruthValue(yes, false), -1) << yes;
  }
  for (const wchar_t* no : {L"", L"0", L"false", L"2", L" 1", L"on"}) EXPECT_EQ(TruthValue(no, true), 0) << no;
}

TEST_F(FrmSettingsTest, EveryItemHasItsControlAndOkWithoutEditsWritesNothing) {
  std::string user = GetHome("qltusr.ini");
  Open();
  EXPECT_EQ(frm->Caption(), L"Settings");
  std::vector<std::wstring> captions;
  for (const auto& tab : frm->tabOptions.Tabs().All()) captions.push_back(tab->Caption());
  EXPECT_EQ(captions, (std::vector<std::wstring>{L"Developer", L"Error Handling", L"Files and Folders", L"Prefixes",
                                                 L"Constant Builder", L"Other", L"Procedure Builder",
                                                 L"Property Builder", L"Method Builder", L"Lines of Code",
                                                 L"Select Case"}));
  for (const auto& item : SettingItems()) {
    ui::Control* c = frm->Find(ItemControlName(item));
    ASSERT_NE(c, nullptr) << item.number;
    std::string kind = c->Kind();
    std::wstring prefix = ItemControlName(item).substr(0, 3);
    EXPECT_EQ(kind, prefix == L"chk" ? "CheckBox" : prefix == L"cbo" ? "ComboBox" : "TextBox") << item.number;
  }
  for (int i : {0, 1, 3, 4, 5, 6, 7}) EXPECT_NE(frm->Find(L"cmdGetPath(" + std::to_wstring(i) + L")"), nullptr) << i;
  EXPECT_EQ(frm->Find(L"cmdGetPath(2)"), nullptr);
  EXPECT_EQ(Control<ui::Label>(L"lblErrorHandleFile").Caption(), L"Global ErrorHandle File");
  EXPECT_EQ(Control<ui::CheckBox>(L"chkViewQuilletWindow").Caption(), L"View Shortcuts and Search Window");
  EXPECT_EQ(Control<ui::Frame>(L"fraScopePrefixes").Caption(), L"Scope Prefixes");
  EXPECT_EQ(Control(L"txtPrefixModule").Container(), frm->Find(L"fraScopePrefixes"));

  // The values as loaded.
  EXPECT_EQ(Control<ui::TextBox>(L"txtDeveloper").Text(), L"Developer");
  EXPECT_EQ(Control<ui::CheckBox>(L"chkMakeProcedureConstantTrue").Value(), 1);
  EXPECT_EQ(Control<ui::CheckBox>(L"chkAddPropertyConstant").Value(), 0);  // an empty item
  auto& mode = Control<ui::ComboBox>(L"cboAutoPrefixVariableName");
  EXPECT_EQ(mode.ListCount(), 3);
  EXPECT_EQ(mode.Text(), L"Auto Prefix before capital char");
  auto& handling = Control<ui::ComboBox>(L"cboAddErrorHandlingProcedure");
  EXPECT_EQ(handling.Text(), L"On Error GoTo HandleError");
  EXPECT_EQ(handling.FindStringExact(L"Simple"), 0);
  EXPECT_EQ(Control<ui::TextBox>(L"txtTypePrefix").Text(), L"String=str\r\nLong=lng\r\n");
  EXPECT_EQ(Control<ui::TextBox>(L"txtBaseFolder").Text(), L"\\vbcode\\");
  EXPECT_FALSE(frm->cmdApply.Enabled());

  // One page shows at a time.
  EXPECT_TRUE(Control(L"picTab(0)").Visible());
  Tab("Prefixes");
  for (int i = 0; i < FrmSettings::kTabCount; ++i)
    EXPECT_EQ(Control(L"picTab(" + std::to_wstring(i) + L")").Visible(), i == 3) << i;

  Click(L"cmdOK");
  EXPECT_FALSE(frm->Loaded());
  EXPECT_EQ(GetHome("qltusr.ini"), user);
  EXPECT_EQ(GetHome("qlttp.ini"), kPrefixFile);
  EXPECT_EQ(Reported(), "");
}

TEST_F(FrmSettingsTest, ApplyEnablesOnEditsAndSavesOnlyWhatDiffersBeyondCase) {
  std::string user = GetHome("qltusr.ini");
  Open();
  // A case-only change enables Apply, but Apply finds nothing to save.
  Set(L"txtDeveloper", "DEVELOPER");
  EXPECT_TRUE(frm->cmdApply.Enabled());
  Click(L"cmdApply");
  EXPECT_FALSE(frm->cmdApply.Enabled());
  EXPECT_EQ(GetHome("qltusr.ini"), user);

  // Check boxes and combo boxes enable it too.
  Tab("Error Handling");
  Click(L"chkMakeModuleConstantTrue");
  EXPECT_TRUE(frm->cmdApply.Enabled());
  Click(L"chkMakeModuleConstantTrue");
  Click(L"cmdApply");
  Set(L"cboDefaultErrorHandle", "Simple");
  EXPECT_TRUE(frm->cmdApply.Enabled());
  Tab("Prefixes");
  Set(L"cboAutoPrefixVariableName", "No Auto Prefix");

  // A real change: saved and read back at once, the check box and the mode as numbers.
  Tab("Developer");
  Set(L"txtInitials", "AL");
  Click(L"cmdApply");
  std::string after = GetHome("qltusr.ini");
  EXPECT_THAT(after, HasSubstr("Developer=DEVELOPER\r\nInitials=AL\r\n"));
  EXPECT_THAT(after, HasSubstr("Default Error Handle=Simple\r\n"));
  EXPECT_THAT(after, HasSubstr("Make Module Constant True=-1\r\n"));
  EXPECT_THAT(after, HasSubstr("Auto Prefix Variable Name=0\r\n"));
  EXPECT_THAT(after, HasSubstr("Add Property Constant=0\r\n"));
  EXPECT_EQ(s.settings[kInitials], vba::Variant(L"AL"));
  EXPECT_EQ(s.settings[kDefaultErrorHandle], vba::Variant(L"Simple"));

  // The state at load is kept: after an outside change, any later Apply writes again.
  WriteSettingValues(platform.Files(), kProgram, {{L"Initials", L"ZZ"}});
  Set(L"txtDeveloper", "Developer");
  Set(L"txtDeveloper", "DEVELOPER");
  Click(L"cmdApply");
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("Initials=AL\r\n"));

  // Cancel keeps what was applied.
  Set(L"txtInitials", "XX");
  Click(L"cmdCancel");
  EXPECT_FALSE(frm->Loaded());
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("Initials=AL\r\n"));
  EXPECT_EQ(Reported(), "");
}

TEST_F(FrmSettingsTest, TheTypePrefixTextRoundTrips) {
  Open();
  Tab("Prefixes");
  Set(L"txtTypePrefix", "String = s\r\nLong\r\n\r\n  \r\nDate=dt=x\r\n# a note\r\nVariant=var,v\r\n");
  Set(L"txtPrefixModule", "mod");
  Click(L"cmdOK");
  EXPECT_EQ(GetHome("qlttp.ini"),
            "[Scope Prefix]\r\nPrefix Module=mod\r\nPrefix Global=g\r\n[Argument Prefix]\r\nPrefix ByRef=r\r\n"
            "Prefix ByVal=v\r\n[Prefix]\r\nString=s\r\nLong=\r\nDate=dt\r\n# a note\r\nVariant=var,v\r\n");
  // The standard takes effect at once: a type without "=" has no prefix.
  EXPECT_EQ(DefaultTypePrefix(s, L"String"), L"s");
  EXPECT_EQ(DefaultTypePrefix(s, L"Long"), L"");
  EXPECT_EQ(DefaultTypePrefix(s, L"Variant"), L"var");
  EXPECT_EQ(s.settings[kPrefixModule], vba::Variant(L"mod"));

  // Opened again, the text shows the table as saved.
  Open();
  EXPECT_EQ(Control<ui::TextBox>(L"txtTypePrefix").Text(),
            L"String=s\r\nLong=\r\nDate=dt\r\n# a note\r\nVariant=var,v\r\n");
  frm->Unload();

  // With the standards file missing the text is empty, and Apply creates no file.
  WriteSettingValues(platform.Files(), kProgram, {{L"Prefix Standards File", L"\\nowhere.ini"}});
  Reload();
  Open();
  EXPECT_EQ(Control<ui::TextBox>(L"txtTypePrefix").Text(), L"");
  Tab("Prefixes");
  Set(L"txtTypePrefix", "String=str");
  Click(L"cmdApply");
  EXPECT_FALSE(Exists("c/Program Files/Quillet/nowhere.ini"));
  EXPECT_EQ(Reported(), "");
}

TEST_F(FrmSettingsTest, TheTipBoxIsCheckedOnlyWhenBothPerUserValuesAreOn) {
  Open();
  EXPECT_EQ(Control<ui::CheckBox>(L"chkViewTipOfTheDay").Value(), 0);  // neither: item 49, off
  EXPECT_FALSE(frm->cmdApply.Enabled());
  frm->Unload();

  UserSettingSave(s, L"Show Tips at Startup", L"1");
  UserSettingSave(s, L"Show Tips at Builder Open", L"0");
  Open();
  EXPECT_EQ(Control<ui::CheckBox>(L"chkViewTipOfTheDay").Value(), 0);
  frm->Unload();

  UserSettingSave(s, L"Show Tips at Builder Open", L"-1");
  Open();
  EXPECT_EQ(Control<ui::CheckBox>(L"chkViewTipOfTheDay").Value(), 1);
  EXPECT_FALSE(frm->cmdApply.Enabled());
  Tab("Other");
  Click(L"chkViewTipOfTheDay");
  Click(L"cmdApply");
  EXPECT_EQ(UserSettingGet(s, L"Show Tips at Startup"), L"0");
  EXPECT_EQ(UserSettingGet(s, L"Show Tips at Builder Open"), L"0");
  EXPECT_EQ(s.settings[kViewTipOfTheDay], vba::Variant(false));
}

TEST_F(FrmSettingsTest, EnterMakesALineInTheTypePrefixBoxAndPressesOkElsewhere) {
  Open();
  Tab("Prefixes");
  auto& box = Control<ui::TextBox>(L"txtTypePrefix");
  UserInput::Caret(box, 0, 0);
  EXPECT_FALSE(frm->cmdOK.Default());
  UserInput::Key(box, 13);
  EXPECT_TRUE(frm->Loaded());
  EXPECT_EQ(box.Text(), L"\r\nString=str\r\nLong=lng\r\n");

  auto& module = Control<ui::TextBox>(L"txtPrefixModule");
  UserInput::Focus(module);
  EXPECT_TRUE(frm->cmdOK.Default());
  Set(L"txtPrefixModule", "mm");
  UserInput::Key(module, 13);
  EXPECT_FALSE(frm->Loaded());
  EXPECT_THAT(GetHome("qlttp.ini"), HasSubstr("Prefix Module=mm\r\n"));
  EXPECT_THAT(GetHome("qlttp.ini"), HasSubstr("[Prefix]\r\nString=str\r\nLong=lng\r\n"));
}

TEST_F(FrmSettingsTest, PickedPathsAreStoredRelativeToTheProgramFolder) {
  PutHome("vbcode/ErrorHandlers/basErrorHandle.bas", "");
  Open();
  Tab("Files and Folders");
  // Index 7 fills the error handler file, under the title it always had.
  uiHost.AnswerFile(L"C:\\Program Files\\Quillet\\vbcode\\x.bas");
  Click(L"cmdGetPath(7)");
  EXPECT_EQ(Control<ui::TextBox>(L"txtErrorHandleFile").Text(), L"vbcode\\x.bas");
  ASSERT_EQ(uiHost.FileRequests().size(), 1u);
  const ui::FileDialogRequest& request = uiHost.FileRequests()[0];
  EXPECT_EQ(request.title, L"Collection Class Template");
  ASSERT_EQ(request.filters.size(), 1u);
  EXPECT_EQ(request.filters[0].description, L"*.bas");
  EXPECT_EQ(request.filters[0].pattern, L"*.bas");
  EXPECT_EQ(request.initialFolder, L"C:\\Program Files\\Quillet\\vbcode\\ErrorHandlers\\");
  EXPECT_TRUE(frm->cmdApply.Enabled());

  // Cancel leaves the text; a file elsewhere keeps its full path; a header starts in
  // <fragments> when its own folder is missing.
  uiHost.AnswerFile(std::nullopt);
  Click(L"cmdGetPath(7)");
  EXPECT_EQ(Control<ui::TextBox>(L"txtErrorHandleFile").Text(), L"vbcode\\x.bas");
  uiHost.AnswerFile(L"D:\\Headers\\Module.bas");
  Click(L"cmdGetPath(4)");
  EXPECT_EQ(Control<ui::TextBox>(L"txtModuleHeaderFile").Text(), L"D:\\Headers\\Module.bas");
  EXPECT_EQ(uiHost.FileRequests()[2].initialFolder, L"C:\\Program Files\\Quillet\\vbcode\\Fragments");
  EXPECT_EQ(uiHost.FileRequests()[2].title, L"Module Header File");

  // Folders get a final backslash.
  uiHost.AnswerFolder(L"C:\\Program Files\\Quillet\\code");
  Click(L"cmdGetPath(0)");
  EXPECT_EQ(Control<ui::TextBox>(L"txtBaseFolder").Text(), L"code\\");
  uiHost.AnswerFolder(std::nullopt);
  Click(L"cmdGetPath(1)");
  EXPECT_EQ(Control<ui::TextBox>(L"txtLibraryFolder").Text(), L"\\vbcode\\Library\\");
  EXPECT_THAT(vba::ToUtf8(uiHost.Log()[4]),
              HasSubstr("ChooseFolder(Base Folder, C:\\Program Files\\Quillet\\vbcode\\) = "));
  EXPECT_THAT(vba::ToUtf8(uiHost.Log()[5]),
              HasSubstr("ChooseFolder(Library Folder, C:\\Program Files\\Quillet\\vbcode\\Library\\) = Cancel"));

  Click(L"cmdOK");
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("ErrorHandle File=vbcode\\x.bas\r\n"));
  EXPECT_EQ(ErrorHandleFileGet(s), L"C:\\Program Files\\Quillet\\vbcode\\x.bas");
  EXPECT_EQ(CodeFolderGet(s), L"C:\\Program Files\\Quillet\\code\\");
}

// A tool window that remembers whether it shows.
class FakeWindow : public host::Window {
 public:
  explicit FakeWindow(bool visible) : visible_(visible) {}
  std::wstring Caption() const override { return L"Code Explorer"; }
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override {
    visible_ = visible;
    ++changes;
  }
  int Type() const override { return host::kToolWindow; }
  void SetFocus() override {}
  long HWnd() const override { return 0; }
  void Close() override {}
  int changes = 0;

 private:
  bool visible_;
};

TEST_F(FrmSettingsTest, ApplyShowsAndHidesTheToolWindowsAtOnce) {
  WriteSettingValues(platform.Files(), kProgram, {{L"View Code Explorer Window", L"-1"}});
  Reload();
  auto explorer = std::make_shared<FakeWindow>(true);
  auto shortcuts = std::make_shared<FakeWindow>(false);
  s.codeExplorerWindow = explorer;
  s.directAccessWindow = shortcuts;
  Open();
  Tab("Other");
  Click(L"chkViewCodeExplorerWindow");
  Click(L"cmdApply");
  EXPECT_FALSE(explorer->Visible());
  EXPECT_EQ(shortcuts->changes, 0);  // already as its setting says
  Click(L"chkViewQuilletWindow");
  Click(L"cmdOK");
  EXPECT_TRUE(shortcuts->Visible());
  EXPECT_EQ(explorer->changes, 1);
}

TEST_F(FrmSettingsTest, AnItemWithoutItsControlFailsAlone) {
  // A form that has only two of the items' controls.
  ui::Form form(ui, L"frmPartial");
  auto& developer = form.Add<ui::TextBox>(L"txtDeveloper");
  auto& indent = form.Add<ui::CheckBox>(L"chkDeclarationIndented");
  form.Load();
  FormLoadSettings(s, form);
  EXPECT_EQ(developer.Text(), L"Developer");
  EXPECT_EQ(indent.Value(), 1);
  EXPECT_THAT(Reported(), HasSubstr("modIniVarsQuillet.Form_Load_Settings"));

  std::string user = GetHome("qltusr.ini");
  developer.SetText(L"Ada");
  indent.SetValue(0);
  FormSaveSettings(s, form);
  EXPECT_THAT(Reported(), HasSubstr("modIniVarsQuillet.Form_Save_Settings"));
  // The two items changed; the others were left as they were.
  for (auto [from, to] : {std::pair{"Developer=Developer\r\n", "Developer=Ada\r\n"},
                          std::pair{"Declaration Indented=-1\r\n", "Declaration Indented=0\r\n"}})
    user.replace(user.find(from), std::string(from).size(), to);
  EXPECT_EQ(GetHome("qltusr.ini"), user);
  EXPECT_EQ(s.settings[kDeclarationIndented], vba::Variant(false));
}

TEST_F(FrmSettingsTest, AFirstRunAsksForThePersonalDataAndSavesThem) {
  Remove("c/Program Files/Quillet/qltusr.ini");
  uiHost.AnswerMsgBox(ui::vbOK);
  uiHost.QueueAction([&] {
    ui::Form& dialog = UserInput::FindForm(ui, L"frmSettings");
    UserInput::Set(dialog, L"txtDeveloper", "Ada");
    UserInput::Click(*dialog.Find(L"cmdOK"));
  });
  bool firstLoad = true;
  InitializeGlobalVars(s, firstLoad);
  EXPECT_EQ(uiHost.Log(), (std::vector<std::wstring>{L"Show frmSettings modal",
                                                     L"MsgBox(Please enter your personal data, 64, Quillet) = OK",
                                                     L"Unload frmSettings"}));
  EXPECT_THAT(GetHome("qltusr.ini"), HasSubstr("[Developer]\r\nDeveloper=Ada\r\n"));
  EXPECT_EQ(s.settings[kDeveloper], vba::Variant(L"Ada"));
  EXPECT_EQ(Reported(), "");
}

}  // namespace
}  // namespace quillet::settings::testing
