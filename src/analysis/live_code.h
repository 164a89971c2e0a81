#pragma once
// Whether a text stands in code as code: not behind a comment mark, not inside a string.
#include <string_view>

namespace quillet::analysis {

// True when `text` occurs (without regard to case) in a line of `code` with no
// apostrophe, "Rem" or double quote in front of it. Once a double quote was met in front
// of the text, every later line counts as a miss too: the string state carries over.
bool CodeHasText(std::wstring_view code, std::wstring_view text);

}  // namespace quillet::analysis
