#include "shell/global.h"

#include "settings/settings.h"
#include "shell/errors.h"
#include "shell/position.h"
#include "ui/ui_host.h"

namespace quillet::shell {

void AddInInitialize(Session& s) {
  bool firstLoad = true;
  settings::InitializeGlobalVars(s, firstLoad);
  settings::TypePrefixFromIniFile(s);
  settings::FoldersCreate(s);
}

void ProjectInitialize(Session& s, bool reduced) {
  OutlookFocusRestore(s);
  // The project, library and type-library scans fill the session's models here as they
  // arrive; every model is replaced, never merged.
}

void ReleaseModels(Session& s) {}

void ProjectRefresh(Session& s, const vba::Variant& argument) {
  // The refresh of the scan models compares references and module lengths once the
  // models exist; until then there is nothing to bring up to date.
}

void MenusEnabledSet(Session& s, bool enabled) {
  if (!s.vbe) return;
  try {
    s.vbe->CommandBars().Item(L"Quillet")->SetEnabled(enabled);
  } catch (const vba::Error&) {
  }
  // A hook for an entry of the code window's context menu; no such entry exists yet.
  try {
    s.vbe->CommandBars().Item(L"Code Window")->Controls().Item(L"Quillet Insert")->SetEnabled(enabled);
  } catch (const vba::Error&) {
  }
}

void CodeExplorerRefresh(Session& s) {}

void DoEvents(Session& s) {
  s.platform.DoEvents();
  s.uiHost.DoEvents();
}

}  // namespace quillet::shell
