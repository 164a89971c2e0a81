#pragma once
// The central error-reporting module that error-handling blocks call: made from its
// template file when the project does not hold the reporting procedure yet.
#include "kernel/session.h"

namespace quillet::generators {

// Makes the reporting module in the active project from the template of "ErrorHandle
// File", named by "ErrorHandle Module", its procedure by "ErrorHandle Procedure". True when
// the module was made; a missing or empty template makes nothing and says nothing.
bool ErrorHandleModuleAdd(kernel::Session& s);

// Makes the reporting module unless a module of the active project already holds the
// reporting procedure: a project keeps its own.
void ErrorHandlerEnsure(kernel::Session& s);

}  // namespace quillet::generators
