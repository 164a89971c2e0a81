#include "io/module_text.h"

#include <cstdio>

#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::io {
namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

std::wstring LineNo(std::size_t line) { return L"line " + std::to_wstring(line); }

std::wstring ByteDescription(unsigned char b, std::size_t offset) {
  wchar_t hex[8];
  std::swprintf(hex, 8, L"0x%02X", static_cast<unsigned>(b));
  return L"byte " + std::wstring(hex) + L" at offset " + std::to_wstring(offset);
}

// Tab, line feed, form feed, carriage return and the end-of-file mark are the only
// control characters a module file may hold.
bool IsTextByte(unsigned char b) {
  if (b >= 0x20) return b != 0x7F;
  return b == 0x09 || b == 0x0A || b == 0x0C || b == 0x0D || b == 0x1A;
}

}  // namespace

void RefuseModule(std::wstring_view fileName, std::wstring_view where, std::wstring_view why) {
  std::wstring d = L"Cannot load " + std::wstring(fileName);
  if (!where.empty()) d += L", " + std::wstring(where);
  d += L": " + std::wstring(why);
  vba::Raise(kErrInvalidFileFormat, d);
}

ModuleText DecodeModuleText(std::string_view bytes, std::wstring_view fileName) {
  ModuleText text;
  std::size_t start = 0;
  if (bytes.starts_with(kUtf8Bom)) {
    text.encoding = TextEncoding::Utf8Bom;
    start = kUtf8Bom.size();
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    RefuseModule(fileName, {},
                 L"the file is UTF-16 text; module files are Windows-1252 or UTF-8 with a byte-order mark");
  }

  bool sawLineEnd = false;
  std::size_t lineStart = start;
  auto addLine = [&](std::size_t end) {
    std::string_view raw = bytes.substr(lineStart, end - lineStart);
    if (text.encoding == TextEncoding::Windows1252) {
      text.lines.push_back(vba::FromWindows1252(raw));
    } else if (auto decoded = vba::FromUtf8Strict(raw)) {
      text.lines.push_back(std::move(*decoded));
    } else {
      RefuseModule(fileName, LineNo(text.lines.size() + 1),
                   L"the text is not valid UTF-8 although the file starts with a UTF-8 byte-order mark");
    }
  };
  for (std::size_t i = start; i < bytes.size(); ++i) {
    auto b = static_cast<unsigned char>(bytes[i]);
    if (!IsTextByte(b))
      RefuseModule(fileName, LineNo(text.lines.size() + 1),
                   L"the file holds binary content (" + ByteDescription(b, i) + L"), not module text");
    if (b == '\r') {
      if (i + 1 >= bytes.size() || bytes[i + 1] != '\n')
        RefuseModule(fileName, LineNo(text.lines.size() + 1),
                     L"a carriage return without a line feed (" + ByteDescription(b, i) +
                         L"); save the file with CR LF or LF line ends");
      if (!sawLineEnd) text.lineEnd = LineEnd::CrLf;
      sawLineEnd = true;
      addLine(i);
      lineStart = ++i + 1;
    } else if (b == '\n') {
      if (!sawLineEnd) text.lineEnd = LineEnd::Lf;
      sawLineEnd = true;
      addLine(i);
      lineStart = i + 1;
    }
  }
  text.finalLineEnd = lineStart == bytes.size() && bytes.size() > start;
  if (lineStart < bytes.size()) addLine(bytes.size());
  return text;
}

std::string EncodeModuleText(const std::vector<std::wstring>& lines, TextEncoding encoding, LineEnd lineEnd,
                             bool finalLineEnd) {
  const wchar_t* eol = lineEnd == LineEnd::CrLf ? L"\r\n" : L"\n";
  std::wstring text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) text += eol;
    // A line break inside a line would leave a file that does not load again.
    const std::wstring& line = lines[i];
    for (std::size_t k = 0; k < line.size(); ++k) {
      if (line[k] == L'\r' || line[k] == L'\n') {
        if (line[k] == L'\r' && k + 1 < line.size() && line[k + 1] == L'\n') ++k;
        text += eol;
      } else {
        text += line[k];
      }
    }
  }
  if (finalLineEnd && !lines.empty()) text += eol;
  if (encoding == TextEncoding::Windows1252)
    if (auto bytes = vba::ToWindows1252(text)) return std::move(*bytes);
  return std::string(kUtf8Bom) + vba::ToUtf8(text);
}

}  // namespace quillet::io
