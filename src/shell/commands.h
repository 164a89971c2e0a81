#pragma once
// The command table: what each control of the command bar runs (Connect::Handle), and the
// list of every name a scenario can use, for `quillet commands`.
#include <string>
#include <vector>

#include "kernel/session.h"

namespace quillet::shell {

// A handler of the command bar with the caption of its control ("&" marks taken out).
struct HandlerEntry {
  std::wstring handler;
  std::wstring caption;
  std::wstring command;  // the dispatcher command it runs; "" for others
};
// Every handler of the bar, in the bar's order, popups' children included.
std::vector<HandlerEntry> CommandBarHandlers();

// The dispatcher's commands and the bar's handlers as text for a reader, one a line.
std::wstring CommandsListing();
// Gives the dispatcher the bodies of its commands that features above it carry out.
void DispatcherBodiesGive(kernel::Session& s);

}  // namespace quillet::shell
