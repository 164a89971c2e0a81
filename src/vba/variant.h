#pragma once
// A VBA Variant: Empty, Boolean, Long, Double, String or Date, with VBA's conversions.
#include <string>
#include <variant>

#include "vba/dates.h"

namespace quillet::vba {

class Variant {
 public:
  enum class Kind { Empty, Boolean, Long, Double, String, Date };

  Variant() = default;
  Variant(bool b) : v_(b) {}
  Variant(int n) : v_(static_cast<long long>(n)) {}
  Variant(long n) : v_(static_cast<long long>(n)) {}
  Variant(long long n) : v_(n) {}
  Variant(double d) : v_(d) {}
  Variant(const wchar_t* s) : v_(std::wstring(s)) {}
  Variant(std::wstring s) : v_(std::move(s)) {}
  Variant(DateTime d) : v_(d) {}

  Kind kind() const { return static_cast<Kind>(v_.index()); }
  bool IsEmpty() const { return kind() == Kind::Empty; }

  // VBA's conversions. Text converts to a number when IsNumeric, to a truth value from
  // "True"/"False" or a number; anything else raises error 13.
  bool ToBool() const;        // CBool
  long long ToLong() const;   // CLng, banker's rounding
  double ToDouble() const;    // CDbl
  // CStr: True -> "True", Empty -> "", dates in short form ("yyyy-mm-dd", "hh:nn:ss" added
  // when there is a time; day 0 gives the time alone).
  std::wstring ToString() const;
  DateTime ToDate() const;    // CDate: text as ParseDate reads it, numbers as serials

  bool operator==(const Variant& o) const = default;

 private:
  std::variant<std::monostate, bool, long long, double, std::wstring, DateTime> v_;
};

}  // namespace quillet::vba
