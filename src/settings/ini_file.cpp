#include "settings/ini_file.h"

#include "io/paths.h"
#include "settings/profile.h"
#include "settings/text_codec.h"
#include "kernel/errors.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

// The profile buffer starts at this many characters and grows when a read fills it.
constexpr long kFirstBufferSize = 1024;
constexpr std::wstring_view kNul(L"\0", 1);

// Reads through one of the profile operations with a buffer that doubles until the
// result fits; the buffer comes back cut to the result minus 1. Nullopt for no result.
template <class Read>
std::optional<std::wstring> ReadWhole(Read read) {
  long size = kFirstBufferSize;
  std::wstring buffer;
  for (;;) {
    long result = read(buffer, size);
    if (result == 0) return std::nullopt;
    if (result == size - 2) {
      size = result * 2;
      continue;
    }
    if (result > 1) buffer.resize(static_cast<std::size_t>(result - 1));
    return buffer;
  }
}

}  // namespace

std::vector<std::wstring> IniSplit(std::wstring_view text, std::wstring_view delimiter) {
  std::vector<std::wstring> pieces;
  if (delimiter.empty()) {
    pieces.emplace_back(text);
    return pieces;
  }
  std::size_t start = 0;
  while (start <= text.size()) {
    std::size_t at = text.find(delimiter, start);
    std::size_t end = at == std::wstring_view::npos ? text.size() : at;
    if (end > start) pieces.emplace_back(text.substr(start, end - start));
    if (at == std::wstring_view::npos) break;
    start = at + delimiter.size();
  }
  if (pieces.empty()) pieces.emplace_back();
  return pieces;
}

// ---- item ----

void IniFileItem::Save() {
  IniFile& file = *parent->parent;
  if (file.Name().empty()) return;
  ProfileWriteString(file.Session().platform.Files(), file.Name(), parent->name, name, value);
}

// ---- section ----

kernel::Session& IniFileSection::Session() const { return parent->Session(); }

long IniFileSection::Count() const { return items_ ? items_->Count() : 0; }

void IniFileSection::Delete() { items_.reset(); }

IniFileItem& IniFileSection::Item(long index) {
  if (!items_) vba::Raise(vba::kErrObjectNotSet);
  return *items_->Item(index);
}

IniFileItem& IniFileSection::Item(std::wstring_view key) {
  if (!items_) vba::Raise(vba::kErrObjectNotSet);
  return *items_->Item(key);
}

void IniFileSection::Remove(std::wstring_view key) {
  kernel::Trap(Session(), L"Rv_IniFileSection.Remove", [&] {
    if (!items_) vba::Raise(vba::kErrObjectNotSet);
    items_->Remove(key);
  });
}

IniFileItem* IniFileSection::Add(std::wstring_view key, std::wstring_view value) {
  IniFileItem* added = nullptr;
  kernel::Trap(Session(), L"Rv_IniFileSection.Add", [&] {
    if (!items_) vba::Raise(vba::kErrObjectNotSet);
    auto item = std::make_shared<IniFileItem>();
    item->parent = this;
    item->name = key;
    item->value = value;
    added = items_->Add(item, key).get();
  });
  return added;
}

std::wstring IniFileSection::ContentBuild() const {
  if (!items_ || items_->Empty()) return {};
  std::wstring content;
  for (const auto& item : *items_) {
    content += item->name;
    if (vba::Left(vba::Trim(item->name), 1) != L"#") content += L"=" + item->value;
    content += L'\0';
  }
  content += L'\0';
  return content;
}

void IniFileSection::Save(std::wstring content) {
  kernel::Trap(Session(), L"Rv_IniFileSection.Save", [&] {
    if (parent->Name().empty()) return;
    if (content.empty()) content = ContentBuild();
    auto write = [&](const std::optional<std::wstring>& body) {
      try {
        ProfileWriteSection(Session().platform.Files(), parent->Name(), name, body);
      } catch (const vba::Error& e) {
        vba::Raise(e.Number(), L"Unable to save INI file section '" + name + L"'", e.Source());
      }
    };
    // A body of a lone "#" would read back as a comment of the old section: clear it first.
    if (vba::Left(vba::Trim(content), 2) == L"#") write(std::nullopt);
    write(content);
  });
}

void IniFileSection::Initialize() {
  const IniFile& file = *parent;
  auto content = ReadWhole([&](std::wstring& buffer, long size) {
    return ProfileSection(file.Session().platform.Files(), file.Name(), name, buffer, size);
  });
  if (!content) return;
  sectionContent = *content;
  for (const auto& line : IniSplit(sectionContent, kNul)) {
    if (line.empty()) continue;
    // Split drops empty pieces: "key=" is one part, and "a=b=c" keeps only "c".
    std::vector<std::wstring> parts = IniSplit(line, L"=");
    if (parts.size() == 1)
      Add(vba::Trim(parts[0]), L"");
    else
      Add(vba::Trim(parts.front()), vba::Trim(parts.back()));
  }
}

// ---- file ----

void IniFile::SetName(std::wstring_view path) {
  if (path.empty()) return;
  io::FileSystem& files = s_.platform.Files();
  std::wstring value(path);
  std::wstring folder = vba::Left(value, vba::InStrRev(value, L"\\"));
  if (folder.empty() || !files.FolderExists(folder)) {
    std::wstring program = s_.platform.ProgramFolder();
    std::wstring programBare = program;
    while (!programBare.empty() && programBare.back() == L'\\') programBare.pop_back();
    if (vba::InStr(value, programBare, vba::Compare::Text) == 0) {
      if (program.empty() || program.back() != L'\\') program += L'\\';
      value = program + (value[0] == L'\\' ? value.substr(1) : value);
    }
  }
  sections_.Clear();
  name_ = value;
  std::wstring stored = vba::Left(name_, vba::InStrRev(name_, L"\\"));
  if (!stored.empty() && files.FolderExists(stored))
    ReadData();
  else
    name_.clear();
}

void IniFile::ReadData() {
  kernel::Trap(s_, L"Rv_IniFile.ReadData", [&] {
    auto names = ReadWhole([&](std::wstring& buffer, long size) {
      return ProfileSectionNames(s_.platform.Files(), name_, buffer, size);
    });
    if (!names) return;
    for (const auto& n : IniSplit(*names, kNul)) AddSection(n, false);
  });
}

IniFileSection* IniFile::AddSection(std::wstring_view name, bool isNew) {
  IniFileSection* added = nullptr;
  kernel::Trap(s_, L"Rv_IniFile.AddSection", [&] {
    auto section = std::make_shared<IniFileSection>();
    section->name = name;
    section->parent = this;
    if (!isNew) section->Initialize();
    added = sections_.Add(section, name).get();
  });
  return added;
}

IniFileSection* IniFile::Add(std::wstring_view section, std::optional<std::wstring_view> key,
                             std::wstring_view value) {
  IniFileSection* added = nullptr;
  kernel::Trap(s_, L"Rv_IniFile.Add", [&] {
    if (sections_.Exists(section)) vba::Raise(vba::kErrDuplicateKey);
    added = AddSection(section, true);
    if (added && key) added->Add(*key, value);
  });
  return added;
}

IniFileSection* IniFile::Item(const Index& index) {
  IniFileSection* found = nullptr;
  kernel::Trap(s_, L"Rv_IniFile.Item", [&] {
    if (const long* n = std::get_if<long>(&index))
      found = sections_.Item(*n).get();
    else
      found = sections_.Item(std::get<std::wstring>(index)).get();
  });
  return found;
}

void IniFile::DeleteSection(const Index& index) {
  kernel::Trap(s_, L"Rv_IniFile.DeleteSection", [&] {
    if (const long* n = std::get_if<long>(&index))
      sections_.Item(*n)->Delete();
    else
      sections_.Item(std::get<std::wstring>(index))->Delete();
  });
}

void IniFile::Save() {
  kernel::Trap(s_, L"Rv_IniFile.Save", [&] {
    for (auto& section : sections_) section->Save();
  });
}

const IniFileSection* IniFile::Find(std::wstring_view section) const {
  const auto* found = sections_.Find(section);
  return found ? found->get() : nullptr;
}

bool IniFile::SectionExists(std::wstring_view section) const { return Find(section) != nullptr; }

bool IniFile::ValueExists(std::wstring_view section, std::wstring_view key) const {
  const IniFileSection* found = Find(section);
  return found && found->Items() && found->Items()->Exists(key);
}

void IniFile::SetValue(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
  kernel::Trap(s_, L"Rv_IniFile.Value(Let)", [&] {
    IniFileSection* target = sections_.Exists(section) ? sections_.Item(section).get() : AddSection(section, true);
    if (!target) return;
    if (!ValueExists(section, key) && !target->Add(key, L"")) return;
    target->Item(key).value = value;
  });
}

std::wstring IniFile::Value(std::wstring_view section, std::wstring_view key) const {
  const IniFileSection* found = Find(section);
  if (!found || !found->Items()) return {};
  const auto* item = found->Items()->Find(key);
  return item ? (*item)->value : std::wstring();
}

std::wstring IniFile::SectionContent(std::wstring_view section) const {
  const IniFileSection* found = Find(section);
  return found ? found->sectionContent : std::wstring();
}

void IniFile::SetValueEx(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
  kernel::Trap(s_, L"Rv_IniFile.ValueEx(Let)", [&] {
    SetValue(section, key, value);
    Save();
  });
}

void IniFile::RemoveValue(std::wstring_view section, std::wstring_view key) {
  kernel::Trap(s_, L"Rv_IniFile.RemoveValue", [&] {
    IniFileSection::ItemCollection* items = sections_.Item(section)->Items();
    if (!items) vba::Raise(vba::kErrObjectNotSet);
    items->Remove(key);
  });
}

void IniFile::AddLine(std::wstring_view line) {
  kernel::Trap(s_, L"Rv_IniFile.AddLine", [&] {
    if (name_.empty()) vba::Raise(vba::kErrPathFileAccess);
    IniDocument doc = IniDocument::Load(s_.platform.Files(), name_);
    doc.AppendLine(line);
    doc.Save(s_.platform.Files(), name_);
  });
}

}  // namespace quillet::settings
