#include "vba/variant.h"

#include "vba/error.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::vba {
namespace {

template <class... F>
struct Overloaded : F... {
  using F::operator()...;
};
template <class... F>
Overloaded(F...) -> Overloaded<F...>;

// VBA's True is -1.
double FromBool(bool b) { return b ? -1.0 : 0.0; }

}  // namespace

bool Variant::ToBool() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return false; },
                        [](bool b) { return b; },
                        [](long long n) { return n != 0; },
                        [](double d) { return d != 0; },
                        [](const std::wstring& s) {
                          std::wstring t = Trim(s);
                          if (EqualsText(t, L"True")) return true;
                          if (EqualsText(t, L"False")) return false;
                          return CDbl(t) != 0;
                        },
                        [](const DateTime& d) { return d.Serial() != 0; },
                    },
                    v_);
}

double Variant::ToDouble() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return 0.0; },
                        [](bool b) { return FromBool(b); },
                        [](long long n) { return static_cast<double>(n); },
                        [](double d) { return d; },
                        [](const std::wstring& s) { return CDbl(s); },
                        [](const DateTime& d) { return d.Serial(); },
                    },
                    v_);
}

long long Variant::ToLong() const {
  if (kind() == Kind::Long) return std::get<long long>(v_);
  return CLng(ToDouble());
}

std::wstring Variant::ToString() const {
  return std::visit(Overloaded{
                        [](std::monostate) { return std::wstring(); },
                        [](bool b) { return std::wstring(b ? L"True" : L"False"); },
                        [](long long n) { return CStr(n); },
                        [](double d) { return CStr(d); },
                        [](const std::wstring& s) { return s; },
                        [](const DateTime& d) {
                          // Day 0 shows only the time, midnight only the date.
                          bool hasDate = !(d.year == 1899 && d.month == 12 && d.day == 30);
                          bool hasTime = d.hour != 0 || d.minute != 0 || d.second != 0;
                          if (!hasDate) return ShortTime(d);
                          return hasTime ? ShortDate(d) + L" " + ShortTime(d) : ShortDate(d);
                        },
                    },
                    v_);
}

DateTime Variant::ToDate() const {
  switch (kind()) {
    case Kind::Date:
      return std::get<DateTime>(v_);
    case Kind::String: {
      auto d = ParseDate(std::get<std::wstring>(v_));
      if (!d) Raise(kErrTypeMismatch);
      return *d;
    }
    default:
      return DateTime::FromSerial(ToDouble());
  }
}

}  // namespace quillet::vba
