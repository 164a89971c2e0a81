#include "ui/toolbar.h"

#include "vba/encoding.h"

namespace quillet::ui {

Toolbar::Toolbar(Form& form, std::wstring name, Control* container, int index)
    : Control(form, std::move(name), container, index) {
  Move(0, 0, 2415, 390);
}

ToolbarButton& ToolbarButtons::Add(std::wstring key, std::wstring caption, std::wstring image, int index) {
  std::size_t at = index >= 1 ? static_cast<std::size_t>(index - 1) : items_.All().size();
  return items_.Insert(at, std::make_unique<ToolbarButton>(std::move(key), std::move(caption), std::move(image)));
}

void Toolbar::DescribeInto(nlohmann::json& out) const {
  nlohmann::json buttons = nlohmann::json::array();
  for (const auto& b : buttons_.All()) {
    nlohmann::json j{{"key", vba::ToUtf8(b->Key())},   {"caption", vba::ToUtf8(b->Caption())},
                     {"image", vba::ToUtf8(b->Image())}, {"enabled", b->Enabled()},
                     {"visible", b->Visible()}};
    if (!b->ToolTipText().empty()) j["toolTip"] = vba::ToUtf8(b->ToolTipText());
    buttons.push_back(std::move(j));
  }
  out["buttons"] = std::move(buttons);
}

}  // namespace quillet::ui
