#include "frontends/cli/sandbox.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

#include "io/paths.h"
#include "vba/encoding.h"

#ifndef QUILLET_DATA_DIR
#define QUILLET_DATA_DIR "data"
#endif

namespace quillet::cli {

Sandbox::Sandbox(bool zIsRoot) {
  std::string pattern = (std::filesystem::temp_directory_path() / "quillet-scenario-XXXXXX").string();
  if (!::mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary folder for the scenario");
  root_ = pattern;
  fs_ = std::make_unique<io::MappedFileSystem>(root_, zIsRoot);
  view_ = fs_.get();
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
  for (auto it = std::filesystem::recursive_directory_iterator(from); it != std::filesystem::recursive_directory_iterator(); ++it) {
    std::filesystem::path rel = std::filesystem::relative(it->path(), from);
    std::wstring win = std::wstring(toFolder);
    for (const auto& part : rel) win = io::JoinPath(win, vba::FromUtf8(part.string()));
    if (it->is_directory()) {
      if (!view_->FolderExists(win)) {
        // Parents first: the walk reaches a folder before its content.
        view_->CreateFolder(win);
      }
    } else if (it->is_regular_file()) {
      std::ifstream in(it->path(), std::ios::binary);
      std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
      view_->WriteFile(win, bytes);
    }
  }
}

std::map<std::wstring, std::string> Sandbox::Snapshot() const {
  std::map<std::wstring, std::string> files;
  if (!std::filesystem::exists(root_)) return files;
  for (auto it = std::filesystem::recursive_directory_iterator(root_); it != std::filesystem::recursive_directory_iterator(); ++it) {
    if (!it->is_regular_file()) continue;
    auto win = view_->WindowsPath(it->path());
    if (!win) continue;
    std::ifstream in(it->path(), std::ios::binary);
    files[*win] = std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  }
  return files;
}

std::filesystem::path DataFolder() {
  if (const char* env = std::getenv("QUILLET_DATA")) return env;
  return QUILLET_DATA_DIR;
}

}  // namespace quillet::cli
