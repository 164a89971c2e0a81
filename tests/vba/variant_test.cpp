#include "vba/variant.h"

#include <gtest/gtest.h>

#include "raises.h"

namespace quillet::vba {
namespace {

using testing::Raises;

TEST(Variant, KindsFollowTheStoredValue) {
  EXPECT_EQ(Variant().kind(), Variant::Kind::Empty);
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_EQ(Variant(true).kind(), Variant::Kind::Boolean);
  EXPECT_EQ(Variant(3).kind(), Variant::Kind::Long);
  EXPECT_EQ(Variant(3L).kind(), Variant::Kind::Long);
  EXPECT_EQ(Variant(1.5).kind(), Variant::Kind::Double);
  EXPECT_EQ(Variant(L"x").kind(), Variant::Kind::String);
  EXPECT_EQ(Variant(DateTime{}).kind(), Variant::Kind::Date);
  EXPECT_EQ(Variant(L"1"), Variant(std::wstring(L"1")));
  EXPECT_FALSE(Variant(L"1") == Variant(1));
}

TEST(Variant, ToStringAsCStr) {
  EXPECT_EQ(Variant().ToString(), L"");
  EXPECT_EQ(Variant(true).ToString(), L"True");
  EXPECT_EQ(Variant(false).ToString(), L"False");
  EXPECT_EQ(Variant(-42).ToString(), L"-42");
  EXPECT_EQ(Variant(0.5).ToString(), L"0.5");
  EXPECT_EQ(Variant(1e20).ToString(), L"1E+20");
  EXPECT_EQ(Variant(L"text").ToString(), L"text");
  EXPECT_EQ(Variant(DateTime{2026, 11, 22, 0, 0, 0}).ToString(), L"2026-11-22");
  EXPECT_EQ(Variant(DateTime{2026, 11, 22, 9, 5, 0}).ToString(), L"2026-11-22 09:05:00");
  // Day 0 is a bare time.
  EXPECT_EQ(Variant(DateTime{1899, 12, 30, 13, 0, 0}).ToString(), L"13:00:00");
  EXPECT_EQ(Variant(DateTime{}).ToString(), L"00:00:00");
}

TEST(Variant, NumericConversions) {
  EXPECT_EQ(Variant().ToLong(), 0);
  EXPECT_EQ(Variant(true).ToLong(), -1);
  EXPECT_EQ(Variant(false).ToDouble(), 0);
  EXPECT_EQ(Variant(2.5).ToLong(), 2);
  EXPECT_EQ(Variant(3.5).ToLong(), 4);
  EXPECT_EQ(Variant(L" 12 ").ToLong(), 12);
  EXPECT_EQ(Variant(L"2.5").ToLong(), 2);
  EXPECT_EQ(Variant(L"&HFF").ToDouble(), 255);
  EXPECT_EQ(Variant(L"1,000.5").ToDouble(), 1000.5);
  EXPECT_EQ(Variant(10000000000LL).ToLong(), 10000000000LL);
  EXPECT_EQ(Variant(DateTime{1900, 1, 1, 12, 0, 0}).ToDouble(), 2.5);
  EXPECT_EQ(Variant(DateTime{1900, 1, 1, 12, 0, 0}).ToLong(), 2);
  EXPECT_TRUE(Raises(13, [] { Variant(L"abc").ToDouble(); }));
  EXPECT_TRUE(Raises(13, [] { Variant(L"").ToLong(); }));
  EXPECT_TRUE(Raises(6, [] { Variant(3e9).ToLong(); }));
}

TEST(Variant, TruthValues) {
  EXPECT_FALSE(Variant().ToBool());
  EXPECT_TRUE(Variant(-1).ToBool());
  EXPECT_FALSE(Variant(0).ToBool());
  EXPECT_TRUE(Variant(0.1).ToBool());
  EXPECT_TRUE(Variant(L"True").ToBool());
  EXPECT_TRUE(Variant(L"true").ToBool());
  EXPECT_FALSE(Variant(L"FALSE").ToBool());
  EXPECT_TRUE(Variant(L"-1").ToBool());
  EXPECT_FALSE(Variant(L"0").ToBool());
  EXPECT_TRUE(Variant(L"2.5").ToBool());
  EXPECT_TRUE(Raises(13, [] { Variant(L"yes").ToBool(); }));
  EXPECT_TRUE(Raises(13, [] { Variant(L"").ToBool(); }));
}

TEST(Variant, DateConversions) {
  DateTime d{2026, 11, 22, 14, 30, 0};
  EXPECT_EQ(Variant(d).ToDate(), d);
  EXPECT_EQ(Variant(L"2026-11-22 14:30").ToDate(), d);
  EXPECT_EQ(Variant(d.Serial()).ToDate(), d);
  EXPECT_EQ(Variant(2).ToDate(), (DateTime{1900, 1, 1, 0, 0, 0}));
  EXPECT_EQ(Variant().ToDate(), DateTime{});
  EXPECT_EQ(Variant(true).ToDate(), (DateTime{1899, 12, 29, 0, 0, 0}));
  EXPECT_TRUE(Raises(13, [] { Variant(L"soon").ToDate(); }));
  EXPECT_TRUE(Raises(6, [] { Variant(1e10).ToDate(); }));
  // Through text and back.
  EXPECT_EQ(Variant(Variant(d).ToString()).ToDate(), d);
}

}  // namespace
}  // namespace quillet::vba
