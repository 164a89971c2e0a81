#pragma once
// A small reader and writer of INI files that behaves as the platform's profile functions
// do, as far as the INI objects rely on them:
//  * "[section]" opens a section; its name is found without regard to case, and when a
//    name appears twice the first section of that name is the one read and written.
//  * Every non-blank line up to the next header belongs to the section and is returned as
//    it stands (trimmed), comment lines included; lines above the first header belong to
//    none.
//  * Reads fill a caller's buffer of a given size: each line (or section name) closed by a
//    NUL, the whole by a further NUL, and the number of characters stored is returned
//    without that last NUL. A buffer that is too small gets what fits and the result is
//    the size minus 2, so the caller knows to ask again with a larger one.
//  * Writing a section replaces its lines where they stand and keeps every other byte of
//    the file; a section that did not exist is appended. Written lines end in CR LF.
// Files are Windows-1252 text (UTF-8 behind a byte-order mark is read and kept as such).
// A missing file reads as empty; writes create it, and fail as the file system does.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/filesystem.h"

namespace quillet::settings {

// One INI file in memory, line by line with each line's own line end, so that what is not
// edited is written back exactly as it was read.
class IniDocument {
 public:
  IniDocument() = default;
  explicit IniDocument(std::string_view bytes);
  // A missing file gives an empty document; an unreadable one raises the file system's error.
  static IniDocument Load(const io::FileSystem& files, std::wstring_view path);
  void Save(io::FileSystem& files, std::wstring_view path) const;
  std::string Bytes() const;

  // Section names in file order, each name once.
  std::vector<std::wstring> SectionNames() const;
  // The section's non-blank lines, trimmed; nullopt when there is no such section.
  std::optional<std::vector<std::wstring>> SectionLines(std::wstring_view section) const;
  // Replaces the section's lines (blank lines that separate it from the next section
  // stay); appends the section when it does not exist.
  void ReplaceSection(std::wstring_view section, const std::vector<std::wstring>& lines);
  // Removes the section's header and lines.
  void DeleteSection(std::wstring_view section);
  // Sets "key=value": replaces the line of that key in place, or adds it behind the
  // section's last line, or appends the section.
  void WriteString(std::wstring_view section, std::wstring_view key, std::wstring_view value);
  bool KeyExists(std::wstring_view section, std::wstring_view key) const;
  // Appends a raw line at the end of the file.
  void AppendLine(std::wstring_view line);

  // The key of a section line as the profile functions see it: the text before the first
  // "=", trimmed; the whole line trimmed when it has none.
  static std::wstring LineKey(std::wstring_view line);

 private:
  struct Line {
    std::wstring text;
    std::wstring end;  // "\r\n", "\n", "\r", or empty for a last line without one
  };
  struct Span {
    std::size_t header;     // the "[section]" line
    std::size_t bodyEnd;    // behind the section's last non-blank line
    std::size_t next;       // the next header, or the end of the file
  };
  std::optional<Span> Find(std::wstring_view section) const;
  void Insert(std::size_t at, const std::vector<std::wstring>& texts);

  std::vector<Line> lines_;
  bool utf8Bom_ = false;
};

// The four profile operations, each on the file as it is on disk at the call.
// Section names, as a buffer of `size` characters (see above).
long ProfileSectionNames(const io::FileSystem& files, std::wstring_view path, std::wstring& buffer, long size);
// A section's lines, as a buffer of `size` characters.
long ProfileSection(const io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                    std::wstring& buffer, long size);
// Writes a section whose lines are `body`, separated (and possibly closed) by NULs; with no
// body the section is removed.
void ProfileWriteSection(io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                         const std::optional<std::wstring>& body);
void ProfileWriteString(io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                        std::wstring_view key, std::wstring_view value);

}  // namespace quillet::settings
