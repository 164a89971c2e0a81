#pragma once
// The program's string table: captions of the command bar, keywords of generated
// statements and the texts of the name checks, by id.
#include <string>

namespace quillet::kernel {

// The string of an id; empty for an id the table does not hold.
const std::wstring& ResString(int id);

}  // namespace quillet::kernel
