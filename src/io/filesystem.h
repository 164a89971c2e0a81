#pragma once
// The file system, addressed by Windows paths. Only implementations of this interface
// touch real files.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::io {

struct DirEntry {
  std::wstring name;  // as stored on disk
  bool isFolder = false;
};

// One file of a set written together.
struct FileWrite {
  std::wstring path;
  std::string bytes;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual bool FileExists(std::wstring_view path) const = 0;
  virtual bool FolderExists(std::wstring_view path) const = 0;
  bool Exists(std::wstring_view path) const { return FileExists(path) || FolderExists(path); }

  // Raises vba error 53 (file not found) or 75 (access error).
  virtual std::string ReadFile(std::wstring_view path) const = 0;
  // Atomic: writes a temporary file beside the target and renames it over the target.
  // A missing folder raises error 76.
  virtual void WriteFile(std::wstring_view path, std::string_view bytes) = 0;
  // All or nothing: every file is staged beside its target first, and only when all are
  // written do they replace their targets. A failure while staging (a target that is a
  // folder, a full disk) raises and leaves every target as it was.
  virtual void WriteFiles(const std::vector<FileWrite>& files) = 0;
  virtual void AppendFile(std::wstring_view path, std::string_view bytes) = 0;
  virtual void DeleteFile(std::wstring_view path) = 0;
  virtual void Rename(std::wstring_view from, std::wstring_view to) = 0;
  // One level; a missing parent raises error 76.
  virtual void CreateFolder(std::wstring_view path) = 0;
  virtual void DeleteFolder(std::wstring_view path) = 0;
  // Entries in name order (compared without regard to case); a missing folder raises 76.
  virtual std::vector<DirEntry> List(std::wstring_view folder) const = 0;
};

// Maps Windows paths onto a real file system the way Wine does: each drive letter is a
// folder under `drives` ("C:\x" -> drives/c/x), "\\server\share\x" -> drives/unc/server/share/x,
// and names are found whatever their case. With `zIsRoot`, "Z:\" is the root "/".
class MappedFileSystem : public FileSystem {
 public:
  explicit MappedFileSystem(std::filesystem::path drives, bool zIsRoot = false);

  // Durable (the default): each write reaches the disk (fsync of the file and its folder)
  // before it counts as done, as a user's files must. Scratch space turns this off.
  void SetDurable(bool durable) { durable_ = durable; }

  // The real path a Windows path stands for (existing names found without regard to case;
  // missing ones appended as given).
  std::filesystem::path RealPath(std::wstring_view path) const;
  // The Windows path of a real path under the drives folder (or under "/" with zIsRoot).
  std::optional<std::wstring> WindowsPath(const std::filesystem::path& real) const;

  bool FileExists(std::wstring_view path) const override;
  bool FolderExists(std::wstring_view path) const override;
  std::string ReadFile(std::wstring_view path) const override;
  void WriteFile(std::wstring_view path, std::string_view bytes) override;
  void WriteFiles(const std::vector<FileWrite>& files) override;
  void AppendFile(std::wstring_view path, std::string_view bytes) override;
  void DeleteFile(std::wstring_view path) override;
  void Rename(std::wstring_view from, std::wstring_view to) override;
  void CreateFolder(std::wstring_view path) override;
  void DeleteFolder(std::wstring_view path) override;
  std::vector<DirEntry> List(std::wstring_view folder) const override;

 private:
  std::filesystem::path drives_;
  bool zIsRoot_;
  bool durable_ = true;
};

}  // namespace quillet::io
