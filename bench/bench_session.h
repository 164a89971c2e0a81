#pragma once
// A session on the in-memory editor for the benchmarks, with a scripted UI host and a
// virtual clock: what each benchmark needs before it builds its own project.
//
//   BenchSession b;
//   auto project = b.vbe.AddProject(L"VBAProject", L"C:\\Work\\Big.xlsm");
#include <string>
#include <vector>

#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "kernel/session.h"
#include "support/test_ui_host.h"
#include "ui/ui_context.h"

namespace quillet::bench {

struct BenchSession {
  host::MemoryPlatform platform{nullptr};
  host::MemoryVBE vbe{platform};
  host::Clock clock;
  ui::TestUiHost uiHost;
  ui::UiContext ui{uiHost, clock};
  kernel::Session session{platform, ui};

  BenchSession() { session.vbe = &vbe; }
};

// A standard module of about `count` lines: procedures of twenty statements, each with a
// comment above it and a blank line behind it, under two lines of declarations.
inline std::vector<std::wstring> ModuleOfProcedures(std::size_t count) {
  std::vector<std::wstring> lines = {L"Option Explicit", L"Private mTotal As Long", L""};
  for (int p = 0; lines.size() < count; ++p) {
    lines.push_back(L"' Adds to the total");
    lines.push_back(L"Public Sub Add" + std::to_wstring(p) + L"(ByVal n As Long)");
    for (int i = 0; i < 20; ++i) lines.push_back(L"    mTotal = mTotal + n * " + std::to_wstring(i));
    lines.push_back(L"End Sub");
    lines.push_back(L"");
  }
  return lines;
}

}  // namespace quillet::bench
