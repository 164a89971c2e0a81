#pragma once
// The scope collections of the statement commands: what the module and the procedure at
// the caret declare, rebuilt before each command and valid until the next one.
#include <memory>
#include <optional>
#include <string>

#include "analysis/proc_def.h"
#include "analysis/project_models.h"
#include "analysis/records.h"
#include "analysis/scan_proc.h"
#include "kernel/session.h"

namespace quillet::generators {

struct Scope {
  // The command being carried out and its argument.
  std::wstring command, argument;
  // What the quick boxes propose (Dim, Const, Property).
  std::wstring proposedName, proposedValue;

  analysis::Variables ModuleVars;
  analysis::Constants ModuleConsts;
  analysis::colEnums ModuleEnums;
  analysis::colTypes ModuleTypes;
  // The module's procedures, private ones included. Read when first asked for: most
  // commands never ask, and a large module has many.
  const analysis::ProcDefCollection& ModuleProcs(kernel::Session& s);

  // The procedure at the caret; empty outside every procedure.
  analysis::Variables ProcVars;  // arguments included
  analysis::Constants ProcConsts;
  analysis::Labels ProcLabels;

 private:
  friend void initialize(kernel::Session&, const std::wstring&, const std::wstring&);
  host::Ptr<host::VBComponent> component_;  // the module at the caret when the command began
  std::optional<analysis::ProcDefCollection> moduleProcs_;
};

// Rebuilds the scope collections for a command. Outside every procedure the procedure's
// collections are empty and the session's current scan is dropped.
void initialize(kernel::Session& s, const std::wstring& command, const std::wstring& argument);
// The session's handle on the scope of the last command; null before the first.
std::shared_ptr<Scope>& ScopeSlot(kernel::Session& s);
// The scope of the last command (empty before the first).
Scope& ScopeOf(kernel::Session& s);
// The project's and libraries' models (empty before the first project change).
const analysis::ProjectModels& ModelsOf(kernel::Session& s);

// The declared type of a variable of the procedure, the module or the project; "" when
// unknown. The scope is rebuilt first.
std::wstring VarTypeGet(kernel::Session& s, const std::wstring& name);
// The return type of a library function; "" when no referenced library answers.
std::wstring ProcReturnTypeGet(kernel::Session& s, const std::wstring& name);

}  // namespace quillet::generators
