#include "shipped_files.h"

#include <algorithm>
#include <fstream>
#include <sstream>

#include "vba/encoding.h"
#include "vba/text.h"

namespace quillet::datacheck {
namespace {

std::wstring Trim(const std::wstring& s) {
  std::size_t a = s.find_first_not_of(L' ');
  if (a == std::wstring::npos) return {};
  return s.substr(a, s.find_last_not_of(L' ') + 1 - a);
}

}  // namespace

std::string ReadBytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::vector<std::wstring> TextLines(const fs::path& file, std::vector<std::wstring>& problems) {
  std::string bytes = ReadBytes(file);
  std::wstring name = vba::FromUtf8(file.filename().string()) + L": ";
  if (std::any_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; }))
    problems.push_back(name + L"holds a byte outside ASCII");
  std::vector<std::wstring> lines;
  std::size_t start = 0;
  while (start < bytes.size()) {
    std::size_t lf = bytes.find('\n', start);
    if (lf == std::string::npos) {
      problems.push_back(name + L"the last line has no line end");
      lf = bytes.size();
    } else if (lf == start || bytes[lf - 1] != '\r') {
      problems.push_back(name + L"line " + std::to_wstring(lines.size() + 1) + L" ends without CR LF");
    }
    std::string line = bytes.substr(start, lf - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.find('\r') != std::string::npos)
      problems.push_back(name + L"line " + std::to_wstring(lines.size() + 1) + L" holds a lone CR");
    lines.push_back(vba::FromWindows1252(line));
    start = lf + 1;
  }
  return lines;
}

std::vector<fs::path> FilesUnder(const fs::path& folder, const std::string& extension) {
  std::vector<fs::path> files;
  for (const auto& e : fs::recursive_directory_iterator(folder))
    if (e.is_regular_file() && (extension.empty() || e.path().extension() == extension)) files.push_back(e.path());
  std::sort(files.begin(), files.end());
  return files;
}

const std::wstring* IniSection::Find(std::wstring_view key) const {
  for (const auto& [k, v] : items)
    if (vba::EqualsText(k, key)) return &v;
  return nullptr;
}

std::vector<IniSection> ReadIni(const fs::path& file, std::vector<std::wstring>& problems) {
  std::vector<IniSection> ini;
  std::vector<std::wstring> lines = TextLines(file, problems);
  std::wstring name = vba::FromUtf8(file.filename().string()) + L" line ";
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::wstring& line = lines[i];
    std::wstring at = name + std::to_wstring(i + 1) + L": ";
    if (line.size() > 2 && line.front() == L'[' && line.back() == L']') {
      std::wstring section = line.substr(1, line.size() - 2);
      if (FindSection(ini, section)) problems.push_back(at + L"section [" + section + L"] again");
      ini.push_back({section, {}});
      continue;
    }
    std::size_t eq = line.find(L'=');
    if (ini.empty() || eq == std::wstring::npos || Trim(line.substr(0, eq)).empty()) {
      problems.push_back(at + L"neither \"[section]\" nor \"key=value\": " + line);
      continue;
    }
    std::wstring key = Trim(line.substr(0, eq)), value = Trim(line.substr(eq + 1));
    if (value.find(L'=') != std::wstring::npos) problems.push_back(at + L"a value holding \"=\"");
    if (ini.back().Find(key)) problems.push_back(at + L"key \"" + key + L"\" again");
    ini.back().items.emplace_back(key, value);
  }
  return ini;
}

const IniSection* FindSection(const std::vector<IniSection>& ini, std::wstring_view name) {
  for (const IniSection& s : ini)
    if (vba::EqualsText(s.name, name)) return &s;
  return nullptr;
}

std::vector<std::wstring> SplitTrimmed(const std::wstring& text, wchar_t delimiter) {
  std::vector<std::wstring> parts;
  std::size_t start = 0;
  for (;;) {
    std::size_t end = text.find(delimiter, start);
    parts.push_back(Trim(text.substr(start, end == std::wstring::npos ? std::wstring::npos : end - start)));
    if (end == std::wstring::npos) return parts;
    start = end + 1;
  }
}

std::string Listed(const std::vector<std::wstring>& items) {
  std::string out;
  for (const std::wstring& s : items) out += (out.empty() ? "" : "\n  ") + vba::ToUtf8(s);
  return out;
}

}  // namespace quillet::datacheck
