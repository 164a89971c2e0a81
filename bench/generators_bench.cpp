// A statement command issued in a large module: what the user waits for after a click.
#include <memory>
#include <string>

#include "bench.h"
#include "bench_session.h"
#include "generators/quillet.h"
#include "hostmodel/memory_vbe.h"

namespace quillet::bench {
namespace {

struct Editor : BenchSession {
  std::shared_ptr<host::MemoryComponent> module;
  std::vector<std::wstring> lines;

  Editor() {
    auto project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Big.xlsm");
    lines = ModuleOfProcedures(10000);
    module = project->AddComponent(L"Module1", host::kStdModule, lines);
    vbe.ActivateComponent(module);
  }
  void Reset() {
    module->Module()->SetAllLines(lines);
    platform.DoEvents();
    // In the middle of the module, on a line of a procedure body.
    long line = static_cast<long>(lines.size() / 2);
    while (lines[line - 1].rfind(L"    ", 0) != 0) ++line;
    vbe.ActiveCodePane()->SetSelection({line, 5});
  }
};

std::unique_ptr<Editor> editor;

Register ifThen({"command \"If Then\" in a module of 10 000 lines", "under 1 ms",
                 [] {
                   if (!editor) editor = std::make_unique<Editor>();
                   editor->Reset();
                 },
                 [] {
                   std::wstring argument;
                   generators::QuilletHandle(editor->session, L"If Then", argument);
                 },
                 20});

}  // namespace
}  // namespace quillet::bench
