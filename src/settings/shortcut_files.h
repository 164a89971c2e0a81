#pragma once
// Shortcut files (".lnk") on the session's file system: the shell link format of io/
// read and written through the platform, so that a shortcut made on Windows is read here
// and one made here opens on Windows.
#include <string>
#include <string_view>

#include "io/shell_link.h"
#include "kernel/session.h"

namespace quillet::settings {

// The link a shortcut file holds. Raises vba::Error when the file cannot be read or is
// not a shell link.
io::ShellLink ShortcutRead(kernel::Session& s, std::wstring_view shortcutFile);

// Where a shortcut file points: its target path, else its relative path taken from the
// shortcut's folder. Raises as ShortcutRead.
std::wstring ShortcutTarget(kernel::Session& s, std::wstring_view shortcutFile);

// Writes `link` as a shortcut file, its relative path made from its target path first, so
// the link still resolves when the tree moves as a whole. Raises vba::Error on failure.
void ShortcutWrite(kernel::Session& s, std::wstring_view shortcutFile, io::ShellLink link);

// Makes a shortcut file that points to `target`. Raises as ShortcutWrite.
void ShortcutCreate(kernel::Session& s, std::wstring_view shortcutFile, std::wstring_view target);

// Points an existing shortcut at `target`, keeping its other strings. Raises as
// ShortcutRead and ShortcutWrite.
void ShortcutRetarget(kernel::Session& s, std::wstring_view shortcutFile, std::wstring_view target);

}  // namespace quillet::settings
