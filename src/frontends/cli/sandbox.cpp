#include "frontends/cli/sandbox.h"

#include <unistd.h>

#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <system_error>

#include "io/paths.h"
#include "vba/encoding.h"

#ifndef QUILLET_DATA_DIR
#define QUILLET_DATA_DIR "data"
#endif

namespace quillet::cli {

// The sandbox's file system: notes what a file held before its first recorded change.
class Sandbox::Recorder : public io::MappedFileSystem {
 public:
  Recorder(std::filesystem::path root, bool zIsRoot) : MappedFileSystem(std::move(root), zIsRoot) { SetDurable(false); }

  void WriteFile(std::wstring_view path, std::string_view bytes) override {
    Note(path);
    MappedFileSystem::WriteFile(path, bytes);
  }
  void AppendFile(std::wstring_view path, std::string_view bytes) override {
    Note(path);
    MappedFileSystem::AppendFile(path, bytes);
  }
  void DeleteFile(std::wstring_view path) override {
    Note(path);
    MappedFileSystem::DeleteFile(path);
  }
  void Rename(std::wstring_view from, std::wstring_view to) override {
    Note(from);
    Note(to);
    MappedFileSystem::Rename(from, to);
  }
  void WriteFiles(const std::vector<io::FileWrite>& files) override {
    for (const auto& f : files) Note(f.path);
    MappedFileSystem::WriteFiles(files);
  }

  bool recording = false;
  // By real path: the bytes before the first change, or nothing for a file that was not there.
  std::map<std::filesystem::path, std::optional<std::string>> before;

 private:
  void Note(std::wstring_view path) {
    if (!recording) return;
    std::filesystem::path real;
    try {
      real = RealPath(path);
    } catch (const std::exception&) {
      return;  // a name no file can have: the write itself will say so
    }
    if (before.count(real)) return;
    std::optional<std::string> bytes;
    if (std::optional<std::wstring> win = WindowsPath(real); win && FileExists(*win)) bytes = ReadFile(*win);
    before.emplace(std::move(real), std::move(bytes));
  }
};

namespace {

// Where sandboxes go: $TMPDIR when the user set one, else memory (/dev/shm) where the
// machine has it, since a sandbox is scratch and making files on a disk costs far more
// than the run, else the temporary folder.
std::filesystem::path SandboxParent() {
  const char* tmp = std::getenv("TMPDIR");
  if ((!tmp || !*tmp) && ::access("/dev/shm", W_OK | X_OK) == 0) return "/dev/shm";
  return std::filesystem::temp_directory_path();
}

}  // namespace

Sandbox::Sandbox(bool zIsRoot) {
  std::string pattern = (SandboxParent() / "quillet-scenario-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary folder for the scenario");
  root_ = pattern;
  auto recorder = std::make_unique<Recorder>(root_, zIsRoot);
  view_ = recorder.get();
  fs_ = std::move(recorder);
}

Sandbox::~Sandbox() {
  std::error_code ec;
  std::filesystem::remove_all(root_, ec);
}

std::unique_ptr<io::MappedFileSystem> Sandbox::TakeFileSystem() {
  auto fs = std::move(fs_);
  return fs;
}

void Sandbox::MakeFolders(std::wstring_view folder) {
  std::wstring path = io::NormalizePath(folder);
  while (!path.empty() && path.back() == L'\\') path.pop_back();
  // A drive ("C:") or a share needs no making: the file system makes it on first use.
  std::wstring parent = io::FolderOf(path);
  if (parent.empty() || view_->FolderExists(path)) return;
  if (parent.size() > 3 || parent.find(L':') == std::wstring::npos) MakeFolders(parent);
  if (!view_->FolderExists(path)) view_->CreateFolder(path);
}

void Sandbox::Write(std::wstring_view path, std::string_view bytes) {
  MakeFolders(io::FolderOf(path));
  view_->WriteFile(path, bytes);
}

void Sandbox::CopyIn(const std::filesystem::path& from, std::wstring_view toFolder) {
  if (!std::filesystem::is_directory(from)) return;
  MakeFolders(toFolder);
  std::error_code ec;
  std::filesystem::copy(from, view_->RealPath(toFolder),
                        std::filesystem::copy_options::recursive | std::filesystem::copy_options::overwrite_existing, ec);
  if (ec) throw std::runtime_error("cannot copy " + from.string() + " into the sandbox: " + ec.message());
}

io::MappedFileSystem& Sandbox::Files() { return *view_; }

void Sandbox::StartRecording() { view_->recording = true; }

std::map<std::wstring, std::string> Sandbox::WrittenFiles() const {
  std::map<std::wstring, std::string> files;
  for (const auto& [real, was] : view_->before) {
    std::optional<std::wstring> win = view_->WindowsPath(real);
    if (!win || !view_->FileExists(*win)) continue;
    std::string bytes = view_->ReadFile(*win);
    if (!was || *was != bytes) files.emplace(*win, std::move(bytes));
  }
  return files;
}

std::vector<std::wstring> Sandbox::DeletedFiles() const {
  std::vector<std::wstring> files;
  for (const auto& [real, was] : view_->before) {
    if (!was) continue;
    std::optional<std::wstring> win = view_->WindowsPath(real);
    if (win && !view_->FileExists(*win)) files.push_back(*win);
  }
  return files;
}

std::filesystem::path DataFolder() {
  if (const char* env = std::getenv("QUILLET_DATA")) return env;
  return QUILLET_DATA_DIR;
}

}  // namespace quillet::cli
