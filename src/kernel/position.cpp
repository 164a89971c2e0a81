#include "kernel/position.h"

#include "vba/error.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::kernel {
namespace {

constexpr const wchar_t* kEditorKey = L"Software\\Microsoft\\VBA\\6.0\\Common";
constexpr const wchar_t* kCursorMark = L"<cursor>";

// A line of the module, "" for a line that does not exist.
std::wstring LineText(const host::Ptr<host::CodeModule>& module, long line) {
  if (!module || line < 1 || line > module->CountOfLines()) return {};
  return module->Lines(line, 1);
}

bool EndsInContinuation(const std::wstring& line) { return vba::Right(vba::Trim(line), 1) == L"_"; }

// Position of the first character that is no blank, 1 for a blank line.
long FirstNonBlank(const std::wstring& line) {
  if (vba::Trim(line).empty()) return 1;
  return static_cast<long>(line.find_first_not_of(L' ')) + 1;
}

}  // namespace

bool CurrentProcGet(Session& s, bool strict, std::wstring& name, long& bodyLine, bool* inHeader,
                    host::ProcKind* kind) {
  if (!s.vbe || s.vbe->CodePanesCount() == 0) return false;
  host::Ptr<host::CodePane> pane = s.vbe->ActiveCodePane();
  return pane && ProcAtCaret(*pane, strict, name, bodyLine, inHeader, kind);
}

bool ProcAtCaret(const host::CodePane& pane, bool strict, std::wstring& name, long& bodyLine, bool* inHeader,
                 host::ProcKind* kind) {
  long el = pane.GetSelection().endLine;
  host::Ptr<host::CodeModule> module = pane.CodeModule();
  host::ProcKind k = host::kProcKind;
  // A caret below the last line (an empty module) is in no procedure.
  name = el <= module->CountOfLines() ? module->ProcOfLine(el, k) : std::wstring();
  if (kind) *kind = k;
  bool result = !name.empty();
  if (!result || !strict) return result;

  bodyLine = module->ProcBodyLine(name, k);
  long headerEnd = bodyLine;
  long count = module->CountOfLines();
  while (headerEnd < count && EndsInContinuation(module->Lines(headerEnd, 1))) ++headerEnd;
  if (inHeader) *inHeader = el >= bodyLine && el <= headerEnd;

  long last = module->ProcStartLine(name, k) + module->ProcCountLines(name, k) - 1;
  while (last > bodyLine && vba::Trim(module->Lines(last, 1)).empty()) --last;
  if (el >= bodyLine && el <= last) return true;
  name.clear();
  return false;
}

std::wstring CurrentLineGet(Session& s, long& line, long& column, bool useStart) {
  if (!s.vbe) return {};
  host::Ptr<host::CodePane> pane = s.vbe->ActiveCodePane();
  if (!pane) return {};
  auto [sl, sc, el, ec] = pane->GetSelection();
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  if (useStart) {
    line = sl;
    column = sc;
    return LineText(module, el);
  }
  line = el;
  column = ec;
  return LineText(module, sl);
}

int LineIndent(const CodeView& view, long line) {
  long p = FirstNonBlank(view.line(line));
  if (p == 1) {
    std::wstring above = view.line(line - 1);
    if (!vba::Trim(above).empty()) p = FirstNonBlank(above);
  }
  return static_cast<int>(p - 1);
}

int LineIndentGet(Session& s, long line) {
  std::optional<CodeView> view = ActiveView(s);
  return view ? LineIndent(*view, line) : 0;
}

int CurrentIndent(const CodeView& view) {
  host::Selection at = view.Place();
  std::wstring text = view.line(at.startLine);
  int indent = LineIndent(view, at.endLine);
  if (!(vba::Trim(text).empty() && at.endColumn - 1 <= indent)) indent = static_cast<int>(at.endColumn - 1);
  if (indent == 0) indent = static_cast<int>(view.tab.size());
  return indent;
}

int CurrentIndentGet(Session& s) {
  std::optional<CodeView> view = ActiveView(s);
  return view ? CurrentIndent(*view) : static_cast<int>(TabSpacesGet(s).size());
}

std::optional<CodeView> ActiveView(Session& s) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return std::nullopt;
  return ViewOf(*pane, TabSpacesGet(s));
}

std::wstring TabSpacesGet(const Session& s) {
  long width = 4;
  std::optional<std::wstring> value = s.platform.RegistryValue(kEditorKey, L"TabWidth");
  if (value && vba::IsNumeric(*value)) {
    long v = static_cast<long>(vba::Val(*value));
    if (v > 0) width = v;
  }
  return std::wstring(width, L' ');
}

bool CodeWindowActive(Session& s) {
  if (!s.vbe || s.vbe->VBProjects()->Count() == 0) return false;
  host::Ptr<host::Window> w = s.vbe->ActiveWindow();
  return w && w->Type() == host::kCodeWindow;
}

host::Ptr<host::VBComponent> ModuleFind(Session& s, std::wstring_view name) {
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  if (!project) return nullptr;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i)
    if (vba::EqualsText(components->Item(i)->Name(), name)) return components->Item(i);
  return nullptr;
}

bool ModuleExists(Session& s, std::wstring_view name) { return ModuleFind(s, name) != nullptr; }

void SetCursor(Session& s, long& line, bool keepSelection, const host::Ptr<host::VBComponent>& component) {
  host::Ptr<host::CodePane> pane;
  if (!component) {
    if (!s.vbe || !(pane = s.vbe->ActiveCodePane())) return;
  } else {
    pane = component->CodeModule()->CodePane();
  }
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  long column = 1;
  for (;;) {
    host::Selection found(line, column, -1, -1);
    if (!module->Find(kCursorMark, found)) return;
    line = found.startLine;
    column = found.startColumn;
    module->ReplaceLine(line, vba::Replace(module->Lines(line, 1), kCursorMark, L"", 1, -1, vba::Compare::Text));
    if (!keepSelection) pane->SetSelection(host::Selection(line, column));
  }
}

void CodeReplace(Session& s, std::wstring& text) {
  std::optional<CodeView> view = ActiveView(s);
  if (!view) return;
  CodeEdit edit = SelectionReplaced(*view, text);
  text = edit.text;
  ApplyEdit(s.platform, *s.vbe->ActiveCodePane(), edit);
}

CodeEdit LineInsertEdit(const CodeView& view, const std::wstring& text, long column) {
  CodeEdit edit = BlockAtLine(view, view.Place().endLine, text);
  edit.caret = column > 0 ? host::Selection(edit.line, column) : std::optional<host::Selection>();
  return edit;
}

void CodeLineInsert(Session& s, const std::wstring& text, long column) {
  std::optional<CodeView> view = ActiveView(s);
  if (!view) return;
  ApplyEdit(s.platform, *s.vbe->ActiveCodePane(), LineInsertEdit(*view, text, column));
}

void OutlookFocusRestore(Session& s) {
  if (s.hostName != L"Outlook") return;
  long outlook = s.platform.FindWindow(L"rctrl_renwnd32", L"");
  if (outlook) s.platform.CloseWindow(outlook);
  if (s.vbe && s.vbe->Windows()->Count() > 0) s.vbe->Windows()->Item(1)->SetFocus();
}

long ImmediateWindowHandleGet(Session& s) {
  long saved = s.platform.GetFocus();
  long handle = 0;
  host::Ptr<host::Windows> windows = s.vbe ? s.vbe->Windows() : nullptr;
  for (long i = 1; windows && i <= windows->Count(); ++i) {
    host::Ptr<host::Window> w = windows->Item(i);
    if (w->Type() != host::kImmediateWindow) continue;
    if (!w->Visible()) w->SetVisible(true);
    w->SetFocus();
    host::Ptr<host::Window> active = s.vbe->ActiveWindow();
    if (active && active->Type() == host::kImmediateWindow) handle = s.platform.GetFocus();
    break;
  }
  s.platform.SetFocus(saved);
  return handle;
}

bool HostWindowActive(Session& s) {
  if (!s.vbe) return false;
  long active = s.platform.GetActiveWindow();
  if (active == s.vbe->MainWindow()->HWnd()) return true;
  std::wstring title = s.platform.GetWindowText(active).substr(0, 255);
  std::size_t nul = title.find(L'\0');
  if (nul != std::wstring::npos) title.resize(nul);
  host::Ptr<host::Windows> windows = s.vbe->Windows();
  for (long i = 1; i <= windows->Count(); ++i) {
    host::Ptr<host::Window> w = windows->Item(i);
    if (w->Visible() && w->Caption() == title) return true;
  }
  return false;
}

std::wstring AppPathGet(const Session& s) {
  std::wstring folder = s.platform.ProgramFolder();
  if (!folder.empty() && folder.back() == L'\\') folder.pop_back();
  return folder;
}

}  // namespace quillet::kernel
