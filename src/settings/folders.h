#pragma once
// The code folders and the paths of the settings. A path setting may hold a folder token
// ("<code>\Templates\x.cls"), a path relative to the program's folder ("\vbcode\"), or a
// full path on a drive ("D:\code") or a share ("\\server\share\code"). All paths are
// Windows paths.
#include <string>
#include <string_view>
#include <vector>

#include "shell/session.h"

namespace quillet::settings {

// The tokens in their order of expansion: "<root>", "<code>", "<library>", "<fragments>",
// "<classes>", "<templates>", "<errorhandlers>".
const std::vector<std::wstring>& FolderTokens();
// The folder a token stands for, by its index in FolderTokens.
std::wstring TokenFolderGet(shell::Session& s, int token);

std::wstring RootFolderGet(shell::Session& s);            // the program's folder
std::wstring CodeFolderGet(shell::Session& s);            // "Base Folder", relative to <root>
std::wstring LibraryFolderGet(shell::Session& s);         // "Library Folder"
std::wstring FragmentsFolderGet(shell::Session& s);       // <code> + "Fragments"
std::wstring ClassesFolderGet(shell::Session& s);         // <code> + "Classes"
std::wstring TemplatesFolderGet(shell::Session& s);       // <code> + "Templates"
std::wstring ErrorHandlersFolderGet(shell::Session& s);   // <fragments> + "ErrorHandlers"

// The files of the path settings, made absolute.
std::wstring ErrorHandleFileGet(shell::Session& s);
std::wstring CollectionClassTemplateGet(shell::Session& s);
std::wstring ProcedureHeaderFileGet(shell::Session& s);
std::wstring ModuleHeaderFileGet(shell::Session& s);
std::wstring PrefixStandardsFileGet(shell::Session& s);

// Joins parts with one "\" between them: the first part gets a final "\", each further one
// loses its leading ones; the last part keeps its end as it is. Empty leading parts are
// passed over.
std::wstring PathCombine(const std::vector<std::wstring>& parts);
// Adds a final "\" when missing; an empty path stays empty.
std::wstring PathAddSlash(std::wstring_view path);
// Replaces each folder token found (the first occurrence of each) by its folder.
std::wstring PathTokensExpand(shell::Session& s, std::wstring_view path);
// Expands tokens; a path that is not on a drive or a share and does not contain `base`
// (default: the program's folder) is taken as relative to `base`.
std::wstring PathAbsoluteGet(shell::Session& s, std::wstring_view path);
std::wstring PathAbsoluteGet(shell::Session& s, std::wstring_view path, std::wstring_view base);
// The part behind the program's folder when the path starts with it; else the path.
std::wstring PathRootRelativeGet(shell::Session& s, std::wstring_view path);
// The path up to and including its last "\".
std::wstring PathFolderGet(std::wstring_view path);

}  // namespace quillet::settings
