#pragma once
// Day arithmetic of the proleptic Gregorian calendar that VBA's dates use, counted in
// serial days (1899-12-30 is day 0). Internal to the vba layer.
#include "vba/dates.h"

namespace quillet::vba::calendar {

bool IsLeapYear(int year);
int DaysInMonth(int year, int month);
// The serial day of a valid date.
long long SerialDay(int year, int month, int day);
// The date (at midnight) of a serial day.
DateTime FromSerialDay(long long days);
// 0 for Sunday to 6 for Saturday.
int Weekday(long long days);
// A two-digit year as VBA reads it: 0-29 are 2000-2029, 30-99 are 1930-1999.
int WindowYear(int twoDigitYear);

}  // namespace quillet::vba::calendar
