#include "vba/strings.h"

#include <algorithm>

#include "vba/error.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

// A text prepared for searching under a compare mode. Text compare searches the upper
// case forms; case mapping keeps every character in its place, so positions carry over.
class Searchable {
 public:
  Searchable(std::wstring_view s, Compare compare) {
    if (compare == Compare::Text) {
      folded_ = UCase(s);
      view_ = folded_;
    } else {
      view_ = s;
    }
  }
  std::wstring_view view() const { return view_; }

 private:
  std::wstring folded_;
  std::wstring_view view_;
};

long ToLong(std::size_t n) { return static_cast<long>(n); }

void RequireNonNegative(long n) {
  if (n < 0) Raise(kErrInvalidCall);
}

}  // namespace

long Len(std::wstring_view s) { return ToLong(s.size()); }

long InStr(long start, std::wstring_view s1, std::wstring_view s2, Compare compare) {
  if (start < 1) Raise(kErrInvalidCall);
  if (s1.empty() || start > Len(s1) + 1) return 0;
  if (s2.empty()) return start;
  Searchable hay(s1, compare), needle(s2, compare);
  std::size_t at = hay.view().find(needle.view(), static_cast<std::size_t>(start - 1));
  return at == std::wstring_view::npos ? 0 : ToLong(at) + 1;
}

long InStr(std::wstring_view s1, std::wstring_view s2, Compare compare) {
  return InStr(1, s1, s2, compare);
}

long InStrRev(std::wstring_view s1, std::wstring_view s2, long start, Compare compare) {
  if (start == 0 || start < -1) Raise(kErrInvalidCall);
  if (start == -1) start = Len(s1);
  if (s1.empty() || start > Len(s1)) return 0;
  if (s2.empty()) return start;
  if (Len(s2) > start) return 0;
  Searchable hay(s1, compare), needle(s2, compare);
  // The match must end at or before `start`.
  std::size_t at = hay.view().rfind(needle.view(), static_cast<std::size_t>(start - Len(s2)));
  return at == std::wstring_view::npos ? 0 : ToLong(at) + 1;
}

std::wstring Mid(std::wstring_view s, long start, std::optional<long> length) {
  if (start < 1) Raise(kErrInvalidCall);
  if (length) RequireNonNegative(*length);
  if (start > Len(s)) return {};
  auto from = static_cast<std::size_t>(start - 1);
  return std::wstring(length ? s.substr(from, static_cast<std::size_t>(*length)) : s.substr(from));
}

std::wstring Left(std::wstring_view s, long length) {
  RequireNonNegative(length);
  return std::wstring(s.substr(0, static_cast<std::size_t>(length)));
}

std::wstring Right(std::wstring_view s, long length) {
  RequireNonNegative(length);
  if (length >= Len(s)) return std::wstring(s);
  return std::wstring(s.substr(s.size() - static_cast<std::size_t>(length)));
}

std::wstring LTrim(std::wstring_view s) {
  std::size_t i = 0;
  while (i < s.size() && IsBlank(s[i])) ++i;
  return std::wstring(s.substr(i));
}

std::wstring RTrim(std::wstring_view s) {
  std::size_t n = s.size();
  while (n > 0 && IsBlank(s[n - 1])) --n;
  return std::wstring(s.substr(0, n));
}

std::wstring Trim(std::wstring_view s) {
  std::size_t i = 0, n = s.size();
  while (i < n && IsBlank(s[i])) ++i;
  while (n > i && IsBlank(s[n - 1])) --n;
  return std::wstring(s.substr(i, n - i));
}

std::wstring Space(long n) { return String(n, L' '); }

std::wstring String(long n, wchar_t c) {
  RequireNonNegative(n);
  return std::wstring(static_cast<std::size_t>(n), c);
}

std::wstring Replace(std::wstring_view expression, std::wstring_view find, std::wstring_view replacement,
                     long start, long count, Compare compare) {
  if (start < 1 || count < -1) Raise(kErrInvalidCall);
  if (start > Len(expression)) return {};
  std::wstring_view rest = expression.substr(static_cast<std::size_t>(start - 1));
  if (find.empty() || count == 0) return std::wstring(rest);

  Searchable hay(rest, compare), needle(find, compare);
  std::wstring out;
  std::size_t pos = 0;
  long done = 0;
  while (count == -1 || done < count) {
    std::size_t at = hay.view().find(needle.view(), pos);
    if (at == std::wstring_view::npos) break;
    out.append(rest.substr(pos, at - pos));
    out.append(replacement);
    pos = at + find.size();
    ++done;
  }
  out.append(rest.substr(pos));
  return out;
}

std::vector<std::wstring> Split(std::wstring_view expression, std::wstring_view delimiter, long limit,
                                Compare compare) {
  if (limit < -1) Raise(kErrInvalidCall);
  std::vector<std::wstring> out;
  if (expression.empty() || limit == 0) return out;
  if (delimiter.empty() || limit == 1) {
    out.emplace_back(expression);
    return out;
  }
  Searchable hay(expression, compare), needle(delimiter, compare);
  std::size_t pos = 0;
  // The last piece (when the limit is reached) keeps the rest, delimiters included.
  while (limit == -1 || ToLong(out.size()) < limit - 1) {
    std::size_t at = hay.view().find(needle.view(), pos);
    if (at == std::wstring_view::npos) break;
    out.emplace_back(expression.substr(pos, at - pos));
    pos = at + delimiter.size();
  }
  out.emplace_back(expression.substr(pos));
  return out;
}

std::wstring Join(const std::vector<std::wstring>& items, std::wstring_view delimiter) {
  std::wstring out;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0) out.append(delimiter);
    out.append(items[i]);
  }
  return out;
}

std::wstring StrReverse(std::wstring_view s) { return std::wstring(s.rbegin(), s.rend()); }

int StrComp(std::wstring_view a, std::wstring_view b, Compare compare) {
  if (compare == Compare::Text) return CompareText(a, b);
  int c = a.compare(b);
  return c < 0 ? -1 : (c > 0 ? 1 : 0);
}

std::vector<std::wstring> SplitLines(std::wstring_view text) {
  std::vector<std::wstring> lines;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != L'\r' && text[i] != L'\n') continue;
    lines.emplace_back(text.substr(begin, i - begin));
    if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') ++i;
    begin = i + 1;
  }
  lines.emplace_back(text.substr(begin));
  return lines;
}

std::wstring JoinLines(const std::vector<std::wstring>& lines) { return Join(lines, L"\r\n"); }

}  // namespace quillet::vba
