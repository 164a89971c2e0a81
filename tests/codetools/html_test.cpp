#include <gtest/gtest.h>

#include "../support/fixtures.h"
#include "ui/colorize.h"
#include "codetools/vb2html.h"
#include "vba/vba_scan.h"
#include "codetools/view_html.h"
#include "ui/form.h"
#include "ui/rich_text_box.h"

using namespace quillet;
using codetools::VB2HTML;

namespace {

const std::wstring kNavy = L"<font color=#000080>";
const std::wstring kBlack = L"<font color=#000000>";
const std::wstring kGreen = L"<font color=#008000>";
const std::wstring kEnd = L"</font>";

TEST(VbToHtml, ColoursEveryTokenClass) {
  // Keywords in the letter case of their list, blanks as &nbsp;.
  EXPECT_EQ(VB2HTML(L"dim s as string"), kNavy + L"Dim" + kEnd + L"&nbsp;s&nbsp;" + kNavy + L"As" + kEnd + L"&nbsp;" +
                                            kNavy + L"String" + kEnd);
  EXPECT_EQ(VB2HTML(L"#If x"), kNavy + L"#If" + kEnd + L"&nbsp;x");
  // A comment closes with its line break; the CR LF behind it writes nothing more.
  EXPECT_EQ(VB2HTML(L"x = 1 ' note\r\ny"), L"x&nbsp;=&nbsp;1&nbsp;" + kGreen + L"' note</font><br>y");
  // A word directly in front of an apostrophe comes out behind the comment.
  EXPECT_EQ(VB2HTML(L"x' c"), kGreen + L"' c</font><br>x");
  // Strings keep their blanks and doubled quotes; "<" and ">" are escaped first, "&" stays.
  EXPECT_EQ(VB2HTML(L"s = \"a \"\"b\"\" <c> & d\""), L"s&nbsp;=&nbsp;\"a \"\"b\"\" &lt;c&gt; & d\"");
  EXPECT_EQ(VB2HTML(L"If a<>b & c Then"),
            kNavy + L"If" + kEnd + L"&nbsp;a&lt;&gt;b&nbsp;&&nbsp;c&nbsp;" + kNavy + L"Then" + kEnd);
  // Names that contain keywords stay plain; a digit ends a word.
  EXPECT_EQ(VB2HTML(L"EndTime = Str2"), L"EndTime&nbsp;=&nbsp;" + kBlack + L"Str" + kEnd + L"2");
  // Line breaks, and a text whose last line has none keeps its last word.
  EXPECT_EQ(VB2HTML(L"End Sub\r\nx"), kNavy + L"End" + kEnd + L"&nbsp;" + kNavy + L"Sub" + kEnd + L"<br>x");
  // A string that never closes runs to the end of the text.
  EXPECT_EQ(VB2HTML(L"s = \"abc\r\nx"), L"s&nbsp;=&nbsp;\"abc\r\nx");
  EXPECT_EQ(VB2HTML(L""), L"");
}

TEST(VbToHtml, RemMakesTheRestOfTheTextOneComment) {
  EXPECT_EQ(VB2HTML(L"x = 1\r\n  Rem old\r\ny = 2"),
            L"x&nbsp;=&nbsp;1<br>&nbsp;&nbsp;" + kGreen + L" Rem old\r\ny = 2" + kEnd + L"&nbsp;&nbsp;");
  EXPECT_EQ(VB2HTML(L"Rem x"), kGreen + L"Rem x" + kEnd + L"&nbsp;&nbsp;");
  EXPECT_EQ(VB2HTML(L"Remark"), L"Remark");
  // Positions count in the escaped text: the character before "Rem" may be the end of "&lt;".
  EXPECT_EQ(VB2HTML(L"a<b Rem c>d"), L"a&lt;b&nbsp;" + kGreen + L" Rem c&gt;d" + kEnd + L"&nbsp;&nbsp;");
  EXPECT_EQ(VB2HTML(L"<Rem x"), L"&lt;" + kGreen + L";Rem x" + kEnd + L"&nbsp;&nbsp;");
}

TEST(VbToHtml, KeywordListsKeepTheirOrderAndFirstSpelling) {
  EXPECT_TRUE(vba::FunctionWords().starts_with(L"*Abs*Add*AddItem*"));
  EXPECT_TRUE(vba::StatementWords().ends_with(L"*Xor*Nothing*To*"));
  EXPECT_EQ(*vba::LookUpKeyword(L"DOEVENTS").function, L"DoEvents");
  EXPECT_EQ(vba::LookUpKeyword(L"DoEvents").statement, nullptr);
  EXPECT_EQ(*vba::LookUpKeyword(L"rset").statement, L"RSet");
  EXPECT_EQ(vba::LookUpKeyword(L"End If").statement, nullptr);  // a word has no blank
  EXPECT_EQ(vba::LookUpKeyword(L"Dimension").statement, nullptr);
}

TEST(VbToHtml, PageTemplateTokensAreReplacedInOrder) {
  std::wstring page = codetools::HtmlPage(codetools::DefaultHtmlTemplate(), L"x<br>", L"Module1", L"", L"utf-8");
  EXPECT_EQ(page,
            L"<html><head><META HTTP-EQUIV='Content-Type' CONTENT='text/html; charset=utf-8'><style>body "
            L"{font-family:'Courier New';font-size:'10pt';}</style><title>Module1</title></head><body>x<br></body></html>");
  EXPECT_EQ(codetools::HtmlPage(L"[title]|[modulename].[procedurename]|[CODE]", L"c", L"M", L"P", L""), L"P|M.P|[CODE]");
  // The code is put in last, so tokens inside it stay as they are.
  EXPECT_EQ(codetools::HtmlPage(L"[code]", L"[title]", L"M", L"", L""), L"[title]");
}

struct ViewHtml : ::testing::Test, test::SessionFixture {};

TEST_F(ViewHtml, WritesThePageIntoTheTemporaryFolderAndOpensIt) {
  std::vector<std::wstring> opened;
  platform.onEvent = [&](const host::MemoryPlatform::Event& e) {
    if (std::string(e.kind) == "shellOpen") opened.push_back(e.text);
  };
  platform.Files().CreateFolder(L"C:\\Temp");
  auto m = Module(L"Module1", {L"Option Explicit", L"Sub Main()", L"    x = \"é\"", L"End Sub"});
  codetools::Convert2HTML(session, m);
  std::string page = platform.Files().ReadFile(L"C:\\Temp\\vb2html.htm");
  EXPECT_NE(page.find("<title>Module1</title>"), std::string::npos);
  EXPECT_NE(page.find("charset=windows-1252"), std::string::npos);
  EXPECT_NE(page.find("x&nbsp;=&nbsp;\"\xE9\"<br>"), std::string::npos);  // Windows-1252
  EXPECT_EQ(opened, std::vector<std::wstring>{L"C:\\Temp\\vb2html.htm"});

  platform.Files().WriteFile(L"C:\\Program Files\\Quillet\\vb2htmltemplate.htm", "<h1>[title] of [modulename]</h1>[code]");
  codetools::Convert2HTML(session, m, L"Main");
  EXPECT_EQ(platform.Files().ReadFile(L"C:\\Temp\\vb2html.htm"),
            "<h1>Main of Module1</h1>" + std::string("<font color=#000080>Sub</font>&nbsp;Main()<br>&nbsp;&nbsp;&nbsp;&nbsp;"
                                                     "x&nbsp;=&nbsp;\"\xE9\"<br><font color=#000080>End</font>&nbsp;"
                                                     "<font color=#000080>Sub</font>"));
  codetools::Convert2HTML(session, m, L"(Declaration)");
  EXPECT_EQ(platform.Files().ReadFile(L"C:\\Temp\\vb2html.htm"),
            "<h1>(Declaration) of Module1</h1><font color=#000080>Option</font>&nbsp;<font color=#000080>Explicit</font>");
  EXPECT_EQ(vbe.ImmediateText(), L"");
}

struct FrmPreview : ui::Form {
  explicit FrmPreview(ui::UiContext& c) : ui::Form(c, L"frmPreview") {}
  ui::RichTextBox& rtxtContent = Add<ui::RichTextBox>(L"rtxtContent");
};

TEST_F(ViewHtml, ColorizePaintsTheBoxWithTheSameScan) {
  FrmPreview frm(ui);
  ui::RichTextBox& box = frm.rtxtContent;
  box.SetText(L"Dim s ' {AUTHOR}\r\ns = \"Dim\" & {DATE}<cursor>\r\nRem x\r\nLen");
  box.Select(3, 2);
  ui::Colorize(box);
  auto colorAt = [&](long p) { return box.FormatAt(p).color; };
  EXPECT_EQ(colorAt(0), ui::StatementColor());     // Dim
  EXPECT_EQ(colorAt(6), ui::CommentColor());       // the comment, token and all
  EXPECT_EQ(colorAt(13), ui::CommentColor());
  EXPECT_EQ(colorAt(24), 0);                               // "Dim" in a string
  EXPECT_EQ(colorAt(31), ui::TokenColor());        // {DATE}
  EXPECT_TRUE(box.FormatAt(37).bold);                     // <cursor>
  EXPECT_TRUE(box.FormatAt(43).bold);
  EXPECT_FALSE(box.FormatAt(44).bold);
  EXPECT_EQ(colorAt(47), ui::CommentColor());      // Rem to the line end
  EXPECT_EQ(colorAt(53), ui::FunctionColor());  // the line behind is no comment
  EXPECT_EQ(box.SelStart(), 0);
  EXPECT_EQ(box.SelLength(), 0);
}

}  // namespace
