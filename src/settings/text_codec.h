#pragma once
// The text files beside the program (INI files, fragments, templates): Windows-1252 bytes,
// or UTF-8 when the file starts with a byte-order mark.
#include <string>
#include <string_view>

namespace quillet::settings {

struct DecodedText {
  std::wstring text;
  bool utf8Bom = false;  // the file started with a UTF-8 byte-order mark
};

DecodedText DecodeText(std::string_view bytes);
// Windows-1252, unless `utf8Bom` is set or a character has no Windows-1252 byte: then UTF-8
// behind a byte-order mark.
std::string EncodeText(std::wstring_view text, bool utf8Bom);
// Every line end (CR LF, a lone LF, a lone CR) as CR LF.
std::wstring CrLfLineEnds(std::wstring_view text);

}  // namespace quillet::settings
