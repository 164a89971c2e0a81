#include "codetools/code_window.h"

#include <algorithm>

#include "ui/com_dlg.h"
#include "io/paths.h"
#include "settings/folders.h"
#include "kernel/errors.h"
#include "vba/strings.h"

namespace quillet::codetools {
namespace {

// The comment commands act only where a statement command would: a project exists and a
// code window is in front.
host::Ptr<host::CodePane> CodeWindowPane(kernel::Session& s) {
  if (!s.vbe || s.vbe->VBProjects()->Count() == 0) return nullptr;
  auto window = s.vbe->ActiveWindow();
  if (!window || window->Type() != host::kCodeWindow) return nullptr;
  return s.vbe->ActiveCodePane();
}

// Reads the frame's lines (a line below the module's end reads as empty), asks `edit` for
// the new text and writes it back when something changed.
template <class Edit>
void CommentCommand(kernel::Session& s, Edit edit) {
  auto pane = CodeWindowPane(s);
  if (!pane) return;
  if (auto window = pane->Window()) window->SetFocus();
  auto module = pane->CodeModule();
  host::Selection sel = pane->GetSelection();
  CommentFrame frame = CommentFrameOf(sel);
  long count = module->CountOfLines();
  std::vector<std::wstring> lines = ReadLines(*module, frame.first, std::min(frame.last, count));
  lines.resize(static_cast<std::size_t>(std::max(1L, frame.last - frame.first + 1)));
  CommentEdit result = edit(lines, sel);
  if (result.changed) {
    // A caret below the last line stands on a line that is made first.
    for (long line = count + 1; line <= frame.last; ++line) module->InsertLines(line, L"");
    WriteChangedLines(*module, frame.first, lines, result.lines);
  }
  pane->SetSelection(result.selection);
}

host::Selection SelectionAfter(const host::Selection& sel, const CommentFrame& frame, long endColumnShift) {
  host::Selection after = sel;
  after.endLine = frame.last + (frame.lastLineCut ? 1 : 0);
  if (!frame.lastLineCut) after.endColumn = sel.endColumn + endColumnShift;
  if (frame.noSelection) after.endColumn = sel.startColumn;
  return after;
}

}  // namespace

CommentFrame CommentFrameOf(const host::Selection& sel) {
  CommentFrame f;
  f.first = sel.startLine;
  f.last = sel.endLine;
  if (sel.endColumn == 1 && sel.endLine > sel.startLine) {
    --f.last;
    f.lastLineCut = true;
  }
  f.noSelection = sel.startLine == f.last && sel.startColumn == sel.endColumn;
  return f;
}

CommentEdit CommentedLines(std::vector<std::wstring> lines, const host::Selection& sel) {
  CommentFrame frame = CommentFrameOf(sel);
  for (auto& line : lines) line = L"'" + line;
  return {std::move(lines), true, SelectionAfter(sel, frame, 1)};
}

CommentEdit UncommentedLines(std::vector<std::wstring> lines, const host::Selection& sel) {
  CommentFrame frame = CommentFrameOf(sel);
  int changed = 0;
  long shift = 0;
  for (std::size_t k = 0; k < lines.size(); ++k) {
    if (vba::Left(vba::LTrim(lines[k]), 1) != L"'") continue;
    lines[k].erase(lines[k].find(L'\''), 1);
    ++changed;
    if (k + 1 == lines.size() && !frame.lastLineCut) shift = -1;
  }
  return {std::move(lines), changed > 0, SelectionAfter(sel, frame, shift)};
}

void CommentLinesAdd(kernel::Session& s) {
  kernel::Trap(s, L"basCommands.CommentLinesAdd", [&] { CommentCommand(s, CommentedLines); });
}

void CommentLinesRemove(kernel::Session& s) {
  kernel::Trap(s, L"basCommands.CommentLinesRemove", [&] { CommentCommand(s, UncommentedLines); });
}

bool ImportFile(kernel::Session& s) {
  bool imported = false;
  kernel::Trap(s, L"basCommands.ImportFile", [&] {
    auto project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
    if (!project) return;
    ui::ComDlg dlg(s.uiHost);
    dlg.Directory = settings::CodeFolderGet(s);
    dlg.Filter = ui::ComDlg::FilterOf({{L"VB Files (*.bas, *.frm, *.cls)", L"*.bas;*.frm;*.cls"},
                                   {L"Basic Files (*.bas)", L"*.bas"},
                                   {L"Form Files (*.frm)", L"*.frm"},
                                   {L"Class Files (*.cls)", L"*.cls"},
                                   {L"All Files (*.*)", L"*.*"}});
    dlg.DialogTitle = L"Import File";
    if (!dlg.ShowOpen()) return;
    project->VBComponents()->Import(dlg.FileName);
    imported = true;
  });
  return imported;
}

bool ExportFile(kernel::Session& s) {
  bool exported = false;
  kernel::Trap(s, L"basCommands.ExportFile", [&] {
    auto component = s.vbe ? s.vbe->SelectedVBComponent() : nullptr;
    if (!component) return;
    std::pair<std::wstring, std::wstring> kind;
    std::wstring extension;
    switch (component->Type()) {
      case host::kStdModule: kind = {L"Basic Files (*.bas)", L"*.bas"}, extension = L"bas"; break;
      case host::kClassModule:
      case host::kDocument: kind = {L"Class Files (*.cls)", L"*.cls"}, extension = L"cls"; break;
      case host::kMSForm:
      case host::kVBForm:
      case host::kVBMDIForm: kind = {L"Form Files (*.frm)", L"*.frm"}, extension = L"frm"; break;
      case host::kActiveXDesigner: kind = {L"Designer Files (*.dsr)", L"*.dsr"}, extension = L"dsr"; break;
      default: return;
    }
    ui::ComDlg dlg(s.uiHost);
    dlg.Filter = ui::ComDlg::FilterOf({kind, {L"All Files (*.*)", L"*.*"}});
    dlg.Extension = extension;
    dlg.Directory = settings::CodeFolderGet(s);
    dlg.DialogTitle = L"Export File";
    dlg.FileName = component->Name();
    if (!dlg.ShowSave()) return;
    // The save dialog has asked about replacing an existing file.
    io::FileSystem& files = s.platform.Files();
    if (files.FileExists(dlg.FileName)) files.DeleteFile(dlg.FileName);
    component->Export(dlg.FileName);
    exported = true;
  });
  return exported;
}

}  // namespace quillet::codetools
