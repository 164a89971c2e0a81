#include "shell/command_bar.h"

namespace quillet::shell {

// The bar's tree and its handlers arrive with the menus; the add-in runs without them.
void CommandBarBuild(Session& s, Connect& connect) {}
void CommandBarRemove(Session& s) {}

}  // namespace quillet::shell
