#pragma once
// One user action on a loaded form, given as JSON: {"form": "frmX", "set": {...}} and its
// kin ("click", "dblclick", "clickOutside", "close", "leave", "key", "caret", "drag", "node", "item",
// "tab", "focus"). The scenario
// steps and the studio's page speak the same language; every action goes through
// ui::UserInput, so it is refused (InputRefused) where a user could not do it.
#include <nlohmann/json.hpp>

#include <stdexcept>

namespace quillet::ui {
class UiContext;
}

namespace quillet::frontends {

// A form action whose JSON is malformed (no known action, a control of the wrong kind).
class BadFormStep : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The step is read with its key order kept: a "set" applies its controls in the order written.
void ApplyFormStep(ui::UiContext& context, const nlohmann::ordered_json& step);

}  // namespace quillet::frontends
