#include "generators/arguments.h"

#include <algorithm>

namespace quillet::generators {

std::wstring clsArgument::ArgumentString() const {
  if (IsParamArray) return L"ParamArray " + Name + L"()";
  std::wstring s;
  if (IsOptional) s += L"Optional ";
  if (IsByVal) s += L"ByVal ";
  s += Name;
  if (IsArray) s += L"()";
  if (!ValueType.empty()) s += L" As " + ValueType;
  if (IsOptional && !DefaultValue.empty()) s += L" = " + DefaultValue;
  return s;
}

std::vector<std::shared_ptr<clsArgument>> colArguments::Items() const {
  std::vector<std::shared_ptr<clsArgument>> items;
  for (long i = 1; i <= Count(); ++i) items.push_back(Item(i));
  std::stable_sort(items.begin(), items.end(), [](const auto& a, const auto& b) { return a->Number < b->Number; });
  return items;
}

ArgumentsOrder ArgumentsOrderCheck(const colArguments& arguments) {
  const std::vector<std::shared_ptr<clsArgument>> items = arguments.Items();
  bool optionalSeen = false;
  for (const auto& a : items) {
    if (a->IsOptional) optionalSeen = true;
    else if (optionalSeen) return kRequiredAfterOptional;
  }
  bool paramArraySeen = false;
  for (const auto& a : items) {
    if (paramArraySeen && !a->IsParamArray) return kParamArrayNotLast;
    if (a->IsParamArray) paramArraySeen = true;
  }
  return kArgumentsOrderGood;
}

void ArgumentsRenumber(colArguments& arguments, long deletedNumber) {
  for (long i = 1; i <= arguments.Count(); ++i)
    if (arguments.Item(i)->Number > deletedNumber) --arguments.Item(i)->Number;
}

}  // namespace quillet::generators
