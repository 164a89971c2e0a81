#pragma once
// The variable tokens of a fragment: "{TYPE}", "{TYPE:name}" and "{TYPE:name=value}". Every
// occurrence of the same token stands for the same variable; a token left open by the user
// is filled with its proposed name, and the variable or constant it stands for is declared
// once in the procedure that receives the fragment.
//
//   std::wstring type, name, value;
//   FragmentVarParse(s, L"{LONG:count=10}", type, name, value, settings::kScopeLocal, true);
//   // type "Long", name "count" (with a constant's prefix when the standard gives one), value "10"
#include <functional>
#include <string>
#include <vector>

#include "kernel/session.h"

namespace quillet::generators {

// Reads a token with its braces into its type, name and value. The name gets the prefix of
// the naming standard (the constant's scope when `constantByValue` and a value is given,
// else `prefixScope`), "var" and the type's base when the token names nothing, and a number
// behind it when it is a keyword or a library's name. The type comes out as "String" from
// "STRING". False for a token with nothing between its braces.
bool FragmentVarParse(kernel::Session& s, std::wstring_view token, std::wstring& type, std::wstring& name,
                      std::wstring& value, long prefixScope, bool constantByValue);

// The declaration a filled token needs: "Const name As type = value" or "Dim name As type".
std::wstring FragmentDeclarationLine(const std::wstring& type, const std::wstring& name, const std::wstring& value);

// One token filled with its defaults.
struct FragmentVar {
  std::wstring token, type, name, value;
};

// Fills every token of `text` with its proposed name (all occurrences, any case) and
// returns the tokens in the order they were met. A "{" without a "}" behind it ends the
// search; the text stays as it is from there. Braces inside string literals count too.
std::vector<FragmentVar> FragmentTokensFill(kernel::Session& s, std::wstring& text);

// Fills the tokens of `text` and declares in the procedure at the caret each variable and
// constant that the procedure does not declare yet: a "Dim" behind its declarations, a
// "Const" above them.
void FragmentUseDefaults(kernel::Session& s, std::wstring& text);

}  // namespace quillet::generators
