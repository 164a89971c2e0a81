#pragma once
// Windows paths as the logic speaks them: drive letters or \\server\share, backslashes,
// names compared without regard to case.
#include <string>
#include <string_view>

namespace quillet::io {

bool IsAbsoluteWindowsPath(std::wstring_view path);   // "C:\..." or "\\server\share\..."
// Joins with exactly one "\" between the parts; an absolute second part wins.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);
// The folder part with its final "\" ("C:\a\b.txt" -> "C:\a\"), empty for a bare name.
std::wstring FolderOf(std::wstring_view path);
std::wstring FileNameOf(std::wstring_view path);       // "b.txt"
std::wstring ExtensionOf(std::wstring_view path);      // ".txt", empty if none
// Resolves "." and "..", turns "/" into "\", drops doubled separators.
std::wstring NormalizePath(std::wstring_view path);
bool SamePath(std::wstring_view a, std::wstring_view b);

}  // namespace quillet::io
