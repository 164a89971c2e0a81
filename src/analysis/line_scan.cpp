#include "analysis/line_scan.h"

#include "analysis/text_find.h"
#include "kernel/errors.h"
#include "vba/error.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {
namespace {

constexpr std::wstring_view kCrLf = L"\r\n";

// A line of an array read the way the scans read it: an index outside raises error 9, so a
// text that ends inside a walk ends in the error report.
const std::wstring& At(std::span<const std::wstring> lines, long i) {
  if (i < 0 || i >= static_cast<long>(lines.size())) vba::Raise(vba::kErrSubscript);
  return lines[static_cast<std::size_t>(i)];
}

bool IsBlankLine(std::wstring_view line) { return line.find_first_not_of(L' ') == std::wstring_view::npos; }

// The last character of the trimmed line is "_".
bool ContinuesTrimmed(std::wstring_view line) {
  std::size_t end = line.find_last_not_of(L' ');
  return end != std::wstring_view::npos && line[end] == L'_';
}

// The trimmed line begins with an apostrophe.
bool IsCommentLine(std::wstring_view line) {
  std::size_t first = line.find_first_not_of(L' ');
  return first != std::wstring_view::npos && line[first] == L'\'';
}

bool IsOnErrorLine(std::wstring_view line) {
  return vba::EqualsText(vba::Left(vba::Trim(line), 9), L"On error ");
}

}  // namespace

std::wstring_view TrimView(std::wstring_view s) {
  std::size_t first = s.find_first_not_of(L' ');
  if (first == std::wstring_view::npos) return {};
  return s.substr(first, s.find_last_not_of(L' ') - first + 1);
}

namespace {

host::Ptr<host::CodeModule> ActiveModule(kernel::Session& s) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) vba::Raise(vba::kErrObjectNotSet);
  return pane->CodeModule();
}

// The statements of a line, handed to `emit` trimmed. Each part is the text between two
// cuts, so it is a piece of the line itself; the quote flag only decides where cuts are.
template <class Emit>
void Disjoin(std::wstring_view line, Emit&& emit) {
  if (line.find(L": ") == std::wstring_view::npos) {
    emit(TrimView(line));
    return;
  }
  bool inString = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < line.size(); ++i) {
    wchar_t c = line[i];
    if (c == L'"') {
      inString = !inString;
    } else if (c == L'\'' && !inString) {
      emit(TrimView(line.substr(start, i - start)));  // the comment is dropped
      return;
    } else if (c == L':' && !inString) {
      emit(TrimView(line.substr(start, i - start)));  // the colon is dropped
      start = i + 1;
    }
  }
  if (start < line.size()) emit(TrimView(line.substr(start)));
}

}  // namespace

// The walk over the lines A of a definition starting on line L, N lines long.
void ProcDeclAreaOf(std::span<const std::wstring> a, long L, bool countOnError, long& declStart, long& declEnd,
                    long& defLineCount) {
  const long N = static_cast<long>(a.size());
  long i = 0;
  while (ContinuesTrimmed(At(a, i))) ++i;
  ++i;
  defLineCount = i;
  const long D = i;
  declEnd = L;
  declStart = L + D;
  if (D >= N) return;  // a definition without a body

  // Blank lines and comments right under the definition.
  while (IsBlankLine(At(a, i)) || IsCommentLine(At(a, i))) ++i;
  declStart = L + i;

  long blanks = 0;  // blank lines at the end of the run
  while (IsDeclarationLine(At(a, i), At(a, i - 1))) {
    blanks = IsBlankLine(At(a, i)) ? blanks + 1 : 0;
    ++i;
  }
  declEnd = L + i - 1;
  long e = i - 1;

  long declsBehind = 0;  // declaration lines behind an On Error line
  if (IsOnErrorLine(At(a, i))) {
    if (countOnError) ++declEnd;
    blanks = 0;
    for (;;) {
      ++i;
      if (!IsDeclarationLine(At(a, i), At(a, i - 1))) {
        --i;
        break;
      }
      if (IsBlankLine(At(a, i))) {
        ++blanks;
      } else {
        blanks = 0;
        ++declsBehind;
      }
    }
  }
  if (declsBehind > 0) {
    i -= blanks;
    declEnd = L + i;
    e = i;
  }
  // Cut back over trailing blanks. Both conditions are read on every round, as the
  // original test does; a blank first line thus ends in the error report.
  for (;;) {
    bool above = declEnd >= 1;
    bool blank = IsBlankLine(At(a, e));
    if (!(above && blank)) break;
    --declEnd;
    --e;
  }
}

long ProcExitLineOf(std::span<const std::wstring> a, long S, std::wstring_view typeWord, bool checkIf) {
  const long U = static_cast<long>(a.size()) - 1;
  const long fallback = S == 0 ? U + 1 : U + S;
  const std::wstring exitWord = L"Exit " + std::wstring(typeWord);
  long i = U;
  for (; i >= 1; --i) {
    const std::wstring& line = a[static_cast<std::size_t>(i - 1)];
    long p = FindText(line, exitWord);
    if (p == 0) continue;
    if (checkIf && ExitLineIsInsideIf(a, i - 1)) return fallback;
    // An Exit behind an apostrophe or "Rem" is no statement; the test is as plain as
    // that, so "RemainingCount = 1: Exit Sub" does not count either.
    std::wstring_view before = std::wstring_view(line).substr(0, static_cast<std::size_t>(p - 1));
    if (before.find(L'\'') == std::wstring_view::npos && before.find(L"Rem") == std::wstring_view::npos) break;
  }
  return i >= 2 ? i + S - 1 : fallback;
}

long LineDisjunction(std::wstring_view line, std::vector<std::wstring>& parts) {
  parts.clear();
  Disjoin(line, [&](std::wstring_view part) { parts.emplace_back(part); });
  return static_cast<long>(parts.size());
}

std::wstring_view FirstStatement(std::wstring_view line) {
  std::wstring_view first;
  bool found = false;
  Disjoin(line, [&](std::wstring_view part) {
    if (!found) first = part;
    found = true;
  });
  return first;
}

bool IsDeclarationLine(std::wstring_view line, std::wstring_view previous) {
  std::wstring t = vba::Trim(line);
  if (vba::StartsWithText(t, L"Const ") || vba::StartsWithText(t, L"Dim ") || vba::StartsWithText(t, L"Static "))
    return true;
  if (t.empty()) return true;
  return previous.size() >= 2 && previous.substr(previous.size() - 2) == L" _";
}

long DeclListSplit(std::wstring_view text, std::vector<std::wstring_view>& parts) {
  parts.clear();
  if (text.empty()) return 0;
  bool inString = false;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == L'"') {
      inString = !inString;
    } else if (text[i] == L',' && !inString) {
      parts.push_back(TrimView(text.substr(begin, i - begin)));
      begin = i + 1;
    }
  }
  parts.push_back(TrimView(text.substr(begin)));
  return static_cast<long>(parts.size());
}

long DeclListSplit(std::wstring_view text, std::vector<std::wstring>& parts) {
  std::vector<std::wstring_view> views;
  DeclListSplit(text, views);
  parts.assign(views.begin(), views.end());
  return static_cast<long>(parts.size());
}

std::wstring StringTrimChars(std::wstring_view text, std::wstring_view delimiter, int mode) {
  const std::size_t n = delimiter.size();
  if (n == 0 || text.empty()) return std::wstring(text);
  bool onlyDelimiters = text.size() % n == 0;
  for (std::size_t i = 0; onlyDelimiters && i < text.size(); i += n)
    onlyDelimiters = text.substr(i, n) == delimiter;
  if (onlyDelimiters) return std::wstring(text);

  std::wstring_view t = text;
  if (mode == kTrimLeft || mode == kTrimBoth) {
    while (t.substr(0, n) == delimiter && t.size() - n > 1) t.remove_prefix(n);
  }
  if (mode == kTrimBoth || mode == kTrimRight) {
    while (t.size() >= n && t.substr(t.size() - n) == delimiter) t.remove_suffix(n);
  }
  return std::wstring(t);
}

long SubstringCount(std::wstring_view text, std::wstring_view delimiter) {
  if (delimiter.empty()) return 0;
  long count = 0;
  for (std::size_t at = text.find(delimiter); at != std::wstring_view::npos;
       at = text.find(delimiter, at + delimiter.size()))
    ++count;
  return count;
}

bool ExitLineIsInsideIf(std::span<const std::wstring> lines, long index) {
  std::wstring line = vba::Trim(At(lines, index));
  if (vba::Like(line, L"If *")) return true;
  // The original loop over the lines behind the index tests the same fixed line on every
  // round, so it counts one hit per line behind it when that line starts with "End If".
  long hits = vba::Like(line, L"End If*") ? static_cast<long>(lines.size()) - 1 - index : 0;
  return hits > 0 && hits % 2 == 0;
}

std::wstring ProcedureTypeGet(std::wstring_view procName, std::wstring_view definitionLine) {
  std::wstring nameParen = std::wstring(procName) + L"(";
  long p = vba::InStr(1, definitionLine, nameParen, vba::Compare::Text);
  std::wstring head = vba::Left(definitionLine, p);
  if (vba::InStr(head, L"Function", vba::Compare::Text) > 0) return L"Function";
  if (vba::InStr(head, L"Property", vba::Compare::Text) > 0) return L"Property";
  return L"Sub";
}

void ProcDeclAreaGet(kernel::Session& s, long& declStart, long& declEnd, long firstLine, long& defLineCount,
                     bool countOnError, std::wstring& text) {
  kernel::Trap(s, L"basGlobal.ProcDeclAreaGet", [&] {
    long L = firstLine;
    if (L < 1) {
      L = 1;
    } else {
      host::Ptr<host::CodeModule> module = ActiveModule(s);
      host::ProcKind kind = host::kProcKind;
      std::wstring name = module->ProcOfLine(L, kind);
      long n = module->ProcCountLines(name, kind) - (module->ProcBodyLine(name, kind) - module->ProcStartLine(name, kind));
      text = module->Lines(L, n);
    }
    std::vector<std::wstring> lines = vba::Split(text, kCrLf);
    if (lines.empty()) vba::Raise(vba::kErrSubscript);  // an empty text has not even a definition line
    ProcDeclAreaOf(lines, L, countOnError, declStart, declEnd, defLineCount);
  });
}

long ProcExitLineGet(kernel::Session& s, long firstLine, long lastLine, std::wstring_view typeWord,
                     std::wstring& text, bool checkIf) {
  long result = 0;
  kernel::Trap(s, L"basGlobal.ProcExitLineGet", [&] {
    if (firstLine > 0) text = ActiveModule(s)->Lines(firstLine, lastLine - firstLine + 1);
    std::vector<std::wstring> lines = vba::Split(StringTrimChars(text, kCrLf, kTrimBoth), kCrLf);
    result = ProcExitLineOf(lines, firstLine, typeWord, checkIf);
  });
  return result;
}

void StatementJoiner::Line(std::wstring_view line, bool stripComments) {
  std::wstring_view t = TrimView(line);
  if (t.empty()) {
    Flush();
    return;
  }
  if (stripComments) t = TrimView(t.substr(0, t.find(L'\'')));
  const bool continues = !t.empty() && t.back() == L'_';
  if (continues) t = TrimView(t.substr(0, t.size() - 1));
  if (pending_.empty() && !continues) {
    Emit(t);  // the common case: a statement on one line
    return;
  }
  if (!pending_.empty()) pending_ += L' ';
  pending_ += t;
  if (!continues) Flush();
}

void StatementJoiner::Flush() {
  Emit(pending_);
  pending_.clear();
}

void StatementJoiner::Emit(std::wstring_view text) {
  Disjoin(text, [&](std::wstring_view part) {
    if (!part.empty()) statements_.emplace_back(part);
  });
}

void ModuleDeclLinesGet(host::CodeModule& module, std::vector<std::wstring>& statements) {
  long count = module.CountOfDeclarationLines();
  if (count < 1) return;
  StatementJoiner joiner(statements);
  for (const std::wstring& line : vba::Split(module.Lines(1, count), kCrLf)) joiner.Line(line, true);
}

}  // namespace quillet::analysis
