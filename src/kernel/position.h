#pragma once
// Where the caret is, which procedure it is in, how far a new line must be indented, and
// the small editing steps every builder shares.
#include <optional>
#include <string>

#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::kernel {

// Which procedure the caret (the selection's end line) is in. Strict refuses the comment
// lines above a header and the blank lines behind its End, which the editor counts to the
// procedure. Without a code pane: false, `name` untouched.
bool CurrentProcGet(Session& s, bool strict, std::wstring& name, long& bodyLine, bool* inHeader = nullptr,
                    host::ProcKind* kind = nullptr);
// The same for a given pane.
bool ProcAtCaret(const host::CodePane& pane, bool strict, std::wstring& name, long& bodyLine, bool* inHeader = nullptr,
                 host::ProcKind* kind = nullptr);
// The text of the line with the caret. With `useStart` the selection's start is handed out
// and the end line's text returned; without it the other way round.
std::wstring CurrentLineGet(Session& s, long& line, long& column, bool useStart);
// Leading blanks of a line, or of the line above when the line has none.
int LineIndentGet(Session& s, long line);
int LineIndent(const CodeView& view, long line);
// The indent for a statement written at the caret; never 0.
int CurrentIndentGet(Session& s);
int CurrentIndent(const CodeView& view);
// What the statement commands see: the active pane's module and selection, the tab width.
// Without a code pane: nullopt.
std::optional<CodeView> ActiveView(Session& s);
// One indent step as blanks: the editor's tab width, 4 when unknown.
std::wstring TabSpacesGet(const Session& s);
// A project exists and a code window is in front.
bool CodeWindowActive(Session& s);
// The component of the active project named `name` (any case); nullptr when there is none.
host::Ptr<host::VBComponent> ModuleFind(Session& s, std::wstring_view name);
bool ModuleExists(Session& s, std::wstring_view name);
// Turns the "<cursor>" marks of a module into the caret: every mark from `line` on is
// removed, and unless `keepSelection` the caret goes to the last one. `line` comes back
// as the line of the last mark found.
void SetCursor(Session& s, long& line, bool keepSelection, const host::Ptr<host::VBComponent>& component);
// Replaces the selection by `text`, keeping what stands before and behind it.
void CodeReplace(Session& s, std::wstring& text);
// Puts `text` under the caret line, or in place of it when it is blank; a `column` above 0
// sets the caret there on the first inserted line.
void CodeLineInsert(Session& s, const std::wstring& text, long column);
// The edit of CodeLineInsert, on a view.
CodeEdit LineInsertEdit(const CodeView& view, const std::wstring& text, long column);
// Under Outlook: minimises Outlook's main window and gives the focus back to the editor.
void OutlookFocusRestore(Session& s);
long ImmediateWindowHandleGet(Session& s);
// The editor, or one of its visible windows, is the active window.
bool HostWindowActive(Session& s);
// The program's folder, without a final "\".
std::wstring AppPathGet(const Session& s);

}  // namespace quillet::kernel
