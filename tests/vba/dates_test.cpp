#include "vba/dates.h"

#include <gtest/gtest.h>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

DateTime D(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) { return DateTime{y, mo, d, h, mi, s}; }

TEST(Dates, SerialsCountDaysFrom18991230) {
  EXPECT_EQ(D(1899, 12, 30).Serial(), 0);
  EXPECT_EQ(D(1899, 12, 31).Serial(), 1);
  EXPECT_EQ(D(1900, 1, 1).Serial(), 2);
  EXPECT_EQ(D(1900, 3, 1).Serial(), 61);  // 1900 was no leap year
  EXPECT_EQ(D(2000, 1, 1).Serial(), 36526);
  EXPECT_EQ(D(2000, 3, 1).Serial(), 36586);  // 2000 was one
  EXPECT_EQ(D(2026, 11, 22).Serial(), 46348);
  EXPECT_EQ(D(9999, 12, 31).Serial(), 2958465);
  EXPECT_EQ(D(100, 1, 1).Serial(), -657434);
  EXPECT_EQ(D(2000, 1, 1, 12).Serial(), 36526.5);
  EXPECT_EQ(D(2000, 1, 1, 6).Serial(), 36526.25);
  // Before day 0 the time still counts forward: -1.25 is 1899-12-29 06:00.
  EXPECT_EQ(D(1899, 12, 29, 6).Serial(), -1.25);
  EXPECT_EQ(D(1899, 12, 30, 18).Serial(), 0.75);
  EXPECT_EQ(D(1800, 1, 1, 12).Serial(), -36522.5);
}

TEST(Dates, FromSerialIsTheInverseToTheSecond) {
  EXPECT_EQ(DateTime::FromSerial(0), D(1899, 12, 30));
  EXPECT_EQ(DateTime::FromSerial(36526.5), D(2000, 1, 1, 12));
  EXPECT_EQ(DateTime::FromSerial(-1.25), D(1899, 12, 29, 6));
  EXPECT_EQ(DateTime::FromSerial(-0.5), D(1899, 12, 30, 12));
  EXPECT_EQ(DateTime::FromSerial(2.999999999), D(1900, 1, 2));  // rounds to the next day
  EXPECT_EQ(DateTime::FromSerial(-1.999999999), D(1899, 12, 30));
  EXPECT_EQ(DateTime::FromSerial(36526 + 1.0 / 86400), D(2000, 1, 1, 0, 0, 1));
  EXPECT_EQ(DateTime::FromSerial(36526 + 86399.0 / 86400), D(2000, 1, 1, 23, 59, 59));
  for (DateTime d : {D(2024, 2, 29, 23, 59, 59), D(1600, 3, 1, 1, 2, 3), D(1899, 12, 1, 13, 14, 15),
                     D(100, 1, 1), D(9999, 12, 31, 23, 59, 59), D(2100, 2, 28, 7)})
    EXPECT_EQ(DateTime::FromSerial(d.Serial()), d) << ShortDate(d) << " " << ShortTime(d);
  // A clock that adds whole seconds one by one stays on whole seconds.
  double serial = D(2000, 1, 1).Serial();
  for (int i = 0; i < 3600; ++i) serial += 1.0 / 86400;
  EXPECT_EQ(DateTime::FromSerial(serial), D(2000, 1, 1, 1));
  EXPECT_TRUE(Raises(6, [] { DateTime::FromSerial(2958466); }));
  EXPECT_TRUE(Raises(6, [] { DateTime::FromSerial(-657435); }));
}

TEST(Dates, DateSerialCarriesOverAndWindowsTwoDigitYears) {
  EXPECT_EQ(DateSerial(2026, 11, 22), D(2026, 11, 22));
  EXPECT_EQ(DateSerial(2026, 13, 1), D(2027, 1, 1));
  EXPECT_EQ(DateSerial(2026, 0, 1), D(2025, 12, 1));
  EXPECT_EQ(DateSerial(2026, -11, 1), D(2025, 1, 1));
  EXPECT_EQ(DateSerial(2026, 3, 0), D(2026, 2, 28));
  EXPECT_EQ(DateSerial(2024, 2, 30), D(2024, 3, 1));
  EXPECT_EQ(DateSerial(2026, 1, 366), D(2027, 1, 1));
  EXPECT_EQ(DateSerial(29, 1, 1), D(2029, 1, 1));
  EXPECT_EQ(DateSerial(30, 1, 1), D(1930, 1, 1));
  EXPECT_EQ(DateSerial(0, 1, 1), D(2000, 1, 1));
  EXPECT_FALSE(DateSerial(10000, 1, 1).has_value());
  EXPECT_FALSE(DateSerial(9999, 12, 32).has_value());
  EXPECT_FALSE(DateSerial(100, 1, 0).has_value());
}

TEST(Dates, ParseDateReadsTheAcceptedForms) {
  EXPECT_EQ(ParseDate(L"2026-11-22"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"2026/1/2"), D(2026, 1, 2));
  EXPECT_EQ(ParseDate(L"11/22/2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"1/2/26"), D(2026, 1, 2));
  EXPECT_EQ(ParseDate(L"1/2/45"), D(1945, 1, 2));
  EXPECT_EQ(ParseDate(L"22/11/2026"), D(2026, 11, 22));  // no 22nd month: day first
  EXPECT_EQ(ParseDate(L"22.11.2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"22 Nov 2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"22-nov-2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"November 22, 2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"Sept 3 2026"), D(2026, 9, 3));
  EXPECT_EQ(ParseDate(L"Sunday, November 22, 2026"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"#2026-11-22#"), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"  2026-11-22  "), D(2026, 11, 22));
  EXPECT_EQ(ParseDate(L"2024-02-29"), D(2024, 2, 29));
  // With a time, or a bare time on day 0.
  EXPECT_EQ(ParseDate(L"2026-11-22 14:30"), D(2026, 11, 22, 14, 30));
  EXPECT_EQ(ParseDate(L"11/22/2026 2:30:15 PM"), D(2026, 11, 22, 14, 30, 15));
  EXPECT_EQ(ParseDate(L"22 Nov 2026 9:05 am"), D(2026, 11, 22, 9, 5));
  EXPECT_EQ(ParseDate(L"#11/22/2026 12:00 AM#"), D(2026, 11, 22, 0, 0));
  EXPECT_EQ(ParseDate(L"12:00 PM"), D(1899, 12, 30, 12));
  EXPECT_EQ(ParseDate(L"23:59:59"), D(1899, 12, 30, 23, 59, 59));
  EXPECT_EQ(ParseDate(L"2 PM"), D(1899, 12, 30, 14));
  EXPECT_EQ(ParseDate(L"#0:00#"), D(1899, 12, 30));
}

TEST(Dates, IsDateRejectsWhatIsNoDate) {
  for (const wchar_t* s :
       {L"", L" ", L"##", L"abc", L"12", L"12.5", L"1,5", L"2026-13-01", L"2026-02-30", L"2023-02-29",
        L"2026-00-10", L"2026-11", L"11/22", L"13/13/2026", L"1/2/3/4", L"2026-11/22", L"22 Foo 2026",
        L"Nov 2026", L"24:00", L"12:60", L"1:2:3:4", L"13:00 PM", L"2026-11-22 25:00",
        L"2026-11-22x", L"10000-01-01", L"0099-01-01", L"-2026-11-22", L"2026--11-22", L"12345-1-1",
        L"2026-11-22 14:30 XM", L"14:30 2026"})
    EXPECT_FALSE(IsDate(s)) << s;
  EXPECT_TRUE(IsDate(L"2026-11-22"));
  EXPECT_TRUE(IsDate(L"#1/1/2000#"));
}

TEST(Dates, ShortFormsAndFormatTokens) {
  DateTime d = D(2026, 3, 7, 14, 5, 9);
  EXPECT_EQ(ShortDate(d), L"2026-03-07");
  EXPECT_EQ(ShortTime(d), L"14:05:09");
  EXPECT_EQ(ShortDate(D(987, 1, 2)), L"0987-01-02");
  EXPECT_EQ(FormatDate(d, L"mm\\/dd\\/yyyy"), L"03/07/2026");
  EXPECT_EQ(FormatDate(d, L"yyyy-mm-dd"), L"2026-03-07");
  EXPECT_EQ(FormatDate(d, L"m/d/yy"), L"3/7/26");
  EXPECT_EQ(FormatDate(d, L"dddd, mmmm d, yyyy"), L"Saturday, March 7, 2026");
  EXPECT_EQ(FormatDate(d, L"ddd d mmm"), L"Sat 7 Mar");
  // "m" after an hour is the minute; "n" always is.
  EXPECT_EQ(FormatDate(d, L"hh:mm:ss"), L"14:05:09");
  EXPECT_EQ(FormatDate(d, L"h:m"), L"14:5");
  EXPECT_EQ(FormatDate(d, L"hh:nn mm"), L"14:05 03");
  EXPECT_EQ(FormatDate(d, L"mm hh"), L"03 14");
  EXPECT_EQ(FormatDate(d, L"yyyy-mm-dd hh:mm"), L"2026-03-07 14:05");
  EXPECT_EQ(FormatDate(d, L"HH:NN:SS"), L"14:05:09");
  EXPECT_EQ(FormatDate(d, L"n:s"), L"5:9");
  // A twelve-hour clock with its mark.
  EXPECT_EQ(FormatDate(d, L"h:nn AM/PM"), L"2:05 PM");
  EXPECT_EQ(FormatDate(d, L"hh:nn am/pm"), L"02:05 pm");
  EXPECT_EQ(FormatDate(D(2026, 1, 1, 0, 30), L"h:nn A/P"), L"12:30 A");
  EXPECT_EQ(FormatDate(D(2026, 1, 1, 12, 0), L"h AM/PM"), L"12 PM");
  // Escapes and quoted text are copied.
  EXPECT_EQ(FormatDate(d, L"\\d\\a\\y d"), L"day 7");
  EXPECT_EQ(FormatDate(d, L"\"Year\" yyyy"), L"Year 2026");
  EXPECT_EQ(FormatDate(d, L"yyyy_T"), L"2026_T");
  EXPECT_EQ(FormatDate(d, L"y q w"), L"66 1 7");
}

}  // namespace
}  // namespace quillet::vba
