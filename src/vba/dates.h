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
  static DateTime FromSerial(double serial);
  bool operator==(const DateTime&) const = default;
};

std::optional<DateTime> DateSerial(int year, int month, int day);
// Parses what IsDate accepts: "yyyy-mm-dd", "mm/dd/yyyy", "dd.mm.yyyy", month names
// ("22 Nov 2026", "November 22, 2026"), with or without a time "hh:mm[:ss] [AM|PM]",
// a bare time, and "#...#" literals.
std::optional<DateTime> ParseDate(std::wstring_view text);
bool IsDate(std::wstring_view text);
// The system's short forms: "yyyy-mm-dd" and "hh:nn:ss".
std::wstring ShortDate(const DateTime& d);
std::wstring ShortTime(const DateTime& d);
// Format with the date tokens yyyy yy mmmm mmm mm m dd d hh h nn n ss s AM/PM,
// "\" escaping the next character, other characters copied.
std::wstring FormatDate(const DateTime& d, std::wstring_view pattern);

}  // namespace quillet::vba
