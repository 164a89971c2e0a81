#include "ui/control.h"

#include "ui/form.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::ui {

Control::Control(Form& form, std::wstring name, Control* container, int index)
    : form_(form), name_(std::move(name)), container_(container), index_(index) {
  if (container_ && (&container_->Parent() != &form_ || !container_->IsContainer()))
    vba::Raise(vba::kErrInvalidCall, L"'" + container_->FullName() + L"' cannot contain controls");
}

std::wstring Control::FullName() const {
  if (index_ < 0) return name_;
  return name_ + L"(" + std::to_wstring(index_) + L")";
}

void Control::SetEnabled(bool enabled) {
  if (props_.enabled == enabled) return;
  props_.enabled = enabled;
  EnabledChanged();
}

bool Control::IsEffectivelyEnabled() const {
  for (const Control* c = this; c; c = c->container_)
    if (!c->props_.enabled) return false;
  return true;
}

bool Control::IsEffectivelyVisible() const {
  for (const Control* c = this; c; c = c->container_)
    if (!c->props_.visible) return false;
  return true;
}

void Control::Move(long left, long top, long width, long height) {
  props_.left = left;
  props_.top = top;
  if (width >= 0) props_.width = width;
  if (height >= 0) props_.height = height;
}

long Control::FormLeft() const {
  long x = 0;
  for (const Control* c = this; c; c = c->container_) x += c->props_.left;
  return x;
}

long Control::FormTop() const {
  long y = 0;
  for (const Control* c = this; c; c = c->container_) y += c->props_.top;
  return y;
}

void Control::SetTabIndex(int index) { form_.SetTabIndexOf(*this, index); }

bool Control::CanFocus() const { return TakesFocus() && IsEffectivelyEnabled() && IsEffectivelyVisible(); }

void Control::SetFocus() {
  if (!CanFocus())
    vba::Raise(vba::kErrInvalidCall, L"'" + FullName() + L"' cannot take the focus", L"SetFocus");
  form_.MoveFocus(*this);
}

bool Control::HasFocus() const { return form_.ActiveControl() == this && form_.Visible(); }

bool Control::Live() const { return form_.Loaded(); }

Event<>* Control::FindEvent(std::wstring_view name) {
  if (vba::EqualsText(name, L"Click")) return &OnClick;
  if (vba::EqualsText(name, L"DblClick")) return &OnDblClick;
  if (vba::EqualsText(name, L"GotFocus")) return &OnGotFocus;
  if (vba::EqualsText(name, L"LostFocus")) return &OnLostFocus;
  return nullptr;
}

nlohmann::json Control::Describe() const {
  nlohmann::json j;
  j["name"] = vba::ToUtf8(FullName());
  j["kind"] = Kind();
  j["enabled"] = props_.enabled;
  j["visible"] = props_.visible;
  j["left"] = props_.left;
  j["top"] = props_.top;
  j["width"] = props_.width;
  j["height"] = props_.height;
  if (!props_.toolTip.empty()) j["toolTip"] = vba::ToUtf8(props_.toolTip);
  if (props_.mousePointer != vbDefault) j["mousePointer"] = props_.mousePointer;
  if (container_) j["container"] = vba::ToUtf8(container_->FullName());
  DescribeInto(j);
  return j;
}

}  // namespace quillet::ui
