#include "vba/numbers.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

struct ValCase {
  const wchar_t* text;
  double value;
};

TEST(Numbers, ValReadsTheLeadingNumber) {
  const ValCase cases[] = {
      {L"12abc", 12},    {L"  -1.5e2x", -150}, {L"\t1\n2 3", 123},  // blanks, tabs, LFs inside skipped
      {L" 1615 198th Street", 1615198}, {L"- 3", -3}, {L"+4", 4},    {L".5", 0.5},
      {L"5.", 5},        {L"1.5.3", 1.5},      {L"1,000", 1},       {L"1e3", 1000},
      {L"1d3", 1000},    {L"2E-1", 0.2},       {L"1e", 1},          {L"1e+x", 1},
      {L"", 0},          {L"abc", 0},          {L"-", 0},           {L"--1", 0},
      {L"\r1", 0},       {L"1e-400", 0},
      // "&H" and "&O": up to 16 bits an Integer, beyond a Long, both two's complement.
      {L"&H1F", 31},     {L"&h1fz", 31},       {L"&O17", 15},       {L"&o18", 1},
      {L"&HFFFF", -1},   {L"&H7FFF", 32767},   {L"&H8000", -32768}, {L"&H10000", 65536},
      {L"&HFFFFFFFF", -1}, {L"&H7FFFFFFF", 2147483647}, {L"&H", 0}, {L"&", 0}, {L"&X1", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.value) << c.text;
  EXPECT_TRUE(Raises(6, [] { Val(L"&H100000000"); }));
  EXPECT_TRUE(Raises(6, [] { Val(L"1e400"); }));
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
  const std::pair<double, const wchar_t*> cases[] = {
      {0.0, L"0"},       {-0.0, L"0"},          {0.5, L"0.5"},         {-0.5, L"-0.5"},
      {100.0, L"100"},   {1.25, L"1.25"},       {0.1 + 0.2, L"0.3"},   {1.0 / 3, L"0.333333333333333"},
      {2.0 / 3, L"0.666666666666667"},          {123456789012345.0, L"123456789012345"},
      {1234567890123456.0, L"1.23456789012346E+15"}, {1e15, L"1E+15"}, {1e20, L"1E+20"},
      {1e100, L"1E+100"}, {0.0001, L"0.0001"},  {0.00001, L"1E-05"},   {-1.5e-7, L"-1.5E-07"},
  };
  for (const auto& [value, text] : cases) EXPECT_EQ(CStr(value), text) << text;
  EXPECT_EQ(CStr(-2147483648LL), L"-2147483648");
  EXPECT_EQ(CStr(0LL), L"0");
  // What CStr writes, CDbl reads back.
  for (double d : {0.5, -1.5e-7, 1e20, 123.456, 1.0 / 3})
    EXPECT_EQ(CStr(CDbl(CStr(d))), CStr(d));
}

}  // namespace
}  // namespace quillet::vba
