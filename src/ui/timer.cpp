#include "ui/timer.h"

#include "ui/form.h"
#include "vba/text.h"

namespace quillet::ui {

Timer::Timer(Form& form, std::wstring name, Control* container, int index)
    : Control(form, std::move(name), container, index), clock_(form.Context().Clock()) {
  Move(0, 0, 420, 420);
  id_ = clock_.CreateTimer([this] { Raise(OnTimer); });
}

Timer::~Timer() { clock_.DestroyTimer(id_); }

void Timer::SetInterval(long ms) {
  interval_ = ms < 0 ? 0 : ms;
  Schedule();
}

void Timer::Schedule() {
  bool running = Live() && Enabled() && interval_ > 0;
  clock_.SetInterval(id_, running ? interval_ : 0);
}

Event<>* Timer::FindEvent(std::wstring_view name) {
  if (vba::EqualsText(name, L"Timer")) return &OnTimer;
  return Control::FindEvent(name);
}

void Timer::DescribeInto(nlohmann::json& out) const { out["interval"] = interval_; }

void Timer::SaveDesign() {
  Control::SaveDesign();
  designInterval_ = interval_;
}

void Timer::RestoreDesign() {
  Control::RestoreDesign();
  interval_ = designInterval_;
  Schedule();
}

}  // namespace quillet::ui
