#pragma once
// The statement dispatcher: every command that writes a statement or a declaration at the
// caret comes in here, from the menus and from the Shortcuts window.
#include <string>

#include "kernel/session.h"

namespace quillet::generators {

void QuilletHandle(kernel::Session& s, const std::wstring& command, std::wstring& argument);

}  // namespace quillet::generators
