#pragma once
// Keystrokes in the host's SendKeys syntax: "+" shift, "^" control, "%" alt, "~" Enter,
// "{NAME}" or "{NAME n}" for named keys repeated n times, "{+}" for a literal, and
// "( ... )" to hold a modifier over several keys.
#include <string>
#include <string_view>
#include <vector>

namespace quillet::host {

struct Key {
  wchar_t ch = 0;      // a character to type, 0 for a named key
  std::wstring name;   // upper case: "BACKSPACE", "DOWN", "ENTER", "TAB", ...
  bool shift = false, control = false, alt = false;
};

// Raises vba error 5 for malformed text (an unclosed "{").
std::vector<Key> ParseKeys(std::wstring_view keys);

}  // namespace quillet::host
