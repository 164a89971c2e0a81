#pragma once
// Command buttons, check boxes and option buttons.
#include <string>

#include "ui/control.h"

namespace quillet::ui {

// A control with a caption ("&OK": the "&" marks the access key).
class CaptionedControl : public Control {
 public:
  using Control::Control;
  const std::wstring& Caption() const { return caption_; }
  void SetCaption(std::wstring caption) { caption_ = std::move(caption); }

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  std::wstring caption_;
  std::wstring designCaption_;
};

class CommandButton : public CaptionedControl {
 public:
  CommandButton(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "CommandButton"; }

  // Enter on the form presses the Default button, Escape the Cancel button. One of each
  // per form: setting it clears it on the others.
  bool Default() const { return state_.isDefault; }
  void SetDefault(bool isDefault);
  bool Cancel() const { return state_.isCancel; }
  void SetCancel(bool isCancel);
  // Setting Value to true presses the button: it raises Click.
  void SetValue(bool value);

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;
  void KeyPressDefault(int keyAscii) override;

 private:
  struct State {
    bool isDefault = false;
    bool isCancel = false;
  };
  State state_, design_;
};

class CheckBox : public CaptionedControl {
 public:
  CheckBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "CheckBox"; }

  // 0 unchecked, 1 checked, 2 grayed. A change raises Click, whether code or the user
  // makes it; any other number raises error 380.
  int Value() const { return value_; }
  void SetValue(int value);
  bool Checked() const { return value_ == 1; }
  void SetChecked(bool on) { SetValue(on ? 1 : 0); }

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;
  void KeyPressDefault(int keyAscii) override;
  void UserClick() override;  // toggles: checked becomes unchecked, else checked

 private:
  int value_ = 0;
  int designValue_ = 0;
};

class OptionButton : public CaptionedControl {
 public:
  OptionButton(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "OptionButton"; }

  // Setting true raises Click (when it was false) and clears the other option buttons of
  // the same container (the form, a Frame or a PictureBox) without events of theirs.
  // Setting false only clears it.
  bool Value() const { return value_; }
  void SetValue(bool value);

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;
  void UserClick() override;  // chooses it; Click even when it was chosen already

 private:
  void ClearSiblings();
  bool value_ = false;
  bool designValue_ = false;
};

}  // namespace quillet::ui
