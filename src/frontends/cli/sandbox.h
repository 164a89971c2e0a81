#pragma once
// The private file system of a scenario: a temporary folder that holds one folder per
// drive, the program's folder seeded from the shipped defaults. It is scratch space, so
// nothing in it is written durably (no fsync). Once recording starts, the first change of
// each file notes what it held, which tells at the end which files the run wrote.
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

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
  io::MappedFileSystem& Files();

  // Creates a Windows folder with every missing folder above it.
  void MakeFolders(std::wstring_view folder);
  // Writes a file, making its folders first.
  void Write(std::wstring_view path, std::string_view bytes);
  // Copies a real folder into a Windows folder of the sandbox, file by file in the kernel.
  void CopyIn(const std::filesystem::path& from, std::wstring_view toFolder);

  // From now on, changes made through the file system are recorded.
  void StartRecording();
  // Every file changed since recording started whose bytes now differ from those it had,
  // by Windows path, with its bytes.
  std::map<std::wstring, std::string> WrittenFiles() const;
  // Every file that was there when recording started and is gone now (deleted, or renamed
  // or moved away), by Windows path, in order.
  std::vector<std::wstring> DeletedFiles() const;

 private:
  class Recorder;
  std::filesystem::path root_;
  std::unique_ptr<io::MappedFileSystem> fs_;
  Recorder* view_;
};

// The folder of the shipped defaults: $QUILLET_DATA, or the one the build knows.
std::filesystem::path DataFolder();

}  // namespace quillet::cli
