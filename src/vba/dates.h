#pragma once
// Dates as VBA keeps them: days since 1899-12-30, time as the fraction of a day.
#include <optional>
#include <string>
#include <string_view>

namespace quillet::vba {

struct DateTime {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;

  double Serial() const;                       // VBA's Date value
  // Rounded to the nearest second; outside the years 100 to 9999 raises error 6.
  static DateTime FromSerial(double serial);
  bool operator==(const DateTime&) const = default;
};

// As VBA's DateSerial: years 0-29 are 2000-2029, 30-99 are 1930-1999; months and days
// beyond their range carry over. nullopt outside the years 100 to 9999.
std::optional<DateTime> DateSerial(int year, int month, int day);
// Parses what IsDate accepts: "yyyy-mm-dd", "mm/dd/yyyy", "dd.mm.yyyy", month names
// ("22 Nov 2026", "November 22, 2026"), with or without a time "hh:mm[:ss] [AM|PM]",
// a bare time (on 1899-12-30), and "#...#" literals. "22/11/2026" reads day first because
// there is no 22nd month. Dates without a year are not read (there is no current year here).
std::optional<DateTime> ParseDate(std::wstring_view text);
bool IsDate(std::wstring_view text);
// The system's short forms: "yyyy-mm-dd" and "hh:nn:ss".
std::wstring ShortDate(const DateTime& d);
std::wstring ShortTime(const DateTime& d);
// Format with the date tokens yyyy yy mmmm mmm mm m dd d hh h nn n ss s AM/PM,
// "\" escaping the next character, other characters copied. Also ddd dddd (day names),
// y (day of the year), w (day of the week), q (quarter), A/P and "quoted" text.
// "m"/"mm" right after "h"/"hh" mean minutes.
std::wstring FormatDate(const DateTime& d, std::wstring_view pattern);

}  // namespace quillet::vba
