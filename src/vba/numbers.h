#pragma once
// Numbers as VBA reads and writes them (the "." decimal separator, the invariant form).
#include <cstdint>
#include <string>
#include <string_view>

namespace quillet::vba {

// Leading digits after blanks, tabs and line feeds are skipped; blanks inside the number
// are ignored; "&H" and "&O" prefixes (up to 16 bits an Integer: "&HFFFF" is -1);
// stops at the first character that does not fit. A number beyond a Double raises error 6.
double Val(std::wstring_view s);
// True for text that converts to a number: optional sign, digits, one ".", exponent,
// surrounding blanks, "&H"/"&O" forms, "," as a thousands separator within the digits
// before the "." (as "1,000"). Empty text is not numeric, nor is text out of range.
bool IsNumeric(std::wstring_view s);
// Converts text that IsNumeric accepts; other text raises error 13, a number beyond the
// range of a Double error 6.
double CDbl(std::wstring_view s);
// Banker's rounding; out of range raises error 6.
int16_t CInt(double value);
int32_t CLng(double value);
// Text of a number the way CStr writes it: up to 15 significant digits, no trailing zeros,
// "1E+20" for large values.
std::wstring CStr(double value);
std::wstring CStr(long long value);

}  // namespace quillet::vba
