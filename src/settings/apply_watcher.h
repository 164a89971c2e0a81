#pragma once
// Watches one edit control of the settings dialog and enables the dialog's Apply button
// as soon as the user changes it: a text box by Change, a combo box by Click or Change, a
// check box by Click. The dialog keeps one watcher per control while it is loaded; once
// the dialog lets its watchers go, the controls' events no longer reach them.
#include <memory>

namespace quillet::ui {
class CheckBox;
class ComboBox;
class CommandButton;
class Control;
class TextBox;
}  // namespace quillet::ui

namespace quillet::settings {

class ApplyWatcher : public std::enable_shared_from_this<ApplyWatcher> {
 public:
  // Attaches a watcher to `control`. A control of another kind is kept but never fires.
  static std::shared_ptr<ApplyWatcher> Init(ui::Control& control, ui::CommandButton& applyButton);

  // Whether the control is of a kind that the dialog watches.
  static bool Watches(const ui::Control& control);

  ApplyWatcher(const ApplyWatcher&) = delete;
  ApplyWatcher& operator=(const ApplyWatcher&) = delete;

 private:
  explicit ApplyWatcher(ui::CommandButton& applyButton) : mobjApply(&applyButton) {}
  void Attach(ui::Control& control);
  void Changed();

  ui::CommandButton* mobjApply;
  // The watched control, in the slot of its kind.
  ui::ComboBox* mobjCombo = nullptr;
  ui::TextBox* mobjTextBox = nullptr;
  ui::CheckBox* mobjCheckBox = nullptr;
};

}  // namespace quillet::settings
