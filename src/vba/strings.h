#pragma once
// The string functions of VBA with VBA's exact rules. Positions are 1-based.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::vba {

enum class Compare { Binary = 0, Text = 1 };

long Len(std::wstring_view s);
// 0 when not found or when s1 is empty; an empty s2 gives start (when start <= Len(s1) + 1);
// start < 1 raises error 5.
long InStr(long start, std::wstring_view s1, std::wstring_view s2, Compare compare = Compare::Binary);
long InStr(std::wstring_view s1, std::wstring_view s2, Compare compare = Compare::Binary);
// start -1 searches from the end; 0 or below -1 raises error 5. 0 when not found or when
// start is beyond the end; an empty s2 gives start.
long InStrRev(std::wstring_view s1, std::wstring_view s2, long start = -1, Compare compare = Compare::Binary);
// Without a length, to the end; start < 1 or a negative length raises error 5.
std::wstring Mid(std::wstring_view s, long start, std::optional<long> length = std::nullopt);
// A negative length raises error 5, as do a negative count for Space and String.
std::wstring Left(std::wstring_view s, long length);
std::wstring Right(std::wstring_view s, long length);
// Blanks only; tabs stay.
std::wstring Trim(std::wstring_view s);
std::wstring LTrim(std::wstring_view s);
std::wstring RTrim(std::wstring_view s);
std::wstring Space(long n);
std::wstring String(long n, wchar_t c);
// As VBA: the result starts at `start` (the part before it is dropped, "" when start is
// beyond the end); count -1 replaces all; start < 1 or count < -1 raises error 5.
std::wstring Replace(std::wstring_view expression, std::wstring_view find, std::wstring_view replacement,
                     long start = 1, long count = -1, Compare compare = Compare::Binary);
// As VBA: an empty expression gives an empty array; an empty delimiter gives the whole
// expression as one element; limit -1 means all, limit 0 gives an empty array, a limit
// below -1 raises error 5; empty pieces are kept.
std::vector<std::wstring> Split(std::wstring_view expression, std::wstring_view delimiter = L" ",
                                long limit = -1, Compare compare = Compare::Binary);
std::wstring Join(const std::vector<std::wstring>& items, std::wstring_view delimiter = L" ");
std::wstring StrReverse(std::wstring_view s);
// -1, 0 or 1: binary by character code, text without regard to case.
int StrComp(std::wstring_view a, std::wstring_view b, Compare compare = Compare::Binary);

// Splits a text into its lines at CR LF, a lone CR or a lone LF. An empty text is one empty line.
std::vector<std::wstring> SplitLines(std::wstring_view text);
// Joins lines with CR LF, none behind the last.
std::wstring JoinLines(const std::vector<std::wstring>& lines);

}  // namespace quillet::vba
