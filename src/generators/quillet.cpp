#include "generators/quillet.h"

#include "analysis/scan_proc.h"
#include "generators/scope.h"
#include "generators/selection.h"
#include "generators/statements.h"
#include "kernel/errors.h"

namespace quillet::generators {
void QuilletHandle(kernel::Session& s, const std::wstring& command, std::wstring& argument) {
  kernel::Trap(s, L"basQuillet.QuilletHandle", [&] {
    // Outside a code window, or without a project, a command does nothing and says nothing.
    if (!s.vbe || s.vbe->VBProjects()->Count() == 0) return;
    host::Ptr<host::Window> window = s.vbe->ActiveWindow();
    if (!window || window->Type() != host::kCodeWindow) return;
    s.currentCommand = argument.empty() ? command : command + L" " + argument;
    initialize(s, command, argument);

    // Comparison is exact: "If Then Else If" and "If Then ElseIf Else" are two commands.
    if (IsOneOf(command, {L"On Error Resume Next", L"On Error GoTo 0"})) {
      CodeInsert(s, command, L"", {.spaceBefore = true});
    } else if (IsOneOf(command, {L"If Then", L"If Then Else", L"If Then Else If", L"If Then ElseIf Else"})) {
      IfCodeInsert(s, command);
    } else if (IsOneOf(command, {L"IfDoLoopWhile", L"IfDoLoopUntil", L"ForEachNext", L"ForNext", L"While"})) {
      LoopCodeInsert(s, command);
    } else if (command == L"Exit") {
      // Outside a procedure there is nothing to leave.
      const std::shared_ptr<analysis::clsScanProc>& scan = analysis::CurrentScan(s);
      if (scan && !scan->ProcTypeStr.empty())
        CodeInsert(s, L"Exit " + scan->ProcTypeStr, L"Exit", {.allowInline = true, .spaceBefore = true});
    } else if (command == L"Filename") {
      FilenameAdd(s);
    } else if (command == L"Folder") {
      FoldernameAdd(s);
    } else {
      kernel::NotAvailable(s, L"the command \"" + command + L"\"");
    }
  });
}

}  // namespace quillet::generators
