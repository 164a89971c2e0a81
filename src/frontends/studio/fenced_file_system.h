#pragma once
// The studio's file system for the engine: the sandbox's drives and the real folders the
// studio allows (the project folder, folders the user picked), nothing else. A path outside
// does not exist for reading and is refused for writing, so that nothing typed into a
// dialog reaches the rest of the machine.
#include <functional>
#include <memory>

#include "io/filesystem.h"

namespace quillet::studio {

class FencedFileSystem : public io::FileSystem {
 public:
  // `allowed` tells whether a Windows path lies within the fence.
  FencedFileSystem(std::unique_ptr<io::MappedFileSystem> inner, std::function<bool(std::wstring_view)> allowed)
      : inner_(std::move(inner)), allowed_(std::move(allowed)) {}

  bool FileExists(std::wstring_view path) const override;
  bool FolderExists(std::wstring_view path) const override;
  std::string ReadFile(std::wstring_view path) const override;
  void WriteFile(std::wstring_view path, std::string_view bytes) override;
  void WriteFiles(const std::vector<io::FileWrite>& files) override;
  void AppendFile(std::wstring_view path, std::string_view bytes) override;
  void DeleteFile(std::wstring_view path) override;
  void Rename(std::wstring_view from, std::wstring_view to) override;
  void CreateFolder(std::wstring_view path) override;
  void DeleteFolder(std::wstring_view path) override;
  std::vector<io::DirEntry> List(std::wstring_view folder) const override;

 private:
  // Raises a path/file access error for a path outside the fence.
  void Check(std::wstring_view path, long error) const;

  std::unique_ptr<io::MappedFileSystem> inner_;
  std::function<bool(std::wstring_view)> allowed_;
};

}  // namespace quillet::studio
