#pragma once
// The command bar "Quillet" in the editor: built at connection, removed at disconnection.
#include "shell/session.h"

namespace quillet::shell {

class Connect;

// Builds the bar and its menu and hooks every control to its handler on `connect`.
void CommandBarBuild(Session& s, Connect& connect);
// Stores the bar's position and removes the bar and the Code Explorer's pop-up.
void CommandBarRemove(Session& s);

}  // namespace quillet::shell
