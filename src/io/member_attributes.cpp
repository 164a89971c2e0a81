#include "io/member_attributes.h"

#include <cstdlib>

#include "vba/text.h"

namespace quillet::io {
namespace {

bool IsSpace(wchar_t c) { return c == L' ' || c == L'\t'; }

std::size_t SkipSpaces(std::wstring_view s, std::size_t i) {
  while (i < s.size() && IsSpace(s[i])) ++i;
  return i;
}

// The word at s[i] up to a blank, a tab or "("; advances i past it and the blanks behind.
std::wstring_view NextWord(std::wstring_view s, std::size_t& i) {
  i = SkipSpaces(s, i);
  std::size_t start = i;
  while (i < s.size() && !IsSpace(s[i]) && s[i] != L'(') ++i;
  std::wstring_view word = s.substr(start, i - start);
  i = SkipSpaces(s, i);
  return word;
}

// First and last physical line of each logical line, and the logical line of each line.
struct LogicalLines {
  std::vector<std::pair<std::size_t, std::size_t>> spans;
  std::vector<std::size_t> of;
};

LogicalLines SplitLogical(const std::vector<std::wstring>& code) {
  LogicalLines l;
  for (std::size_t k = 0; k < code.size(); ++k) {
    if (k == 0 || !ContinuesOnNextLine(code[k - 1]))
      l.spans.emplace_back(k, k);
    else
      l.spans.back().second = k;
    l.of.push_back(l.spans.size() - 1);
  }
  return l;
}

std::wstring JoinLogical(const std::vector<std::wstring>& code, std::size_t first, std::size_t last) {
  std::wstring text;
  for (std::size_t k = first; k <= last; ++k) {
    std::wstring_view line = code[k];
    if (k < last) line = line.substr(0, line.find_last_not_of(L" \t"));  // drops the "_"
    text += line;
    text += L' ';
  }
  return text;
}

// Whether `line` names `word` as a whole identifier (without regard to case).
bool HasWord(std::wstring_view line, std::wstring_view word) {
  for (std::size_t i = 0; i < line.size();) {
    if (!vba::IsIdentifierChar(line[i])) {
      ++i;
      continue;
    }
    std::size_t start = i;
    while (i < line.size() && vba::IsIdentifierChar(line[i])) ++i;
    if (vba::EqualsText(line.substr(start, i - start), word)) return true;
  }
  return false;
}

// Of the lines equal to (or, with `byWord`, naming) the anchor, the one nearest the
// line the attributes followed when loaded.
std::optional<std::size_t> Nearest(const std::vector<std::wstring>& code, std::size_t limit,
                                   std::wstring_view anchor, bool byWord, int wasAfter) {
  std::optional<std::size_t> best;
  long bestDistance = 0;
  for (std::size_t k = 0; k < limit; ++k) {
    bool match = byWord ? HasWord(code[k], anchor) : code[k] == anchor;
    if (!match) continue;
    long distance = std::labs(static_cast<long>(k) + 1 - wasAfter);
    if (!best || distance < bestDistance) {
      best = k;
      bestDistance = distance;
    }
  }
  return best;
}

}  // namespace

bool ContinuesOnNextLine(std::wstring_view line) {
  std::size_t end = line.find_last_not_of(L" \t");
  return end != std::wstring_view::npos && end >= 1 && line[end] == L'_' && IsSpace(line[end - 1]);
}

std::optional<AttributeLine> ParseAttributeLine(std::wstring_view line) {
  std::size_t i = SkipSpaces(line, 0);
  constexpr std::wstring_view kKeyword = L"Attribute";
  if (!vba::StartsWithText(line.substr(i), kKeyword)) return std::nullopt;
  i += kKeyword.size();
  if (i >= line.size() || !IsSpace(line[i])) return std::nullopt;
  i = SkipSpaces(line, i);
  std::size_t start = i;
  while (i < line.size() && (vba::IsIdentifierChar(line[i]) || line[i] == L'.')) ++i;
  if (i == start) return std::nullopt;
  AttributeLine a{std::wstring(line.substr(start, i - start)), {}};
  i = SkipSpaces(line, i);
  if (i >= line.size() || line[i] != L'=') return std::nullopt;
  i = SkipSpaces(line, i + 1);
  std::size_t end = line.find_last_not_of(L" \t");
  if (end != std::wstring_view::npos && end >= i) a.value = std::wstring(line.substr(i, end + 1 - i));
  return a;
}

std::optional<ProcedureHeader> ParseProcedureHeader(std::wstring_view logicalLine) {
  std::size_t i = 0;
  std::wstring_view word = NextWord(logicalLine, i);
  while (vba::EqualsText(word, L"Public") || vba::EqualsText(word, L"Private") ||
         vba::EqualsText(word, L"Friend") || vba::EqualsText(word, L"Static"))
    word = NextWord(logicalLine, i);
  ProcedureHeader h;
  if (vba::EqualsText(word, L"Property")) {
    word = NextWord(logicalLine, i);
    if (vba::EqualsText(word, L"Get"))
      h.kind = 3;
    else if (vba::EqualsText(word, L"Let"))
      h.kind = 1;
    else if (vba::EqualsText(word, L"Set"))
      h.kind = 2;
    else
      return std::nullopt;
  } else if (!vba::EqualsText(word, L"Sub") && !vba::EqualsText(word, L"Function")) {
    return std::nullopt;
  }
  std::wstring_view name = NextWord(logicalLine, i);
  if (!name.empty() && std::wstring_view(L"%&!#@$^").find(name.back()) != std::wstring_view::npos)
    name.remove_suffix(1);
  if (name.empty() || !vba::IsLetter(name[0])) return std::nullopt;
  for (wchar_t c : name)
    if (!vba::IsIdentifierChar(c)) return std::nullopt;
  h.name = std::wstring(name);
  return h;
}

void ExtractMemberAttributes(std::vector<std::wstring> lines, std::vector<std::wstring>& code,
                             std::vector<MemberAttribute>& attributes) {
  code.clear();
  code.reserve(lines.size());
  attributes.clear();
  std::size_t logicalStart = 0;
  for (std::wstring& line : lines) {
    bool continued = !code.empty() && ContinuesOnNextLine(code.back());
    if (!continued && ParseAttributeLine(line)) {
      int at = static_cast<int>(code.size());
      if (!attributes.empty() && attributes.back().line == at) {
        attributes.back().lines.push_back(line);
        continue;
      }
      MemberAttribute a;
      a.line = at;
      a.lines.push_back(line);
      if (at > 0) {
        if (auto h = ParseProcedureHeader(JoinLogical(code, logicalStart, code.size() - 1))) {
          a.procedure = h->name;
          a.kind = h->kind;
        } else {
          a.after = code.back();
        }
      }
      attributes.push_back(std::move(a));
      continue;
    }
    if (!continued) logicalStart = code.size();
    code.push_back(std::move(line));
  }
}

PlacedCode PlaceMemberAttributes(const std::vector<std::wstring>& code,
                                 const std::vector<MemberAttribute>& attributes, bool unchanged) {
  LogicalLines logical = SplitLogical(code);
  struct Header {
    ProcedureHeader header;
    std::size_t first, last;
  };
  std::vector<Header> headers;
  for (auto [first, last] : logical.spans)
    if (auto h = ParseProcedureHeader(JoinLogical(code, first, last))) headers.push_back({*h, first, last});
  std::size_t declarationsEnd = headers.empty() ? code.size() : headers.front().first;

  // behind[k]: the groups that go before code line k (k == size: behind the last line).
  std::vector<std::vector<const MemberAttribute*>> behind(code.size() + 1);
  PlacedCode placed;
  for (const MemberAttribute& a : attributes) {
    std::optional<std::size_t> pos;
    if (unchanged && a.line >= 0 && static_cast<std::size_t>(a.line) <= code.size()) {
      pos = static_cast<std::size_t>(a.line);
    } else if (!a.procedure.empty()) {
      for (const Header& h : headers)
        if (h.header.kind == a.kind && vba::EqualsText(h.header.name, a.procedure)) {
          pos = h.last + 1;
          break;
        }
    } else if (!a.after.empty()) {
      auto k = Nearest(code, code.size(), a.after, false, a.line);
      // The declaration was edited: look for the member the attributes name.
      if (auto member = a.lines.empty() ? std::nullopt : ParseAttributeLine(a.lines.front());
          !k && member && member->name.find(L'.') != std::wstring::npos)
        k = Nearest(code, declarationsEnd, member->name.substr(0, member->name.find(L'.')), true, a.line);
      if (k) pos = logical.spans[logical.of[*k]].second + 1;
    } else if (a.line == 0) {
      pos = 0;
    }
    if (pos)
      behind[*pos].push_back(&a);
    else
      placed.orphans.insert(placed.orphans.end(), a.lines.begin(), a.lines.end());
  }

  placed.lines.reserve(code.size());
  for (std::size_t k = 0; k <= code.size(); ++k) {
    for (const MemberAttribute* a : behind[k]) placed.lines.insert(placed.lines.end(), a->lines.begin(), a->lines.end());
    if (k < code.size()) placed.lines.push_back(code[k]);
  }
  return placed;
}

}  // namespace quillet::io
