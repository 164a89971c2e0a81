#pragma once
// The fixtures the tests share: an in-memory editor whose files live in a temporary folder,
// and a session on it with a scripted UI host.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "io/filesystem.h"
#include "io/project_folder.h"
#include "support/code_markers.h"
#include "kernel/session.h"
#include "support/test_ui_host.h"
#include "ui/ui_context.h"

namespace quillet::test {

// A temporary folder that holds the drives of one test, removed afterwards.
struct TempFolder {
  TempFolder() {
    static int n = 0;
    root = std::filesystem::temp_directory_path() /
           ("quillet-test-" + std::to_string(::getpid()) + "-" + std::to_string(++n));
    std::filesystem::remove_all(root);
    std::filesystem::create_directories(root / "c" / "Program Files" / "Quillet");
    std::filesystem::create_directories(root / "c" / "Work");
  }
  ~TempFolder() {
    std::error_code ec;
    std::filesystem::remove_all(root, ec);
  }
  std::filesystem::path root;
};

// One project "VBAProject" (C:\Work\Book1.xlsm, the default references) in the editor.
struct EditorFixture {
  EditorFixture() : platform(std::make_unique<io::MappedFileSystem>(temp.root)), vbe(platform) {
    project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    project->SetReferences(io::DefaultReferences());
  }

  // A standard module (or another type), opened as the active code pane.
  std::shared_ptr<host::MemoryComponent> Module(const std::wstring& name, std::vector<std::wstring> lines,
                                                int type = host::kStdModule) {
    auto c = project->AddComponent(name, type, std::move(lines));
    vbe.ActivateComponent(c);
    return c;
  }
  // A module written with its caret or selection as markers ("    x = 1: |", "[[x]]"),
  // opened as the active code pane with that selection.
  std::shared_ptr<host::MemoryComponent> Code(const std::wstring& name, const std::vector<std::wstring>& marked,
                                              int type = host::kStdModule) {
    MarkedCode code = Unmark(marked);
    auto c = Module(name, code.lines, type);
    Pane().SetSelection(code.selection);
    return c;
  }
  // The active module with the selection written into it as markers.
  std::vector<std::wstring> Marked() {
    auto module = Pane().CodeModule();
    std::vector<std::wstring> lines;
    for (long i = 1; i <= module->CountOfLines(); ++i) lines.push_back(module->Lines(i, 1));
    return Mark(lines, Pane().GetSelection());
  }
  // Builds a project fluently; the module whose code carries a marker becomes the active
  // pane with that selection:
  //
  //   fx.Build().Module(L"Module1", {L"Sub A()", L"    |", L"End Sub"}).Class(L"Class1", {});
  struct Builder {
    EditorFixture& fx;
    std::shared_ptr<host::MemoryProject> project;
    Builder& Module(const std::wstring& name, const std::vector<std::wstring>& marked, int type = host::kStdModule) {
      MarkedCode code = Unmark(marked);
      auto c = project->AddComponent(name, type, code.lines);
      if (code.selection != host::Selection() || !active) {
        fx.vbe.ActivateComponent(c);
        fx.Pane().SetSelection(code.selection);
        active = c;
      }
      return *this;
    }
    Builder& Class(const std::wstring& name, const std::vector<std::wstring>& marked) {
      return Module(name, marked, host::kClassModule);
    }
    std::shared_ptr<host::MemoryComponent> active;
  };
  Builder Build() { return Builder{*this, project, nullptr}; }

  host::MemoryCodePane& Pane() { return static_cast<host::MemoryCodePane&>(*vbe.ActiveCodePane()); }
  void Caret(long line, long column) { Pane().SetSelection({line, column}); }
  void Select(long l1, long c1, long l2, long c2) { Pane().SetSelection({l1, c1, l2, c2}); }
  std::vector<long> Selection() {
    host::Selection s = Pane().GetSelection();
    return {s.startLine, s.startColumn, s.endLine, s.endColumn};
  }
  std::wstring Text(const std::shared_ptr<host::MemoryComponent>& c) {
    long n = c->Module()->CountOfLines();
    return n ? c->Module()->Lines(1, n) : L"";
  }

  // A file of the program's folder, by its path relative to it ("vbcode/x.bas").
  void Write(const std::string& relative, const std::string& text) {
    auto path = temp.root / "c" / "Program Files" / "Quillet" / relative;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
  }

  TempFolder temp;
  host::MemoryPlatform platform;
  host::MemoryVBE vbe;
  std::shared_ptr<host::MemoryProject> project;
};

// A session connected to nothing yet, whose editor is the fixture's.
struct SessionFixture : EditorFixture {
  SessionFixture() : ui(uiHost, clock), session(platform, ui) { session.vbe = &vbe; }

  host::Clock clock;
  ui::TestUiHost uiHost;
  ui::UiContext ui;
  kernel::Session session;
};

}  // namespace quillet::test
