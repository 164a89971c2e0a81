#include "settings/shortcut_files.h"

namespace quillet::settings {

io::ShellLink ShortcutRead(kernel::Session& s, std::wstring_view shortcutFile) {
  return io::ParseShellLink(s.platform.Files().ReadFile(shortcutFile));
}

std::wstring ShortcutTarget(kernel::Session& s, std::wstring_view shortcutFile) {
  return io::ShellLinkTarget(ShortcutRead(s, shortcutFile), shortcutFile);
}

void ShortcutWrite(kernel::Session& s, std::wstring_view shortcutFile, io::ShellLink link) {
  if (!link.targetPath.empty()) link.relativePath = io::RelativeLinkPath(shortcutFile, link.targetPath);
  s.platform.Files().WriteFile(shortcutFile, io::SerializeShellLink(link));
}

void ShortcutCreate(kernel::Session& s, std::wstring_view shortcutFile, std::wstring_view target) {
  io::ShellLink link;
  link.targetPath = target;
  ShortcutWrite(s, shortcutFile, std::move(link));
}

void ShortcutRetarget(kernel::Session& s, std::wstring_view shortcutFile, std::wstring_view target) {
  io::ShellLink link = ShortcutRead(s, shortcutFile);
  link.targetPath = target;
  ShortcutWrite(s, shortcutFile, std::move(link));
}

}  // namespace quillet::settings
