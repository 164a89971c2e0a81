#pragma once
// Per-session state of the forms: the host that shows them, the clock their timers run
// on, and the collection of loaded forms with which one is active and which are modal.
#include <functional>
#include <string_view>
#include <vector>

#include "hostmodel/clock.h"
#include "ui/ui_host.h"

namespace quillet::ui {

class Form;

class UiContext {
 public:
  UiContext(UiHost& host, host::Clock& clock) : host_(host), clock_(clock) {}
  UiContext(const UiContext&) = delete;
  UiContext& operator=(const UiContext&) = delete;

  UiHost& Host() const { return host_; }
  host::Clock& Clock() const { return clock_; }

  // The loaded forms, in the order they were loaded (the classic Forms collection).
  const std::vector<Form*>& Forms() const { return forms_; }
  // The loaded form of that name (without regard to case), the latest loaded when several
  // instances are; nullptr when none is.
  Form* FindForm(std::wstring_view name) const;
  // The form that was activated last and is still visible; nullptr when none is.
  Form* ActiveForm() const;
  // The innermost modal form that is showing; nullptr when none is.
  Form* TopModal() const { return modal_.empty() ? nullptr : modal_.back(); }

  // The mouse capture: while a form holds it, every mouse press comes to that form, inside
  // its area or not, and `pressOutside` is what a press outside its area does. Hiding or
  // unloading the form releases it.
  void SetCapture(Form& form, std::function<void()> pressOutside);
  void ReleaseCapture(const Form& form);
  Form* Capture() const { return capture_; }
  // A mouse press outside the capturing form's area; false when no form holds the mouse.
  bool PressOutsideCapture();

 private:
  friend class Form;
  void Loaded(Form& form);
  void Unloaded(Form& form);
  // Makes the form the active one: Deactivate on the previous one, Activate on it.
  void Activate(Form& form);
  // The form went out of sight: the last active form still visible becomes active again.
  void Hidden(Form& form);
  void PushModal(Form& form) { modal_.push_back(&form); }
  void PopModal(Form& form);
  // Removes every trace of a form that is being destroyed, without events.
  void Forget(Form& form);

  UiHost& host_;
  host::Clock& clock_;
  std::vector<Form*> forms_;
  std::vector<Form*> activation_;  // visible forms, the active one last
  std::vector<Form*> modal_;
  Form* capture_ = nullptr;
  std::function<void()> pressOutside_;
};

}  // namespace quillet::ui
