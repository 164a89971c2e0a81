#pragma once
// Reading the shipped defaults (data/) and the sample project (sample/) as the program
// would find them: text files of CR LF lines, INI files of sections and keys.
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace quillet::datacheck {

namespace fs = std::filesystem;

inline fs::path SourceDir() { return fs::path(QUILLET_SOURCE_DIR); }
inline fs::path DataDir() { return SourceDir() / "data"; }

std::string ReadBytes(const fs::path& file);

// The lines of a text file. Adds to `problems` what breaks the file rules: a byte
// outside ASCII, a line end other than CR LF, a last line without a line end.
std::vector<std::wstring> TextLines(const fs::path& file, std::vector<std::wstring>& problems);

// Every file below `folder` with the extension (".bas"; empty for all), sorted.
std::vector<fs::path> FilesUnder(const fs::path& folder, const std::string& extension = {});

struct IniSection {
  std::wstring name;
  std::vector<std::pair<std::wstring, std::wstring>> items;  // in file order
  const std::wstring* Find(std::wstring_view key) const;
};

// An INI file of "[section]" and "key=value" lines. Adds to `problems` every other
// line, a key or section given twice, and a value holding "=" (the reader would keep
// only its last piece).
std::vector<IniSection> ReadIni(const fs::path& file, std::vector<std::wstring>& problems);
const IniSection* FindSection(const std::vector<IniSection>& ini, std::wstring_view name);

// Text pieces split at a delimiter, each trimmed of blanks.
std::vector<std::wstring> SplitTrimmed(const std::wstring& text, wchar_t delimiter);

// "a, b" for test messages.
std::string Listed(const std::vector<std::wstring>& items);

}  // namespace quillet::datacheck
