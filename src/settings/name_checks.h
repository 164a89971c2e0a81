#pragma once
// The checks a new name must pass: its characters, the keywords, and the names already in
// use. A failing check raises one of the errors below; CheckNewNameIsOK turns them into
// warnings the user can override.
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::settings {

// The errors of the name checks (as VBA's 32-bit numbers).
inline constexpr long kErrNameInvalid = static_cast<std::int32_t>(0x80044394u);   // "Name is invalid."
inline constexpr long kErrNameUsed = static_cast<std::int32_t>(0x80044395u);      // "Name is already used."
inline constexpr long kErrNameKeyword = static_cast<std::int32_t>(0x80044396u);   // "Name coincides with VB keyword."
inline constexpr long kErrNameMissing = static_cast<std::int32_t>(0x80044397u);   // handled as "Name is missing."

// The texts of the checks, by their string id (1001 to 1005); empty for another id.
std::wstring NameCheckText(int id);

// A model whose entries answer a name: true when it holds an entry of that name. Lookups
// in the system's collections are without regard to case.
using NameLookup = std::function<bool(std::wstring_view name)>;

template <class T>
NameLookup LookupIn(const vba::Collection<T>& collection) {
  return [&collection](std::wstring_view name) { return collection.Exists(name); };
}

// Empty: kErrNameMissing. 256 characters or more, a first character that is no letter, or
// a later one that is neither letter, digit nor "_": kErrNameInvalid.
void NameCharactersCheck(std::wstring_view name);
// One of the keywords, without regard to case: kErrNameKeyword.
void NameKeywordCheck(kernel::Session& s, std::wstring_view name);
// kErrNameUsed when the name is the active project's (with `checkProject`, case counting),
// is found by one of the lookups, or is a component's (with `checkComponents`, case
// counting). A lookup that fails counts as not found.
void NameUsedCheck(kernel::Session& s, std::wstring_view name, bool checkProject, bool checkComponents,
                   const std::vector<NameLookup>& lookups);

// Runs the three checks and warns about each failure with Yes, No and Cancel; Yes goes on
// to the next check. Returns 0 when every check passed, 6 when the user accepted every
// warning, 7 (No) or 2 (Cancel) when the user stopped at one, and kErrNameMissing after
// the box that says the name is missing. Callers proceed on 0 or 6, stay in their dialog
// on 7 and close it on 2.
long CheckNewNameIsOK(kernel::Session& s, std::wstring_view name, bool checkProject, bool checkComponents,
                      const std::vector<NameLookup>& lookups);

// Makes `name` acceptable without asking: while it is a keyword, or is used in the
// library models (asked for "VBA." + name, with `checkLibrary`) or by the lookups, a
// number is put behind it (1, 2, ... each replacing the last).
void ValidateVarName(kernel::Session& s, std::wstring& name, bool checkLibrary, const std::vector<NameLookup>& lookups,
                     const std::vector<NameLookup>& libraryLookups = {});

// The name declared behind a declaration keyword: `kind` is one of "Dim", "Const",
// "Property", "Enum", "Type", "Sub", "Function" (without regard to case), and the result
// is the run of letters, digits and "_" behind the first "kind " in `line`; empty for
// another kind or when the line has none.
std::wstring KindNameGet(std::wstring_view kind, std::wstring_view line);

}  // namespace quillet::settings
