#pragma once
// The hidden form that carries the add-in's three timers: the heartbeat that follows the
// editor (Timer1), the delayed start of a form (Timer2) and the retried delivery of a
// message to the Immediate window (Timer3). All run on the session's clock.
#include <functional>
#include <string>

#include "hostmodel/clock.h"

namespace quillet::kernel {

struct Session;

class TimerForm {
 public:
  explicit TimerForm(Session& s);
  ~TimerForm();
  TimerForm(const TimerForm&) = delete;
  TimerForm& operator=(const TimerForm&) = delete;

  // Loading starts the heartbeat; unloading stops every timer.
  void Load();
  void Unload();
  bool Loaded() const { return loaded_; }

  // The heartbeat, every 500 milliseconds from loading on: runs `heartbeat`, which the
  // add-in shell sets, under the error trap.
  void Timer1();
  std::function<void()> heartbeat;
  int64_t Timer1Interval() const;
  void SetTimer1Interval(int64_t ms);

  // Asks for `form` to be opened once keystrokes sent before have landed.
  void DelayedStart(std::wstring form, std::wstring text, int64_t ms);
  void Timer2();
  int64_t Timer2Interval() const;
  // Opens a delayed form; the builders that need a delayed start register it.
  std::function<void(const std::wstring& form, const std::wstring& text)> openDelayed;

  void Timer3();
  int64_t Timer3Interval() const;
  void SetTimer3Interval(int64_t ms);

 private:
  Session& s_;
  bool loaded_ = false;
  host::Clock::TimerId timer1_ = 0, timer2_ = 0, timer3_ = 0;
  std::wstring delayedForm_, delayedText_;
};

}  // namespace quillet::kernel
