#pragma once
// A session on the in-memory editor for the benchmarks, with a scripted UI host and a
// virtual clock: what each benchmark needs before it builds its own project.
//
//   BenchSession b;
//   auto project = b.vbe.AddProject(L"VBAProject", L"C:\\Work\\Big.xlsm");
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

}  // namespace quillet::bench
