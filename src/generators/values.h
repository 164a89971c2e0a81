#pragma once
// How a value that the user typed enters code: as a literal of its type, or as the name of
// a constant that already holds it.
#include <string>

#include "analysis/records.h"
#include "kernel/session.h"
#include "vba/variant.h"

namespace quillet::generators {

// The types of a value, with the numbers VBA gives them.
enum VarType : int {
  vbEmpty = 0,
  vbInteger = 2,
  vbLong = 3,
  vbSingle = 4,
  vbDouble = 5,
  vbCurrency = 6,
  vbDate = 7,
  vbString = 8,
  vbBoolean = 11,
  vbVariant = 12,
  vbByte = 17,
};

// The value as code for a declaration of `type` (vbEmpty: the value's own type).
std::wstring ValueAsCode(kernel::Session& s, const vba::Variant& value, int type, const analysis::Constants& moduleConsts,
                         const analysis::Constants& procConsts);
// The value in the quotes its type needs: "#...#" for a date, double quotes for a string;
// numbers stay as they are, and an empty value of another type is "0".
std::wstring ValueQuote(const std::wstring& value, const std::wstring& typeName);

}  // namespace quillet::generators
