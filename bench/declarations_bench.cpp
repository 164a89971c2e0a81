// The Variable Builder in a module of 10 000 lines inside a project of 100 000 lines: the
// scope read when it opens, the dialog initialised, OK checking the name and writing the
// declaration into the procedure at the caret.
#include <memory>
#include <string>
#include <vector>

#include "analysis/project_models.h"
#include "bench.h"
#include "bench_session.h"
#include "generators/frm_var.h"
#include "generators/scope.h"
#include "hostmodel/memory_vbe.h"
#include "vba/encoding.h"
#include "vba/strings.h"

namespace quillet::bench {
namespace {

constexpr int kSmallModules = 180;
constexpr int kLargeModuleLines = 10000;

// The lines of a generated module without its name attribute; `tag` makes the
// procedure names of repeated chunks unique.
std::vector<std::wstring> Lines(int n, const std::wstring& tag) {
  std::vector<std::wstring> lines = vba::SplitLines(vba::FromUtf8(ModuleText(n)));
  if (!lines.empty() && lines.front().starts_with(L"Attribute")) lines.erase(lines.begin());
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  for (std::wstring& l : lines) l = vba::Replace(l, L"Proc", L"Proc" + tag);
  return lines;
}

struct Project : BenchSession {
  std::shared_ptr<host::MemoryComponent> large;
  long caretLine = 0;
  Project() {
    auto project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    for (int n = 1; n <= kSmallModules; ++n)
      project->AddComponent(L"Module" + std::to_wstring(n), host::kStdModule, Lines(n, L""));
    std::vector<std::wstring> big = Lines(0, L"A");
    for (int chunk = 1; static_cast<int>(big.size()) < kLargeModuleLines; ++chunk) {
      std::vector<std::wstring> more = Lines(0, L"B" + std::to_wstring(chunk));
      big.insert(big.end(), more.begin() + 3, more.end());  // without Option and the module's field
    }
    big.resize(kLargeModuleLines, L"' end");
    large = project->AddComponent(L"Large", host::kStdModule, big);
    vbe.ActivateComponent(large);
    // The caret in the body of a procedure halfway down.
    for (long n = kLargeModuleLines / 2; n < kLargeModuleLines; ++n)
      if (big[static_cast<std::size_t>(n - 1)].find(L"mCount = mCount") != std::wstring::npos) {
        caretLine = n;
        break;
      }
    vbe.ActiveCodePane()->SetSelection(host::Selection(caretLine, 5));
    generators::initialize(session, L"", L"");  // the first scan of the whole project
  }
};

std::unique_ptr<Project> project;
int written = 0;

Register openAndWrite({"frmVar opened and a declaration written, module of 10 000 lines, project of 100 000",
                       "under 5 ms",
                       [] {
                         if (!project) project = std::make_unique<Project>();
                       },
                       [] {
                         Project& p = *project;
                         generators::initialize(p.session, L"", L"");
                         generators::FrmVar var(p.session);
                         var.Init();
                         var.txtName.SetText(L"bench" + std::to_wstring(++written));
                         var.cboDataType.SetListIndex(var.cboDataType.FindStringExact(L"Long"));
                         var.PressOK(false);
                       },
                       10});

}  // namespace
}  // namespace quillet::bench
