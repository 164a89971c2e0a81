#include "vba/numbers.h"

#include <gtest/gtest.h>

#include <limits>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

TEST(Numbers, ValReadsTheLeadingNumber) {
  EXPECT_EQ(Val(L"12abc"), 12);
  EXPECT_EQ(Val(L"  -1.5e2x"), -150);
  EXPECT_EQ(Val(L" 1615 198th Street"), 1615198);  // blanks inside do not count
  EXPECT_EQ(Val(L"\t1\n2 3"), 123);
  EXPECT_EQ(Val(L"- 3"), -3);
  EXPECT_EQ(Val(L"+4"), 4);
  EXPECT_EQ(Val(L".5"), 0.5);
  EXPECT_EQ(Val(L"5."), 5);
  EXPECT_EQ(Val(L"1.5.3"), 1.5);
  EXPECT_EQ(Val(L"1,000"), 1);
  EXPECT_EQ(Val(L"1e3"), 1000);
  EXPECT_EQ(Val(L"1d3"), 1000);
  EXPECT_EQ(Val(L"2E-1"), 0.2);
  EXPECT_EQ(Val(L"1e"), 1);    // an exponent without digits is not read
  EXPECT_EQ(Val(L"1e+x"), 1);
  EXPECT_EQ(Val(L""), 0);
  EXPECT_EQ(Val(L"abc"), 0);
  EXPECT_EQ(Val(L"-"), 0);
  EXPECT_EQ(Val(L"--1"), 0);
  EXPECT_EQ(Val(L"\r1"), 0);  // a carriage return is not skipped
}

TEST(Numbers, ValReadsHexAndOctalAsIntegerOrLong) {
  EXPECT_EQ(Val(L"&H1F"), 31);
  EXPECT_EQ(Val(L"&h1fz"), 31);
  EXPECT_EQ(Val(L"&O17"), 15);
  EXPECT_EQ(Val(L"&o18"), 1);
  EXPECT_EQ(Val(L"&HFFFF"), -1);
  EXPECT_EQ(Val(L"&H7FFF"), 32767);
  EXPECT_EQ(Val(L"&H8000"), -32768);
  EXPECT_EQ(Val(L"&H10000"), 65536);
  EXPECT_EQ(Val(L"&HFFFFFFFF"), -1);
  EXPECT_EQ(Val(L"&H7FFFFFFF"), 2147483647);
  EXPECT_EQ(Val(L"&H"), 0);
  EXPECT_EQ(Val(L"&"), 0);
  EXPECT_EQ(Val(L"&X1"), 0);
  EXPECT_TRUE(Raises(6, [] { Val(L"&H100000000"); }));
  EXPECT_TRUE(Raises(6, [] { Val(L"1e400"); }));
  EXPECT_EQ(Val(L"1e-400"), 0);
}

TEST(Numbers, IsNumericAndCDbl) {
  for (const wchar_t* s : {L"12", L" 12 ", L"\t12\t", L"-1.5", L"+3", L".5", L"5.", L"1e5", L"1E-5",
                           L"1d5", L"&HFF", L"&o17", L"1,000", L"1,000.25", L"1,2,3", L"-0"})
    EXPECT_TRUE(IsNumeric(s)) << s;
  for (const wchar_t* s : {L"", L" ", L".", L"-", L"+", L"1 2", L"1.2.3", L"12abc", L"abc", L",5",
                           L"1.5,0", L"1e", L"1e+", L"&H", L"&HFG", L"--1", L"- 1", L"1e400",
                           L"&H100000000", L"$5", L"(5)"})
    EXPECT_FALSE(IsNumeric(s)) << s;

  EXPECT_EQ(CDbl(L" 1,234.5 "), 1234.5);
  EXPECT_EQ(CDbl(L"-2.5e3"), -2500);
  EXPECT_EQ(CDbl(L"&HFFFF"), -1);
  EXPECT_EQ(CDbl(L"1e-400"), 0);
  EXPECT_TRUE(Raises(13, [] { CDbl(L""); }));
  EXPECT_TRUE(Raises(13, [] { CDbl(L"12abc"); }));
  EXPECT_TRUE(Raises(6, [] { CDbl(L"1e400"); }));
  EXPECT_TRUE(Raises(6, [] { CDbl(L"-123456789e302"); }));
}

TEST(Numbers, IntegerConversionRoundsHalfToEvenAndChecksRange) {
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(3.5), 4);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_EQ(CInt(-3.5), -4);
  EXPECT_EQ(CInt(0.5), 0);
  EXPECT_EQ(CInt(1.5), 2);
  EXPECT_EQ(CInt(2.4999), 2);
  EXPECT_EQ(CInt(2.5001), 3);
  EXPECT_EQ(CInt(-0.4), 0);
  EXPECT_EQ(CInt(32767.4), 32767);
  EXPECT_EQ(CInt(-32768.5), -32768);
  EXPECT_TRUE(Raises(6, [] { CInt(32767.5); }));
  EXPECT_TRUE(Raises(6, [] { CInt(-32769); }));
  EXPECT_EQ(CLng(2147483647.0), 2147483647);
  EXPECT_EQ(CLng(-2147483648.5), -2147483647 - 1);
  EXPECT_EQ(CLng(100000.5), 100000);
  EXPECT_TRUE(Raises(6, [] { CLng(2147483647.5); }));
  EXPECT_TRUE(Raises(6, [] { CLng(1e300); }));
  EXPECT_TRUE(Raises(6, [] { CLng(std::numeric_limits<double>::quiet_NaN()); }));
}

TEST(Numbers, CStrWritesUpToFifteenSignificantDigits) {
  EXPECT_EQ(CStr(0.0), L"0");
  EXPECT_EQ(CStr(-0.0), L"0");
  EXPECT_EQ(CStr(0.5), L"0.5");
  EXPECT_EQ(CStr(-0.5), L"-0.5");
  EXPECT_EQ(CStr(100.0), L"100");
  EXPECT_EQ(CStr(1.25), L"1.25");
  EXPECT_EQ(CStr(0.1 + 0.2), L"0.3");
  EXPECT_EQ(CStr(1.0 / 3), L"0.333333333333333");
  EXPECT_EQ(CStr(2.0 / 3), L"0.666666666666667");
  EXPECT_EQ(CStr(123456789012345.0), L"123456789012345");
  EXPECT_EQ(CStr(1234567890123456.0), L"1.23456789012346E+15");
  EXPECT_EQ(CStr(1e15), L"1E+15");
  EXPECT_EQ(CStr(1e20), L"1E+20");
  EXPECT_EQ(CStr(1e100), L"1E+100");
  EXPECT_EQ(CStr(0.0001), L"0.0001");
  EXPECT_EQ(CStr(0.00001), L"1E-05");
  EXPECT_EQ(CStr(-1.5e-7), L"-1.5E-07");
  EXPECT_EQ(CStr(32767.0), L"32767");
  EXPECT_EQ(CStr(-2147483648LL), L"-2147483648");
  EXPECT_EQ(CStr(0LL), L"0");
  // What CStr writes, CDbl reads back.
  for (double d : {0.5, -1.5e-7, 1e20, 123.456, 1.0 / 3})
    EXPECT_EQ(CStr(CDbl(CStr(d))), CStr(d));
}

}  // namespace
}  // namespace quillet::vba
