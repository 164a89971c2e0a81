#include "io/module_file.h"

#include <gtest/gtest.h>

#include "support.h"

namespace quillet::io {
namespace {

using testing::Caught;
using testing::Text;
using namespace std::string_literals;

const std::string kClass =
    "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n"
    "Attribute VB_Name = \"colItems\"\r\nAttribute VB_GlobalNameSpace = False\r\n"
    "Attribute VB_Creatable = False\r\nAttribute VB_PredeclaredId = False\r\nAttribute VB_Exposed = False\r\n"
    "Option Explicit\r\n\r\n"
    "Public WithEvents App As Application\r\nAttribute App.VB_VarHelpID = -1\r\n"
    "Private mCol As Collection\r\n\r\n"
    "Public Property Get Item(Index As Variant) As Variant\r\nAttribute Item.VB_UserMemId = 0\r\n"
    "    Item = mCol(Index)\r\nEnd Property\r\n\r\n"
    "Public Function NewEnum( _\r\n    ) As IUnknown\r\n"
    "Attribute NewEnum.VB_UserMemId = -4\r\nAttribute NewEnum.VB_MemberFlags = \"40\"\r\n"
    "    Set NewEnum = mCol.[_NewEnum]\r\nEnd Function\r\n";

const std::string kForm =
    "VERSION 5.00\nBegin {C62A69F0-16DC-11CE-9E98-00AA00608C0F} UserForm1\n"
    "   Caption         =   \"End\"\n   ClientHeight    =   3015\n"
    "   OleObjectBlob   =   \"UserForm1.frx\":0000\n"
    "   Begin MSForms.CommandButton cmdOk\n      Caption = \"OK\"\n   End\nEnd\n"
    "Attribute VB_Name = \"UserForm1\"\nAttribute VB_GlobalNameSpace = False\nAttribute VB_Creatable = False\n"
    "Attribute VB_PredeclaredId = True\nAttribute VB_Exposed = False\n"
    "Private Sub cmdOk_Click()\n    Unload Me\nEnd Sub\n";

std::string Replace(std::string s, const std::string& from, const std::string& to, bool all = false) {
  for (std::size_t at = s.find(from); at != std::string::npos; at = all ? s.find(from, at + to.size()) : s.npos)
    s.replace(at, from.size(), to);
  return s;
}

TEST(ModuleFile, RoundTripsByteForByte) {
  const std::string bas = "Attribute VB_Name = \"Module1\"\r\nOption Explicit\r\n\r\nSub Main()\r\n    x = 1\r\nEnd Sub\r\n";
  struct Case {
    const char* label;
    std::string bytes;
    bool uniform;  // one kind of line end, so that rebuilding from the parts gives the same bytes
  } cases[] = {
      {"CR LF", bas, true},
      {"LF", Replace(bas, "\r\n", "\n", true), true},
      {"no final line end", bas.substr(0, bas.size() - 2), true},
      {"header only", "Attribute VB_Name = \"Empty\"", true},
      {"Windows-1252", "Attribute VB_Name = \"Module1\"\r\n' caf\xE9 co\xFBte \x80 5\r\n", true},
      {"UTF-8 with BOM", "\xEF\xBB\xBF" "Attribute VB_Name = \"Module1\"\r\n' \xD0\x96\r\n", true},
      {"class", kClass, true},
      {"form", kForm, true},
      {"mixed line ends", "Attribute VB_Name = \"M\"\r\nSub A()\nEnd Sub\r\n", false},
      {"long line", "Attribute VB_Name = \"M\"\r\n' " + std::string(100000, 'a') + "\r\n", true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    ModuleFile m = ParseModuleFile(c.bytes, L"C:\\Work\\x.bas");
    EXPECT_EQ(SerializeModuleFile(m), c.bytes);
    if (!c.uniform) continue;
    // Rebuilt from header, code and attributes through their anchors alone.
    m.original.clear();
    EXPECT_EQ(SerializeModuleFile(m), c.bytes);
  }
}

TEST(ModuleFile, SplitsHeaderCodeAndMemberAttributes) {
  ModuleFile c = ParseModuleFile(kClass, L"colItems.cls");
  EXPECT_EQ(c.name, L"colItems");
  EXPECT_EQ(c.type, 2);
  EXPECT_EQ(c.header.size(), 9u);
  ASSERT_FALSE(c.code.empty());
  EXPECT_EQ(c.code.front(), L"Option Explicit");
  EXPECT_EQ(c.code.back(), L"End Function");
  for (const auto& line : c.code) EXPECT_EQ(line.find(L"Attribute"), std::wstring::npos) << vba::ToUtf8(line);
  ASSERT_EQ(c.memberAttributes.size(), 3u);
  EXPECT_EQ(c.memberAttributes[0].after, L"Public WithEvents App As Application");
  EXPECT_EQ(c.memberAttributes[1].procedure, L"Item");
  EXPECT_EQ(c.memberAttributes[1].kind, 3);
  EXPECT_EQ(c.memberAttributes[2].procedure, L"NewEnum");
  EXPECT_EQ(c.memberAttributes[2].lines.size(), 2u);
  EXPECT_EQ(c.lineEnd, LineEnd::CrLf);

  ModuleFile doc = ParseModuleFile(
      Replace(kClass, "Attribute VB_GlobalNameSpace", "Attribute VB_Base = \"0{00020820-0000-0000-C000-000000000046}\"\r\n"
                                                       "Attribute VB_GlobalNameSpace"),
      L"Sheet1.cls");
  EXPECT_EQ(doc.type, 100);

  ModuleFile f = ParseModuleFile(kForm, L"UserForm1.frm");
  EXPECT_EQ(f.type, 3);
  EXPECT_EQ(f.name, L"UserForm1");
  EXPECT_EQ(f.code.front(), L"Private Sub cmdOk_Click()");
  EXPECT_EQ(f.lineEnd, LineEnd::Lf);
  EXPECT_EQ(DesignerFileName(f, L"Other.frm"), L"UserForm1.frx");

  ModuleFile w = ParseModuleFile("Attribute VB_Name = \"M\"\r\n' caf\xE9\r\n", L"M.bas");
  EXPECT_EQ(w.code.front(), L"' café");
  EXPECT_EQ(w.encoding, TextEncoding::Windows1252);
  ModuleFile u = ParseModuleFile("\xEF\xBB\xBF" "Attribute VB_Name = \"M\"\n' \xD0\x96", L"M.bas");
  EXPECT_EQ(u.code.front(), L"' Ж");
  EXPECT_EQ(u.encoding, TextEncoding::Utf8Bom);
  EXPECT_FALSE(u.finalLineEnd);
}

TEST(ModuleFile, ChangedCodeGetsItsMemberAttributesBack) {
  ModuleFile m = ParseModuleFile(kClass, L"colItems.cls");
  m.code.insert(m.code.begin(), L"' first");
  for (auto& line : m.code)
    if (line == L"Public WithEvents App As Application") line = L"Private WithEvents App As Excel.Application";
  std::string expected = Replace(kClass, "Option Explicit", "' first\r\nOption Explicit");
  expected = Replace(expected, "Public WithEvents App As Application", "Private WithEvents App As Excel.Application");
  EXPECT_EQ(SerializeModuleFile(m), expected);

  // Procedures moved around take their attributes along.
  ModuleFile moved = ParseModuleFile(kClass, L"colItems.cls");
  std::vector<std::wstring> newEnum(moved.code.end() - 5, moved.code.end());
  moved.code.erase(moved.code.end() - 5, moved.code.end());
  moved.code.insert(moved.code.begin() + 4, newEnum.begin(), newEnum.end());
  std::string text = SerializeModuleFile(moved);
  EXPECT_NE(text.find("Private mCol As Collection\r\n\r\nPublic Function NewEnum( _\r\n    ) As IUnknown\r\n"
                      "Attribute NewEnum.VB_UserMemId = -4\r\nAttribute NewEnum.VB_MemberFlags = \"40\"\r\n"),
            std::string::npos)
      << text;

  // An attribute whose procedure is gone is kept with the module's attributes.
  ModuleFile renamed = ParseModuleFile(kClass, L"colItems.cls");
  for (auto& line : renamed.code)
    if (line.starts_with(L"Public Property Get Item")) line = L"Public Property Get Entry(Index As Variant) As Variant";
  ModuleFile again = ParseModuleFile(SerializeModuleFile(renamed), L"colItems.cls");
  EXPECT_EQ(again.header.back(), L"Attribute Item.VB_UserMemId = 0");
  EXPECT_EQ(again.code, renamed.code);
  EXPECT_EQ(again.memberAttributes.size(), 2u);
}

TEST(ModuleFile, KeepsEncodingNameAndLoadability) {
  const std::string bas = "Attribute VB_Name = \"Module1\"\r\n' x\r\n";
  ModuleFile m = ParseModuleFile(bas, L"Module1.bas");
  m.code[0] = L"' €é";
  EXPECT_EQ(SerializeModuleFile(m), "Attribute VB_Name = \"Module1\"\r\n' \x80\xE9\r\n");
  m.code[0] = L"' Жé";
  std::string utf8 = SerializeModuleFile(m);
  EXPECT_EQ(utf8, "\xEF\xBB\xBF" "Attribute VB_Name = \"Module1\"\r\n' \xD0\x96\xC3\xA9\r\n");

  m.name = L"Renamed";
  m.code = {L"a\rb", L"c\r\nd"};  // line breaks inside a line become lines
  ModuleFile back = ParseModuleFile(SerializeModuleFile(m), L"Renamed.bas");
  EXPECT_EQ(back.name, L"Renamed");
  EXPECT_EQ(back.code, (std::vector<std::wstring>{L"a", L"b", L"c", L"d"}));

  for (int type : {1, 2, 3, 100}) {
    SCOPED_TRACE(type);
    ModuleFile n = NewModuleFile(L"Thing", type);
    n.code = {L"Option Explicit"};
    ModuleFile parsed = ParseModuleFile(SerializeModuleFile(n), L"Thing");
    EXPECT_EQ(parsed.name, L"Thing");
    EXPECT_EQ(parsed.type, type);
    EXPECT_EQ(parsed.code, n.code);
  }
  EXPECT_EQ(ModuleExtension(1), L".bas");
  EXPECT_EQ(ModuleExtension(100), L".cls");
  EXPECT_EQ(ModuleExtension(3), L".frm");
  EXPECT_EQ(DesignerFileName(NewModuleFile(L"Thing", 3), L"Thing.frm"), L"Thing.frx");
}

TEST(ModuleFile, RefusesMalformedFilesSayingWhereAndWhy) {
  struct Case {
    const char* label;
    std::string bytes;
    std::vector<std::string> says;
  } cases[] = {
      {"NUL byte", "Attribute VB_Name = \"M\"\r\nSub A()\r\nx = 1\0\r\n"s,
       {"line 3", "binary", "0x00"}},
      {"control byte", "Attribute VB_Name = \"M\"\r\n\x01\x02\r\n", {"line 2", "binary", "0x01"}},
      {"no name", "Option Explicit\r\nSub A()\r\nEnd Sub\r\n", {"no \"Attribute VB_Name\""}},
      {"empty file", "", {"no \"Attribute VB_Name\""}},
      {"name after code", "Option Explicit\r\nAttribute VB_Name = \"M\"\r\n", {"line 2", "after the code"}},
      {"lone CR", "Attribute VB_Name = \"M\"\r\nSub A()\rEnd Sub\r\n", {"line 2", "carriage return without a line feed"}},
      {"open BEGIN", "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nAttribute VB_Name = \"C\"\r\n",
       {"line 2", "no matching END"}},
      {"UTF-16", "\xFF\xFE" "A\0"s, {"UTF-16"}},
      {"bad UTF-8", "\xEF\xBB\xBF" "Attribute VB_Name = \"M\"\r\n' \xC3\r\n", {"line 2", "not valid UTF-8"}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.label);
    auto e = Caught([&] { ParseModuleFile(c.bytes, L"C:\\Work\\Bad.bas"); });
    EXPECT_EQ(e.Number(), kErrInvalidFileFormat);
    EXPECT_NE(Text(e).find("C:\\Work\\Bad.bas"), std::string::npos) << Text(e);
    for (const std::string& s : c.says) EXPECT_NE(Text(e).find(s), std::string::npos) << Text(e);
  }
}

}  // namespace
}  // namespace quillet::io
