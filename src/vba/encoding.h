#pragma once
// Conversions at the edges: UTF-8 for JSON, HTTP and the console; Windows-1252 for
// module and INI files.
#include <optional>
#include <string>
#include <string_view>

namespace quillet::vba {

std::string ToUtf8(std::wstring_view s);
// Invalid sequences become U+FFFD.
std::wstring FromUtf8(std::string_view s);
// Strict form: nullopt when the bytes are not valid UTF-8.
std::optional<std::wstring> FromUtf8Strict(std::string_view s);

// Windows-1252: every byte maps to one character (the five unassigned bytes map to
// the C1 control of the same value, so that any byte sequence round-trips).
std::wstring FromWindows1252(std::string_view bytes);
// nullopt when a character has no Windows-1252 byte.
std::optional<std::string> ToWindows1252(std::wstring_view s);
// Characters without a byte become "?".
std::string ToWindows1252Lossy(std::wstring_view s);

}  // namespace quillet::vba
