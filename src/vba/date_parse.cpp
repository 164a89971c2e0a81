// Reading dates and times from text, the forms IsDate accepts.
#include <optional>
#include <string>
#include <vector>

#include "vba/calendar.h"
#include "vba/dates.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

struct Token {
  enum class Kind { Number, Word, Separator };
  Kind kind;
  std::wstring text;  // digits or letters; the character of a separator
  int value = 0;      // of a number

  bool IsNumber() const { return kind == Kind::Number; }
  bool IsWord() const { return kind == Kind::Word; }
  bool IsSeparator(wchar_t c) const { return kind == Kind::Separator && text[0] == c; }
};

bool IsSeparatorChar(wchar_t c) {
  return c == L'-' || c == L'/' || c == L'.' || c == L',' || c == L':';
}

// Splits text into numbers, words and separators. Blanks separate too, but a blank
// next to another separator adds nothing ("22 , 2026" is "22,2026").
std::optional<std::vector<Token>> Tokenize(std::wstring_view s) {
  std::vector<Token> tokens;
  auto lastIsBlank = [&] { return !tokens.empty() && tokens.back().IsSeparator(L' '); };
  for (std::size_t i = 0; i < s.size();) {
    wchar_t c = s[i];
    if (c == L' ' || c == L'\t') {
      if (!tokens.empty() && tokens.back().kind != Token::Kind::Separator)
        tokens.push_back({Token::Kind::Separator, L" "});
      ++i;
    } else if (IsSeparatorChar(c)) {
      if (lastIsBlank()) tokens.pop_back();
      if (!tokens.empty() && tokens.back().kind == Token::Kind::Separator) return std::nullopt;
      tokens.push_back({Token::Kind::Separator, std::wstring(1, c)});
      ++i;
    } else if (IsDigit(c)) {
      Token t{Token::Kind::Number, L""};
      for (; i < s.size() && IsDigit(s[i]); ++i) t.text += s[i];
      if (t.text.size() > 4) return std::nullopt;
      t.value = std::stoi(t.text);
      tokens.push_back(std::move(t));
    } else if (IsLetter(c)) {
      Token t{Token::Kind::Word, L""};
      for (; i < s.size() && IsLetter(s[i]); ++i) t.text += s[i];
      tokens.push_back(std::move(t));
    } else {
      return std::nullopt;
    }
  }
  if (lastIsBlank()) tokens.pop_back();
  return tokens;
}

// 1 to 12 for an English month name or its first three letters ("Sept" too), else 0.
int MonthOf(std::wstring_view word) {
  static constexpr const wchar_t* kNames[] = {L"January", L"February", L"March",     L"April",
                                              L"May",     L"June",     L"July",      L"August",
                                              L"September", L"October", L"November", L"December"};
  for (int m = 0; m < 12; ++m) {
    std::wstring_view name = kNames[m];
    if (EqualsText(word, name) || EqualsText(word, name.substr(0, 3))) return m + 1;
  }
  return EqualsText(word, L"Sept") ? 9 : 0;
}

bool IsWeekdayName(std::wstring_view word) {
  static constexpr const wchar_t* kNames[] = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                              L"Thursday", L"Friday", L"Saturday"};
  for (std::wstring_view name : kNames)
    if (EqualsText(word, name) || EqualsText(word, name.substr(0, 3))) return true;
  return false;
}

struct Time {
  int hour = 0, minute = 0, second = 0;
};

// Takes a time off the end of the tokens: "h:mm", "h:mm:ss", either with AM/PM, or
// "h AM". The tokens left end before the blank that came before the time.
std::optional<Time> TakeTime(std::vector<Token>& tokens) {
  std::size_t end = tokens.size();
  int half = 0;  // 1 for AM, 2 for PM
  if (end > 0 && tokens[end - 1].IsWord()) {
    const std::wstring& w = tokens[end - 1].text;
    if (EqualsText(w, L"AM") || EqualsText(w, L"A")) half = 1;
    else if (EqualsText(w, L"PM") || EqualsText(w, L"P")) half = 2;
    else return std::nullopt;
    --end;
    if (end > 0 && tokens[end - 1].IsSeparator(L' ')) --end;
  }
  // The numbers joined by ":" before the end.
  std::vector<int> parts;
  std::size_t begin = end;
  while (begin > 0 && tokens[begin - 1].IsNumber()) {
    parts.insert(parts.begin(), tokens[begin - 1].value);
    --begin;
    if (begin > 0 && tokens[begin - 1].IsSeparator(L':')) --begin;
    else break;
  }
  if (parts.empty() || parts.size() > 3 || (parts.size() == 1 && half == 0)) return std::nullopt;
  if (begin > 0 && !tokens[begin - 1].IsSeparator(L' ')) return std::nullopt;

  Time t{parts[0], parts.size() > 1 ? parts[1] : 0, parts.size() > 2 ? parts[2] : 0};
  if (t.minute > 59 || t.second > 59) return std::nullopt;
  if (half != 0) {
    if (t.hour > 12) return std::nullopt;
    t.hour = t.hour % 12 + (half == 2 ? 12 : 0);
  } else if (t.hour > 23) {
    return std::nullopt;
  }
  tokens.resize(begin > 0 ? begin - 1 : 0);
  return t;
}

int FullYear(const Token& t) {
  return t.text.size() <= 2 ? calendar::WindowYear(t.value) : t.value;
}

std::optional<DateTime> Valid(int year, int month, int day) {
  if (year < 100 || year > 9999 || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > calendar::DaysInMonth(year, month)) return std::nullopt;
  return DateTime{year, month, day, 0, 0, 0};
}

// The date of the tokens before any time: three numbers with one kind of separator
// ("2026-11-22", "11/22/2026", "22.11.2026") or two numbers and a month name.
std::optional<DateTime> ReadDate(const std::vector<Token>& tokens) {
  std::vector<const Token*> items;
  std::vector<wchar_t> separators;
  for (const Token& t : tokens) {
    if (t.kind == Token::Kind::Separator) separators.push_back(t.text[0]);
    else items.push_back(&t);
  }
  // Each item but the first is preceded by exactly one separator.
  if (separators.size() + 1 != items.size() || tokens.front().kind == Token::Kind::Separator)
    return std::nullopt;
  if (items.size() == 4 && items[0]->IsWord() && IsWeekdayName(items[0]->text)) {
    items.erase(items.begin());
    separators.erase(separators.begin());
  }
  if (items.size() != 3) return std::nullopt;

  const Token &a = *items[0], &b = *items[1], &c = *items[2];
  if (a.IsNumber() && b.IsNumber() && c.IsNumber()) {
    wchar_t sep = separators[0];
    if (separators[1] != sep || (sep != L'-' && sep != L'/' && sep != L'.')) return std::nullopt;
    if (a.text.size() >= 3) return Valid(a.value, b.value, c.value);  // year first
    if (sep == L'.') return Valid(FullYear(c), b.value, a.value);     // day first
    // Month first; a first number that cannot be a month is the day.
    if (a.value > 12 && b.value <= 12) return Valid(FullYear(c), b.value, a.value);
    return Valid(FullYear(c), a.value, b.value);
  }
  for (wchar_t sep : separators)
    if (sep == L':') return std::nullopt;
  if (a.IsWord() && b.IsNumber() && c.IsNumber() && MonthOf(a.text))  // November 22, 2026
    return Valid(FullYear(c), MonthOf(a.text), b.value);
  if (a.IsNumber() && b.IsWord() && c.IsNumber() && MonthOf(b.text)) {
    if (a.text.size() >= 3) return Valid(a.value, MonthOf(b.text), c.value);  // 2026 Nov 22
    return Valid(FullYear(c), MonthOf(b.text), a.value);                     // 22 Nov 2026
  }
  return std::nullopt;
}

}  // namespace

std::optional<DateTime> ParseDate(std::wstring_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  if (text.size() >= 2 && text.front() == L'#' && text.back() == L'#')
    text = text.substr(1, text.size() - 2);

  auto tokens = Tokenize(text);
  if (!tokens || tokens->empty()) return std::nullopt;
  std::optional<Time> time = TakeTime(*tokens);
  DateTime result;  // a bare time falls on day 0
  if (!tokens->empty()) {
    auto date = ReadDate(*tokens);
    if (!date) return std::nullopt;
    result = *date;
  } else if (!time) {
    return std::nullopt;
  }
  if (time) {
    result.hour = time->hour;
    result.minute = time->minute;
    result.second = time->second;
  }
  return result;
}

}  // namespace quillet::vba
