#pragma once
// The tip of the day.
#include "shell/session.h"

namespace quillet::shell {

// Topics of the tip lists, in the order of the Help menu.
enum TipTopic : int { kTipStartup = 0, kTipVarBuilder, kTipCodeLineBuilder, kTipFragmentBuilder, kTipProcBuilder };

// Shows the startup tips when the user's per-user value asks for them.
void ShowTipAtStartup(Session& s);

}  // namespace quillet::shell
