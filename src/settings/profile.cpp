#include "settings/profile.h"

#include "settings/text_codec.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

bool IsWhite(wchar_t c) { return c == L' ' || c == L'\t'; }

std::wstring TrimWhite(std::wstring_view s) {
  std::size_t b = 0, e = s.size();
  while (b < e && IsWhite(s[b])) ++b;
  while (e > b && IsWhite(s[e - 1])) --e;
  return std::wstring(s.substr(b, e - b));
}

// The name of a "[name]" line; nullopt for any other line.
std::optional<std::wstring> HeaderName(std::wstring_view line) {
  std::wstring t = TrimWhite(line);
  if (t.empty() || t[0] != L'[') return std::nullopt;
  std::size_t close = t.rfind(L']');
  if (close == std::wstring::npos) return std::nullopt;
  return TrimWhite(std::wstring_view(t).substr(1, close - 1));
}

// Fills `buffer` the way the platform fills a caller's buffer of `size` characters.
long FillBuffer(const std::vector<std::wstring>& entries, std::wstring& buffer, long size) {
  std::wstring all;
  for (const auto& e : entries) {
    all += e;
    all += L'\0';
  }
  if (size <= 0) {
    buffer.clear();
    return 0;
  }
  if (static_cast<long>(all.size()) + 1 <= size) {
    buffer = all + L'\0';
    return static_cast<long>(all.size());
  }
  if (size < 2) {
    buffer.assign(static_cast<std::size_t>(size), L'\0');
    return 0;
  }
  buffer = all.substr(0, static_cast<std::size_t>(size - 2));
  buffer += L'\0';
  buffer += L'\0';
  return size - 2;
}

}  // namespace

IniDocument::IniDocument(std::string_view bytes) {
  DecodedText decoded = DecodeText(bytes);
  utf8Bom_ = decoded.utf8Bom;
  const std::wstring& t = decoded.text;
  std::size_t start = 0;
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] != L'\r' && t[i] != L'\n') continue;
    std::size_t endLen = (t[i] == L'\r' && i + 1 < t.size() && t[i + 1] == L'\n') ? 2 : 1;
    lines_.push_back({t.substr(start, i - start), t.substr(i, endLen)});
    i += endLen - 1;
    start = i + 1;
  }
  if (start < t.size()) lines_.push_back({t.substr(start), L""});
}

IniDocument IniDocument::Load(const io::FileSystem& files, std::wstring_view path) {
  if (!files.FileExists(path)) return IniDocument();
  return IniDocument(files.ReadFile(path));
}

std::string IniDocument::Bytes() const {
  std::wstring text;
  for (const auto& l : lines_) {
    text += l.text;
    text += l.end;
  }
  return EncodeText(text, utf8Bom_);
}

void IniDocument::Save(io::FileSystem& files, std::wstring_view path) const { files.WriteFile(path, Bytes()); }

std::wstring IniDocument::LineKey(std::wstring_view line) {
  std::size_t eq = line.find(L'=');
  return TrimWhite(eq == std::wstring_view::npos ? line : line.substr(0, eq));
}

std::optional<IniDocument::Span> IniDocument::Find(std::wstring_view section) const {
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    auto name = HeaderName(lines_[i].text);
    if (!name || !vba::EqualsText(*name, section)) continue;
    Span span{i, i + 1, lines_.size()};
    for (std::size_t j = i + 1; j < lines_.size(); ++j) {
      if (HeaderName(lines_[j].text)) {
        span.next = j;
        break;
      }
      if (!TrimWhite(lines_[j].text).empty()) span.bodyEnd = j + 1;
    }
    return span;
  }
  return std::nullopt;
}

std::vector<std::wstring> IniDocument::SectionNames() const {
  std::vector<std::wstring> names;
  for (const auto& l : lines_) {
    auto name = HeaderName(l.text);
    if (!name) continue;
    bool seen = false;
    for (const auto& n : names) seen = seen || vba::EqualsText(n, *name);
    if (!seen) names.push_back(*name);
  }
  return names;
}

std::optional<std::vector<std::wstring>> IniDocument::SectionLines(std::wstring_view section) const {
  auto span = Find(section);
  if (!span) return std::nullopt;
  std::vector<std::wstring> out;
  for (std::size_t i = span->header + 1; i < span->bodyEnd; ++i) {
    std::wstring t = TrimWhite(lines_[i].text);
    if (!t.empty()) out.push_back(std::move(t));
  }
  return out;
}

void IniDocument::Insert(std::size_t at, const std::vector<std::wstring>& texts) {
  if (texts.empty()) return;
  // The line before gets the line end it may lack as the file's last line.
  if (at > 0 && lines_[at - 1].end.empty()) lines_[at - 1].end = L"\r\n";
  std::vector<Line> added;
  for (const auto& t : texts) added.push_back({t, L"\r\n"});
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
}

void IniDocument::ReplaceSection(std::wstring_view section, const std::vector<std::wstring>& lines) {
  std::vector<std::wstring> body;
  for (const auto& l : lines)
    if (!TrimWhite(l).empty()) body.push_back(l);
  auto span = Find(section);
  if (!span) {
    body.insert(body.begin(), L"[" + std::wstring(section) + L"]");
    Insert(lines_.size(), body);
    return;
  }
  auto first = lines_.begin() + static_cast<std::ptrdiff_t>(span->header + 1);
  lines_.erase(first, lines_.begin() + static_cast<std::ptrdiff_t>(span->bodyEnd));
  Insert(span->header + 1, body);
}

void IniDocument::DeleteSection(std::wstring_view section) {
  auto span = Find(section);
  if (!span) return;
  lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(span->header),
               lines_.begin() + static_cast<std::ptrdiff_t>(span->next));
}

void IniDocument::WriteString(std::wstring_view section, std::wstring_view key, std::wstring_view value) {
  std::wstring line = std::wstring(key) + L"=" + std::wstring(value);
  auto span = Find(section);
  if (!span) {
    Insert(lines_.size(), {L"[" + std::wstring(section) + L"]", line});
    return;
  }
  for (std::size_t i = span->header + 1; i < span->bodyEnd; ++i) {
    if (TrimWhite(lines_[i].text).empty() || !vba::EqualsText(LineKey(lines_[i].text), key)) continue;
    lines_[i].text = line;
    return;
  }
  Insert(span->bodyEnd, {line});
}

bool IniDocument::KeyExists(std::wstring_view section, std::wstring_view key) const {
  auto lines = SectionLines(section);
  if (!lines) return false;
  for (const auto& l : *lines)
    if (vba::EqualsText(LineKey(l), key)) return true;
  return false;
}

void IniDocument::AppendLine(std::wstring_view line) { Insert(lines_.size(), {std::wstring(line)}); }

long ProfileSectionNames(const io::FileSystem& files, std::wstring_view path, std::wstring& buffer, long size) {
  return FillBuffer(IniDocument::Load(files, path).SectionNames(), buffer, size);
}

long ProfileSection(const io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                    std::wstring& buffer, long size) {
  auto lines = IniDocument::Load(files, path).SectionLines(section);
  return FillBuffer(lines ? *lines : std::vector<std::wstring>{}, buffer, size);
}

void ProfileWriteSection(io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                         const std::optional<std::wstring>& body) {
  IniDocument doc = IniDocument::Load(files, path);
  if (!body) {
    doc.DeleteSection(section);
  } else {
    std::vector<std::wstring> lines;
    std::size_t start = 0;
    for (std::size_t i = 0; i <= body->size(); ++i) {
      if (i < body->size() && (*body)[i] != L'\0') continue;
      if (i > start) lines.push_back(body->substr(start, i - start));
      start = i + 1;
    }
    doc.ReplaceSection(section, lines);
  }
  doc.Save(files, path);
}

void ProfileWriteString(io::FileSystem& files, std::wstring_view path, std::wstring_view section,
                        std::wstring_view key, std::wstring_view value) {
  IniDocument doc = IniDocument::Load(files, path);
  doc.WriteString(section, key, value);
  doc.Save(files, path);
}

}  // namespace quillet::settings
