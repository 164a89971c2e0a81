// Placeholders until the settings subsystem lands: the add-in runs on the defaults.
#include "settings/settings.h"

namespace quillet::settings {

void InitializeGlobalVars(shell::Session& s, bool& firstLoad) { firstLoad = false; }
void TypePrefixFromIniFile(shell::Session& s) {}
bool FoldersCreate(shell::Session& s) { return true; }
std::wstring ErrorHandlersFolderGet(const shell::Session& s) {
  return s.platform.ProgramFolder() + L"vbcode\\Fragments\\ErrorHandlers\\";
}

}  // namespace quillet::settings
