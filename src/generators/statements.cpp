#include "generators/statements.h"

#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/strings.h"
#include "ui/ui_host.h"
#include "vba/numbers.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr const wchar_t* kCrLf = L"\r\n";
// The caret of a new If block stands before the blank in front of "Then": after the
// indent and "If".
constexpr int kIfConditionColumn = 3;
// A blank typed at the caret makes room for the condition and lets the editor check the line.
constexpr const wchar_t* kRoomForCondition = L" ";

// The active pane and what it shows; raises when there is no pane.
kernel::CodeView ActiveViewOrRaise(kernel::Session& s) {
  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (!view) vba::Raise(vba::kErrObjectNotSet);
  return *view;
}

void Apply(kernel::Session& s, const kernel::CodeEdit& edit) {
  kernel::ApplyEdit(s.platform, *s.vbe->ActiveCodePane(), edit);
}

// Stops a paused run so that the module can be edited, as the host's Reset does.
void StopRun(kernel::Session& s) {
  try {
    s.vbe->CommandBars().Item(L"Run")->Controls().Item(L"Reset")->Execute();
  } catch (const vba::Error&) {
  }
  kernel::DoEvents(s);
}

// A caret at the end of the edit's line `line`.
host::Selection EndOf(const kernel::CodeEdit& edit, long line) {
  long end = vba::Len(edit.Line(static_cast<std::size_t>(line - edit.line))) + 1;
  return {line, end};
}

}  // namespace

bool IsOneOf(const std::wstring& command, std::initializer_list<const wchar_t*> commands) {
  for (const wchar_t* c : commands)
    if (command == c) return true;
  return false;
}

kernel::CodeEdit CodeInsertEdit(const kernel::CodeView& view, std::wstring text, const std::wstring& command,
                                InsertOptions options) {
  host::Selection at = view.Place();
  long line = at.startLine, column = at.startColumn;
  std::wstring lineText = view.line(line);
  if (vba::Trim(lineText).empty()) {
    kernel::CodeEdit edit = kernel::BlockAtLine(view, line, vba::Space(column - 1) + text);
    edit.caret = EndOf(edit, edit.line);
    return edit;
  }
  std::wstring left = vba::Left(lineText, column - 1);
  std::wstring right = column <= vba::Len(lineText) ? vba::Mid(lineText, column) : std::wstring();
  bool inLine = false;
  if (options.allowInline) {
    std::wstring trimmedLeft = vba::Trim(left);
    inLine = (command == L"Debug.Print " && (trimmedLeft.empty() || vba::Right(trimmedLeft, 1) == L":")) ||
             (command == L"Exit" && vba::Trim(right).empty()) ||
             IsOneOf(command, {L"Folder", L"Filename", L"GoTo", L"Insert Objectname"});
  }
  if (inLine) {
    if (options.spaceBefore && !lineText.empty() && vba::Right(left, 1) != L" ") text = L" " + text;
    return kernel::LineReplaced(line, left + text + right, vba::Len(left) + vba::Len(text) + 1);
  }
  // Below a line with code the statement gets one tab width, whatever that line's indent.
  kernel::CodeEdit edit = kernel::BlockAtLine(view, line, view.tab + text);
  edit.caret = EndOf(edit, edit.line);
  return edit;
}

bool CodeInsert(kernel::Session& s, std::wstring text, const std::wstring& command, InsertOptions options) {
  kernel::CodeEdit edit = CodeInsertEdit(ActiveViewOrRaise(s), std::move(text), command, options);
  StopRun(s);
  Apply(s, edit);
  return true;
}

std::optional<kernel::CodeEdit> WithEdit(const kernel::CodeView& view, const std::wstring& expression) {
  if (expression.empty()) return std::nullopt;
  long line = view.Place().endLine;
  std::wstring indent = vba::Space(kernel::CurrentIndent(view));
  std::wstring block = indent + L"With " + expression + kCrLf + indent + view.tab + kCrLf + indent + L"End With";
  kernel::CodeEdit edit = kernel::BlockAtLine(view, line, block);
  // On a blank line this is the body line; below a line with code it is the With line.
  edit.caret = EndOf(edit, line + 1);
  return edit;
}

bool WithCodeInsert(kernel::Session& s, const std::wstring& expression) {
  std::optional<kernel::CodeEdit> edit = WithEdit(ActiveViewOrRaise(s), expression);
  if (!edit) return false;
  Apply(s, *edit);
  return true;
}

kernel::CodeEdit IfEdit(const kernel::CodeView& view, const std::wstring& command, int elseIfs) {
  int n = kernel::CurrentIndent(view);
  std::wstring indent = vba::Space(n);
  std::wstring body = indent + view.tab + kCrLf;
  std::wstring text = indent + kernel::ResString(kernel::res::kIfThen) + kCrLf + body;
  for (int i = 0; i < elseIfs; ++i) text += indent + kernel::ResString(kernel::res::kElseIfThen) + kCrLf + body;
  if (command == L"If Then Else" || command == L"If Then ElseIf Else")
    text += indent + kernel::ResString(kernel::res::kElse) + kCrLf + body;
  text += indent + kernel::ResString(kernel::res::kEndIf);
  kernel::CodeEdit edit = kernel::LineInsertEdit(view, text, n + kIfConditionColumn);
  edit.keys = kRoomForCondition;
  return edit;
}

void IfCodeInsert(kernel::Session& s, const std::wstring& command) {
  int elseIfs = 0;
  if (command == L"If Then ElseIf Else" || command == L"If Then Else If") {
    std::optional<std::wstring> answer = s.uiHost.InputBox(L"Number of 'ElseIf'", command, L"");
    if (!answer) return;
    elseIfs = vba::CInt(vba::Val(*answer));
  }
  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (view) Apply(s, IfEdit(*view, command, elseIfs));
}

std::optional<kernel::CodeEdit> LoopEdit(const kernel::CodeView& view, const std::wstring& command) {
  // Each loop: its first and last keyword, and the column after the indent where the caret
  // waits for what the loop runs over.
  struct Loop {
    const wchar_t* command;
    int first, last, column;
  };
  using namespace kernel::res;
  static const Loop loops[] = {{L"IfDoLoopWhile", kDoWhile, kLoop, 9},
                               {L"IfDoLoopUntil", kDoUntil, kLoop, 9},
                               {L"ForEachNext", kForEachIn, kNext, 9},
                               {L"ForNext", kForTo, kNext, 4},
                               {L"While", kWhile, kWend, 6}};
  for (const Loop& l : loops) {
    if (command != l.command) continue;
    int n = kernel::CurrentIndent(view);
    std::wstring indent = vba::Space(n);
    std::wstring text = indent + kernel::ResString(l.first) + kCrLf + indent + view.tab + kCrLf + indent +
                        kernel::ResString(l.last);
    kernel::CodeEdit edit = kernel::LineInsertEdit(view, text, n + l.column);
    edit.keys = kRoomForCondition;
    return edit;
  }
  return std::nullopt;
}

void LoopCodeInsert(kernel::Session& s, const std::wstring& command) {
  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (!view) return;
  if (std::optional<kernel::CodeEdit> edit = LoopEdit(*view, command)) Apply(s, *edit);
}

}  // namespace quillet::generators
