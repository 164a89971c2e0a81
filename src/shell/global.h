#pragma once
// The add-in's life between connection and disconnection: loading the settings, following
// the active project, enabling the command bar.
#include "kernel/session.h"

namespace quillet::shell {

// Loads settings and naming standards and makes the code folders.
void AddInInitialize(kernel::Session& s);
// Rebuilds every scan model for the active project; `reduced` keeps to the project scan.
void ProjectInitialize(kernel::Session& s, bool reduced);
// Brings the models up to date with the editor before a builder opens.
void ProjectRefresh(kernel::Session& s, const vba::Variant& argument);
// Drops every scan model (at disconnection).
void ReleaseModels(kernel::Session& s);
// Enables or disables the command bar; errors are passed over.
void MenusEnabledSet(kernel::Session& s, bool enabled);
// Shows and hides the bar's controls for where the caret is.
void MenuItemsUpdate(kernel::Session& s);
// The heartbeat: follows the editor twice a second, enabling the bar and noticing a
// change of project.
void Heartbeat(kernel::Session& s);
// Brings the Code Explorer up to date after a project change, and shows it when the user
// wants it and has never opened it.
void CodeExplorerRefresh(kernel::Session& s);

}  // namespace quillet::shell
