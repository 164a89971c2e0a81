#include "generators/quillet.h"

#include "generators/dispatcher_commands.h"
#include "generators/scope.h"
#include "kernel/errors.h"

namespace quillet::generators {

void QuilletHandle(kernel::Session& s, const std::wstring& command, std::wstring& argument) {
  kernel::Trap(s, L"basQuillet.QuilletHandle", [&] {
    // Outside a code window, or without a project, a command does nothing and says nothing.
    if (!s.vbe || s.vbe->VBProjects()->Count() == 0) return;
    host::Ptr<host::Window> window = s.vbe->ActiveWindow();
    if (!window || window->Type() != host::kCodeWindow) return;
    s.currentCommand = argument.empty() ? command : command + L" " + argument;
    // Comparison is exact: "If Then Else If" and "If Then ElseIf Else" are two commands.
    const DispatcherCommand* found = FindDispatcherCommand(command);
    if (!found) vba::Raise(vba::kErrInvalidCall, L"There is no command \"" + command + L"\".");
    initialize(s, command, argument);
    if (found->Built()) found->run(s, command, argument);
    else if (const DispatcherBody* body = DispatcherBodyOf(s, command)) (*body)(s);
    else kernel::NotAvailable(s, L"the command \"" + command + L"\"");
  });
}

}  // namespace quillet::generators
