#include "kernel/timer_form.h"

#include "kernel/errors.h"
#include "kernel/session.h"
#include "vba/text.h"

namespace quillet::kernel {

TimerForm::TimerForm(Session& s) : s_(s) {}

TimerForm::~TimerForm() { Unload(); }

void TimerForm::Load() {
  if (loaded_) return;
  loaded_ = true;
  timer1_ = s_.clock.CreateTimer([this] { Timer1(); });
  timer2_ = s_.clock.CreateTimer([this] { Timer2(); });
  timer3_ = s_.clock.CreateTimer([this] { Timer3(); });
  s_.clock.SetInterval(timer1_, 500);
}

void TimerForm::Unload() {
  if (!loaded_) return;
  loaded_ = false;
  s_.clock.DestroyTimer(timer1_);
  s_.clock.DestroyTimer(timer2_);
  s_.clock.DestroyTimer(timer3_);
  timer1_ = timer2_ = timer3_ = 0;
}

int64_t TimerForm::Timer1Interval() const { return s_.clock.Interval(timer1_); }
void TimerForm::SetTimer1Interval(int64_t ms) { s_.clock.SetInterval(timer1_, ms); }
int64_t TimerForm::Timer2Interval() const { return s_.clock.Interval(timer2_); }
int64_t TimerForm::Timer3Interval() const { return s_.clock.Interval(timer3_); }
void TimerForm::SetTimer3Interval(int64_t ms) { s_.clock.SetInterval(timer3_, ms); }

void TimerForm::Timer1() {
  // The editor has no event for a change of project, so the add-in looks twice a second.
  Trap(s_, L"frmTimer.Timer1", [&] {
    if (heartbeat) heartbeat();
  });
}

void TimerForm::DelayedStart(std::wstring form, std::wstring text, int64_t ms) {
  delayedForm_ = std::move(form);
  delayedText_ = std::move(text);
  s_.clock.SetInterval(timer2_, ms);
}

void TimerForm::Timer2() {
  // Each request fires once.
  s_.clock.SetInterval(timer2_, 0);
  Trap(s_, L"frmTimer.Timer2", [&] {
    if (openDelayed && !delayedForm_.empty()) openDelayed(delayedForm_, delayedText_);
  });
}

void TimerForm::Timer3() {
  if (ImmediateMessageAdd(s_, L"", true)) SetTimer3Interval(0);
}

}  // namespace quillet::kernel
