#pragma once
// The fragment library on disk: the tree under "<fragments>" of ".bas" files, and the
// shortcut files (".lnk") that let one fragment appear in several folders. Every change
// of a file is one step on disk; a failure is reported the system's way under the name
// given as `where` ("frmFragments.mnuMove_Click") and leaves every file as it was.
//
//   std::wstring text = FragmentRead(s, L"Loops\\For Each");   // <fragments>\Loops\For Each.bas
//   ShortCutCreate(s, L"C:\\...\\Fragments\\Loops\\For Each.bas", L"C:\\...\\Fragments\\Favourites");
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kernel/session.h"

namespace quillet::fragments {

// The colour a shortcut's entry is drawn in, and by which the dialogs tell it from a fragment.
inline constexpr long kShortcutColor = 7237230;  // &H6E6E6E

// The text of the fragment `name`, relative to the library's root; ".bas" is added when
// the name does not end in it. Empty (and reported) when the file cannot be read.
std::wstring FragmentRead(kernel::Session& s, std::wstring name);

// Whether a folder of the library is offered in the active project: a folder tied to a
// library in the section "fragments/reference" of the references file is offered only when
// the project references that library. A missing file or section ties nothing. The file
// is read once, when the object is made.
class FragmentFolders {
 public:
  explicit FragmentFolders(kernel::Session& s);
  bool Available(std::wstring_view path) const;

 private:
  kernel::Session& s_;
  std::wstring root_;
  std::vector<std::pair<std::wstring, std::wstring>> ties_;  // folder name, reference name
};
// The same for one folder.
bool FragmentFolderAvailable(kernel::Session& s, std::wstring_view path);

// The full name of the shortcut to `targetFile` in `folder`: "Loop.bas.lnk".
std::wstring ShortCutName(std::wstring_view targetFile, std::wstring_view folder);

// Makes a shortcut to `targetFile` in `folder`. False (reported) when the folder or the
// file is missing or the shortcut cannot be written.
bool ShortCutCreate(kernel::Session& s, std::wstring_view targetFile, std::wstring_view folder);

// The fragment a shortcut points to; "" when the shortcut file is missing or unreadable.
// A target outside this installation's library whose path holds a folder "Fragments" is
// taken as the same place in this library, and the shortcut is saved so: a library that
// was moved repairs its shortcuts on first reading.
std::wstring ShortCutTargetPath(kernel::Session& s, std::wstring_view shortcutFile);

// Renames or moves a file to `to` in one step. Refused when `to` exists (whatever its
// case), names a folder that is gone or holds a character Windows forbids. True when done.
// A fragment's shortcuts follow it (ShortcutsFollow).
bool FragmentFileRename(kernel::Session& s, std::wstring_view from, std::wstring_view to, std::wstring_view where);

// After the fragment `from` became `to`: every shortcut of the library that points to
// `from` is pointed to `to` and saved, so that it stays in its folder's list. A shortcut
// that cannot be rewritten is reported under `where` and stays as it was; the others
// follow all the same. The number of shortcuts that followed.
int ShortcutsFollow(kernel::Session& s, std::wstring_view from, std::wstring_view to, std::wstring_view where);

// Deletes a fragment or shortcut file. True when done.
bool FragmentFileDelete(kernel::Session& s, std::wstring_view file, std::wstring_view where);

// Writes a fragment's text, the whole file replaced in one step. True when done.
bool FragmentFileWrite(kernel::Session& s, std::wstring_view file, std::wstring_view text, std::wstring_view where);

}  // namespace quillet::fragments
