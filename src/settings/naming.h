#pragma once
// The naming standard: a table of types and their prefixes, read from the standards file,
// and the two lookups derived from it that read a name such as "mstrName" as scope module,
// type String, base "Name", and build a name from base, type and scope.
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::ui {
class ComboBox;
}

namespace quillet::settings {

// Where a name lives.
enum Scope : long {
  kScopeNone = 0,
  kScopeGlobal = 1,
  kScopeModule = 2,
  kScopeLocal = 3,
  kScopeByRef = 4,  // argument by reference
  kScopeByVal = 5,  // argument by value
};

// What a whole prefix ("mstr", "gcstr") means.
struct Prefix {
  long scope = kScopeNone;
  std::wstring type;
  std::wstring prefix;
};

// One row of the type table: the type's name, then up to five prefixes, most preferred
// first; empty where the line has fewer.
using TypePrefixRow = std::array<std::wstring, 6>;

struct NamingStandard {
  NamingStandard();

  std::vector<TypePrefixRow> typePrefixes;
  // Whole prefixes of variables and of constants, keyed by their text; the first row of
  // the table to claim a prefix keeps it.
  vba::Collection<Prefix> prefixesVariable;
  vba::Collection<Prefix> prefixesConstant;
  // The words a name may not be, compared without regard to case.
  std::vector<std::wstring> keywords;
};

// The session's naming standard, made (empty, keywords filled) on first use.
NamingStandard& Naming(kernel::Session& s);

// The 77 words a name may not be, in their order.
const std::vector<std::wstring>& KeywordList();
// Whether a type is one of VBA's basic types (Byte, Boolean, Integer, Long, Single,
// Double, Currency, Date, String).
bool IsBasicType(std::wstring_view typeName);

// Rebuilds both prefix lookups from the type table and the scope, argument and constant
// prefixes of the settings.
void PrefixesCollectionsCreate(kernel::Session& s);

// Whether `word` starts with a prefix of the table (case counting). With `typeName` given,
// only that type's row counts, and `prefix` is the matching prefix or else the type's
// first one. With `typeName` empty the longest prefix of any row wins (the earlier row on
// equal length; with `basicOnly` only basic types), and `typeName` receives its type.
bool WordHasTypePrefix(kernel::Session& s, std::wstring_view word, std::wstring& typeName, std::wstring& prefix,
                       bool basicOnly);
// The first prefix of a type, or empty.
std::wstring DefaultTypePrefix(kernel::Session& s, std::wstring_view typeName);

// Takes a name apart by the longest whole prefix its lower-case start begins with. On a
// hit fills `scopePrefix` (the whole prefix), `rest`, `scope` and `typeName` and returns
// "rest; type; prefix; scope"; without one leaves them and returns "0; ; ; ".
std::wstring PrefixesCheck(kernel::Session& s, std::wstring_view word, std::wstring& typeName, long& scope,
                           std::wstring& scopePrefix, bool isConstant, std::wstring& rest);

// The name to propose for `name` by the auto-prefix mode of the settings: scope prefix,
// type tag (with the constant tag for constants) and base. With `combo` the name stays as
// it is and a type read from the name is selected in the combo instead. A `scope` below 1
// is taken from the name, as is a missing type.
std::wstring NameWithPrefix(kernel::Session& s, std::wstring_view name, std::wstring& typeName, ui::ComboBox* combo,
                            long& scope, bool isConstant, std::wstring& scopePrefix);

}  // namespace quillet::settings
