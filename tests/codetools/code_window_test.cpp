#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "../support/fixtures.h"
#include "codetools/code_window.h"
#include "ui/com_dlg.h"
#include "io/project_folder.h"

using namespace quillet;
using PaneSelection = host::Selection;

namespace {

using Lines = std::vector<std::wstring>;

TEST(CommentLines, FrameLeavesOutALastLineSelectedOnlyUpToColumnOne) {
  // From line 3 to the start of line 6: lines 3 to 5, and the selection stays as it was.
  auto e = codetools::CommentedLines({L"a", L"  b", L""}, {3, 2, 6, 1});
  EXPECT_EQ(e.lines, (Lines{L"'a", L"'  b", L"'"}));
  EXPECT_EQ(e.selection, (PaneSelection{3, 2, 6, 1}));
  // Inside a line the end column moves with the added apostrophe; a bare caret stays.
  EXPECT_EQ(codetools::CommentedLines({L"x = 1"}, {4, 2, 4, 5}).selection, (PaneSelection{4, 2, 4, 6}));
  EXPECT_EQ(codetools::CommentedLines({L"x = 1"}, {4, 3, 4, 3}).selection, (PaneSelection{4, 3, 4, 3}));
  EXPECT_EQ(codetools::CommentFrameOf({2, 1, 3, 1}).last, 2);
  EXPECT_TRUE(codetools::CommentFrameOf({2, 1, 3, 1}).noSelection);
  EXPECT_FALSE(codetools::CommentFrameOf({2, 1, 2, 4}).noSelection);
}

TEST(CommentLines, RemovalTakesOneApostropheAndKeepsTheIndent) {
  auto e = codetools::UncommentedLines({L"    ' x", L"''y", L"z", L"\t'tab"}, {1, 1, 4, 6});
  EXPECT_EQ(e.lines, (Lines{L"     x", L"'y", L"z", L"\t'tab"}));
  EXPECT_TRUE(e.changed);
  EXPECT_EQ(e.selection, (PaneSelection{1, 1, 4, 6}));  // the last line did not change
  EXPECT_EQ(codetools::UncommentedLines({L"'x"}, {1, 1, 1, 3}).selection, (PaneSelection{1, 1, 1, 2}));
  EXPECT_FALSE(codetools::UncommentedLines({L"x"}, {1, 1, 1, 2}).changed);
}

struct CodeWindow : ::testing::Test, test::SessionFixture {
  std::string Read(const std::wstring& path) { return platform.Files().ReadFile(path); }
};

TEST_F(CodeWindow, CommentCommandsEditThePaneAndWorkBelowTheLastLine) {
  auto m = Module(L"Module1", {L"Sub A()", L"    x = 1", L"End Sub"});
  Select(2, 5, 2, 5);
  codetools::CommentLinesAdd(session);
  EXPECT_EQ(Text(m), L"Sub A()\r\n'    x = 1\r\nEnd Sub");
  EXPECT_EQ(Selection(), (std::vector<long>{2, 5, 2, 5}));
  codetools::CommentLinesRemove(session);
  EXPECT_EQ(Text(m), L"Sub A()\r\n    x = 1\r\nEnd Sub");
  Select(4, 1, 4, 1);
  codetools::CommentLinesAdd(session);
  EXPECT_EQ(Text(m), L"Sub A()\r\n    x = 1\r\nEnd Sub\r\n'");
  EXPECT_EQ(vbe.ImmediateText(), L"");
}

TEST_F(CodeWindow, ExportAsksWhereWithTheComponentsFilterAndReplacesTheFile) {
  auto c = Module(L"clsThing", {L"Private mName As String"}, host::kClassModule);
  vbe.SelectComponent(c);
  platform.Files().WriteFile(L"C:\\Work\\clsThing.cls", "old");
  uiHost.AnswerFile(L"C:\\Work\\clsThing.cls");
  EXPECT_TRUE(codetools::ExportFile(session));
  const ui::FileDialogRequest& r = uiHost.FileRequests().back();
  EXPECT_EQ(r.title, L"Export File");
  ASSERT_EQ(r.filters.size(), 2u);
  EXPECT_EQ(r.filters[0].description, L"Class Files (*.cls)");
  EXPECT_EQ(r.filters[1].pattern, L"*.*");
  EXPECT_EQ(r.fileName, L"clsThing");
  EXPECT_EQ(r.defaultExtension, L"cls");
  std::string bytes = Read(L"C:\\Work\\clsThing.cls");
  EXPECT_EQ(bytes.rfind("VERSION 1.0 CLASS\r\nBEGIN\r\n", 0), 0u);
  EXPECT_NE(bytes.find("Attribute VB_Name = \"clsThing\"\r\n"), std::string::npos);
  EXPECT_TRUE(bytes.ends_with("Private mName As String\r\n"));

  uiHost.AnswerFile(std::nullopt);
  EXPECT_FALSE(codetools::ExportFile(session));
  vbe.SelectComponent(nullptr);
  EXPECT_FALSE(codetools::ExportFile(session));  // nothing selected: no dialog
}

TEST_F(CodeWindow, ImportRefusesWhatIsNoModuleAndLeavesTheProjectAsItWas) {
  Module(L"Module1", {L"Sub A()", L"End Sub"});
  platform.Files().WriteFile(L"C:\\Work\\Notes.bas", "Sub X()\r\nEnd Sub\r\n");
  platform.Files().WriteFile(L"C:\\Work\\Picture.bas", std::string("GIF89a\0\0\x01", 9));
  platform.Files().WriteFile(L"C:\\Work\\Good.bas", "Attribute VB_Name = \"Good\"\r\nSub G()\r\nEnd Sub\r\n");
  uiHost.AnswerFile(L"C:\\Work\\Notes.bas");
  EXPECT_FALSE(codetools::ImportFile(session));
  EXPECT_NE(vbe.ImmediateText().find(L"Attribute VB_Name"), std::wstring::npos);
  EXPECT_NE(vbe.ImmediateText().find(L"basCommands.ImportFile"), std::wstring::npos);
  uiHost.AnswerFile(L"C:\\Work\\Picture.bas");
  EXPECT_FALSE(codetools::ImportFile(session));
  EXPECT_EQ(project->Count(), 1);

  uiHost.AnswerFile(L"C:\\Work\\Good.bas");
  EXPECT_TRUE(codetools::ImportFile(session));
  const ui::FileDialogRequest& r = uiHost.FileRequests().back();
  EXPECT_EQ(r.title, L"Import File");
  ASSERT_EQ(r.filters.size(), 5u);
  EXPECT_EQ(r.filters[0].description, L"VB Files (*.bas, *.frm, *.cls)");
  EXPECT_EQ(r.filters[0].pattern, L"*.bas;*.frm;*.cls");
  EXPECT_EQ(r.filters[3].description, L"Class Files (*.cls)");
  ASSERT_TRUE(project->Component(L"Good"));
  EXPECT_EQ(Text(project->Component(L"Good")), L"Sub G()\r\nEnd Sub");
}

std::string RealFile(const std::filesystem::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Every module of the sample project, exported and imported again, gives the same bytes;
// a form's designer part travels beside it unchanged.
TEST_F(CodeWindow, EverySampleModuleRoundTripsByteForByte) {
  std::filesystem::path sample = std::filesystem::path(QUILLET_SOURCE_DIR) / "sample" / "Invoicing";
  std::filesystem::copy(sample, temp.root / "c" / "Work" / "Invoicing");
  std::string frx("\0\x01\x02\xff binary designer part", 24);
  platform.Files().WriteFile(L"C:\\Work\\Invoicing\\frmInvoice.frx", frx);
  auto source = vbe.AddProject(io::LoadProjectFolder(platform.Files(), L"C:\\Work\\Invoicing"));
  auto target = vbe.AddProject(L"Target");
  platform.Files().CreateFolder(L"C:\\Out");
  platform.Files().CreateFolder(L"C:\\Again");
  int modules = 0;
  for (const auto& c : source->Components()) {
    std::wstring file = c->Name() + io::ModuleExtension(c->Type());
    std::string original = RealFile(sample / std::filesystem::path(file));
    vbe.SelectComponent(c);
    uiHost.AnswerFile(L"C:\\Out\\" + file);
    ASSERT_TRUE(codetools::ExportFile(session));
    EXPECT_EQ(Read(L"C:\\Out\\" + file), original) << "module " << modules;

    vbe.SetActiveVBProject(target);
    uiHost.AnswerFile(L"C:\\Out\\" + file);
    ASSERT_TRUE(codetools::ImportFile(session));
    auto back = target->Component(c->Name());
    ASSERT_TRUE(back);
    EXPECT_EQ(back->Type(), c->Type());
    vbe.SelectComponent(back);
    uiHost.AnswerFile(L"C:\\Again\\" + file);
    ASSERT_TRUE(codetools::ExportFile(session));
    EXPECT_EQ(Read(L"C:\\Again\\" + file), original);
    ++modules;
  }
  EXPECT_EQ(modules, 14);
  EXPECT_EQ(Read(L"C:\\Out\\frmInvoice.frx"), frx);
  EXPECT_EQ(Read(L"C:\\Again\\frmInvoice.frx"), frx);
  EXPECT_EQ(vbe.ImmediateText(), L"");
}

TEST_F(CodeWindow, ExportWritesTheEditorsFormatWhateverTheModuleWasLoadedFrom) {
  platform.Files().WriteFile(L"C:\\Work\\Lf.bas", "\xEF\xBB\xBF" "Attribute VB_Name = \"Lf\"\nSub \xC3\xA9t\xC3\xA9()\nEnd Sub");
  uiHost.AnswerFile(L"C:\\Work\\Lf.bas");
  Module(L"Module1", {});
  ASSERT_TRUE(codetools::ImportFile(session));
  vbe.SelectComponent(project->Component(L"Lf"));
  uiHost.AnswerFile(L"C:\\Work\\Out");  // typed without an extension
  ASSERT_TRUE(codetools::ExportFile(session));
  EXPECT_EQ(Read(L"C:\\Work\\Out.bas"), "Attribute VB_Name = \"Lf\"\r\nSub \xE9t\xE9()\r\nEnd Sub\r\n");
}

}  // namespace
