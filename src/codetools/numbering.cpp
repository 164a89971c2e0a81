#include "codetools/numbering.h"

#include <algorithm>
#include <cstring>

#include "codetools/pane_lines.h"
#include "kernel/errors.h"
#include "vba/error.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::codetools {
namespace {

// Lines that begin with one of these words (a prefix test, without regard to case) are
// no place for a number: declarations, block ends and jumps.
const std::vector<std::wstring>& UnnumberedWords() {
  static const std::vector<std::wstring> words =
      vba::Split(L"Dim,Const,Static,Case,Else,End If,End Select,End With,Wend,Next,Exit,End,Resume,GoTo,GoSub,"
                 L"Return,With,Doevents",
                 L",");
  return words;
}

bool BeginsWithUnnumberedWord(std::wstring_view trimmed) {
  for (const auto& w : UnnumberedWords())
    if (vba::StartsWithText(trimmed, w)) return true;
  return false;
}

}  // namespace

std::wstring GetLineWithoutNumber(std::wstring_view line) {
  std::size_t i = 0;
  while (i < line.size() && vba::IsNumeric(line.substr(i, 1))) ++i;
  if (i > 0) {
    if (i < line.size() && line[i] == L':') ++i;
    if (i < line.size() && line[i] == L' ') ++i;
  }
  return std::wstring(line.substr(i));
}

long BeginComment(std::wstring_view line) {
  bool inString = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == L'"') inString = !inString;
    else if (line[i] == L'\'' && !inString) return static_cast<long>(i + 1);
  }
  return 0;
}

bool IsLabel(std::wstring_view line) {
  return !line.empty() && line.back() == L':' && vba::Split(line, L" ").size() == 1;
}

bool FindISFunction(std::wstring_view text, int kind) {
  static const wchar_t* const access[] = {L"", L"PRIVATE ", L"PUBLIC ", L"GLOBAL ", L"PRIVATE "};
  if (kind < 0 || kind > 4) vba::Raise(-2147221503, L"NEVER HERE !!", L"Findifisfunctionorvariable");
  std::wstring t = vba::Trim(text);
  std::wstring word = access[kind];
  if (vba::InStr(t, word) == 0) return false;
  for (const wchar_t* what : {L"FUNCTION", L"PROPERTY", L"SUB"})
    if (t.compare(0, word.size() + std::wcslen(what), word + what) == 0) return true;
  return false;
}

bool IsProcedureHeader(std::wstring_view text) {
  std::wstring upper = vba::UCase(text);
  for (int kind : {4, 3, 1, 2, 0})
    if (FindISFunction(upper, kind)) return true;
  return false;
}

bool IsHeaderOrComment(std::wstring_view line) {
  std::wstring trimmed = vba::Trim(line);
  return IsProcedureHeader(line) || trimmed.empty() || BeginComment(trimmed) == 1;
}

std::vector<std::wstring> WithoutNumbers(std::vector<std::wstring> lines) {
  for (auto& line : lines) {
    line = GetLineWithoutNumber(line);
    if (line.empty()) line = L" ";
  }
  return lines;
}

std::vector<std::wstring> WithNumbers(std::vector<std::wstring> lines, long firstLine, long base,
                                      std::wstring_view lineAfter) {
  lines = WithoutNumbers(std::move(lines));
  if (base == 0) base = firstLine;
  if (firstLine <= 0) return lines;
  bool continued = false;
  for (std::size_t k = 0; k < lines.size(); ++k) {
    const std::wstring& line = lines[k];
    std::wstring trimmed = vba::Trim(line);
    if (trimmed.empty()) continue;  // blank lines leave a continuation open
    bool wasContinued = continued;
    continued = trimmed.back() == L'_';
    if (wasContinued) continue;
    if (BeginsWithUnnumberedWord(trimmed)) continue;
    if (IsLabel(line)) continue;
    // The line directly above a procedure header is outside of it.
    std::wstring_view next = k + 1 < lines.size() ? std::wstring_view(lines[k + 1]) : lineAfter;
    if (IsProcedureHeader(next)) continue;
    if (IsHeaderOrComment(line)) continue;
    lines[k] = std::to_wstring(base + firstLine + static_cast<long>(k)) + L"0 " + line;
  }
  return lines;
}

void UnReplaceLines(kernel::Session& s) {
  kernel::Trap(s, L"modNumbering.UnReplaceLines", [&] {
    auto pane = ActivePane(s);
    if (!pane) return;
    auto module = pane->CodeModule();
    host::Selection sel = pane->GetSelection();
    long last = std::min(sel.endLine, module->CountOfLines());
    if (sel.startLine >= 1) {
      auto before = ReadLines(*module, sel.startLine, last);
      WriteChangedLines(*module, sel.startLine, before, WithoutNumbers(before));
    }
    pane->SetSelection(sel);
  });
}

void ReplaceLines(kernel::Session& s, long& base) {
  kernel::Trap(s, L"modNumbering.ReplaceLines", [&] {
    auto pane = ActivePane(s);
    if (!pane) return;
    auto module = pane->CodeModule();
    host::Selection sel = pane->GetSelection();
    long count = module->CountOfLines();
    long last = std::min(sel.endLine, count);
    if (base == 0) base = sel.startLine;
    if (sel.startLine >= 1 && last >= sel.startLine) {
      auto before = ReadLines(*module, sel.startLine, last);
      std::wstring after = last < count ? module->Lines(last + 1, 1) : std::wstring();
      // Old numbers go first (the editor sees them go as UnReplaceLines takes them), so
      // that no line gets two.
      WriteChangedLines(*module, sel.startLine, before,
                        WithNumbers(before, sel.startLine, base, after));
    }
    pane->SetSelection(sel);
  });
}

void LineNumbers(kernel::Session& s, int action) {
  kernel::Trap(s, L"basCommands.LineNumbers", [&] {
    if (!ActivePane(s)) return;
    if (action == kAddNumbers) {
      long base = 0;
      ReplaceLines(s, base);
    } else if (action == kRemoveNumbers) {
      UnReplaceLines(s);
    }
  });
}

}  // namespace quillet::codetools
