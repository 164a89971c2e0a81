#include "vba/error.h"

#include <gtest/gtest.h>

#include "raises.h"

namespace quillet::vba {
namespace {

TEST(Errors, NumbersCarryTheirStandardDescriptions) {
  Error e(9);
  EXPECT_EQ(e.Number(), 9);
  EXPECT_EQ(e.Description(), L"Subscript out of range");
  EXPECT_STREQ(e.what(), "9: Subscript out of range");
  EXPECT_EQ(Error(457).Description(),
            L"This key is already associated with an element of this collection");
  EXPECT_EQ(Error(1234).Description(), L"Application-defined or object-defined error");
  Error own(513, L"Name já existe", L"basNames.Check");
  EXPECT_EQ(own.Description(), L"Name já existe");
  EXPECT_EQ(own.Source(), L"basNames.Check");
  EXPECT_STREQ(own.what(), "513: Name j\xC3\xA1 existe");
  EXPECT_TRUE(testing::Raises(93, [] { Raise(kErrInvalidPattern); }));
}

}  // namespace
}  // namespace quillet::vba
