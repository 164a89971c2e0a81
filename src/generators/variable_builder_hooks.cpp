#include "generators/variable_builder_hooks.h"

namespace quillet::generators {

void VariableBuilderHooksSet(kernel::Session& s, VariableBuilderHooks hooks) {
  s.Slot<VariableBuilderHooks>() = std::make_shared<VariableBuilderHooks>(std::move(hooks));
}

const VariableBuilderHooks& VariableBuilderHooksOf(kernel::Session& s) {
  static const VariableBuilderHooks none;
  const auto& hooks = s.Slot<VariableBuilderHooks>();
  return hooks ? *hooks : none;
}

}  // namespace quillet::generators
