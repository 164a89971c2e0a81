#pragma once
// The one table of the statement dispatcher's commands: the names the menus, the Shortcuts
// window and scenarios pass to QuilletHandle, and what each runs. A command that a later
// version builds has no body yet and says so; a name the table does not hold is an error.
//
//   if (const DispatcherCommand* c = FindDispatcherCommand(L"ForNext")) c->run(s, c->name, argument);
#include <functional>
#include <string>
#include <vector>

#include "kernel/session.h"

namespace quillet::generators {

struct DispatcherCommand {
  std::wstring name;
  // What the command does; nullptr for a command of a later version.
  void (*run)(kernel::Session& s, const std::wstring& command, std::wstring& argument) = nullptr;
  bool Built() const { return run != nullptr; }
};

// Every command, in the order the menus show them.
const std::vector<DispatcherCommand>& DispatcherCommands();
// The command of that name (compared exactly, case counting); nullptr for none.
const DispatcherCommand* FindDispatcherCommand(const std::wstring& name);

// A command whose work lives in a feature built on top of the dispatcher (the code tools'
// comment lines) gets its body from the add-in shell at connection:
//
//   DispatcherBodySet(s, L"Comment Lines Add", [](kernel::Session& s) { CommentLinesAdd(s); });
using DispatcherBody = std::function<void(kernel::Session& s)>;
void DispatcherBodySet(kernel::Session& s, const std::wstring& name, DispatcherBody body);
// The body given for `name`; nullptr when none was.
const DispatcherBody* DispatcherBodyOf(kernel::Session& s, const std::wstring& name);

}  // namespace quillet::generators
