#pragma once
// A session on the in-memory editor whose program folder lies in a temporary folder of
// real files, for the settings tests.
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "io/filesystem.h"
#include "shell/session.h"
#include "ui/test_ui_host.h"
#include "ui/ui_context.h"
#include "vba/encoding.h"

namespace quillet::settings::testing {

namespace fs = std::filesystem;

inline constexpr const wchar_t* kProgram = L"C:\\Program Files\\Quillet\\";

class SettingsTest : public ::testing::Test {
 protected:
  SettingsTest()
      : root_(MakeRoot()),
        platform(std::make_unique<io::MappedFileSystem>(root_)),
        vbe(platform),
        ui(uiHost, clock),
        s(platform, ui) {
    fs::create_directories(root_ / "c" / "Program Files" / "Quillet");
    fs::create_directories(root_ / "c" / "Work");
    project = vbe.AddProject(L"VBAProject", L"C:\\Work\\Book1.xlsm");
    s.vbe = &vbe;
  }
  ~SettingsTest() override {
    std::error_code ec;
    fs::remove_all(root_, ec);
  }

  // Real files by their path below the drives: "c/Program Files/Quillet/qltusr.ini".
  void Put(const std::string& relative, const std::string& bytes) {
    fs::path p = root_ / relative;
    fs::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
  }
  std::string Get(const std::string& relative) const {
    std::ifstream in(root_ / relative, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }
  bool Exists(const std::string& relative) const { return fs::exists(root_ / relative); }
  void Remove(const std::string& relative) { fs::remove_all(root_ / relative); }
  // A file of the program's folder.
  void PutHome(const std::string& name, const std::string& bytes) { Put("c/Program Files/Quillet/" + name, bytes); }
  std::string GetHome(const std::string& name) const { return Get("c/Program Files/Quillet/" + name); }

  // Everything the error reporter has written, delivered or still waiting.
  std::string Reported() const { return vba::ToUtf8(vbe.ImmediateText() + s.pendingMessage); }

 private:
  static fs::path MakeRoot() {
    static int n = 0;
    fs::path p = fs::temp_directory_path() / ("quillet-settings-" + std::to_string(::getpid()) + "-" + std::to_string(++n));
    fs::remove_all(p);
    fs::create_directories(p / "c");
    return p;
  }

  fs::path root_;

 protected:
  host::MemoryPlatform platform;
  host::MemoryVBE vbe;
  host::Clock clock;
  ui::TestUiHost uiHost;
  ui::UiContext ui;
  shell::Session s;
  std::shared_ptr<host::MemoryProject> project;
};

}  // namespace quillet::settings::testing
