#pragma once
// What the pick lists need of the Variable Builder, which is a feature of its own: the pick
// lists offer "<New Variable>" and, for a Select Case on an enum without a test expression,
// open the builder afterwards. The add-in shell gives both at connection:
//
//   VariableBuilderHooksSet(s, {.newVariable = ..., .openLater = ...});
//
// Without them the pick lists say, the system's way, that the builder is not available.
#include <functional>
#include <string>

#include "kernel/session.h"
#include "ui/form.h"

namespace quillet::generators {

struct VariableBuilderHooks {
  // Opens the Variable Builder modally over `parent`. `withMode`: the builder's With mode.
  // A non-empty `onlyTypes` is the only type (or comma list of types) it may offer. True
  // when the user wrote a variable: `name` and `category` come back with it.
  std::function<bool(kernel::Session& s, ui::Form* parent, bool withMode, const std::wstring& onlyTypes,
                     std::wstring& name, long& category)>
      newVariable;
  // Asks the delayed opener to open the Variable Builder a moment later, `onlyType` the one
  // type allowed.
  std::function<void(kernel::Session& s, const std::wstring& onlyType)> openLater;
};

void VariableBuilderHooksSet(kernel::Session& s, VariableBuilderHooks hooks);
// The hooks given; empty functions when none were.
const VariableBuilderHooks& VariableBuilderHooksOf(kernel::Session& s);

}  // namespace quillet::generators
