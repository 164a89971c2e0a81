#pragma once
// Test helpers: a temporary folder of drives mapped through MappedFileSystem, with real
// files put, read and pictured, and the vba::Error an action raises.
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "io/filesystem.h"
#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::io::testing {

namespace fs = std::filesystem;

class TempDrives {
 public:
  TempDrives() : root_(MakeRoot()), files_(root_) {}
  ~TempDrives() {
    std::error_code ec;
    fs::remove_all(root_, ec);
  }
  TempDrives(const TempDrives&) = delete;
  TempDrives& operator=(const TempDrives&) = delete;

  const fs::path& root() const { return root_; }
  MappedFileSystem& files() { return files_; }

  // Writes a real file below the drives folder ("c/Work/x.bas"), making its folders.
  void Put(const std::string& relative, const std::string& bytes) const {
    fs::path p = root_ / relative;
    fs::create_directories(p.parent_path());
    std::ofstream(p, std::ios::binary) << bytes;
  }
  std::string Get(const fs::path& relative) const {
    std::ifstream in(root_ / relative, std::ios::binary);
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
  }

  // Every file below the drives folder: relative path -> bytes.
  std::map<std::string, std::string> Picture() const {
    std::map<std::string, std::string> picture;
    for (const auto& e : fs::recursive_directory_iterator(root_))
      if (e.is_regular_file()) {
        fs::path rel = fs::relative(e.path(), root_);
        picture[rel.string()] = Get(rel);
      }
    return picture;
  }

 private:
  static fs::path MakeRoot() {
    static std::atomic<int> counter{0};
    fs::path root = fs::temp_directory_path() /
                    ("quillet-io-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    fs::remove_all(root);
    fs::create_directories(root / "c");
    return root;
  }

  fs::path root_;
  MappedFileSystem files_;
};

// The error `action` raises; a test failure when it raises none.
template <class F>
vba::Error Caught(F action) {
  try {
    action();
  } catch (const vba::Error& e) {
    return e;
  }
  ADD_FAILURE() << "no error was raised";
  return vba::Error(0, L"none");
}

// The description of an error in UTF-8, for readable failures.
inline std::string Text(const vba::Error& e) { return vba::ToUtf8(e.Description()); }

}  // namespace quillet::io::testing
