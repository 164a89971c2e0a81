#include "vba/dates.h"

#include <array>
#include <cmath>

#include "vba/calendar.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

constexpr long long kFirstSerialDay = -657434;  // 100-01-01
constexpr long long kLastSerialDay = 2958465;   // 9999-12-31

constexpr std::array<const wchar_t*, 12> kMonthNames = {
    L"January", L"February", L"March",     L"April",   L"May",      L"June",
    L"July",    L"August",   L"September", L"October", L"November", L"December"};
constexpr std::array<const wchar_t*, 7> kDayNames = {L"Sunday",   L"Monday", L"Tuesday", L"Wednesday",
                                                     L"Thursday", L"Friday", L"Saturday"};

std::wstring Pad(long long n, int width) {
  std::wstring s = std::to_wstring(n < 0 ? -n : n);
  if (static_cast<int>(s.size()) < width) s.insert(0, static_cast<std::size_t>(width) - s.size(), L'0');
  return n < 0 ? L"-" + s : s;
}

int SecondsOfDay(const DateTime& d) { return d.hour * 3600 + d.minute * 60 + d.second; }

}  // namespace

double DateTime::Serial() const {
  long long days = calendar::SerialDay(year, month, day);
  double time = SecondsOfDay(*this) / 86400.0;
  // Before 1899-12-30 the day counts down while the time still counts up: -1.25 is
  // 1899-12-29 06:00.
  return days >= 0 ? static_cast<double>(days) + time : static_cast<double>(days) - time;
}

DateTime DateTime::FromSerial(double serial) {
  double whole = std::trunc(serial);
  if (!std::isfinite(serial) || whole < kFirstSerialDay || whole > kLastSerialDay) Raise(kErrOverflow);
  auto days = static_cast<long long>(whole);
  auto seconds = static_cast<long long>(std::llround(std::fabs(serial - whole) * 86400.0));
  if (seconds >= 86400) {  // rounded up to the next midnight
    seconds -= 86400;
    ++days;
  }
  DateTime d = calendar::FromSerialDay(days);
  d.hour = static_cast<int>(seconds / 3600);
  d.minute = static_cast<int>(seconds / 60 % 60);
  d.second = static_cast<int>(seconds % 60);
  return d;
}

std::optional<DateTime> DateSerial(int year, int month, int day) {
  if (year >= 0 && year <= 99) year = calendar::WindowYear(year);
  // Months and days beyond their range carry over, as VBA's DateSerial does.
  long long months = static_cast<long long>(year) * 12 + (month - 1);
  long long y = months >= 0 ? months / 12 : -((-months + 11) / 12);
  auto m = static_cast<int>(months - y * 12 + 1);
  if (y < 100 || y > 9999) return std::nullopt;
  long long days = calendar::SerialDay(static_cast<int>(y), m, 1) + (day - 1LL);
  if (days < kFirstSerialDay || days > kLastSerialDay) return std::nullopt;
  return calendar::FromSerialDay(days);
}

bool IsDate(std::wstring_view text) { return ParseDate(text).has_value(); }

std::wstring ShortDate(const DateTime& d) {
  return Pad(d.year, 4) + L"-" + Pad(d.month, 2) + L"-" + Pad(d.day, 2);
}

std::wstring ShortTime(const DateTime& d) {
  return Pad(d.hour, 2) + L":" + Pad(d.minute, 2) + L":" + Pad(d.second, 2);
}

namespace {

std::size_t RunOf(std::wstring_view s, std::size_t i) {
  std::size_t n = 1;
  while (i + n < s.size() && ToLower(s[i + n]) == ToLower(s[i])) ++n;
  return n;
}

bool MatchesAt(std::wstring_view s, std::size_t i, std::wstring_view token) {
  return s.size() - i >= token.size() && EqualsText(s.substr(i, token.size()), token);
}

}  // namespace

std::wstring FormatDate(const DateTime& d, std::wstring_view pattern) {
  const bool twelveHour = [&] {
    for (std::size_t i = 0; i < pattern.size(); ++i)
      if (MatchesAt(pattern, i, L"AM/PM") || MatchesAt(pattern, i, L"A/P")) return true;
    return false;
  }();
  const long long days = calendar::SerialDay(d.year, d.month, d.day);
  std::wstring out;
  bool afterHour = false;  // "m" and "mm" right after an hour mean minutes
  for (std::size_t i = 0; i < pattern.size();) {
    wchar_t c = pattern[i];
    if (c == L'\\') {
      if (i + 1 < pattern.size()) out += pattern[i + 1];
      i += 2;
      continue;
    }
    if (c == L'"') {
      std::size_t close = pattern.find(L'"', i + 1);
      if (close == std::wstring_view::npos) close = pattern.size();
      out.append(pattern.substr(i + 1, close - i - 1));
      i = close + 1;
      continue;
    }
    if (MatchesAt(pattern, i, L"AM/PM") || MatchesAt(pattern, i, L"A/P")) {
      bool full = MatchesAt(pattern, i, L"AM/PM");
      std::wstring mark = d.hour < 12 ? (full ? L"AM" : L"A") : (full ? L"PM" : L"P");
      out += IsLetter(c) && ToLower(c) == c ? LCase(mark) : mark;
      i += full ? 5 : 3;
      continue;
    }
    std::size_t run = RunOf(pattern, i);
    std::size_t used = run;
    bool hour = false;
    switch (ToLower(c)) {
      case L'y':
        if (run >= 4) {
          out += Pad(d.year, 4);
          used = 4;
        } else if (run >= 2) {
          out += Pad(d.year % 100, 2);
          used = 2;
        } else {
          out += std::to_wstring(days - calendar::SerialDay(d.year, 1, 1) + 1);  // day of the year
        }
        break;
      case L'm':
        if (run <= 2 && afterHour) {
          out += run == 2 ? Pad(d.minute, 2) : std::to_wstring(d.minute);
        } else if (run >= 3) {
          std::wstring_view name = kMonthNames[d.month - 1];
          used = run >= 4 ? 4 : 3;
          out += used == 4 ? name : name.substr(0, 3);
        } else {
          out += run == 2 ? Pad(d.month, 2) : std::to_wstring(d.month);
        }
        break;
      case L'd':
        if (run >= 3) {
          std::wstring_view name = kDayNames[calendar::Weekday(days)];
          used = run >= 4 ? 4 : 3;
          out += used == 4 ? name : name.substr(0, 3);
        } else {
          out += run == 2 ? Pad(d.day, 2) : std::to_wstring(d.day);
        }
        break;
      case L'h': {
        int h = twelveHour ? (d.hour % 12 == 0 ? 12 : d.hour % 12) : d.hour;
        used = run >= 2 ? 2 : 1;
        out += used == 2 ? Pad(h, 2) : std::to_wstring(h);
        hour = true;
        break;
      }
      case L'n':
        used = run >= 2 ? 2 : 1;
        out += used == 2 ? Pad(d.minute, 2) : std::to_wstring(d.minute);
        break;
      case L's':
        used = run >= 2 ? 2 : 1;
        out += used == 2 ? Pad(d.second, 2) : std::to_wstring(d.second);
        break;
      case L'w':  // day of the week, 1 for Sunday
        out += std::to_wstring(calendar::Weekday(days) + 1);
        used = 1;
        break;
      case L'q':  // quarter
        out += std::to_wstring((d.month - 1) / 3 + 1);
        used = 1;
        break;
      default:
        out += c;
        ++i;
        continue;  // a literal keeps what the last token was
    }
    afterHour = hour;
    i += used;
  }
  return out;
}

}  // namespace quillet::vba
