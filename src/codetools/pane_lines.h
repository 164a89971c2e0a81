#pragma once
// The small mechanics the code-window commands share: the lines of a range as a list,
// and writing back only the lines that changed.
#include <string>
#include <vector>

#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::codetools {

// The active code pane, nullptr when there is none (or no editor).
host::Ptr<host::CodePane> ActivePane(kernel::Session& s);

// Lines `first`..`last` of the module (an empty list when last < first).
std::vector<std::wstring> ReadLines(const host::CodeModule& module, long first, long last);
// Replaces each line from `first` on whose text differs between `before` and `after`.
void WriteChangedLines(host::CodeModule& module, long first, const std::vector<std::wstring>& before,
                       const std::vector<std::wstring>& after);

}  // namespace quillet::codetools
