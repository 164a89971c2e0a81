#pragma once
// An in-memory editor with one project, for tests.
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"

namespace quillet::test {

struct EditorFixture {
  EditorFixture() : platform(nullptr), vbe(platform) { project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm"); }

  std::shared_ptr<host::MemoryComponent> Module(const std::wstring& name, std::vector<std::wstring> lines,
                                                int type = host::kStdModule) {
    auto c = project->AddComponent(name, type, std::move(lines));
    vbe.ActivateComponent(c);
    return c;
  }
  host::MemoryCodePane& Pane() { return static_cast<host::MemoryCodePane&>(*vbe.ActiveCodePane()); }
  void Caret(long line, long column) { Pane().SetSelection(line, column, line, column); }
  std::vector<long> Selection() {
    long a, b, c, d;
    Pane().GetSelection(a, b, c, d);
    return {a, b, c, d};
  }

  host::MemoryPlatform platform;
  host::MemoryVBE vbe;
  std::shared_ptr<host::MemoryProject> project;
};

}  // namespace quillet::test
