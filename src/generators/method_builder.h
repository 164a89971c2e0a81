#pragma once
// The Class Builder's way to the Method Builder: the Procedure Builder in its class mode,
// which hands the method to the class instead of writing it.
#include "generators/procedure.h"
#include "kernel/session.h"

namespace quillet::generators {

class FrmClass;

// Opens the Method Builder for a new method of `parent`'s class (`edited` nullptr) or for
// the one to change; the method comes back through FrmClass::MethodAccepted.
void MethodBuilderRun(kernel::Session& s, FrmClass& parent, clsProcedure* edited);

}  // namespace quillet::generators
