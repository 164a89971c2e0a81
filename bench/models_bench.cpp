// The project's models on a project of 200 modules of 500 lines: the whole scan at a
// project change, the refresh before a command when nothing changed and when one module
// did, and the memory the models keep.
#include <malloc.h>

#include <memory>
#include <string>
#include <vector>

#include "analysis/module_scan.h"
#include "analysis/refresh.h"
#include "bench.h"
#include "bench_session.h"
#include "hostmodel/memory_vbe.h"

namespace quillet::bench {
namespace {

constexpr int kModules = 200;
constexpr int kLinesPerModule = 500;

// Public declarations, an enum and a type, then procedures of 20 lines.
std::vector<std::wstring> ModuleLines(int n) {
  const std::wstring k = std::to_wstring(n);
  std::vector<std::wstring> lines{L"Option Explicit", L"Public gCount" + k + L" As Long, gName" + k + L" As String",
                                  L"Public Const LIMIT" + k + L" As Long = 10, NAME" + k + L" = \"a, b\"",
                                  L"Public Enum eKind" + k, L"    Small = 1", L"    Large", L"End Enum",
                                  L"Private mCount As Long", L""};
  int proc = 0;
  while (static_cast<int>(lines.size()) + 22 <= kLinesPerModule) {
    const std::wstring p = std::to_wstring(proc++);
    lines.push_back(L"' Procedure " + p);
    lines.push_back(L"Public Function Proc" + k + L"_" + p + L"(ByVal a As Long, _");
    lines.push_back(L"    Optional ByVal b As Long = 2) As Long");
    for (int i = 0; i < 16; ++i) lines.push_back(L"    mCount = mCount + a * " + std::to_wstring(i) + L" + b");
    lines.push_back(L"    Proc" + k + L"_" + p + L" = mCount");
    lines.push_back(L"End Function");
    lines.push_back(L"");
  }
  while (static_cast<int>(lines.size()) < kLinesPerModule) lines.push_back(L"' end");
  return lines;
}

struct Project : BenchSession {
  std::shared_ptr<host::MemoryProject> project;
  size_t sourceBytes = 0;
  Project() {
    project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    for (int n = 1; n <= kModules; ++n) {
      auto c = project->AddComponent(L"Module" + std::to_wstring(n), host::kStdModule, ModuleLines(n));
      sourceBytes += c->Module()->TextLength();
      if (n == 1) vbe.ActivateComponent(c);
    }
  }
};

std::unique_ptr<Project> big;
std::unique_ptr<analysis::ProjectModels> models;
double scanMs = 0;
long sink = 0;

Project& Big() {
  if (!big) big = std::make_unique<Project>();
  return *big;
}

void Scanned() {
  models = std::make_unique<analysis::ProjectModels>();
  analysis::clsScanProject(Big().session, *models).init();
  analysis::StdModulesGet(Big().session, models->StdModules);
}

std::string Figure(double value, const char* unit) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f %s", value, unit);
  return text;
}

Register scan({"project scan, 200 modules, 100 000 lines", "under 20 ms", [] { Big(); },
               [] {
                 Scanned();
                 sink += models->ProjectProcs.Count();
               },
               5, [](double ms) {
                 scanMs = ms;
                 return std::string();
               }});

// One plain pass over the same text: every character of every line looked at once.
Register plain({"  one plain pass over the same text", "(the scan under 10 times this)", [] { Big(); },
                [] {
                  for (long i = 1; i <= Big().project->VBComponents()->Count(); ++i) {
                    const auto& lines = static_cast<host::MemoryCodeModule&>(
                                            *Big().project->VBComponents()->Item(i)->CodeModule())
                                            .AllLines();
                    for (const std::wstring& line : lines)
                      for (wchar_t c : line) sink += c == L'(';
                  }
                },
                5, [](double ms) { return "scan / pass = " + Figure(scanMs / ms, "times"); }});

Register unchanged({"ProjectRefresh, nothing changed, 200 modules", "under 0.1 ms", [] { Scanned(); },
                    [] { analysis::ProjectRefresh(Big().session, *models, false); }, 20});

Register oneChanged({"ProjectRefresh, one module changed", "under 1 ms + its share of the scan",
                     [] {
                       if (!models) Scanned();
                       auto module = Big().project->VBComponents()->Item(7)->CodeModule();
                       module->ReplaceLine(1, module->Lines(1, 1) == L"Option Explicit" ? L"Option Explicit " : L"Option Explicit");
                     },
                     [] { analysis::ProjectRefresh(Big().session, *models, false); }, 20,
                     [](double ms) { return "share = " + Figure(scanMs / kModules, "ms"); }});

// The heap the models hold once the scan is done, small blocks and the large ones the
// allocator maps apart (the long arrays of the project's collections) alike. A text that
// many items share is one block and so counts once. The source is counted in characters,
// each one byte in an exported module.
size_t HeapInUse() {
  const struct mallinfo2 m = mallinfo2();
  return m.uordblks + m.hblkhd;
}

Register memory({"memory of the models per byte of source", "under 4 bytes", [] { Big(); },
                 [] {
                   models.reset();
                   const size_t before = HeapInUse();
                   Scanned();
                   sink += static_cast<long>(HeapInUse() - before);
                 },
                 1, [](double) {
                   models.reset();
                   const size_t before = HeapInUse();
                   Scanned();
                   const double held = double(HeapInUse() - before);
                   const double source = double(Big().sourceBytes);
                   return Figure(held / source, "bytes per byte of source") + " (" + Figure(held / 1e6, "MB") +
                          " for " + Figure(source / 1e6, "MB") + ")";
                 }});

}  // namespace
}  // namespace quillet::bench
