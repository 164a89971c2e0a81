#pragma once
// The tip of the day: short tips per topic, read from the Tips folder beside the program.
#include "kernel/session.h"

namespace quillet::shell {

// Topics of the tip lists, in the order of the Help menu.
enum TipTopic : int {
  kTipStartup = 0,
  kTipVarBuilder,
  kTipCodeLineBuilder,
  kTipFragmentBuilder,
  kTipProcBuilder,
  kTipClassBuilder,
};

// Shows the tips of a topic when the user's per-user value asks for them, or always when
// `forced` (the Help menu's entries).
void ShowTip(kernel::Session& s, TipTopic topic, bool forced);
// Shows the startup tips when the user's per-user value asks for them.
void ShowTipAtStartup(kernel::Session& s);

}  // namespace quillet::shell
