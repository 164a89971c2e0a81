// Scanning the procedure at the caret when it is long: 2 000 lines of declarations,
// continued statements, labels and Exit statements.
#include <memory>
#include <string>
#include <vector>

#include "analysis/scan_proc.h"
#include "bench.h"
#include "bench_session.h"
#include "hostmodel/memory_vbe.h"

namespace quillet::bench {
namespace {

constexpr int kProcLines = 2000;

std::vector<std::wstring> LongProcedure() {
  std::vector<std::wstring> lines{L"Option Explicit", L"", L"' A long one",
                                  L"Public Function Long1(ByVal a As Long, _",
                                  L"                      Optional b As String = \"x, y\") As Long"};
  for (int i = 0; i < 20; ++i) lines.push_back(L"    Dim v" + std::to_wstring(i) + L" As Long, w" + std::to_wstring(i));
  lines.push_back(L"    Const LIMIT As Long = 10");
  lines.push_back(L"    On Error GoTo HandleErr");
  int n = 0;
  while (static_cast<int>(lines.size()) < kProcLines - 6) {
    std::wstring k = std::to_wstring(n++);
    switch (n % 5) {
      case 0: lines.push_back(L"Step" + k + L":"); break;
      case 1: lines.push_back(L"    v1 = v1 + a * " + k + L": w1 = \"a: b\" ' note: " + k); break;
      case 2: lines.push_back(L"    If v1 > LIMIT Then Exit Function"); break;
      case 3: lines.push_back(L"    v2 = v2 + _"); lines.push_back(L"        " + k); break;
      default: lines.push_back(L""); break;
    }
  }
  lines.push_back(L"HandleExit:");
  lines.push_back(L"    Exit Function");
  lines.push_back(L"HandleErr:");
  lines.push_back(L"    Resume HandleExit");
  lines.push_back(L"End Function");
  return lines;
}

struct Editor : BenchSession {
  Editor() {
    auto project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    auto component = project->AddComponent(L"Module1", host::kStdModule, LongProcedure());
    vbe.ActivateComponent(component);
    vbe.ActiveCodePane()->SetSelection({100, 1});
  }
};

std::unique_ptr<Editor> editor;
long sink = 0;

Register scanBench({"clsScanProc.init on a procedure of 2 000 lines", "under 1 ms",
                    [] { editor = std::make_unique<Editor>(); },
                    [] {
                      analysis::clsScanProc scan;
                      scan.init(editor->session, true);
                      sink += scan.ProcVars.Count() + scan.ProcLabels.Count() + scan.ProcExitLine;
                    },
                    20});

}  // namespace
}  // namespace quillet::bench
