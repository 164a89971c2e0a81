#pragma once
// Checks that a call raises the VBA run-time error of a given number.
#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "vba/error.h"

namespace quillet::vba::testing {

template <class F>
::testing::AssertionResult Raises(long number, F&& call) {
  try {
    call();
  } catch (const Error& e) {
    if (e.Number() == number) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "raised error " << e.Number() << " instead of " << number;
  } catch (const std::exception& e) {
    return ::testing::AssertionFailure() << "threw " << e.what() << " instead of error " << number;
  }
  return ::testing::AssertionFailure() << "raised nothing, expected error " << number;
}

}  // namespace quillet::vba::testing
