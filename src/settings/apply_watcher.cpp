#include "settings/apply_watcher.h"

#include "ui/controls.h"

namespace quillet::settings {

std::shared_ptr<ApplyWatcher> ApplyWatcher::Init(ui::Control& control, ui::CommandButton& applyButton) {
  std::shared_ptr<ApplyWatcher> watcher(new ApplyWatcher(applyButton));
  watcher->Attach(control);
  return watcher;
}

bool ApplyWatcher::Watches(const ui::Control& control) {
  return dynamic_cast<const ui::TextBox*>(&control) || dynamic_cast<const ui::ComboBox*>(&control) ||
         dynamic_cast<const ui::CheckBox*>(&control);
}

void ApplyWatcher::Attach(ui::Control& control) {
  // The control outlives the watcher: its events hold the watcher only weakly.
  std::weak_ptr<ApplyWatcher> self = weak_from_this();
  auto fire = [self] {
    if (auto watcher = self.lock()) watcher->Changed();
  };
  if (auto* text = dynamic_cast<ui::TextBox*>(&control)) {
    mobjTextBox = text;
    text->OnChange.Listen(fire);
  } else if (auto* combo = dynamic_cast<ui::ComboBox*>(&control)) {
    mobjCombo = combo;
    combo->OnClick.Listen(fire);
    combo->OnChange.Listen(fire);
  } else if (auto* check = dynamic_cast<ui::CheckBox*>(&control)) {
    mobjCheckBox = check;
    check->OnClick.Listen(fire);
  }
}

void ApplyWatcher::Changed() { mobjApply->SetEnabled(true); }

}  // namespace quillet::settings
