#pragma once
// VBA's Like operator: "*", "?", "#", "[abc]", "[a-z]", "[!abc]".
#include <string_view>

#include "vba/strings.h"

namespace quillet::vba {

// In a list "!" negates only as its first character and "-" is itself first or last; "[[]"
// matches "[", "]" outside a list is itself, and "[]" stands for no character at all.
// Text compare ignores case in every script. A malformed pattern (an unclosed "[", a
// range whose ends are reversed) raises error 93, whether or not matching gets there.
bool Like(std::wstring_view text, std::wstring_view pattern, Compare compare = Compare::Binary);

}  // namespace quillet::vba
