#include "hostmodel/memory_module.h"

#include <algorithm>

#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "vba/error.h"
#include "vba/like.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::host {

MemoryCodeModule::MemoryCodeModule(MemoryVBE& vbe, std::weak_ptr<MemoryComponent> component,
                                   std::vector<std::wstring> lines)
    : vbe_(vbe), component_(std::move(component)), lines_(std::move(lines)) {}

Ptr<VBComponent> MemoryCodeModule::Parent() const { return component_.lock(); }

std::wstring MemoryCodeModule::Name() const {
  auto c = component_.lock();
  return c ? c->Name() : std::wstring();
}

void MemoryCodeModule::SetAllLines(std::vector<std::wstring> lines) {
  long old = CountOfLines();
  Splice(1, old, std::move(lines), false);
}

const ProcIndex& MemoryCodeModule::Index() const {
  if (!indexValid_) {
    index_.Build(lines_);
    indexValid_ = true;
  }
  return index_;
}

void MemoryCodeModule::CheckLine(long line, long last) const {
  if (line < 1 || line > last) vba::Raise(vba::kErrSubscript);
}

void MemoryCodeModule::Splice(long at, long removed, std::vector<std::wstring> added, bool keepCaretColumn) {
  long addedCount = static_cast<long>(added.size());
  auto first = lines_.begin() + (at - 1);
  lines_.erase(first, first + removed);
  lines_.insert(lines_.begin() + (at - 1), std::make_move_iterator(added.begin()),
                std::make_move_iterator(added.end()));
  indexValid_ = false;
  ++revision_;
  if (pane_) pane_->LinesChanged(at, removed, addedCount, keepCaretColumn);
}

void MemoryCodeModule::InsertInLine(long line, std::size_t offset, std::wstring_view text) {
  std::wstring& target = lines_[line - 1];
  if (target.size() < offset) target.resize(offset, L' ');
  target.insert(offset, text);
  indexValid_ = false;
  ++revision_;
}

void MemoryCodeModule::AddFromString(std::wstring_view text) {
  const ProcIndex& index = Index();
  long at = index.Procs().empty() ? CountOfLines() + 1 : index.Procs().front().startLine;
  Splice(at, 0, vba::SplitLines(text), false);
}

long MemoryCodeModule::TextLength() const {
  if (lengthRevision_ != revision_) {
    size_t total = lines_.empty() ? 0 : 2 * (lines_.size() - 1);
    for (const std::wstring& line : lines_) total += line.size();
    length_ = static_cast<long>(total);
    lengthRevision_ = revision_;
  }
  return length_;
}

std::wstring MemoryCodeModule::Lines(long start, long count) const {
  if (count < 0) vba::Raise(vba::kErrInvalidCall);
  if (count == 0) return {};
  CheckLine(start, CountOfLines());
  CheckLine(start + count - 1, CountOfLines());
  std::wstring out;
  std::size_t size = 0;
  for (long i = start; i < start + count; ++i) size += lines_[i - 1].size() + 2;
  out.reserve(size);
  for (long i = start; i < start + count; ++i) {
    if (i > start) out += L"\r\n";
    out += lines_[i - 1];
  }
  return out;
}

long MemoryCodeModule::CountOfDeclarationLines() const { return Index().DeclarationLines(); }

void MemoryCodeModule::InsertLines(long line, std::wstring_view text) {
  CheckLine(line, CountOfLines() + 1);
  Splice(line, 0, vba::SplitLines(text), false);
}

void MemoryCodeModule::DeleteLines(long start, long count) {
  if (count < 1) vba::Raise(vba::kErrInvalidCall);
  CheckLine(start, CountOfLines());
  CheckLine(start + count - 1, CountOfLines());
  Splice(start, count, {}, false);
}

void MemoryCodeModule::ReplaceLine(long line, std::wstring_view text) {
  CheckLine(line, CountOfLines());
  Splice(line, 1, vba::SplitLines(text), true);
}

std::wstring MemoryCodeModule::ProcOfLine(long line, ProcKind& kind) const {
  CheckLine(line, CountOfLines());
  const ProcExtent* p = Index().ProcOfLine(line);
  if (!p) {
    kind = kProcKind;
    return {};
  }
  kind = p->kind;
  return p->name;
}

const ProcExtent& MemoryCodeModule::ProcOrRaise(std::wstring_view name, ProcKind kind) const {
  const ProcExtent* p = Index().Find(name, kind);
  if (!p) vba::Raise(vba::kErrSubNotDefined);
  return *p;
}

long MemoryCodeModule::ProcStartLine(std::wstring_view name, ProcKind kind) const {
  return ProcOrRaise(name, kind).startLine;
}

long MemoryCodeModule::ProcBodyLine(std::wstring_view name, ProcKind kind) const {
  return ProcOrRaise(name, kind).bodyLine;
}

long MemoryCodeModule::ProcCountLines(std::wstring_view name, ProcKind kind) const {
  const ProcExtent& p = ProcOrRaise(name, kind);
  return p.endLine - p.startLine + 1;
}

namespace {

// Finds `target` in `line` from 0-based `from` up to `to` (exclusive); returns the
// 0-based start and sets `length`, or npos.
std::size_t FindInLine(const std::wstring& line, std::size_t from, std::size_t to, std::wstring_view target,
                       bool wholeWord, bool matchCase, bool pattern, std::size_t& length) {
  if (to > line.size()) to = line.size();
  auto isWordAt = [&](std::size_t start, std::size_t len) {
    if (!wholeWord) return true;
    bool leftOk = start == 0 || !vba::IsIdentifierChar(line[start - 1]);
    bool rightOk = start + len >= line.size() || !vba::IsIdentifierChar(line[start + len]);
    return leftOk && rightOk;
  };
  vba::Compare compare = matchCase ? vba::Compare::Binary : vba::Compare::Text;
  if (!pattern) {
    if (target.empty()) return std::wstring::npos;
    for (std::size_t start = from; start + target.size() <= to; ++start) {
      std::wstring_view candidate(line.data() + start, target.size());
      bool equal = matchCase ? candidate == target : vba::EqualsText(candidate, target);
      if (equal && isWordAt(start, target.size())) {
        length = target.size();
        return start;
      }
    }
    return std::wstring::npos;
  }
  // Pattern search: the earliest start, then the shortest text that is Like the pattern.
  for (std::size_t start = from; start < to; ++start) {
    for (std::size_t len = 1; start + len <= to; ++len) {
      std::wstring_view candidate(line.data() + start, len);
      if (vba::Like(candidate, target, compare) && isWordAt(start, len)) {
        length = len;
        return start;
      }
    }
  }
  return std::wstring::npos;
}

}  // namespace

bool MemoryCodeModule::Find(std::wstring_view target, Selection& range, const FindOptions& options) const {
  auto& [startLine, startColumn, endLine, endColumn] = range;
  const auto [wholeWord, matchCase, patternSearch] = options;
  long count = CountOfLines();
  if (count == 0) return false;
  long firstLine = std::max(1L, startLine);
  long lastLine = endLine < 1 || endLine > count ? count : endLine;
  for (long l = firstLine; l <= lastLine; ++l) {
    const std::wstring& text = lines_[l - 1];
    std::size_t from = l == firstLine && startColumn > 1 ? static_cast<std::size_t>(startColumn - 1) : 0;
    std::size_t to = text.size();
    if (l == lastLine && endColumn > 0 && endLine >= 1) to = std::min(to, static_cast<std::size_t>(endColumn - 1));
    if (from >= text.size() && !text.empty()) continue;
    std::size_t length = 0;
    std::size_t at = FindInLine(text, from, to, target, wholeWord, matchCase, patternSearch, length);
    if (at != std::wstring::npos) {
      startLine = endLine = l;
      startColumn = static_cast<long>(at) + 1;
      endColumn = static_cast<long>(at + length) + 1;
      return true;
    }
  }
  return false;
}

Ptr<host::CodePane> MemoryCodeModule::CodePane() {
  if (!pane_) pane_ = std::make_shared<MemoryCodePane>(vbe_, weak_from_this());
  return pane_;
}

// ---------------------------------------------------------------------------------------

MemoryCodePane::MemoryCodePane(MemoryVBE& vbe, std::weak_ptr<MemoryCodeModule> module)
    : vbe_(vbe), module_(std::move(module)) {}

Ptr<host::CodeModule> MemoryCodePane::CodeModule() const { return module_.lock(); }

Ptr<host::Window> MemoryCodePane::Window() const {
  for (const auto& w : vbe_.AllWindows())
    if (w->pane.lock().get() == this) return w;
  return nullptr;
}

void MemoryCodePane::Normalize(Pos& a, Pos& b) const {
  if (b.line < a.line || (b.line == a.line && b.column < a.column)) std::swap(a, b);
}

Selection MemoryCodePane::GetSelection() const {
  Pos a = anchor_, b = caret_;
  Normalize(a, b);
  return {a.line, a.column, b.line, b.column};
}

void MemoryCodePane::SetSelection(const Selection& selection) {
  auto [startLine, startColumn, endLine, endColumn] = selection;
  auto module = Module();
  long maxLine = module ? std::max(1L, module->CountOfLines() + 1) : 1;
  auto clampLine = [&](long l) { return std::clamp(l, 1L, maxLine); };
  anchor_ = {clampLine(startLine), std::max(1L, startColumn)};
  caret_ = {clampLine(endLine), std::max(1L, endColumn)};
  wantedColumn_ = 0;
}

void MemoryCodePane::Show() { vbe_.OpenCodeWindow(shared_from_this()); }

void MemoryCodePane::LinesChanged(long at, long removed, long added, bool keepCaretColumn) {
  auto move = [&](Pos& p) {
    if (p.line < at) return;
    if (p.line >= at + removed) {
      p.line += added - removed;
      return;
    }
    // The position's own line was replaced or deleted.
    if (keepCaretColumn && removed == 1 && added >= 1) return;  // ReplaceLine: stays
    p.line = at;
    p.column = 1;
  };
  move(anchor_);
  move(caret_);
  wantedColumn_ = 0;
}

void MemoryCodePane::ReplaceSelection(std::wstring_view text) {
  auto module = Module();
  if (!module) return;
  Pos a = anchor_, b = caret_;
  Normalize(a, b);
  long count = module->CountOfLines();
  if (a.line == b.line && a.column == b.column && a.line <= count && text.find_first_of(L"\r\n") == std::wstring_view::npos) {
    // Typing at a bare caret: the line grows in place, with no copy of it per keystroke.
    module->InsertInLine(a.line, static_cast<std::size_t>(a.column - 1), text);
    anchor_ = caret_ = {a.line, a.column + static_cast<long>(text.size())};
    wantedColumn_ = 0;
    return;
  }
  auto lineText = [&](long l) { return l <= count ? module->Line(l) : std::wstring(); };
  std::wstring first = lineText(a.line);
  std::wstring last = lineText(b.line);
  // A caret beyond the end of its line types into blanks, as the editor fills them.
  if (static_cast<long>(first.size()) < a.column - 1) first.resize(a.column - 1, L' ');
  std::wstring head = first.substr(0, a.column - 1);
  std::wstring tail = static_cast<long>(last.size()) >= b.column ? last.substr(b.column - 1) : std::wstring();
  std::vector<std::wstring> lines = vba::SplitLines(head + std::wstring(text) + tail);
  long caretLine = a.line + static_cast<long>(lines.size()) - 1;
  long caretColumn = static_cast<long>(lines.back().size() - tail.size()) + 1;
  long removed = a.line <= count ? std::min(b.line, count) - a.line + 1 : 0;
  module->Splice(a.line, removed, std::move(lines), false);
  anchor_ = caret_ = {caretLine, caretColumn};
  wantedColumn_ = 0;
}

void MemoryCodePane::MoveVertical(long delta) {
  auto module = Module();
  long count = module ? module->CountOfLines() : 0;
  if (wantedColumn_ == 0) wantedColumn_ = caret_.column;
  long line = std::clamp(caret_.line + delta, 1L, std::max(1L, count));
  long length = line <= count ? static_cast<long>(module->Line(line).size()) : 0;
  caret_ = {line, std::min(wantedColumn_, length + 1)};
  anchor_ = caret_;
}

void MemoryCodePane::ApplyKey(const Key& key) {
  auto module = Module();
  if (!module) return;
  long count = module->CountOfLines();
  auto lineLength = [&](long l) { return l <= count ? static_cast<long>(module->Line(l).size()) : 0L; };
  bool hasSelection = anchor_.line != caret_.line || anchor_.column != caret_.column;

  if (key.ch != 0) {
    if (key.control && (key.ch == L'v' || key.ch == L'V')) {
      ReplaceSelection(vbe_.Platform().ClipboardGetText());
    } else if (!key.control && !key.alt) {
      wchar_t c = key.shift ? vba::ToUpper(key.ch) : key.ch;
      ReplaceSelection(std::wstring(1, c));
    }
    return;
  }
  const std::wstring& name = key.name;
  if (name == L"BACKSPACE") {
    if (hasSelection) return ReplaceSelection(L"");
    if (caret_.column > 1) {
      if (caret_.column - 1 > lineLength(caret_.line)) {
        --caret_.column;  // in the blanks behind the text: just step back
        anchor_ = caret_;
        return;
      }
      anchor_ = {caret_.line, caret_.column - 1};
      return ReplaceSelection(L"");
    }
    if (caret_.line > 1) {
      anchor_ = {caret_.line - 1, lineLength(caret_.line - 1) + 1};
      return ReplaceSelection(L"");
    }
    return;
  }
  if (name == L"DELETE") {
    if (hasSelection) return ReplaceSelection(L"");
    if (caret_.column <= lineLength(caret_.line)) {
      caret_.column += 1;
    } else if (caret_.line < count) {
      caret_ = {caret_.line + 1, 1};
    } else {
      return;
    }
    return ReplaceSelection(L"");
  }
  if (name == L"ENTER") {
    // The new line takes the indent of the line it was split from.
    std::wstring current = caret_.line <= count ? module->Line(caret_.line) : std::wstring();
    std::size_t indent = current.find_first_not_of(L' ');
    if (indent == std::wstring::npos) indent = std::min<std::size_t>(current.size(), caret_.column - 1);
    return ReplaceSelection(L"\r\n" + std::wstring(indent, L' '));
  }
  if (name == L"TAB") {
    if (key.shift) return;
    auto value = vbe_.Platform().RegistryValue(L"Software\\Microsoft\\VBA\\6.0\\Common", L"TabWidth");
    long width = 4;
    // The editor accepts a tab width from 1 to 32; anything else counts as unknown.
    double wanted = value && !value->empty() && vba::IsNumeric(*value) ? vba::Val(*value) : 4;
    if (wanted >= 1 && wanted <= 32) width = static_cast<long>(wanted);
    long column = std::min(anchor_.column, caret_.column);
    long blanks = width - (column - 1) % width;
    return ReplaceSelection(std::wstring(blanks, L' '));
  }
  if (name == L"DOWN") return MoveVertical(1);
  if (name == L"UP") return MoveVertical(-1);
  if (name == L"PGDN") return MoveVertical(20);
  if (name == L"PGUP") return MoveVertical(-20);
  if (name == L"LEFT") {
    if (caret_.column > 1) {
      --caret_.column;
    } else if (caret_.line > 1) {
      caret_ = {caret_.line - 1, lineLength(caret_.line - 1) + 1};
    }
  } else if (name == L"RIGHT") {
    if (caret_.column <= lineLength(caret_.line) || caret_.line >= count) {
      ++caret_.column;
    } else {
      caret_ = {caret_.line + 1, 1};
    }
  } else if (name == L"HOME") {
    caret_.column = 1;
    if (key.control) caret_.line = 1;
  } else if (name == L"END") {
    if (key.control) caret_.line = std::max(1L, count);
    caret_.column = lineLength(caret_.line) + 1;
  } else {
    return;  // ESC, F1 and other keys change nothing in the text
  }
  anchor_ = caret_;
  wantedColumn_ = 0;
}

}  // namespace quillet::host
