#pragma once
// The code folders and the paths of the settings. A path setting may hold a folder token
// ("<code>\Templates\x.cls"), a path relative to the program's folder ("\vbcode\"), or a
// full path on a drive ("D:\code") or a share ("\\server\share\code"). All paths are
// Windows paths.
#include <string>
#include <string_view>
#include <vector>

#include "kernel/session.h"

namespace quillet::settings {

// The tokens in their order of expansion: "<root>", "<code>", "<library>", "<fragments>",
// "<classes>", "<templates>", "<errorhandlers>".
const std::vector<std::wstring>& FolderTokens();
// The folder a token stands for, by its index in FolderTokens.
std::wstring TokenFolderGet(kernel::Session& s, int token);

std::wstring RootFolderGet(kernel::Session& s);            // the program's folder
std::wstring CodeFolderGet(kernel::Session& s);            // "Base Folder", relative to <root>
std::wstring LibraryFolderGet(kernel::Session& s);         // "Library Folder"
std::wstring FragmentsFolderGet(kernel::Session& s);       // <code> + "Fragments"
std::wstring ClassesFolderGet(kernel::Session& s);         // <code> + "Classes"
std::wstring TemplatesFolderGet(kernel::Session& s);       // <code> + "Templates"
std::wstring ErrorHandlersFolderGet(kernel::Session& s);   // <fragments> + "ErrorHandlers"

// The files of the path settings, made absolute.
std::wstring ErrorHandleFileGet(kernel::Session& s);
std::wstring CollectionClassTemplateGet(kernel::Session& s);
std::wstring ProcedureHeaderFileGet(kernel::Session& s);
std::wstring ModuleHeaderFileGet(kernel::Session& s);
std::wstring PrefixStandardsFileGet(kernel::Session& s);

// Joins parts with one "\" between them: the first part gets a final "\", each further one
// loses its leading ones; the last part keeps its end as it is. Empty leading parts are
// passed over.
std::wstring PathCombine(const std::vector<std::wstring>& parts);
// Adds a final "\" when missing; an empty path stays empty.
std::wstring PathAddSlash(std::wstring_view path);
// Replaces each folder token found (the first occurrence of each) by its folder.
std::wstring PathTokensExpand(kernel::Session& s, std::wstring_view path);
// Expands tokens; a path that is not on a drive or a share and does not contain `base`
// (default: the program's folder) is taken as relative to `base`.
std::wstring PathAbsoluteGet(kernel::Session& s, std::wstring_view path);
std::wstring PathAbsoluteGet(kernel::Session& s, std::wstring_view path, std::wstring_view base);
// The part behind the program's folder when the path starts with it; else the path.
std::wstring PathRootRelativeGet(kernel::Session& s, std::wstring_view path);
// The path up to and including its last "\".
std::wstring PathFolderGet(std::wstring_view path);

}  // namespace quillet::settings
