#include "ui/ui_context.h"

#include <algorithm>

#include "ui/form.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {
void Erase(std::vector<Form*>& v, const Form& form) {
  v.erase(std::remove(v.begin(), v.end(), &form), v.end());
}
}  // namespace

Form* UiContext::FindForm(std::wstring_view name) const {
  for (auto it = forms_.rbegin(); it != forms_.rend(); ++it)
    if (vba::EqualsText((*it)->Name(), name)) return *it;
  return nullptr;
}

Form* UiContext::ActiveForm() const { return activation_.empty() ? nullptr : activation_.back(); }

void UiContext::Loaded(Form& form) {
  if (std::find(forms_.begin(), forms_.end(), &form) == forms_.end()) forms_.push_back(&form);
}

void UiContext::Unloaded(Form& form) {
  ReleaseCapture(form);
  Erase(forms_, form);
  Erase(activation_, form);
}

void UiContext::Activate(Form& form) {
  Form* previous = ActiveForm();
  if (previous == &form) return;
  Erase(activation_, form);
  activation_.push_back(&form);
  if (previous) previous->Deactivated();
  // A Deactivate handler may have hidden or unloaded the form meanwhile.
  if (ActiveForm() == &form) form.Activated();
}

void UiContext::Hidden(Form& form) {
  ReleaseCapture(form);
  bool wasActive = ActiveForm() == &form;
  Erase(activation_, form);
  if (!wasActive) return;
  form.Deactivated();
  if (Form* next = ActiveForm()) next->Activated();
}

void UiContext::PopModal(Form& form) {
  auto it = std::find(modal_.rbegin(), modal_.rend(), &form);
  if (it != modal_.rend()) modal_.erase(std::next(it).base());
}

void UiContext::Forget(Form& form) {
  ReleaseCapture(form);
  Erase(forms_, form);
  Erase(activation_, form);
  Erase(modal_, form);
}

void UiContext::SetCapture(Form& form, std::function<void()> pressOutside) {
  capture_ = &form;
  pressOutside_ = std::move(pressOutside);
}

void UiContext::ReleaseCapture(const Form& form) {
  if (capture_ != &form) return;
  capture_ = nullptr;
  pressOutside_ = nullptr;
}

bool UiContext::PressOutsideCapture() {
  if (!capture_) return false;
  // The handler may release the capture (and so itself) while it runs.
  std::function<void()> handler = pressOutside_;
  if (handler) handler();
  return true;
}

}  // namespace quillet::ui
