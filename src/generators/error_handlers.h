#pragma once
// The error-handling blocks the user keeps as fragments in the ErrorHandlers folder.
#include <string>
#include <vector>

#include "shell/session.h"

namespace quillet::generators {

// The names of the error-handler fragments: the ".bas" files of the folder without their
// extension, in the folder's order. A missing folder gives none.
std::vector<std::wstring> ErrorHandlersList(shell::Session& s);

}  // namespace quillet::generators
