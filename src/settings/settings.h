#pragma once
// The numbered settings items, the naming standards and the code folders, as the rest of
// the add-in asks for them.
#include <string>

#include "kernel/session.h"

namespace quillet::settings {

// Loads every item from its INI file, writing the keys that are missing. With `firstLoad`
// the first-load dialogue follows; `firstLoad` comes back false.
void InitializeGlobalVars(kernel::Session& s, bool& firstLoad);
// Reads the type-to-prefix table of the naming standard and derives the prefix lookups.
void TypePrefixFromIniFile(kernel::Session& s);
// Creates the code folders that do not exist, one level each; false after a failure, which
// is reported.
bool FoldersCreate(kernel::Session& s);

// Opens the settings dialog modally; `firstRun` marks the first start, when the user's
// personal data is still to be filled in. Returns when the dialog has closed.
void SettingsDialogOpen(kernel::Session& s, bool firstRun);

}  // namespace quillet::settings
