#include "generators/values.h"

#include "generators/scope.h"
#include "vba/dates.h"
#include "vba/like.h"
#include "vba/numbers.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

int TypeOfValue(const vba::Variant& v) {
  switch (v.kind()) {
    case vba::Variant::Kind::Boolean: return vbBoolean;
    case vba::Variant::Kind::Long: return vbLong;
    case vba::Variant::Kind::Double: return vbDouble;
    case vba::Variant::Kind::Date: return vbDate;
    case vba::Variant::Kind::String: return vbString;
    default: return vbEmpty;
  }
}

// The constant of that name in the first collection that has one.
const analysis::clsConstant* FindConstant(std::wstring_view name, std::initializer_list<const analysis::Constants*> scopes) {
  for (const analysis::Constants* c : scopes)
    if (const auto* hit = c->Find(name)) return hit->get();
  return nullptr;
}

}  // namespace

std::wstring ValueQuote(const std::wstring& value, const std::wstring& typeName) {
  if (vba::IsNumeric(value)) return value;
  if (typeName == L"Date" && vba::IsDate(value)) return vba::Like(value, L"[#]*[#]") ? value : L"#" + value + L"#";
  if (typeName == L"String") {
    bool quoted = value.size() >= 2 && value.front() == L'"' && value.back() == L'"';
    return quoted ? value : L"\"" + value + L"\"";
  }
  return value.empty() ? L"0" : value;
}

std::wstring ValueAsCode(kernel::Session& s, const vba::Variant& value, int type, const analysis::Constants& moduleConsts,
                         const analysis::Constants& procConsts) {
  if (type == vbEmpty) type = TypeOfValue(value);
  std::wstring text = value.ToString();
  switch (type) {
    case vbString: {
      // The leading blank of " vbNullChar" is part of the list: "vbNullChar" itself is quoted.
      static const wchar_t* kNamed[] = {L"vbNullString", L"vbBack", L"vbCr",      L"vbCrLf",       L"vbFormFeed",
                                        L"vbLf",         L"vbNewLine", L" vbNullChar", L"vbTab", L"vbVerticalTab"};
      for (const wchar_t* n : kNamed)
        if (vba::EqualsText(text, n)) return text;
      if (const analysis::clsConstant* c = FindConstant(text, {&ModelsOf(s).ProjectConsts, &moduleConsts, &procConsts}))
        if (vba::Like(c->Type_, L"String")) return text;
      return ValueQuote(text, L"String");
    }
    case vbDate: {
      std::optional<vba::DateTime> d = vba::ParseDate(text);
      if (!d) return {};
      if (text.find(L':') == std::wstring::npos) text = vba::FormatDate(*d, L"mm\\/dd\\/yyyy");
      return ValueQuote(text, L"Date");
    }
    case vbBoolean:
      if (value.kind() == vba::Variant::Kind::Boolean) return value.ToBool() ? L"True" : L"False";
      // The words themselves, as typed, are what they say; a number is true unless 0.
      if (vba::EqualsText(vba::Trim(text), L"True")) return L"True";
      if (vba::EqualsText(vba::Trim(text), L"False")) return L"False";
      return vba::Val(text) != 0 ? L"True" : L"False";
    default:
      return text;
  }
}

}  // namespace quillet::generators
