#pragma once
// VBA's Like operator: "*", "?", "#", "[abc]", "[a-z]", "[!abc]".
#include <string_view>

#include "vba/strings.h"

namespace quillet::vba {

// A malformed pattern (an unclosed "[", a range whose ends are reversed) raises error 93.
bool Like(std::wstring_view text, std::wstring_view pattern, Compare compare = Compare::Binary);

}  // namespace quillet::vba
