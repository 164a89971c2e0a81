#pragma once
// Reading what modules declare: the module-level view of one module (its variables,
// constants, enums, types and procedures for its own use) and the project-level view of
// what every module makes public. A repeated name keeps its first entry.
//
//   clsScanModule here;
//   here.init(s);                      // the selected or active module
//   here.ModuleVars.Find(L"mstrName");
//   clsScanProject(s, models).init();  // every module of the active project
#include <string>
#include <vector>

#include "analysis/proc_def.h"
#include "analysis/project_models.h"
#include "analysis/records.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::analysis {

class clsScanModule {
 public:
  Variables ModuleVars;
  Constants ModuleConsts;
  colEnums ModuleEnums;
  colTypes ModuleTypes;
  ProcDefCollection ModuleProcs;  // the module's own procedures, declared ones included

  // Scans `component`, or the selected component, or the active code pane's module.
  // With `models` the project scan of that module runs again afterwards. A reader that
  // needs only the declarations passes over the procedures.
  void init(kernel::Session& s, host::Ptr<host::VBComponent> component = nullptr, ProjectModels* models = nullptr,
            bool withProcedures = true);
};

// Fills a project's public models, one module at a time.
class clsScanProject {
 public:
  clsScanProject(kernel::Session& s, ProjectModels& models) : s_(s), models_(models) {}

  // Scans the component named `moduleName`, or every component of the active project when
  // it is empty. Nothing happens without a project or with a locked one.
  void init(const std::wstring& moduleName = {});
  void ScanModule(const host::Ptr<host::VBComponent>& component);
  // The public procedures of a standard module go to the project's procedures under their
  // names; a class module goes to the project's classes.
  void ModulePublicProcsGet(const host::Ptr<host::VBComponent>& component);

 private:
  kernel::Session& s_;
  ProjectModels& models_;
};

// The enum whose name starts `text`, with the members of the statements behind `index`
// up to "End Enum"; each member also goes to `constants` when given. `index` comes back
// on the statement that ends the block (or behind the last one).
void EnumAdd(kernel::Session& s, std::wstring_view text, const std::vector<std::wstring>& statements, size_t& index,
             colEnums& enums, Constants* constants, const SharedText& module, bool isPrivate);
// The same for a user-defined type and its fields, up to "End Type".
void TypeAdd(kernel::Session& s, std::wstring_view text, const std::vector<std::wstring>& statements, size_t& index,
             colTypes& types, const SharedText& module, bool isPrivate);

// The procedures of a module read from one line of each, by their definitions (their code
// stays in the module, where the one at the caret is read when it is needed); with
// `onlyPublic` the private ones are passed over.
Rv_ProcDefs ModuleProcsRead(kernel::Session& s, const host::Ptr<host::VBComponent>& component, bool onlyPublic);

}  // namespace quillet::analysis
