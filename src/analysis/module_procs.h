#pragma once
// The procedures of a module as the builders ask for them: the module's own procedures,
// the one at the caret and its arguments.
#include <memory>
#include <string>

#include "analysis/proc_def.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::analysis {

// The procedures of `component` (nullptr: the active code pane's), keyed by name. With
// `all` every procedure; without it, in a standard module only the procedures that are not
// public, in other modules only the Subs and Functions (no properties). Where two
// procedures share a name the first keeps it. A failure is reported as
// "basGlobal.ModuleProperProcsGet" and gives what was read until then.
ProcDefCollection ModuleProperProcsGet(kernel::Session& s, const host::Ptr<host::VBComponent>& component, bool all);

// Which procedure the caret is in. With `fullTest` the comments above the header and the
// blank lines behind its End count as outside (the name is then emptied), and
// `onDefinition` tells whether the caret is on the definition's lines.
bool CursorProcGet(kernel::Session& s, bool fullTest, std::wstring& procName, long& bodyLine, bool& onDefinition,
                   host::ProcKind& kind);

// The arguments of the procedure at the caret (the selection's start line), read from its
// definition; nullptr outside a procedure or without a code pane. `procName` and `kind`
// are handed out. Failures of the host reach the caller.
std::shared_ptr<Rv_ProcArguments> qltCurProcArgsGet(kernel::Session& s, std::wstring& procName, host::ProcKind& kind);

}  // namespace quillet::analysis
