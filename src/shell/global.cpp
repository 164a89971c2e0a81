#include "shell/global.h"

#include "analysis/module_scan.h"
#include "analysis/project_models.h"
#include "analysis/refresh.h"
#include "analysis/scan_proc.h"
#include "generators/scope.h"
#include "settings/settings.h"
#include "shell/command_bar.h"
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
  if (s.testingMode) AccessToolBarCreate(s);
  // Every model is replaced, never merged.
  auto models = std::make_shared<analysis::ProjectModels>();
  analysis::clsScanProject(s, *models).init();
  if (!reduced) {
    models->LibraryFolder.init(s);
    analysis::StdModulesGet(s, models->StdModules);
  }
  s.models = models;
}

void ReleaseModels(Session& s) {
  s.models.reset();
  s.currentScan.reset();
  s.scope.reset();
}

void ProjectRefresh(Session& s, const vba::Variant& argument) {
  if (!s.models) s.models = std::make_shared<analysis::ProjectModels>();
  analysis::ProjectRefresh(s, *s.models, argument.ToBool());
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
