#include "generators/scope.h"

#include "analysis/module_procs.h"
#include "analysis/module_scan.h"
#include "analysis/refresh.h"
#include "kernel/errors.h"
#include "kernel/position.h"

namespace quillet::generators {

std::shared_ptr<Scope>& ScopeSlot(kernel::Session& s) { return s.Slot<Scope>(); }

Scope& ScopeOf(kernel::Session& s) {
  std::shared_ptr<Scope>& scope = ScopeSlot(s);
  if (!scope) scope = std::make_shared<Scope>();
  return *scope;
}

const analysis::ProjectModels& ModelsOf(kernel::Session& s) {
  std::shared_ptr<analysis::ProjectModels>& models = analysis::Models(s);
  if (!models) models = std::make_shared<analysis::ProjectModels>();
  return *models;
}

const analysis::ProcDefCollection& Scope::ModuleProcs(kernel::Session& s) {
  if (!moduleProcs_) {
    moduleProcs_.emplace();
    if (component_) *moduleProcs_ = analysis::ModuleProperProcsGet(s, component_, true);
  }
  return *moduleProcs_;
}

void initialize(kernel::Session& s, const std::wstring& command, const std::wstring& argument) {
  // A fresh scope: what the last command knew is gone.
  auto scope = std::make_shared<Scope>();
  scope->command = command;
  scope->argument = argument;
  ScopeSlot(s) = scope;
  // A declaration command proposes the word the user selected as the name.
  if ((command == L"Dim" || command == L"Const" || command == L"Property") && !argument.empty())
    scope->proposedName = analysis::CurrentWordGet(s);
  if (host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr)
    scope->component_ = pane->CodeModule()->Parent();
  // The project's models follow the edits since the last command, then the module at the
  // caret is read for its own declarations.
  auto& models = analysis::Models(s);
  if (!models) models = std::make_shared<analysis::ProjectModels>();
  analysis::ProjectRefresh(s, *models, false);
  if (scope->component_) {
    analysis::clsScanModule module;
    module.init(s, scope->component_, nullptr, false);  // the scope reads its procedures when asked
    scope->ModuleVars = std::move(module.ModuleVars);
    scope->ModuleConsts = std::move(module.ModuleConsts);
    scope->ModuleEnums = std::move(module.ModuleEnums);
    scope->ModuleTypes = std::move(module.ModuleTypes);
  }

  std::wstring name;
  long body = 0;
  if (!kernel::CurrentProcGet(s, true, name, body)) {
    analysis::CurrentScan(s).reset();
    return;
  }
  auto scan = std::make_shared<analysis::clsScanProc>();
  scan->init(s, true);
  scope->ProcVars = scan->ProcVars;
  scope->ProcConsts = scan->ProcConsts;
  scope->ProcLabels = scan->ProcLabels;
  analysis::CurrentScan(s) = scan;
}

std::wstring VarTypeGet(kernel::Session& s, const std::wstring& name) {
  Scope& scope = ScopeOf(s);
  initialize(s, scope.command, scope.argument);
  Scope& fresh = ScopeOf(s);
  for (const analysis::Variables* vars : std::initializer_list<const analysis::Variables*>{&fresh.ProcVars, &fresh.ModuleVars, &ModelsOf(s).ProjectVars})
    if (const auto* v = vars->Find(name)) return (*v)->Type_;
  return {};
}

std::wstring ProcReturnTypeGet(kernel::Session& s, const std::wstring& name) {
  Scope& scope = ScopeOf(s);
  initialize(s, scope.command, scope.argument);
  // The project's and the module's procedures are asked for a member that a procedure
  // definition does not have, so they never answer: only a library function does.
  const analysis::ProjectModels& models = ModelsOf(s);
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  if (!project) return {};
  host::Ptr<host::References> refs = project->References();
  for (long i = 1; i <= refs->Count(); ++i)
    if (const auto* def = models.LibraryProcs.Find(refs->Item(i)->Name() + L"." + name)) return (*def)->ProcReturnType;
  return {};
}

}  // namespace quillet::generators
