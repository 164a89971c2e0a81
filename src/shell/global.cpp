#include "shell/global.h"

#include "shell/commands.h"

#include "analysis/module_scan.h"
#include "analysis/project_models.h"
#include "analysis/refresh.h"
#include "analysis/scan_proc.h"
#include "generators/frm_var.h"
#include "generators/scope.h"
#include "settings/settings.h"
#include "shell/command_bar.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "ui/ui_host.h"

namespace quillet::shell {

void AddInInitialize(kernel::Session& s) {
  bool firstLoad = true;
  settings::InitializeGlobalVars(s, firstLoad);
  settings::TypePrefixFromIniFile(s);
  settings::FoldersCreate(s);
  s.refreshModels = [&s](const vba::Variant& argument) { ProjectRefresh(s, argument); };
  DispatcherBodiesGive(s);
  generators::VariableBuilderServe(s);
}

void ProjectInitialize(kernel::Session& s, bool reduced) {
  kernel::OutlookFocusRestore(s);
  if (s.testingMode) AccessToolBarCreate(s);
  // Every model is replaced, never merged.
  auto models = std::make_shared<analysis::ProjectModels>();
  analysis::clsScanProject(s, *models).init();
  if (!reduced) {
    models->LibraryFolder.init(s);
    analysis::StdModulesGet(s, models->StdModules);
  }
  analysis::Models(s) = models;
}

void ReleaseModels(kernel::Session& s) {
  analysis::Models(s).reset();
  analysis::CurrentScan(s).reset();
  generators::ScopeSlot(s).reset();
}

void ProjectRefresh(kernel::Session& s, const vba::Variant& argument) {
  auto& models = analysis::Models(s);
  if (!models) models = std::make_shared<analysis::ProjectModels>();
  analysis::ProjectRefresh(s, *models, argument.ToBool());
}

void Heartbeat(kernel::Session& s) {
  if (!s.vbe) return;
  if (s.vbe->VBProjects()->Count() == 0) {
    MenusEnabledSet(s, false);
    s.currentProjectFile.clear();
    return;
  }
  host::Ptr<host::VBProject> project = s.vbe->ActiveVBProject();
  if (!project) vba::Raise(vba::kErrObjectNotSet);
  if (s.hostName.empty()) s.hostName = project->References()->Item(2)->Name();
  if (project->Protection() == host::kLocked) {
    MenusEnabledSet(s, false);
    return;
  }
  MenusEnabledSet(s, true);
  MenuItemsUpdate(s);
  std::wstring file = project->FileName();
  if (file.empty()) file = L"NewProject";
  if (!vba::EqualsText(file, s.currentProjectFile)) {
    s.currentProjectFile = file;
    ProjectInitialize(s, false);
    CodeExplorerRefresh(s);
  }
}

void MenusEnabledSet(kernel::Session& s, bool enabled) {
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

void CodeExplorerRefresh(kernel::Session& s) {}


}  // namespace quillet::shell
