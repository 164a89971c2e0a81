#include "settings/error_handlers.h"

#include "settings/folders.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/text.h"
#include "vba/strings.h"

namespace quillet::settings {

std::vector<std::wstring> ErrorHandlersList(kernel::Session& s) {
  std::vector<std::wstring> names;
  kernel::Trap(s, L"basGlobal.ErrorHandlersList", [&] {
    std::wstring folder = ErrorHandlersFolderGet(s);
    if (!s.platform.Files().FolderExists(folder)) return;
    for (const io::DirEntry& e : s.platform.Files().List(folder))
      if (!e.isFolder && vba::Like(vba::LCase(e.name), L"*.bas")) names.push_back(vba::Left(e.name, vba::Len(e.name) - 4));
  });
  return names;
}

}  // namespace quillet::settings
