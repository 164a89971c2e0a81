#pragma once
// The session's clock. Time is virtual: scenarios and tests step it, the studio drives it
// from real time. Timers fire in the order they fall due, each on its own schedule.
#include <cstdint>
#include <functional>
#include <map>

#include "vba/dates.h"

namespace quillet::host {

class Clock {
 public:
  using Callback = std::function<void()>;
  using TimerId = int;

  explicit Clock(vba::DateTime start = vba::DateTime{2000, 1, 1, 0, 0, 0});

  // Milliseconds since the clock started.
  int64_t Elapsed() const { return now_; }
  // The wall clock: the start time plus the elapsed time.
  vba::DateTime Now() const;
  void SetStart(vba::DateTime start) { start_ = start; }

  TimerId CreateTimer(Callback callback);
  void DestroyTimer(TimerId id);
  // An interval above 0 (re)starts the timer: it falls due `ms` from now and every `ms`
  // after. 0 stops it.
  void SetInterval(TimerId id, int64_t ms);
  int64_t Interval(TimerId id) const;

  // Moves time forward by `ms`, firing every timer that falls due on the way, in order of
  // due time (creation order on ties). A timer whose handler is still running does not
  // fire again until it returns.
  void Advance(int64_t ms);
  // Due time of the next timer, or -1 when none runs.
  int64_t NextDue() const;

 private:
  struct Timer {
    Callback callback;
    int64_t interval = 0;
    int64_t due = 0;
    bool running = false;
  };
  // Fires the earliest timer due at or before `until`; false when none is.
  bool FireNext(int64_t until);

  vba::DateTime start_;
  int64_t now_ = 0;
  TimerId nextId_ = 1;
  std::map<TimerId, Timer> timers_;
};

}  // namespace quillet::host
