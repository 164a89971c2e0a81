// The naming standard: the prefix table, reading names apart and building them, and the
// checks of new names.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "settings/items.h"
#include "settings/name_checks.h"
#include "settings/naming.h"
#include "settings/settings.h"
#include "settings_fixture.h"
#include "ui/controls.h"
#include "ui/form.h"

namespace quillet::settings::testing {
namespace {

using ::testing::HasSubstr;

class NamingTest : public SettingsTest {
 protected:
  NamingTest() {
    PutHome("qlttp.ini",
            "[Scope Prefix]\r\nPrefix Module=m\r\nPrefix Global=g\r\n"
            "[Argument Prefix]\r\nPrefix ByRef=r\r\nPrefix ByVal=v\r\n"
            "[Prefix]\r\n"
            "String Prefix=str, s\r\n"
            "Long=lng\r\n"
            "Boolean=f,bln\r\n"
            "Worksheet=wks,ws\r\n"
            "Workspace=wsp,ws\r\n"
            "Variant=var,vnt,vx,vy,vz,vw\r\n");
    bool firstLoad = false;
    InitializeGlobalVars(s, firstLoad);
    TypePrefixFromIniFile(s);
  }
  struct Parts {
    std::wstring result, typeName, scopePrefix, rest;
    long scope = -1;
  };
  Parts Check(const std::wstring& word, bool isConstant = false) {
    Parts p{L"", L"?", L"?", L"?"};
    p.result = PrefixesCheck(s, word, p.typeName, p.scope, p.scopePrefix, isConstant, p.rest);
    return p;
  }
  std::wstring Propose(const std::wstring& name, std::wstring typeName, long scope, bool isConstant = false) {
    std::wstring scopePrefix;
    return NameWithPrefix(s, name, typeName, nullptr, scope, isConstant, scopePrefix);
  }
  std::vector<std::wstring> Keys(const vba::Collection<Prefix>& prefixes) {
    std::vector<std::wstring> keys;
    for (long i = 1; i <= prefixes.Count(); ++i) keys.push_back(prefixes.KeyAt(i));
    return keys;
  }
};

TEST_F(NamingTest, TheTableAndTheLookupsDerivedFromIt) {
  const NamingStandard& n = Naming(s);
  ASSERT_EQ(n.typePrefixes.size(), 6u);
  EXPECT_EQ(n.typePrefixes[0], (TypePrefixRow{L"String", L"str", L"s", L"", L"", L""}));
  EXPECT_EQ(n.typePrefixes[5], (TypePrefixRow{L"Variant", L"var", L"vnt", L"vx", L"vy", L"vz"}));  // five at most
  EXPECT_EQ(n.keywords.size(), 77u);
  EXPECT_EQ(DefaultTypePrefix(s, L"string"), L"str");
  EXPECT_EQ(DefaultTypePrefix(s, L"Currency"), L"");
  std::vector<std::wstring> variables = Keys(n.prefixesVariable);
  EXPECT_EQ(std::vector<std::wstring>(variables.begin(), variables.begin() + 5),
            (std::vector<std::wstring>{L"str", L"mstr", L"gstr", L"rstr", L"vstr"}));
  // Constants only for basic types.
  EXPECT_EQ(Keys(n.prefixesConstant), (std::vector<std::wstring>{L"cstr", L"mcstr", L"gcstr", L"cs", L"mcs", L"gcs",
                                                                 L"clng", L"mclng", L"gclng", L"cf", L"mcf", L"gcf",
                                                                 L"cbln", L"mcbln", L"gcbln"}));
  // The first row to claim a prefix keeps it.
  EXPECT_EQ(n.prefixesVariable.Item(L"ws").type, L"Worksheet");
  EXPECT_EQ(n.prefixesVariable.Item(L"f").type, L"Boolean");

  s.settings[kConstTagBeforeTypeTag] = false;
  PrefixesCollectionsCreate(s);
  EXPECT_TRUE(n.prefixesConstant.Exists(L"strc"));
  EXPECT_TRUE(n.prefixesConstant.Exists(L"mstrc"));
  EXPECT_FALSE(n.prefixesConstant.Exists(L"cstr"));
  s.settings[kConstTag] = L"";
  PrefixesCollectionsCreate(s);
  EXPECT_EQ(n.prefixesConstant.Count(), 0);

  // A standards file that cannot be found leaves no prefixes at all.
  s.settings[kPrefixStandardsFile] = L"D:\\nowhere\\qlttp.ini";
  TypePrefixFromIniFile(s);
  EXPECT_TRUE(n.typePrefixes.empty());
  EXPECT_EQ(n.prefixesVariable.Count(), 0);
  EXPECT_EQ(Reported(), "");
}

TEST_F(NamingTest, PrefixesCheckTakesNamesApart) {
  Parts none = Check(L"Name");
  EXPECT_EQ(none.result, L"0; ; ; ");
  EXPECT_EQ(none.typeName, L"?");  // left as they were
  EXPECT_EQ(none.scope, -1);
  EXPECT_EQ(Check(L"mstrName").result, L"Name; String; mstr; 2");
  EXPECT_EQ(Check(L"strName").result, L"Name; String; str; 3");
  EXPECT_EQ(Check(L"strname").result, L"name; String; str; 3");
  EXPECT_EQ(Check(L"vsText").result, L"Text; String; vs; 5");
  EXPECT_EQ(Check(L"wsSheet").result, L"Sheet; Worksheet; ws; 3");
  EXPECT_EQ(Check(L"mcstrName").result, L"0; ; ; ");
  Parts constant = Check(L"mcstrName", true);
  EXPECT_EQ(constant.result, L"Name; String; mcstr; 2");
  EXPECT_EQ(constant.rest, L"Name");
  EXPECT_EQ(constant.scope, kScopeModule);
  EXPECT_EQ(constant.scopePrefix, L"mcstr");
  EXPECT_EQ(Check(L"lng1").result, L"1; Long; lng; 3");  // a digit ends the lower-case start
}

TEST_F(NamingTest, WordHasTypePrefix) {
  std::wstring type, prefix;
  EXPECT_TRUE(WordHasTypePrefix(s, L"strName", type, prefix, false));
  EXPECT_EQ(type + L"/" + prefix, L"String/str");
  type = L"string";
  EXPECT_TRUE(WordHasTypePrefix(s, L"sName", type, prefix, false));
  EXPECT_EQ(prefix, L"s");
  EXPECT_FALSE(WordHasTypePrefix(s, L"xName", type, prefix, false));
  EXPECT_EQ(prefix, L"str");  // the type's first prefix
  EXPECT_FALSE(WordHasTypePrefix(s, L"StrName", type, prefix, false));  // case counts
  type.clear();
  EXPECT_TRUE(WordHasTypePrefix(s, L"wspMain", type, prefix, false));  // the longest wins
  EXPECT_EQ(type + L"/" + prefix, L"Workspace/wsp");
  type.clear();
  EXPECT_TRUE(WordHasTypePrefix(s, L"wsMain", type, prefix, false));  // the earlier row on a tie
  EXPECT_EQ(type, L"Worksheet");
  type.clear();
  EXPECT_FALSE(WordHasTypePrefix(s, L"wsMain", type, prefix, true));
  EXPECT_TRUE(WordHasTypePrefix(s, L"fDone", type, prefix, true));
  EXPECT_EQ(type, L"Boolean");
}

TEST_F(NamingTest, NameWithPrefixProposesNames) {
  EXPECT_EQ(Propose(L"name", L"String", kScopeModule), L"name");  // mode 2: no capital, no prefix
  EXPECT_EQ(Propose(L"Name", L"String", kScopeModule), L"mstrName");
  EXPECT_EQ(Propose(L"sName", L"String", kScopeGlobal), L"gsName");
  EXPECT_EQ(Propose(L"strName", L"", kScopeNone), L"strName");
  EXPECT_EQ(Propose(L"mstrName", L"", kScopeLocal), L"strName");  // the known scope stands
  EXPECT_EQ(Propose(L"strCount", L"Long", kScopeModule), L"mlngCount");  // and a given type
  EXPECT_EQ(Propose(L"Count", L"Long", kScopeByVal), L"vlngCount");
  EXPECT_EQ(Propose(L"", L"String", kScopeGlobal), L"gstr");
  EXPECT_EQ(Propose(L"", L"", kScopeGlobal), L"");
  EXPECT_EQ(Propose(L"Max", L"Long", kScopeModule, true), L"mclngMax");
  s.settings[kSetPickedUpNameUcase] = true;
  s.settings[kConstTagBeforeTypeTag] = false;
  EXPECT_EQ(Propose(L"Max", L"Long", kScopeLocal, true), L"lngcMAX");
  s.settings[kAutoPrefixVariableName] = L"1";
  EXPECT_EQ(Propose(L"name", L"String", kScopeLocal), L"strname");
  s.settings[kAutoPrefixVariableName] = L"0";
  EXPECT_EQ(Propose(L"Name", L"String", kScopeModule), L"Name");

  // With a combo the name stays and a type read from the name is chosen in it.
  struct FrmType : ui::Form {
    explicit FrmType(ui::UiContext& c) : Form(c, L"frmType") {
      for (const wchar_t* t : {L"String", L"Long", L"Variant"}) cboType.AddItem(t);
    }
    ui::ComboBox& cboType = Add<ui::ComboBox>(L"cboType");
  } form(ui);
  s.settings[kAutoPrefixVariableName] = 2;
  std::wstring typeName, scopePrefix;
  long scope = kScopeNone;
  EXPECT_EQ(NameWithPrefix(s, L"mlngCount", typeName, &form.cboType, scope, false, scopePrefix), L"mlngCount");
  EXPECT_EQ(form.cboType.Text(), L"Long");
  EXPECT_EQ(scope, kScopeModule);
}

TEST_F(NamingTest, NameChecksRaiseTheirErrors) {
  auto number = [](auto check) -> long {
    try {
      check();
    } catch (const vba::Error& e) {
      return e.Number();
    }
    return 0;
  };
  EXPECT_EQ(number([] { NameCharactersCheck(L"1abc"); }), kErrNameInvalid);
  EXPECT_EQ(number([] { NameCharactersCheck(L"a b"); }), kErrNameInvalid);
  EXPECT_EQ(number([] { NameCharactersCheck(L""); }), kErrNameMissing);
  EXPECT_EQ(number([] { NameCharactersCheck(L"_a"); }), kErrNameInvalid);
  EXPECT_EQ(number([] { NameCharactersCheck(L"\u00c9t\u00e9_2"); }), 0);
  EXPECT_EQ(number([] { NameCharactersCheck(std::wstring(255, L'a')); }), 0);
  EXPECT_EQ(number([] { NameCharactersCheck(std::wstring(256, L'a')); }), kErrNameInvalid);
  EXPECT_EQ(number([&] { NameKeywordCheck(s, L"wEnD"); }), kErrNameKeyword);
  EXPECT_EQ(kErrNameInvalid, -2147204204L);

  // Components and the project compare case counting; the models do not.
  project->AddComponent(L"Module1", host::kStdModule, {});
  vba::Collection<int> models;
  models.Add(1, L"Module1");
  EXPECT_EQ(number([&] { NameUsedCheck(s, L"module1", true, true, {}); }), 0);
  EXPECT_EQ(number([&] { NameUsedCheck(s, L"Module1", false, true, {}); }), kErrNameUsed);
  EXPECT_EQ(number([&] { NameUsedCheck(s, L"VBAProject", true, false, {}); }), kErrNameUsed);
  EXPECT_EQ(number([&] { NameUsedCheck(s, L"module1", false, false, {LookupIn(models)}); }), kErrNameUsed);
  NameLookup failing = [](std::wstring_view) -> bool { vba::Raise(91); };
  EXPECT_EQ(number([&] { NameUsedCheck(s, L"x", false, false, {failing}); }), 0);
}

TEST_F(NamingTest, CheckNewNameIsOKWarnsAndChains) {
  vba::Collection<int> used;
  used.Add(1, L"date");
  // "Date" is a keyword; Yes goes on to the usage check, which warns again.
  uiHost.AnswerMsgBox(ui::vbYes);
  uiHost.AnswerMsgBox(ui::vbYes);
  EXPECT_EQ(CheckNewNameIsOK(s, L"Date", false, false, {LookupIn(used)}), ui::vbYes);
  ASSERT_EQ(uiHost.Log().size(), 2u);
  EXPECT_EQ(uiHost.Log()[0],
            L"MsgBox(Name coincides with VB keyword. Using it again will give a compile error.\r\n"
            L"To use this name choose Yes, to change name select No., 51, Quillet) = Yes");
  EXPECT_THAT(vba::ToUtf8(uiHost.Log()[1]), HasSubstr("MsgBox(Name is already used. Using it again"));

  uiHost.ClearLog();
  uiHost.AnswerMsgBox(ui::vbNo);
  EXPECT_EQ(CheckNewNameIsOK(s, L"1st", false, false, {}), ui::vbNo);
  uiHost.AnswerMsgBox(ui::vbCancel);
  EXPECT_EQ(CheckNewNameIsOK(s, L"Date", false, false, {}), ui::vbCancel);
  EXPECT_EQ(uiHost.Log().size(), 2u);

  uiHost.ClearLog();
  uiHost.AnswerMsgBox(ui::vbOK);
  EXPECT_EQ(CheckNewNameIsOK(s, L"", false, false, {}), kErrNameMissing);
  EXPECT_EQ(uiHost.Log(), std::vector<std::wstring>{L"MsgBox(Name is missing., 48, Quillet) = OK"});
  EXPECT_EQ(CheckNewNameIsOK(s, L"Fresh", true, true, {LookupIn(used)}), 0);
  EXPECT_EQ(uiHost.Log().size(), 1u);
}

TEST_F(NamingTest, ValidateVarNameNumbersItsWayOut) {
  vba::Collection<int> used;
  used.Add(1, L"Count");
  used.Add(2, L"count1");
  vba::Collection<int> library;
  library.Add(1, L"VBA.Left");
  std::wstring name = L"Count";
  ValidateVarName(s, name, true, {LookupIn(used)}, {LookupIn(library)});
  EXPECT_EQ(name, L"Count2");
  name = L"Left";
  ValidateVarName(s, name, true, {LookupIn(used)}, {LookupIn(library)});
  EXPECT_EQ(name, L"Left1");
  name = L"Left";
  ValidateVarName(s, name, false, {}, {LookupIn(library)});
  EXPECT_EQ(name, L"Left");
  name = L"Date";
  ValidateVarName(s, name, false, {}, {});
  EXPECT_EQ(name, L"Date1");
  EXPECT_TRUE(uiHost.Log().empty());
}

TEST(KindNameGet, TheNameBehindADeclarationKeyword) {
  EXPECT_EQ(KindNameGet(L"dim", L"    Dim strName As String"), L"strName");
  EXPECT_EQ(KindNameGet(L"Sub", L"Public Sub Main_1(x)"), L"Main_1");
  EXPECT_EQ(KindNameGet(L"Const", L"Private Const cstrModule = \"x\""), L"cstrModule");
  EXPECT_EQ(KindNameGet(L"Enum", L"Enum"), L"");
  EXPECT_EQ(KindNameGet(L"Loop", L"Loop While x"), L"");
  EXPECT_EQ(KindNameGet(L"Type", L"Dim x"), L"");
}

}  // namespace
}  // namespace quillet::settings::testing
