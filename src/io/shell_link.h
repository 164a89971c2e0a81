#pragma once
// Windows shell link files (".lnk"): the binary format the shell writes for a shortcut,
// read and written here so that a fragment library made on Windows works on any platform
// and the reverse. Reading takes what the library needs (where the link points, and its
// strings); writing makes a small link that the shell accepts: header, link info with
// the local path, and the strings in Unicode.
#include <string>
#include <string_view>

namespace quillet::io {

struct ShellLink {
  // Where the link points, as an absolute path: the local base path of the link info
  // (with its suffix), else the path the target ID list spells; empty when neither.
  std::wstring targetPath;
  // The target relative to the folder of the link file (".\Other\x.bas").
  std::wstring relativePath;
  std::wstring workingDir;
  std::wstring arguments;
  // The link's name string, shown as its comment.
  std::wstring description;
  std::wstring iconLocation;
  int iconIndex = 0;
  // 1 normal, 3 maximized, 7 minimized (not active).
  unsigned showCommand = 1;
  // True when the file holds a target ID list (kept for reading; never written).
  bool hasIdList = false;
};

// Reads a shell link. A file that is not one, or that ends inside a field, raises
// vba::Error with a description naming the field.
ShellLink ParseShellLink(std::string_view bytes);

// The bytes of a shell link to `link.targetPath` with the strings that are not empty.
std::string SerializeShellLink(const ShellLink& link);

// Where a link read from `linkFile` points: its target path, else its relative path
// resolved against the link's folder; empty when it names neither.
std::wstring ShellLinkTarget(const ShellLink& link, std::wstring_view linkFile);

// The relative path from the folder of `linkFile` to `target` (".\x.bas", "..\a\x.bas"),
// empty when they lie on different drives or shares.
std::wstring RelativeLinkPath(std::wstring_view linkFile, std::wstring_view target);

}  // namespace quillet::io
