// The sample project that the demo and the studio open: it must load as a project
// folder and show the editor a module of every kind with balanced code.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>

#include "hostmodel/proc_index.h"
#include "io/filesystem.h"
#include "io/project_folder.h"
#include "shipped_files.h"
#include "vba/encoding.h"
#include "vba/text.h"
#include "vba_check.h"

namespace quillet::datacheck {
namespace {

const fs::path kSample = SourceDir() / "sample" / "Invoicing";

io::ProjectFolder LoadSample() {
  io::MappedFileSystem files(fs::temp_directory_path(), /*zIsRoot=*/true);
  std::optional<std::wstring> folder = files.WindowsPath(fs::canonical(kSample));
  EXPECT_TRUE(folder.has_value());
  return io::LoadProjectFolder(files, folder.value_or(L""));
}

bool IsProcEnd(const std::wstring& line) {
  for (const wchar_t* end : {L"End Sub", L"End Function", L"End Property"})
    if (vba::StartsWithText(line, end)) return true;
  return false;
}

TEST(SampleProject, LoadsWithItsProjectFile) {
  std::vector<std::wstring> problems;
  for (const fs::path& file : FilesUnder(kSample))
    if (file.extension() != ".json" && file.filename() != ".gitattributes") TextLines(file, problems);
  EXPECT_TRUE(problems.empty()) << Listed(problems);

  io::ProjectFolder p = LoadSample();
  EXPECT_EQ(p.name, L"Invoicing");
  EXPECT_EQ(p.fileName, L"C:\\Work\\Invoicing.xlsm");
  EXPECT_TRUE(p.hasProjectFile);
  std::set<std::wstring> references;
  for (const io::ReferenceInfo& r : p.references) references.insert(r.name);
  EXPECT_EQ(references, (std::set<std::wstring>{L"VBA", L"Excel", L"stdole", L"Office", L"Scripting"}));

  // Every module file is listed, in the order of the project file.
  ASSERT_EQ(p.moduleFiles.size(), 14u);
  EXPECT_EQ(p.moduleFiles.front(), L"ThisWorkbook.cls");
  EXPECT_EQ(p.moduleFiles.back(), L"frmInvoice.frm");
  std::map<int, int> kinds;
  for (std::size_t i = 0; i < p.modules.size(); ++i) {
    ++kinds[p.modules[i].type];
    EXPECT_TRUE(vba::StartsWithText(p.moduleFiles[i], p.modules[i].name + L"."))
        << vba::ToUtf8(p.moduleFiles[i]) << " names " << vba::ToUtf8(p.modules[i].name);
  }
  EXPECT_EQ(kinds[100], 5);  // ThisWorkbook and four sheets
  EXPECT_EQ(kinds[1], 5);
  EXPECT_EQ(kinds[2], 3);
  EXPECT_EQ(kinds[3], 1);
  EXPECT_TRUE(p.modules.back().designer.empty()) << "the form loads without a designer part";
}

TEST(SampleProject, ModulesAreBalancedAndTheEditorFindsTheirProcedures) {
  io::ProjectFolder p = LoadSample();
  std::vector<std::wstring> problems;
  std::set<int> propertyKinds;
  std::size_t procedures = 0;
  std::string all;  // the whole code, to see that every kind of statement is shown
  for (const io::ModuleFile& m : p.modules) {
    std::string name = vba::ToUtf8(m.name);
    for (const auto& list : {StructureProblems(m.code), LayoutProblems(m.code), TokenProblems(m.code, {})})
      for (const std::wstring& problem : list) problems.push_back(m.name + L": " + problem);
    EXPECT_TRUE(std::count(m.code.begin(), m.code.end(), L"Option Explicit") == 1) << name;

    // The editor's procedure index finds one procedure for each End statement, with
    // its header on its body line and the End on its last code line.
    host::ProcIndex index;
    index.Build(m.code);
    std::size_t ends = std::count_if(m.code.begin(), m.code.end(), IsProcEnd);
    EXPECT_EQ(index.Procs().size(), ends) << name;
    for (const host::ProcExtent& proc : index.Procs()) {
      const std::wstring& header = m.code[proc.bodyLine - 1];
      EXPECT_NE(header.find(L" " + proc.name + L"("), std::wstring::npos) << name << ": " << vba::ToUtf8(header);
      long last = proc.endLine;
      while (last > proc.bodyLine && !IsProcEnd(m.code[last - 1])) --last;
      EXPECT_GT(last, proc.bodyLine) << name << "." << vba::ToUtf8(proc.name) << " has no End";
      if (proc.kind != host::kProcKind) propertyKinds.insert(proc.kind);
      ++procedures;
    }
    EXPECT_GT(index.DeclarationLines(), 0) << name;
    for (const std::wstring& line : m.code) all += vba::ToUtf8(line) + "\n";
  }
  EXPECT_TRUE(problems.empty()) << Listed(problems);
  EXPECT_GE(procedures, 60u);
  EXPECT_EQ(propertyKinds, (std::set<int>{host::kGetKind, host::kLetKind, host::kSetKind}));
  for (const char* shown : {"Private Sub ", "Public Function ", "Private Function ", "Friend Sub ",
                            "Public Static Function ", "Public Enum ", "Private Enum ", "Public Type ",
                            "WithEvents ", "RaiseEvent ", " _\n", "Select Case ", "For Each ", "Do While ",
                            "With ", "On Error GoTo ", "Optional ByVal "})
    EXPECT_NE(all.find(shown), std::string::npos) << shown;
}

}  // namespace
}  // namespace quillet::datacheck
