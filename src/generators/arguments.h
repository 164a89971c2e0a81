#pragma once
// The arguments of a procedure being built: each one a description that writes itself as
// it stands in a definition line, the list keyed by name and ordered by `Number`.
//
//   auto a = std::make_shared<clsArgument>();
//   a->Name = L"vlngCount"; a->ValueType = L"Long"; a->IsByVal = true;
//   a->ArgumentString();   // "ByVal vlngCount As Long"
#include <memory>
#include <string>
#include <vector>

#include "vba/collection.h"

namespace quillet::generators {

class clsArgument {
 public:
  std::wstring Name;
  std::wstring ValueType;
  bool IsByVal = false;
  bool IsArray = false;
  bool IsParamArray = false;
  bool IsOptional = false;
  std::wstring DefaultValue;
  long Number = 0;  // position in the list, 1-based

  // The argument as written between the parentheses of a definition. A ParamArray is its
  // name and "()" only; "ByRef" is never written, being the language's default.
  std::wstring ArgumentString() const;
};

// The arguments under their names (compared without regard to case); adding a name that
// is there raises error 457.
class colArguments : public vba::Collection<std::shared_ptr<clsArgument>> {
 public:
  using vba::Collection<std::shared_ptr<clsArgument>>::Add;
  // Adds `argument` under its own name.
  std::shared_ptr<clsArgument>& Add(std::shared_ptr<clsArgument> argument) {
    const std::wstring key = argument->Name;
    return Add(std::move(argument), key);
  }
  // The arguments in the order of their numbers; arguments with one number keep the order
  // they were added in.
  std::vector<std::shared_ptr<clsArgument>> Items() const;
};

// The argument list's order rules, on the arguments taken by `Number`.
enum ArgumentsOrder : int {
  kArgumentsOrderGood = 0,
  kRequiredAfterOptional = 1,  // an argument that is not optional follows an optional one
  kParamArrayNotLast = 2,      // a ParamArray is followed by another argument
};
ArgumentsOrder ArgumentsOrderCheck(const colArguments& arguments);

// Closes the gap left by the argument that had number `deletedNumber`.
void ArgumentsRenumber(colArguments& arguments, long deletedNumber);

}  // namespace quillet::generators
