#include "fragments/splitter.h"

#include <algorithm>

namespace quillet::fragments {

void Splitter::MoveTo(long x) {
  long lo = 0, hi = x;
  for (ui::Control* c : left_) lo = std::max(lo, c->Left() + kMinPane);
  hi = lo;
  bool any = false;
  for (ui::Control* c : right_) {
    long limit = c->Left() + c->Width() - kMinPane - bar_.Width();
    hi = any ? std::min(hi, limit) : limit;
    any = true;
  }
  if (!any) hi = x;
  x = hi < lo ? lo : std::clamp(x, lo, hi);
  bar_.SetLeft(x);
  for (ui::Control* c : left_) c->SetWidth(x - c->Left());
  for (ui::Control* c : right_) {
    long right = c->Left() + c->Width();
    c->SetLeft(x + bar_.Width());
    c->SetWidth(right - c->Left());
  }
}

}  // namespace quillet::fragments
