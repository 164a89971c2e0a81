#include "settings/text_codec.h"

#include "vba/encoding.h"

namespace quillet::settings {

namespace {
constexpr std::string_view kBom = "\xEF\xBB\xBF";
}

DecodedText DecodeText(std::string_view bytes) {
  if (bytes.substr(0, kBom.size()) == kBom) return {vba::FromUtf8(bytes.substr(kBom.size())), true};
  return {vba::FromWindows1252(bytes), false};
}

std::string EncodeText(std::wstring_view text, bool utf8Bom) {
  if (!utf8Bom) {
    if (auto bytes = vba::ToWindows1252(text)) return *bytes;
  }
  return std::string(kBom) + vba::ToUtf8(text);
}

std::wstring CrLfLineEnds(std::wstring_view text) {
  std::wstring out;
  out.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < text.size(); ++i) {
    wchar_t c = text[i];
    if (c == L'\r') {
      out += L"\r\n";
      if (i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    } else if (c == L'\n') {
      out += L"\r\n";
    } else {
      out += c;
    }
  }
  return out;
}

}  // namespace quillet::settings
