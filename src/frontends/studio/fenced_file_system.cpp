#include "frontends/studio/fenced_file_system.h"

#include "vba/error.h"

namespace quillet::studio {

void FencedFileSystem::Check(std::wstring_view path, long error) const {
  if (!allowed_(path)) vba::Raise(error, L"", std::wstring(path));
}

bool FencedFileSystem::FileExists(std::wstring_view path) const { return allowed_(path) && inner_->FileExists(path); }

bool FencedFileSystem::FolderExists(std::wstring_view path) const {
  return allowed_(path) && inner_->FolderExists(path);
}

std::string FencedFileSystem::ReadFile(std::wstring_view path) const {
  Check(path, vba::kErrFileNotFound);
  return inner_->ReadFile(path);
}

void FencedFileSystem::WriteFile(std::wstring_view path, std::string_view bytes) {
  Check(path, vba::kErrPathFileAccess);
  inner_->WriteFile(path, bytes);
}

void FencedFileSystem::WriteFiles(const std::vector<io::FileWrite>& files) {
  // All or nothing: one path outside the fence refuses the whole set before a byte is written.
  for (const io::FileWrite& f : files) Check(f.path, vba::kErrPathFileAccess);
  inner_->WriteFiles(files);
}

void FencedFileSystem::AppendFile(std::wstring_view path, std::string_view bytes) {
  Check(path, vba::kErrPathFileAccess);
  inner_->AppendFile(path, bytes);
}

void FencedFileSystem::DeleteFile(std::wstring_view path) {
  Check(path, vba::kErrPathFileAccess);
  inner_->DeleteFile(path);
}

void FencedFileSystem::Rename(std::wstring_view from, std::wstring_view to) {
  Check(from, vba::kErrPathFileAccess);
  Check(to, vba::kErrPathFileAccess);
  inner_->Rename(from, to);
}

void FencedFileSystem::CreateFolder(std::wstring_view path) {
  Check(path, vba::kErrPathFileAccess);
  inner_->CreateFolder(path);
}

void FencedFileSystem::DeleteFolder(std::wstring_view path) {
  Check(path, vba::kErrPathFileAccess);
  inner_->DeleteFolder(path);
}

std::vector<io::DirEntry> FencedFileSystem::List(std::wstring_view folder) const {
  Check(folder, vba::kErrPathNotFound);
  return inner_->List(folder);
}

}  // namespace quillet::studio
