#include "hostmodel/clock.h"

#include <cmath>

namespace quillet::host {

Clock::Clock(vba::DateTime start) : start_(start) {}

vba::DateTime Clock::Now() const {
  // Whole seconds only: code written into modules never shows more.
  double serial = start_.Serial() + static_cast<double>(now_ / 1000) / 86400.0;
  return vba::DateTime::FromSerial(serial);
}

Clock::TimerId Clock::CreateTimer(Callback callback) {
  TimerId id = nextId_++;
  timers_[id].callback = std::move(callback);
  return id;
}

void Clock::DestroyTimer(TimerId id) { timers_.erase(id); }

void Clock::SetInterval(TimerId id, int64_t ms) {
  auto it = timers_.find(id);
  if (it == timers_.end()) return;
  it->second.interval = ms > 0 ? ms : 0;
  it->second.due = now_ + it->second.interval;
}

int64_t Clock::Interval(TimerId id) const {
  auto it = timers_.find(id);
  return it == timers_.end() ? 0 : it->second.interval;
}

int64_t Clock::NextDue() const {
  int64_t best = -1;
  for (const auto& [id, t] : timers_)
    if (t.interval > 0 && !t.running && (best < 0 || t.due < best)) best = t.due;
  return best;
}

bool Clock::FireNext(int64_t until) {
  TimerId best = 0;
  int64_t bestDue = 0;
  for (const auto& [id, t] : timers_) {
    if (t.interval <= 0 || t.running || t.due > until) continue;
    if (best == 0 || t.due < bestDue) {
      best = id;
      bestDue = t.due;
    }
  }
  if (best == 0) return false;
  if (bestDue > now_) now_ = bestDue;
  Timer& t = timers_[best];
  t.due = bestDue + t.interval;
  t.running = true;
  Callback cb = t.callback;  // the handler may destroy its own timer
  cb();
  auto it = timers_.find(best);
  if (it != timers_.end()) it->second.running = false;
  return true;
}

void Clock::Advance(int64_t ms) {
  int64_t until = now_ + (ms > 0 ? ms : 0);
  while (FireNext(until)) {
  }
  if (until > now_) now_ = until;
}

}  // namespace quillet::host
