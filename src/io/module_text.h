#pragma once
// The text layer of module files: bytes to lines and back, with the file's encoding,
// line ends and final line end, and refusal of what is not text.
#include <string>
#include <string_view>
#include <vector>

#include "io/module_file.h"

namespace quillet::io {

struct ModuleText {
  std::vector<std::wstring> lines;
  TextEncoding encoding = TextEncoding::Windows1252;
  LineEnd lineEnd = LineEnd::CrLf;  // the kind of the first line end
  bool finalLineEnd = false;
};

// Raises the module-file error: "Cannot load FILE, WHERE: WHY" (WHERE may be empty).
[[noreturn]] void RefuseModule(std::wstring_view fileName, std::wstring_view where, std::wstring_view why);

// Decodes a module file: UTF-8 when it starts with a byte-order mark, else Windows-1252.
// Refuses binary content, UTF-16, invalid UTF-8 and a carriage return without a line feed.
ModuleText DecodeModuleText(std::string_view bytes, std::wstring_view fileName);

// Joins the lines with the given line end (a line that holds line breaks itself becomes
// several lines) and encodes them; Windows-1252 falls back to UTF-8 with a byte-order
// mark when a character has no Windows-1252 byte.
std::string EncodeModuleText(const std::vector<std::wstring>& lines, TextEncoding encoding, LineEnd lineEnd,
                             bool finalLineEnd);

}  // namespace quillet::io
