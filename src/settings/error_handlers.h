#pragma once
// The error-handling blocks the user keeps as fragments in the ErrorHandlers folder.
#include <string>
#include <vector>

#include "kernel/session.h"

namespace quillet::settings {

// The names of the error-handler fragments: the ".bas" files of the folder without their
// extension, in the folder's order. A missing folder gives none.
std::vector<std::wstring> ErrorHandlersList(kernel::Session& s);

}  // namespace quillet::settings
