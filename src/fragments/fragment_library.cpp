#include "fragments/fragment_library.h"

#include "analysis/project_models.h"
#include "io/paths.h"
#include "generators/scope.h"
#include "kernel/errors.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "settings/ini_file.h"
#include "settings/items.h"
#include "settings/shortcut_files.h"
#include "settings/text_codec.h"
#include "vba/error.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::fragments {
namespace {

std::wstring WithoutFinalSlash(std::wstring path) {
  while (!path.empty() && path.back() == L'\\') path.pop_back();
  return path;
}

// Runs a change of a file; a failure goes to the error reporter under `where`.
template <class F>
bool FileStep(kernel::Session& s, std::wstring_view where, F&& step) {
  try {
    step(s.platform.Files());
    return true;
  } catch (const vba::Error& e) {
    kernel::HandleError(s, e, 0, where);
  }
  return false;
}

}  // namespace

std::wstring FragmentRead(kernel::Session& s, std::wstring name) {
  if (!vba::EqualsText(vba::Right(name, 4), L".bas")) name += L".bas";
  settings::File file(s, settings::PathCombine({settings::FragmentsFolderGet(s), name}));
  return file.Contents();
}

FragmentFolders::FragmentFolders(kernel::Session& s)
    : s_(s), root_(WithoutFinalSlash(settings::FragmentsFolderGet(s))) {
  settings::IniFile ini(s);
  ini.SetName(settings::IniFileName(settings::kFragmentsReferenceIni));
  if (!ini.SectionExists(L"fragments/reference")) return;
  settings::IniFileSection* section = ini.Item(std::wstring(L"fragments/reference"));
  if (!section || !section->Items()) return;
  for (const auto& item : *section->Items())
    if (!item->name.empty()) ties_.emplace_back(item->name, item->value);
}

bool FragmentFolders::Available(std::wstring_view path) const {
  if (ties_.empty()) return true;
  std::wstring rest(path);
  if (long at = vba::InStr(rest, root_, vba::Compare::Text); at > 0) rest = rest.substr(at - 1 + root_.size());
  while (!rest.empty() && rest.front() == L'\\') rest.erase(0, 1);
  rest = WithoutFinalSlash(rest);
  if (rest.empty()) return true;
  const analysis::ProjectModels& models = generators::ModelsOf(s_);
  for (const std::wstring& piece : vba::Split(rest, L"\\")) {
    // The first entry of a name decides, as the first key of a collection does.
    for (const auto& [folder, reference] : ties_) {
      if (!vba::EqualsText(folder, piece)) continue;
      if (!models.ReferenceNames.Exists(reference)) return false;
      break;
    }
  }
  return true;
}

bool FragmentFolderAvailable(kernel::Session& s, std::wstring_view path) { return FragmentFolders(s).Available(path); }

std::wstring ShortCutName(std::wstring_view targetFile, std::wstring_view folder) {
  return settings::PathAddSlash(folder) + io::FileNameOf(targetFile) + L".lnk";
}

bool ShortCutCreate(kernel::Session& s, std::wstring_view targetFile, std::wstring_view folder) {
  return FileStep(s, L"frmFragments.ShortCutCreate", [&](io::FileSystem& files) {
    if (!files.FolderExists(folder)) vba::Raise(vba::kErrPathNotFound, L"Path not found: " + std::wstring(folder));
    if (!files.FileExists(targetFile)) vba::Raise(vba::kErrFileNotFound, L"File not found: " + std::wstring(targetFile));
    std::wstring name = ShortCutName(targetFile, folder);
    if (files.Exists(name)) vba::Raise(vba::kErrFileAlreadyExists, L"File already exists: " + name);
    settings::ShortcutCreate(s, name, targetFile);
  });
}

std::wstring ShortCutTargetPath(kernel::Session& s, std::wstring_view shortcutFile) {
  if (!s.platform.Files().FileExists(shortcutFile)) return {};
  std::wstring target;
  try {
    target = settings::ShortcutTarget(s, shortcutFile);
  } catch (const vba::Error&) {
    return {};  // no shell link: left out like a shortcut whose target is gone
  }
  std::wstring root = WithoutFinalSlash(settings::FragmentsFolderGet(s));
  if (vba::EqualsText(vba::Left(target, static_cast<long>(root.size())), root)) return target;
  long at = vba::InStrRev(target, L"\\Fragments\\", -1, vba::Compare::Text);
  if (at == 0) return target;
  std::wstring repaired = root + target.substr(at - 1 + std::wstring_view(L"\\Fragments").size());
  FileStep(s, L"frmFragments.ShortCutTargetPath",
           [&](io::FileSystem&) { settings::ShortcutRetarget(s, shortcutFile, repaired); });
  return repaired;
}

bool FragmentFileRename(kernel::Session& s, std::wstring_view from, std::wstring_view to, std::wstring_view where) {
  const bool renamed = FileStep(s, where, [&](io::FileSystem& files) {
    // Another entry of that name, whatever its case, keeps its place: a rename never
    // replaces a file. A change of case of the same file is a rename like any other.
    if (files.Exists(to) && !io::SamePath(from, to))
      vba::Raise(vba::kErrFileAlreadyExists, L"File already exists: " + std::wstring(to));
    files.Rename(from, to);
  });
  if (renamed && vba::EqualsText(io::ExtensionOf(from), L".bas")) ShortcutsFollow(s, from, to, where);
  return renamed;
}

namespace {

// The shortcut files of a folder and of every folder under it.
void ShortcutFilesUnder(io::FileSystem& files, const std::wstring& folder, std::vector<std::wstring>& out) {
  std::vector<io::DirEntry> entries;
  try {
    entries = files.List(folder + L"\\");
  } catch (const vba::Error&) {
    return;  // a folder that cannot be read holds nothing to follow
  }
  for (const io::DirEntry& entry : entries) {
    const std::wstring full = folder + L"\\" + entry.name;
    if (entry.isFolder) ShortcutFilesUnder(files, full, out);
    else if (vba::EqualsText(io::ExtensionOf(entry.name), L".lnk")) out.push_back(full);
  }
}

}  // namespace

int ShortcutsFollow(kernel::Session& s, std::wstring_view from, std::wstring_view to, std::wstring_view where) {
  std::vector<std::wstring> shortcuts;
  ShortcutFilesUnder(s.platform.Files(), WithoutFinalSlash(settings::FragmentsFolderGet(s)), shortcuts);
  int followed = 0;
  for (const std::wstring& shortcut : shortcuts) {
    if (!io::SamePath(ShortCutTargetPath(s, shortcut), from)) continue;
    followed += FileStep(s, where, [&](io::FileSystem&) { settings::ShortcutRetarget(s, shortcut, to); });
  }
  return followed;
}

bool FragmentFileDelete(kernel::Session& s, std::wstring_view file, std::wstring_view where) {
  return FileStep(s, where, [&](io::FileSystem& files) { files.DeleteFile(file); });
}

bool FragmentFileWrite(kernel::Session& s, std::wstring_view file, std::wstring_view text, std::wstring_view where) {
  return FileStep(s, where, [&](io::FileSystem& files) { files.WriteFile(file, settings::EncodeText(text, false)); });
}

}  // namespace quillet::fragments
