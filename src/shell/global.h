#pragma once
// The add-in's life between connection and disconnection: loading the settings, following
// the active project, enabling the command bar.
#include "shell/session.h"

namespace quillet::shell {

// Loads settings and naming standards and makes the code folders.
void AddInInitialize(Session& s);
// Rebuilds every scan model for the active project; `reduced` keeps to the project scan.
void ProjectInitialize(Session& s, bool reduced);
// Brings the models up to date with the editor before a builder opens.
void ProjectRefresh(Session& s, const vba::Variant& argument);
// Drops every scan model (at disconnection).
void ReleaseModels(Session& s);
// Enables or disables the command bar; errors are passed over.
void MenusEnabledSet(Session& s, bool enabled);
// Shows and hides the bar's controls for where the caret is.
void MenuItemsUpdate(Session& s);
// Yields to the host: queued keystrokes land, pending outside work runs.
void DoEvents(Session& s);
// Brings the Code Explorer up to date after a project change, and shows it when the user
// wants it and has never opened it.
void CodeExplorerRefresh(Session& s);

}  // namespace quillet::shell
