#include "settings/file_objects.h"

#include <algorithm>

#include "settings/text_codec.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"

namespace quillet::settings {

// ---- file ----

void File::Failed(const vba::Error& e, std::wstring_view operation) {
  error_ = e;
  if (!silent) kernel::HandleError(s_, e, 0, L"clsFile." + std::wstring(operation));
}

std::wstring File::Path() const { return vba::Left(fullName_, std::max(0L, vba::InStrRev(fullName_, L"\\") - 1)); }

std::wstring File::NameWithExtension() const { return vba::Mid(fullName_, vba::InStrRev(fullName_, L"\\") + 1); }

std::wstring File::Name() const {
  std::wstring name = NameWithExtension();
  long dot = vba::InStrRev(name, L".");
  return dot == 0 ? name : vba::Left(name, dot - 1);
}

std::wstring File::Extension() const {
  std::wstring name = NameWithExtension();
  long dot = vba::InStrRev(name, L".");
  return dot == 0 ? std::wstring() : vba::Mid(name, dot + 1);
}

bool File::Delete() {
  try {
    s_.platform.Files().DeleteFile(fullName_);
    return true;
  } catch (const vba::Error& e) {
    Failed(e, L"Delete");
  }
  return false;
}

bool File::WriteFile(std::wstring_view text) {
  try {
    s_.platform.Files().WriteFile(fullName_, EncodeText(text, false));
    return true;
  } catch (const vba::Error& e) {
    Failed(e, L"WriteFile");
  }
  return false;
}

std::wstring File::ReadFile() {
  try {
    return CrLfLineEnds(DecodeText(s_.platform.Files().ReadFile(fullName_)).text);
  } catch (const vba::Error& e) {
    Failed(e, L"ReadFile");
  }
  return {};
}

// ---- folder ----

bool FileNameMatches(std::wstring_view name, std::wstring_view pattern) {
  if (pattern == L"*.*" || pattern == L"*") return true;
  // The common "*.ext": an ending compared without regard to case, no pattern to compile.
  if (pattern.size() > 2 && pattern.substr(0, 2) == L"*." && pattern.find_first_of(L"*?#[", 1) == std::wstring_view::npos)
    return name.size() >= pattern.size() - 1 &&
           vba::EqualsText(name.substr(name.size() - (pattern.size() - 1)), pattern.substr(1));
  std::wstring like;
  for (wchar_t c : pattern) {
    // Only "*" and "?" are wildcards here; what Like would read otherwise stands for itself.
    if (c == L'#' || c == L'[')
      like += std::wstring(L"[") + c + L"]";
    else
      like += c;
  }
  if (vba::Like(name, like, vba::Compare::Text)) return true;
  if (pattern.size() >= 2 && pattern.substr(pattern.size() - 2) == L".*" && name.find(L'.') == std::wstring_view::npos)
    return vba::Like(name, like.substr(0, like.size() - 2), vba::Compare::Text);
  return false;
}

std::wstring Folder::Name() const { return vba::Mid(fullPath_, vba::InStrRev(fullPath_, L"\\") + 1); }

void Folder::InitFolder(std::wstring_view path, std::wstring_view filter) {
  fullPath_ = path;
  if (!fullPath_.empty() && fullPath_.back() == L'\\') fullPath_.pop_back();
  filter_ = filter;
  files.Clear();
  folders.Clear();
  kernel::Trap(s_, L"clsFolder.InitFolder", [&] {
    // One listing of the folder serves its files and its subfolders.
    std::vector<io::DirEntry> entries = s_.platform.Files().List(fullPath_ + L"\\");
    GetFiles(filter_, entries);
    GetFolders(entries);
  });
}

void Folder::GetFiles(std::wstring_view filter, const std::vector<io::DirEntry>& entries) {
  std::vector<std::wstring> patterns = vba::Split(filter, L";");
  if (vba::Trim(filter).empty()) patterns = {L"*.*"};
  for (const auto& raw : patterns) {
    std::wstring pattern = vba::Trim(raw);
    if (pattern.empty()) continue;
    for (const auto& entry : entries) {
      if (entry.isFolder || !FileNameMatches(entry.name, pattern) || files.Exists(entry.name)) continue;
      files.Add(std::make_shared<File>(s_, fullPath_ + L"\\" + entry.name), entry.name);
    }
  }
}

void Folder::GetFolders(const std::vector<io::DirEntry>& entries) {
  for (const auto& entry : entries) {
    if (!entry.isFolder || entry.name == L"." || entry.name == L".." || folders.Exists(entry.name)) continue;
    auto sub = std::make_shared<Folder>(s_);
    sub->InitFolder(fullPath_ + L"\\" + entry.name, filter_);
    folders.Add(sub, entry.name);
  }
}

}  // namespace quillet::settings
