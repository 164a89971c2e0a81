#pragma once
// The timer control: while its form is loaded, it is Enabled and its Interval is above
// 0, it raises Timer every Interval milliseconds of the session's clock.
#include "hostmodel/clock.h"
#include "ui/control.h"

namespace quillet::ui {

class Timer : public Control {
 public:
  Timer(Form& form, std::wstring name, Control* container, int index);
  ~Timer() override;
  const char* Kind() const override { return "Timer"; }
  bool TakesFocus() const override { return false; }

  // Milliseconds; 0 stops the timer. Setting it (or enabling the timer) starts the count
  // afresh.
  long Interval() const { return interval_; }
  void SetInterval(long ms);

  Event<> OnTimer;
  Event<>* FindEvent(std::wstring_view name) override;

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;
  void FormLoaded() override { Schedule(); }
  void FormUnloaded() override { Schedule(); }
  void EnabledChanged() override { Schedule(); }

 private:
  // Sets the clock's timer from the present state.
  void Schedule();

  host::Clock& clock_;
  host::Clock::TimerId id_;
  long interval_ = 0;
  long designInterval_ = 0;
};

}  // namespace quillet::ui
