#pragma once
// A text file and a folder tree on disk, as the library scan and the fragment library use
// them. Failures are reported through the error reporter unless the object is silent, and
// the last one is kept.
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/filesystem.h"

#include "kernel/session.h"
#include "vba/collection.h"
#include "vba/error.h"

namespace quillet::settings {

class File {
 public:
  explicit File(kernel::Session& s, std::wstring fullName = {}) : s_(s), fullName_(std::move(fullName)) {}

  // When true, failures are kept in Error but not reported.
  bool silent = false;
  // The last failure, if any.
  const std::optional<vba::Error>& Error() const { return error_; }

  const std::wstring& FullName() const { return fullName_; }
  void SetFullName(std::wstring fullName) { fullName_ = std::move(fullName); }
  // "C:\a\b.txt": Path "C:\a", NameWithExtension "b.txt", Name "b", Extension "txt".
  std::wstring Path() const;
  std::wstring NameWithExtension() const;
  std::wstring Name() const;
  // Empty when the name has no ".".
  std::wstring Extension() const;

  // Reading the contents reads the file; assigning writes it.
  std::wstring Contents() { return ReadFile(); }
  void SetContents(std::wstring_view text) { WriteFile(text); }
  // True when the file was removed.
  bool Delete();
  // Writes the whole file (Windows-1252, UTF-8 with a byte-order mark when a character
  // needs it); true when done.
  bool WriteFile(std::wstring_view text);
  // The whole file with every line end as CR LF; empty when it cannot be read.
  std::wstring ReadFile();

 private:
  void Failed(const vba::Error& e, std::wstring_view operation);

  kernel::Session& s_;
  std::wstring fullName_;
  std::optional<vba::Error> error_;
};

class Folder {
 public:
  explicit Folder(kernel::Session& s) : s_(s) {}

  // The files that match the filter, keyed by name with extension.
  vba::Collection<std::shared_ptr<File>> files;
  // The subfolders, keyed by name, each read with the same filter.
  vba::Collection<std::shared_ptr<Folder>> folders;

  // The last part of the full path.
  std::wstring Name() const;
  // Without a final "\".
  const std::wstring& FullPath() const { return fullPath_; }
  // Reads the tree below `path`. `filter` holds patterns separated by ";" ("*.bas; *.lnk");
  // an empty one is "*.*". A failure is reported and what was read stays.
  void InitFolder(std::wstring_view path, std::wstring_view filter);

 private:
  void GetFiles(std::wstring_view filter, const std::vector<io::DirEntry>& entries);
  void GetFolders(const std::vector<io::DirEntry>& entries);

  kernel::Session& s_;
  std::wstring fullPath_;
  std::wstring filter_;
};

// Whether a file name matches a pattern of the file system's directory search: "*" and
// "?" as wildcards, without regard to case; "*.*" matches every name, and a pattern that
// ends in ".*" also matches names without an extension.
bool FileNameMatches(std::wstring_view name, std::wstring_view pattern);

}  // namespace quillet::settings
