#include "kernel/code_edit.h"

#include <algorithm>

#include "hostmodel/platform.h"
#include "vba/strings.h"

namespace quillet::kernel {
namespace {

std::vector<std::wstring> SplitLines(const std::wstring& text) { return vba::SplitLines(text); }

}  // namespace

bool CodeView::Blank(long n) const { return vba::Trim(line(n)).empty(); }

CodeView ViewOf(const host::CodePane& pane, std::wstring tab) {
  host::Ptr<host::CodeModule> module = pane.CodeModule();
  CodeView v;
  v.count = module->CountOfLines();
  v.line = [module, count = v.count](long n) {
    return n < 1 || n > count ? std::wstring() : module->Lines(n, 1);
  };
  v.selection = pane.GetSelection();
  v.tab = std::move(tab);
  return v;
}

CodeView ViewOf(std::vector<std::wstring> lines, host::Selection selection, std::wstring tab) {
  auto held = std::make_shared<std::vector<std::wstring>>(std::move(lines));
  CodeView v;
  v.count = static_cast<long>(held->size());
  v.line = [held](long n) { return n < 1 || n > static_cast<long>(held->size()) ? std::wstring() : (*held)[n - 1]; };
  v.selection = selection;
  v.tab = std::move(tab);
  return v;
}

std::wstring CodeEdit::Line(std::size_t n) const {
  std::vector<std::wstring> lines = SplitLines(text);
  return n < lines.size() ? lines[n] : std::wstring();
}

CodeEdit BlockAtLine(const CodeView& view, long line, std::wstring block) {
  CodeEdit edit;
  if (view.Blank(line)) {
    edit.line = line;
    edit.mode = CodeEdit::kReplaceLine;
  } else {
    edit.line = line + 1;
  }
  edit.text = std::move(block);
  return edit;
}

CodeEdit LineReplaced(long line, std::wstring text, long caretColumn) {
  CodeEdit edit;
  edit.line = line;
  edit.mode = CodeEdit::kReplaceLine;
  edit.text = std::move(text);
  edit.caret = host::Selection(line, caretColumn);
  return edit;
}

CodeEdit SelectionReplaced(const CodeView& view, const std::wstring& text) {
  auto [sl, sc, el, ec] = view.selection;
  std::wstring head = vba::Left(view.line(sl), sc - 1) + text;
  std::wstring tail = view.line(el);
  CodeEdit edit = LineReplaced(sl, head + (vba::Len(tail) >= ec ? vba::Mid(tail, ec) : std::wstring()),
                               vba::Len(head) + 1);
  edit.replaced = el - sl + 1;
  return edit;
}

void ApplyEdit(host::Platform& platform, host::CodePane& pane, const CodeEdit& edit) {
  host::Ptr<host::CodeModule> module = pane.CodeModule();
  // A line below the last one (the caret of an empty module) is no obstacle: it is made.
  if (edit.mode == CodeEdit::kReplaceLine && edit.line <= module->CountOfLines()) {
    long extra = std::min(edit.replaced, module->CountOfLines() - edit.line + 1) - 1;
    if (extra > 0) module->DeleteLines(edit.line + 1, extra);
    module->ReplaceLine(edit.line, edit.text);
  } else {
    module->InsertLines(std::min(edit.line, module->CountOfLines() + 1), edit.text);
  }
  if (edit.caret) pane.SetSelection(*edit.caret);
  if (!edit.keys.empty()) platform.SendKeys(edit.keys, false);
}

std::vector<std::wstring> EditedLines(std::vector<std::wstring> lines, const CodeEdit& edit) {
  std::vector<std::wstring> added = SplitLines(edit.text);
  auto at = lines.begin() + std::min<long>(edit.line - 1, static_cast<long>(lines.size()));
  if (edit.mode == CodeEdit::kReplaceLine && at != lines.end())
    at = lines.erase(at, at + std::min<long>(edit.replaced, lines.end() - at));
  lines.insert(at, added.begin(), added.end());
  return lines;
}

bool KeepsUserLines(const CodeView& before, const CodeEdit& edit) {
  if (edit.mode == CodeEdit::kInsertBefore || before.Blank(edit.line)) return true;
  // The replaced line must still stand around what was put into it.
  std::wstring old = before.line(edit.line);
  const std::wstring& now = edit.text;
  if (now.find(L"\r\n") != std::wstring::npos || now.size() < old.size()) return false;
  std::size_t prefix = 0;
  while (prefix < old.size() && old[prefix] == now[prefix]) ++prefix;
  std::size_t suffix = 0;
  while (suffix < old.size() - prefix && old[old.size() - 1 - suffix] == now[now.size() - 1 - suffix]) ++suffix;
  return prefix + suffix == old.size();
}

}  // namespace quillet::kernel
