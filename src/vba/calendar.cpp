#include "vba/calendar.h"

namespace quillet::vba::calendar {
namespace {

// Days from 1970-01-01 to 1899-12-30.
constexpr long long kEpochOffset = -25569;

// Days since 1970-01-01 of a civil date: the year is counted from March so that the
// leap day falls at the end, and in eras of 400 years, which repeat exactly.
long long DaysFromCivil(long long y, int m, int d) {
  y -= m <= 2;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const long long yearOfEra = y - era * 400;
  const long long dayOfYear = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const long long dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468;
}

}  // namespace

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

long long SerialDay(int year, int month, int day) {
  return DaysFromCivil(year, month, day) - kEpochOffset;
}

DateTime FromSerialDay(long long days) {
  long long z = days + kEpochOffset + 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const long long dayOfEra = z - era * 146097;
  const long long yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const long long dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const long long mp = (5 * dayOfYear + 2) / 153;
  DateTime d;
  d.day = static_cast<int>(dayOfYear - (153 * mp + 2) / 5 + 1);
  d.month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  d.year = static_cast<int>(yearOfEra + era * 400 + (d.month <= 2));
  d.hour = d.minute = d.second = 0;
  return d;
}

int Weekday(long long days) {
  // Day 0 was a Saturday.
  long long w = (days + 6) % 7;
  return static_cast<int>(w < 0 ? w + 7 : w);
}

int WindowYear(int twoDigitYear) { return twoDigitYear < 30 ? 2000 + twoDigitYear : 1900 + twoDigitYear; }

}  // namespace quillet::vba::calendar
