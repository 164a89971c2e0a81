#include "settings/folders.h"

#include "settings/items.h"
#include "settings/settings.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

enum Token : int { kRoot, kCode, kLibrary, kFragments, kClasses, kTemplates, kErrorHandlers };

// A full path: on a share ("\\server\share\...") or on a drive ("C:\...").
bool IsFullPath(std::wstring_view path) {
  return vba::Like(path, L"\\\\*\\*") || vba::Like(path, L"?:\\*");
}

std::wstring SettingText(kernel::Session& s, int item) { return s.settings[item].ToString(); }

// A path setting: a full path as it stands, anything else made absolute.
std::wstring PathSettingGet(kernel::Session& s, int item) {
  std::wstring value = SettingText(s, item);
  return IsFullPath(value) ? value : PathAbsoluteGet(s, value);
}

}  // namespace

const std::vector<std::wstring>& FolderTokens() {
  static const std::vector<std::wstring> tokens{L"<root>",    L"<code>",      L"<library>",      L"<fragments>",
                                                L"<classes>", L"<templates>", L"<errorhandlers>"};
  return tokens;
}

std::wstring TokenFolderGet(kernel::Session& s, int token) {
  switch (token) {
    case kRoot: return RootFolderGet(s);
    case kCode: return CodeFolderGet(s);
    case kLibrary: return LibraryFolderGet(s);
    case kFragments: return FragmentsFolderGet(s);
    case kClasses: return ClassesFolderGet(s);
    case kTemplates: return TemplatesFolderGet(s);
    case kErrorHandlers: return ErrorHandlersFolderGet(s);
    default: return {};
  }
}

std::wstring RootFolderGet(kernel::Session& s) { return s.platform.ProgramFolder(); }

std::wstring CodeFolderGet(kernel::Session& s) {
  std::wstring value = SettingText(s, kBaseFolder);
  if (IsFullPath(value)) return value;
  return PathCombine({RootFolderGet(s), value});
}

std::wstring LibraryFolderGet(kernel::Session& s) { return PathSettingGet(s, kLibraryFolder); }
std::wstring FragmentsFolderGet(kernel::Session& s) { return PathCombine({CodeFolderGet(s), L"Fragments"}); }
std::wstring ClassesFolderGet(kernel::Session& s) { return PathCombine({CodeFolderGet(s), L"Classes"}); }
std::wstring TemplatesFolderGet(kernel::Session& s) { return PathCombine({CodeFolderGet(s), L"Templates"}); }
std::wstring ErrorHandlersFolderGet(kernel::Session& s) {
  return PathCombine({FragmentsFolderGet(s), L"ErrorHandlers"});
}

std::wstring ErrorHandleFileGet(kernel::Session& s) { return PathSettingGet(s, kErrorHandleFile); }
std::wstring CollectionClassTemplateGet(kernel::Session& s) { return PathSettingGet(s, kCollectionClassTemplate); }
std::wstring ProcedureHeaderFileGet(kernel::Session& s) { return PathSettingGet(s, kProcedureHeaderFile); }
std::wstring ModuleHeaderFileGet(kernel::Session& s) { return PathSettingGet(s, kModuleHeaderFile); }
std::wstring PrefixStandardsFileGet(kernel::Session& s) { return PathSettingGet(s, kPrefixStandardsFile); }

std::wstring PathAddSlash(std::wstring_view path) {
  std::wstring p(path);
  if (!p.empty() && p.back() != L'\\') p += L'\\';
  return p;
}

std::wstring PathCombine(const std::vector<std::wstring>& parts) {
  std::wstring path;
  for (const auto& part : parts) {
    if (path.empty()) {
      path = PathAddSlash(part);
      continue;
    }
    std::size_t start = part.find_first_not_of(L'\\');
    path = PathAddSlash(path);
    if (start != std::wstring::npos) path += part.substr(start);
  }
  return path;
}

std::wstring PathTokensExpand(kernel::Session& s, std::wstring_view path) {
  std::wstring result(path);
  const auto& tokens = FolderTokens();
  for (int i = 0; i < static_cast<int>(tokens.size()); ++i) {
    std::size_t at = result.find(tokens[i]);
    if (at == std::wstring::npos) continue;
    std::wstring left = result.substr(0, at);
    std::wstring right = result.substr(at + tokens[i].size());
    result = PathCombine({left, TokenFolderGet(s, i), right});
  }
  return result;
}

std::wstring PathAbsoluteGet(kernel::Session& s, std::wstring_view path) {
  return PathAbsoluteGet(s, path, RootFolderGet(s));
}

std::wstring PathAbsoluteGet(kernel::Session& s, std::wstring_view path, std::wstring_view base) {
  std::wstring expanded = PathTokensExpand(s, path);
  if (vba::InStr(expanded, base, vba::Compare::Text) == 0 && !vba::Like(expanded, L"\\\\*") &&
      !vba::Like(expanded, L"?:\\*"))
    return PathCombine({std::wstring(base), expanded});
  return expanded;
}

std::wstring PathRootRelativeGet(kernel::Session& s, std::wstring_view path) {
  std::wstring root = RootFolderGet(s);
  if (!root.empty() && vba::StartsWithText(path, root)) return std::wstring(path.substr(root.size()));
  return std::wstring(path);
}

std::wstring PathFolderGet(std::wstring_view path) {
  return vba::Left(path, vba::InStrRev(path, L"\\"));
}

bool FoldersCreate(kernel::Session& s) {
  return kernel::Trap(s, L"modCodeFolders.FoldersCreate", [&] {
    io::FileSystem& files = s.platform.Files();
    for (int token : {kCode, kLibrary, kFragments, kClasses, kTemplates, kErrorHandlers}) {
      std::wstring folder = TokenFolderGet(s, token);
      // The file system names a folder without its final "\" (a drive's root keeps it).
      while (folder.size() > 3 && folder.back() == L'\\') folder.pop_back();
      if (!files.FolderExists(folder)) files.CreateFolder(folder);
    }
  });
}

}  // namespace quillet::settings
