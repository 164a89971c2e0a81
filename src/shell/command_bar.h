#pragma once
// The command bar "Quillet" in the editor: built at connection, removed at disconnection,
// its controls shown and hidden by the heartbeat for where the caret is.
#include <string>
#include <string_view>

#include "hostmodel/commandbars.h"
#include "kernel/session.h"

namespace quillet::shell {

class Connect;

// Builds the bar and its menu and hooks every control to its handler on `connect`.
void CommandBarBuild(kernel::Session& s, Connect& connect);
// Stores the bar's position and removes the bar and the Code Explorer's pop-up.
void CommandBarRemove(kernel::Session& s);

// Makes (or finds) the bar "Quillet" in `bars`, at the position stored under keys with
// `suffix`.
host::Ptr<host::CommandBar> ToolBarCreate(kernel::Session& s, host::CommandBars& bars, std::wstring_view suffix);
// Stores the bar's position under keys with `suffix`, then deletes it.
void ToolBarDelete(kernel::Session& s, host::CommandBars& bars, std::wstring_view suffix);
// Adds one control to the bar or to `parent`: caption from the string table, picture,
// style, tag as a path through the menu, tooltip.
struct ControlDescription {
  int captionId = 0;
  int controlType = host::kControlButton;
  bool beginGroup = false;
  int faceId = 0;                               // the picture; 0 for none
  host::Ptr<host::CommandBarControl> parent = nullptr;  // nullptr: on the bar itself
  std::wstring tooltip = {};
  bool forceCaption = false;                    // caption beside the picture
  long copyFaceId = 0;
};
host::Ptr<host::CommandBarControl> ToolBarControlAdd(kernel::Session& s, host::CommandBar& bar, const ControlDescription& described);
// In testing mode, under Access: Access's own toolbar with the Add Control button.
bool AccessToolBarCreate(kernel::Session& s);
// Fills the error-handler dropdown with the error handlers, the default one chosen.
void ErrorHandlerList(kernel::Session& s, host::CommandBarControl& combo);

}  // namespace quillet::shell
