#pragma once
// A session on the in-memory editor whose program folder lies in a temporary folder of
// real files, for the settings tests.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "../support/fixtures.h"
#include "vba/encoding.h"

namespace quillet::settings::testing {

namespace fs = std::filesystem;

inline constexpr const wchar_t* kProgram = L"C:\\Program Files\\Quillet\\";

class SettingsTest : public ::testing::Test, public test::SessionFixture {
 protected:
  // Real files by their path below the drives: "c/Program Files/Quillet/qltusr.ini".
  void Put(const std::string& relative, const std::string& bytes) {
    fs::path p = temp.root / relative;
    fs::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
  }
  std::string Get(const std::string& relative) const {
    std::ifstream in(temp.root / relative, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }
  bool Exists(const std::string& relative) const { return fs::exists(temp.root / relative); }
  void Remove(const std::string& relative) { fs::remove_all(temp.root / relative); }
  // A file of the program's folder.
  void PutHome(const std::string& name, const std::string& bytes) { Put("c/Program Files/Quillet/" + name, bytes); }
  std::string GetHome(const std::string& name) const { return Get("c/Program Files/Quillet/" + name); }

  // Everything the error reporter has written, delivered or still waiting.
  std::string Reported() const { return vba::ToUtf8(vbe.ImmediateText() + s.pendingMessage); }

  kernel::Session& s = session;
};

}  // namespace quillet::settings::testing
