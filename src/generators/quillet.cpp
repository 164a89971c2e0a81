#include "generators/quillet.h"

#include "shell/errors.h"

namespace quillet::generators {

void QuilletHandle(shell::Session& s, const std::wstring& command, std::wstring& argument) {
  shell::NotAvailable(s, L"the command \"" + command + L"\"");
}

}  // namespace quillet::generators
