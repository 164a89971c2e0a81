#include "ui/buttons.h"

#include "ui/form.h"
#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::ui {

namespace {
constexpr long kErrInvalidPropertyValue = 380;
}

void CaptionedControl::DescribeInto(nlohmann::json& out) const { out["caption"] = vba::ToUtf8(caption_); }

void CaptionedControl::SaveDesign() {
  Control::SaveDesign();
  designCaption_ = caption_;
}

void CaptionedControl::RestoreDesign() {
  Control::RestoreDesign();
  caption_ = designCaption_;
}

// --- CommandButton ---

CommandButton::CommandButton(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 375);
}

void CommandButton::SetDefault(bool isDefault) {
  if (isDefault)
    for (const auto& c : Parent().Controls())
      if (auto* b = dynamic_cast<CommandButton*>(c.get())) b->state_.isDefault = false;
  state_.isDefault = isDefault;
}

void CommandButton::SetCancel(bool isCancel) {
  if (isCancel)
    for (const auto& c : Parent().Controls())
      if (auto* b = dynamic_cast<CommandButton*>(c.get())) b->state_.isCancel = false;
  state_.isCancel = isCancel;
}

void CommandButton::SetValue(bool value) {
  if (value) Raise(OnClick);
}

void CommandButton::DescribeInto(nlohmann::json& out) const {
  CaptionedControl::DescribeInto(out);
  if (state_.isDefault) out["default"] = true;
  if (state_.isCancel) out["cancel"] = true;
}

void CommandButton::SaveDesign() {
  CaptionedControl::SaveDesign();
  design_ = state_;
}

void CommandButton::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  state_ = design_;
}

void CommandButton::KeyPressDefault(int keyAscii) {
  if (keyAscii == vbKeySpace) Raise(OnClick);
}

// --- CheckBox ---

CheckBox::CheckBox(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 255);
}

void CheckBox::SetValue(int value) {
  if (value < vbUnchecked || value > vbGrayed)
    vba::Raise(kErrInvalidPropertyValue, L"Invalid property value", FullName() + L".Value");
  if (value_ == value) return;
  value_ = value;
  Raise(OnClick);
}

void CheckBox::DescribeInto(nlohmann::json& out) const {
  CaptionedControl::DescribeInto(out);
  out["value"] = value_;
}

void CheckBox::SaveDesign() {
  CaptionedControl::SaveDesign();
  designValue_ = value_;
}

void CheckBox::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  value_ = designValue_;
}

void CheckBox::KeyPressDefault(int keyAscii) {
  if (keyAscii == vbKeySpace) UserClick();
}

void CheckBox::UserClick() { SetValue(value_ == vbChecked ? vbUnchecked : vbChecked); }

// --- OptionButton ---

OptionButton::OptionButton(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 255);
}

void OptionButton::ClearSiblings() {
  for (const auto& c : Parent().Controls()) {
    auto* o = dynamic_cast<OptionButton*>(c.get());
    if (o && o != this && o->Container() == Container()) o->value_ = false;
  }
}

void OptionButton::SetValue(bool value) {
  if (!value) {
    value_ = false;
    return;
  }
  ClearSiblings();
  if (value_) return;
  value_ = true;
  Raise(OnClick);
}

void OptionButton::UserClick() {
  ClearSiblings();
  value_ = true;
  Raise(OnClick);
}

void OptionButton::DescribeInto(nlohmann::json& out) const {
  CaptionedControl::DescribeInto(out);
  out["value"] = value_;
}

void OptionButton::SaveDesign() {
  CaptionedControl::SaveDesign();
  designValue_ = value_;
}

void OptionButton::RestoreDesign() {
  CaptionedControl::RestoreDesign();
  value_ = designValue_;
}

}  // namespace quillet::ui
