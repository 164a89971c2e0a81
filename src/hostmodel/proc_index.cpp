#include "hostmodel/proc_index.h"

#include <algorithm>

#include "vba/text.h"

namespace quillet::host {
namespace {

bool IsSpace(wchar_t c) { return c == L' ' || c == L'\t'; }

// Reads the next word (letters, digits, "_") at `pos`, skipping blanks before it.
std::wstring_view NextWord(std::wstring_view s, std::size_t& pos) {
  while (pos < s.size() && IsSpace(s[pos])) ++pos;
  std::size_t start = pos;
  while (pos < s.size() && vba::IsIdentifierChar(s[pos])) ++pos;
  return s.substr(start, pos - start);
}

bool WordIs(std::wstring_view word, std::wstring_view keyword) { return vba::EqualsText(word, keyword); }

// True when the physical line continues on the next one (ends in " _").
bool Continues(std::wstring_view line) {
  std::size_t end = line.size();
  while (end > 0 && IsSpace(line[end - 1])) --end;
  if (end == 0 || line[end - 1] != L'_') return false;
  return end == 1 || IsSpace(line[end - 2]);
}

}  // namespace

// The first character that is no blank, or 0.
static wchar_t FirstChar(std::wstring_view line) {
  for (wchar_t c : line)
    if (!IsSpace(c)) return c;
  return 0;
}

bool ParseProcHeader(std::wstring_view line, std::wstring& name, ProcKind& kind) {
  // Every header starts with Public, Private, Friend, Static, Sub, Function or Property.
  wchar_t first = vba::ToUpper(FirstChar(line));
  if (first != L'P' && first != L'F' && first != L'S') return false;
  std::size_t pos = 0;
  std::wstring_view word = NextWord(line, pos);
  if (WordIs(word, L"Public") || WordIs(word, L"Private") || WordIs(word, L"Friend")) word = NextWord(line, pos);
  if (WordIs(word, L"Static")) word = NextWord(line, pos);
  if (WordIs(word, L"Sub") || WordIs(word, L"Function")) {
    kind = kProcKind;
  } else if (WordIs(word, L"Property")) {
    std::wstring_view which = NextWord(line, pos);
    if (WordIs(which, L"Get")) kind = kGetKind;
    else if (WordIs(which, L"Let")) kind = kLetKind;
    else if (WordIs(which, L"Set")) kind = kSetKind;
    else return false;
  } else {
    return false;
  }
  // The word must stand alone: "Sub" followed by a blank, not "Subtotal = 1".
  if (pos >= line.size() || !IsSpace(line[pos])) return false;
  std::wstring_view n = NextWord(line, pos);
  if (n.empty()) return false;
  name.assign(n);
  return true;
}

bool IsProcEnd(std::wstring_view line) {
  if (vba::ToUpper(FirstChar(line)) != L'E') return false;
  std::size_t pos = 0;
  if (!WordIs(NextWord(line, pos), L"End")) return false;
  std::wstring_view what = NextWord(line, pos);
  if (!(WordIs(what, L"Sub") || WordIs(what, L"Function") || WordIs(what, L"Property"))) return false;
  while (pos < line.size() && IsSpace(line[pos])) ++pos;
  return pos == line.size() || line[pos] == L':' || line[pos] == L'\'';
}

bool IsBlankOrComment(std::wstring_view line) {
  std::size_t pos = 0;
  while (pos < line.size() && IsSpace(line[pos])) ++pos;
  if (pos == line.size() || line[pos] == L'\'') return true;
  std::size_t p = pos;
  std::wstring_view word = NextWord(line, p);
  return WordIs(word, L"Rem") && (p == line.size() || !vba::IsIdentifierChar(line[p]));
}

void ProcIndex::Build(const std::vector<std::wstring>& lines) {
  procs_.clear();
  byName_.clear();
  declarationLines_ = 0;
  const long count = static_cast<long>(lines.size());
  long lastCode = 0;       // last line that is neither blank nor comment, outside procedures
  bool inProc = false;
  std::wstring joined, name;
  ProcKind kind = kProcKind;

  for (long i = 0; i < count;) {
    // Join a logical line that is continued with " _".
    long first = i;
    std::wstring_view logical = lines[i];
    if (Continues(lines[i]) && i + 1 < count) {
      joined = lines[i];
      while (Continues(lines[i]) && i + 1 < count) {
        ++i;
        joined += L' ';
        joined += lines[i];
      }
      logical = joined;
    }
    long last = i;
    ++i;

    if (ParseProcHeader(logical, name, kind)) {
      if (inProc) procs_.back().endLine = first;  // a header without an End before it
      ProcExtent p;
      p.name = name;
      p.kind = kind;
      p.bodyLine = first + 1;
      p.startLine = procs_.empty() ? 0 : procs_.back().endLine + 1;
      procs_.push_back(p);
      inProc = true;
    } else if (inProc) {
      if (IsProcEnd(logical)) {
        procs_.back().endLine = last + 1;
        inProc = false;
      }
    } else if (procs_.empty() && !IsBlankOrComment(lines[first])) {
      lastCode = last + 1;
    }
  }

  declarationLines_ = lastCode;
  if (!procs_.empty()) {
    procs_.front().startLine = declarationLines_ + 1;
    // Blanks and comments behind an End belong to the procedure that follows them.
    for (std::size_t k = 1; k < procs_.size(); ++k) procs_[k].startLine = procs_[k - 1].endLine + 1;
    procs_.back().endLine = count;
  }
  byName_.reserve(procs_.size());
  for (std::size_t k = 0; k < procs_.size(); ++k) byName_.emplace(procs_[k].name, k);
}

const ProcExtent* ProcIndex::ProcOfLine(long line) const {
  if (procs_.empty() || line < procs_.front().startLine) return nullptr;
  auto it = std::upper_bound(procs_.begin(), procs_.end(), line,
                             [](long l, const ProcExtent& p) { return l < p.startLine; });
  return &*(it - 1);
}

const ProcExtent* ProcIndex::Find(std::wstring_view name, ProcKind kind) const {
  // The first of that name and kind, as the module lists them.
  const ProcExtent* found = nullptr;
  auto [from, to] = byName_.equal_range(name);
  for (auto it = from; it != to; ++it) {
    const ProcExtent& p = procs_[it->second];
    if (p.kind == kind && (!found || &p < found)) found = &p;
  }
  return found;
}

}  // namespace quillet::host
