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

host::Ptr<host::CodePane> ActivePane(kernel::Session& s) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) vba::Raise(vba::kErrObjectNotSet);
  return pane;
}

// A caret below the last line stands on a line that is made first.
void EnsureLine(host::CodeModule& module, long line) {
  if (line > module.CountOfLines()) module.InsertLines(line, L"");
}

// Stops a paused run so that the module can be edited, as the host's Reset does.
void StopRun(kernel::Session& s) {
  try {
    s.vbe->CommandBars().Item(L"Run")->Controls().Item(L"Reset")->Execute();
  } catch (const vba::Error&) {
  }
  kernel::DoEvents(s);
}

}  // namespace

bool IsOneOf(const std::wstring& command, std::initializer_list<const wchar_t*> commands) {
  for (const wchar_t* c : commands)
    if (command == c) return true;
  return false;
}

bool CodeInsert(kernel::Session& s, std::wstring text, const std::wstring& command, bool allowInline, bool spaceBefore) {
  host::Ptr<host::CodePane> pane = ActivePane(s);
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  long line = 0, column = 1;
  std::wstring lineText = kernel::CurrentLineGet(s, line, column, true);
  EnsureLine(*module, line);
  StopRun(s);
  if (vba::Trim(lineText).empty()) {
    text = vba::Space(column - 1) + text;
    module->ReplaceLine(line, text);
    pane->SetSelection(line, vba::Len(text) + 1, line, vba::Len(text) + 1);
    return true;
  }
  std::wstring left = vba::Left(lineText, column - 1);
  std::wstring right = column <= vba::Len(lineText) ? vba::Mid(lineText, column) : std::wstring();
  bool inLine = false;
  if (allowInline) {
    std::wstring trimmedLeft = vba::Trim(left);
    inLine = (command == L"Debug.Print " && (trimmedLeft.empty() || vba::Right(trimmedLeft, 1) == L":")) ||
             (command == L"Exit" && vba::Trim(right).empty()) ||
             IsOneOf(command, {L"Folder", L"Filename", L"GoTo", L"Insert Objectname"});
  }
  if (inLine) {
    if (spaceBefore && !lineText.empty() && vba::Right(left, 1) != L" ") text = L" " + text;
    module->ReplaceLine(line, left + text + right);
    long caret = vba::Len(left) + vba::Len(text) + 1;
    pane->SetSelection(line, caret, line, caret);
    return true;
  }
  // Below a line with code the statement gets one tab width, whatever that line's indent.
  text = kernel::TabSpacesGet(s) + text;
  module->InsertLines(line + 1, text);
  pane->SetSelection(line + 1, vba::Len(text) + 1, line + 1, vba::Len(text) + 1);
  return true;
}

bool WithCodeInsert(kernel::Session& s, const std::wstring& expression) {
  if (expression.empty()) return false;
  host::Ptr<host::CodePane> pane = ActivePane(s);
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  long line = 0, column = 1;
  std::wstring lineText = kernel::CurrentLineGet(s, line, column, false);
  std::wstring indent = vba::Space(kernel::CurrentIndentGet(s));
  std::wstring tab = kernel::TabSpacesGet(s);
  std::wstring block = indent + L"With " + expression + kCrLf + indent + tab + kCrLf + indent + L"End With";
  EnsureLine(*module, line);
  if (!vba::Trim(lineText).empty()) module->InsertLines(line + 1, block);
  else module->ReplaceLine(line, block);
  // On a blank line this is the body line; below a line with code it is the With line.
  long end = vba::Len(module->Lines(line + 1, 1)) + 1;
  pane->SetSelection(line + 1, end, line + 1, end);
  return true;
}

void IfCodeInsert(kernel::Session& s, const std::wstring& command) {
  int n = kernel::CurrentIndentGet(s);
  std::wstring indent = vba::Space(n);
  std::wstring body = indent + kernel::TabSpacesGet(s) + kCrLf;
  int elseIfs = 0;
  if (command == L"If Then ElseIf Else" || command == L"If Then Else If") {
    std::optional<std::wstring> answer = s.uiHost.InputBox(L"Number of 'ElseIf'", command, L"");
    if (!answer) return;
    elseIfs = vba::CInt(vba::Val(*answer));
  }
  std::wstring text = indent + kernel::ResString(301) + kCrLf + body;
  for (int i = 0; i < elseIfs; ++i) text += indent + kernel::ResString(303) + kCrLf + body;
  if (command == L"If Then Else" || command == L"If Then ElseIf Else") text += indent + kernel::ResString(302) + kCrLf + body;
  text += indent + kernel::ResString(304);
  kernel::CodeLineInsert(s, text, n + 3);
  // The caret stands before the blank in front of "Then"; the typed blank makes room for
  // the condition.
  s.platform.SendKeys(L" ", false);
}

void LoopCodeInsert(kernel::Session& s, const std::wstring& command) {
  struct Loop {
    const wchar_t* command;
    int first, last, column;
  };
  static const Loop loops[] = {{L"IfDoLoopWhile", 309, 311, 9},
                               {L"IfDoLoopUntil", 310, 311, 9},
                               {L"ForEachNext", 312, 314, 9},
                               {L"ForNext", 313, 314, 4},
                               {L"While", 315, 316, 6}};
  for (const Loop& l : loops) {
    if (command != l.command) continue;
    int n = kernel::CurrentIndentGet(s);
    std::wstring indent = vba::Space(n);
    std::wstring text = indent + kernel::ResString(l.first) + kCrLf + indent + kernel::TabSpacesGet(s) + kCrLf + indent +
                        kernel::ResString(l.last);
    kernel::CodeLineInsert(s, text, n + l.column);
    s.platform.SendKeys(L" ", false);
    return;
  }
}

}  // namespace quillet::generators
