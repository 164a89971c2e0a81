#pragma once
// An INI file in memory: its sections, keyed by name, and their items, keyed by key, both
// without regard to case. The file is loaded in one go when its name is assigned and
// written back only when asked. "#" at the start of a line marks a comment, kept in its
// place as an item whose name is the whole line.
//
// Failures follow the system's rule: the operation reports through the error reporter with
// "Rv_IniFile.<operation>" (or "Rv_IniFileSection.<operation>") and ends with what it has
// done. Lookups whose failure means absence (Value, SectionExists, ValueExists) answer
// absence.
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::settings {

class IniFile;
class IniFileSection;

// Splits `text` at every `delimiter` (which may be longer than one character) and keeps
// the non-empty pieces; an empty text gives one empty piece. So leading, doubled and
// trailing delimiters have no effect.
std::vector<std::wstring> IniSplit(std::wstring_view text, std::wstring_view delimiter);

class IniFileItem {
 public:
  IniFileSection* parent = nullptr;
  std::wstring name;
  std::wstring value;

  // Writes this one key to the file at once.
  void Save();
};

class IniFileSection {
 public:
  using ItemCollection = vba::Collection<std::shared_ptr<IniFileItem>>;

  IniFile* parent = nullptr;
  std::wstring name;
  // The section's lines as read, separated by NUL.
  std::wstring sectionContent;

  // 0 after Delete.
  long Count() const;
  // Drops every item; the section itself stays, so that a save writes it with no lines.
  void Delete();
  bool Deleted() const { return !items_; }
  // By 1-based index or by key; a missing one raises error 9 or 5, a deleted section 91.
  IniFileItem& Item(long index);
  IniFileItem& Item(std::wstring_view key);
  // nullptr after Delete.
  ItemCollection* Items() { return items_.get(); }
  const ItemCollection* Items() const { return items_.get(); }

  // Removes the item of that key (a missing one is reported).
  void Remove(std::wstring_view key);
  // Adds an item; nullptr when that fails (a key that exists is reported).
  IniFileItem* Add(std::wstring_view key, std::wstring_view value);
  // Writes the section: `content` (lines separated by NUL) or, when empty, its items.
  void Save(std::wstring content = {});
  // Reads the section's lines from the file into items.
  void Initialize();

 private:
  kernel::Session& Session() const;
  std::wstring ContentBuild() const;

  std::unique_ptr<ItemCollection> items_ = std::make_unique<ItemCollection>();
};

class IniFile {
 public:
  using SectionCollection = vba::Collection<std::shared_ptr<IniFileSection>>;
  // A section addressed by its 1-based number or its name.
  using Index = std::variant<long, std::wstring>;

  explicit IniFile(kernel::Session& s) : s_(s) {}
  IniFile(const IniFile&) = delete;
  IniFile& operator=(const IniFile&) = delete;

  // The full path of the file; empty while none is attached.
  const std::wstring& Name() const { return name_; }
  // Attaches a file and reads it. An empty path changes nothing. A path whose folder does
  // not exist is taken as relative to the program's folder; if the folder of the result
  // does not exist either, the name is cleared and nothing is read.
  void SetName(std::wstring_view path);

  // Adds a new section, with a first key when `key` is given; nullptr when it fails (a
  // section of that name exists).
  IniFileSection* Add(std::wstring_view section, std::optional<std::wstring_view> key = std::nullopt,
                      std::wstring_view value = {});
  // nullptr when there is no such section (which is reported).
  IniFileSection* Item(const Index& index);
  long Count() const { return sections_.Count(); }
  // Empties the section; it stays, so that the next save writes its header with no lines.
  void DeleteSection(const Index& index);
  // Writes every section.
  void Save();
  SectionCollection& Sections() { return sections_; }
  const SectionCollection& Sections() const { return sections_; }

  bool SectionExists(std::wstring_view section) const;
  bool ValueExists(std::wstring_view section, std::wstring_view key) const;
  // In memory only; the section and the key are added when missing.
  void SetValue(std::wstring_view section, std::wstring_view key, std::wstring_view value);
  // "" for a missing section or key.
  std::wstring Value(std::wstring_view section, std::wstring_view key) const;
  // The section's lines as read; "" for a missing section.
  std::wstring SectionContent(std::wstring_view section) const;
  // SetValue, then the whole file is saved.
  void SetValueEx(std::wstring_view section, std::wstring_view key, std::wstring_view value);
  // Removes a key from memory.
  void RemoveValue(std::wstring_view section, std::wstring_view key);
  // Appends a raw line to the file at once; the model does not see it.
  void AddLine(std::wstring_view line);

  kernel::Session& Session() const { return s_; }

 private:
  void ReadData();
  IniFileSection* AddSection(std::wstring_view name, bool isNew);
  const IniFileSection* Find(std::wstring_view section) const;

  kernel::Session& s_;
  std::wstring name_;
  SectionCollection sections_;
};

}  // namespace quillet::settings
