#pragma once
// The private file system of a scenario: a temporary folder that holds one folder per
// drive, the program's folder seeded from the shipped defaults, and snapshots that tell
// which files a run wrote.
#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "io/filesystem.h"

namespace quillet::cli {

class Sandbox {
 public:
  // With zIsRoot, drive Z: is the real file system's root, so that real folders can be
  // opened beside the private drives.
  explicit Sandbox(bool zIsRoot = false);
  ~Sandbox();
  Sandbox(const Sandbox&) = delete;
  Sandbox& operator=(const Sandbox&) = delete;

  // The file system over the sandbox; the session takes it.
  std::unique_ptr<io::MappedFileSystem> TakeFileSystem();
  io::MappedFileSystem& Files() { return *view_; }

  // Creates a Windows folder with every missing folder above it.
  void MakeFolders(std::wstring_view folder);
  // Writes a file, making its folders first.
  void Write(std::wstring_view path, std::string_view bytes);
  // Copies a real folder into a Windows folder of the sandbox.
  void CopyIn(const std::filesystem::path& from, std::wstring_view toFolder);

  // Every file of the sandbox by Windows path, with its bytes.
  std::map<std::wstring, std::string> Snapshot() const;

 private:
  std::filesystem::path root_;
  std::unique_ptr<io::MappedFileSystem> fs_;
  io::MappedFileSystem* view_;
};

// The folder of the shipped defaults: $QUILLET_DATA, or the one the build knows.
std::filesystem::path DataFolder();

}  // namespace quillet::cli
