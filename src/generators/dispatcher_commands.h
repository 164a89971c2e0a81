#pragma once
// The one table of the statement dispatcher's commands: the names the menus, the Shortcuts
// window and scenarios pass to QuilletHandle, and what each runs. A command that a later
// version builds has no body yet and says so; a name the table does not hold is an error.
//
//   if (const DispatcherCommand* c = FindDispatcherCommand(L"ForNext")) c->run(s, c->name, argument);
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

}  // namespace quillet::generators
