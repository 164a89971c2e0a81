#pragma once
// A session on the in-memory editor with a scripted UI host, for tests of the add-in's
// own logic.
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "io/filesystem.h"
#include "shell/connect.h"
#include "shell/session.h"
#include "ui/test_ui_host.h"
#include "ui/ui_context.h"

namespace quillet::test {

struct SessionFixture {
  SessionFixture()
      : root(MakeRoot()),
        platform(std::make_unique<io::MappedFileSystem>(root)),
        vbe(platform),
        ui(uiHost, clock),
        session(platform, ui) {
    platform.Files().CreateFolder(L"C:\\Program Files");
    platform.Files().CreateFolder(L"C:\\Program Files\\Quillet");
    project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    project->SetReferences(io::DefaultReferences());
    session.vbe = &vbe;
  }
  ~SessionFixture() {
    std::error_code ec;
    std::filesystem::remove_all(root, ec);
  }

  static std::filesystem::path MakeRoot() {
    static int n = 0;
    auto p = std::filesystem::temp_directory_path() /
             ("quillet-shell-" + std::to_string(::getpid()) + "-" + std::to_string(++n));
    std::filesystem::create_directories(p);
    return p;
  }

  std::shared_ptr<host::MemoryComponent> Module(const std::wstring& name, std::vector<std::wstring> lines) {
    auto c = project->AddComponent(name, host::kStdModule, std::move(lines));
    vbe.ActivateComponent(c);
    return c;
  }
  void Caret(long line, long column) { vbe.ActiveCodePane()->SetSelection(line, column, line, column); }
  void Select(long l1, long c1, long l2, long c2) { vbe.ActiveCodePane()->SetSelection(l1, c1, l2, c2); }
  std::vector<long> Selection() {
    long a, b, c, d;
    vbe.ActiveCodePane()->GetSelection(a, b, c, d);
    return {a, b, c, d};
  }
  std::wstring Text(const std::shared_ptr<host::MemoryComponent>& c) {
    long n = c->Module()->CountOfLines();
    return n ? c->Module()->Lines(1, n) : L"";
  }

  std::filesystem::path root;
  host::MemoryPlatform platform;
  host::MemoryVBE vbe;
  host::Clock clock;
  ui::TestUiHost uiHost;
  ui::UiContext ui;
  shell::Session session;
  std::shared_ptr<host::MemoryProject> project;
};

}  // namespace quillet::test
