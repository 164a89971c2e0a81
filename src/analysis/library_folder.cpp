#include "analysis/library_folder.h"

#include <functional>

#include "analysis/keyed.h"
#include "analysis/live_code.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"

namespace quillet::analysis {
namespace {

// The module name of a file: the second piece, split at double quotes, of the rest of the
// line that holds "Attribute VB_Name"; "" without such a line.
std::wstring NameAttribute(std::wstring_view text) {
  const long at = vba::InStr(text, L"Attribute VB_Name", vba::Compare::Text);
  if (at == 0) return {};
  std::wstring_view rest = text.substr(at - 1 + 17);
  rest = rest.substr(0, rest.find(L"\r\n"));
  std::vector<std::wstring> pieces = vba::Split(rest, L"\"");
  return pieces.size() > 1 ? pieces[1] : std::wstring{};
}

// The end statement a line of a library file opens, or "" when it opens no offered one.
std::wstring_view EndOfStart(std::wstring_view trimmed) {
  if (vba::Like(trimmed, L"Sub *") || vba::Like(trimmed, L"Public Sub *")) return L"End Sub";
  if (vba::Like(trimmed, L"Function *") || vba::Like(trimmed, L"Public Function *")) return L"End Function";
  return {};
}

}  // namespace

void clsScanLibraryFolder::FileRead(kernel::Session& s, std::wstring_view text, std::wstring_view fileName) {
  std::wstring name = NameAttribute(text);
  if (name.empty()) name = fileName;
  // Every procedure of the file holds the one text of its module's name.
  const SharedText moduleName = name;
  auto module = std::make_shared<LibraryModule>();
  module->Name = name;
  AddKeepingFirst(Modules, module, L"Library." + name);

  const std::vector<std::wstring> lines = vba::Split(text, L"\r\n");
  for (size_t i = 0; i < lines.size(); ++i) {
    const std::wstring_view end = EndOfStart(vba::Trim(lines[i]));
    if (end.empty()) continue;
    std::wstring gathered;
    // Gathered up to the line whose end statement is live code; a procedure that never
    // ends runs to the end of the file.
    for (; i < lines.size(); ++i) {
      if (!gathered.empty()) gathered += L"\r\n";
      gathered += lines[i];
      if (vba::Like(lines[i], L"*" + std::wstring(end) + L"*") && CodeHasText(lines[i], end)) break;
    }
    auto procedure = std::make_shared<Rv_ProcDef>();
    procedure->Init2(s, gathered, moduleName);
    Procs.AddProc(s, procedure, procedure->Name + L".Library");
  }
}

void clsScanLibraryFolder::init(kernel::Session& s) {
  kernel::Trap(s, L"clsScanLibraryFolder.init", [&] {
    const std::wstring path = settings::LibraryFolderGet(s);
    if (path.empty() || !s.platform.Files().FolderExists(path)) return;
    settings::Folder root(s);
    root.InitFolder(path, L"*.bas");
    std::function<void(settings::Folder&)> read = [&](settings::Folder& folder) {
      for (const auto& file : folder.files) {
        file->silent = true;
        FileRead(s, file->ReadFile(), file->Name());
      }
      for (const auto& sub : folder.folders) read(*sub);
    };
    read(root);
  });
}

}  // namespace quillet::analysis
