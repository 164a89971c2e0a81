#include "fragments/splitter.h"

#include <algorithm>

namespace quillet::fragments {

Splitter::Splitter(ui::Control& bar, ui::Control& ghost, std::vector<ui::Control*> left,
                   std::vector<ui::Control*> right)
    : bar_(bar), ghost_(ghost), left_(std::move(left)), right_(std::move(right)) {
  bar_.SetMousePointer(ui::vbSizeWE);
  bar_.OnMouseDown.Listen([this](int button, int, long x, long) {
    if (button != ui::vbLeftButton) return;
    dragging_ = true;
    grab_ = x;
    ghost_.Move(bar_.Left(), bar_.Top(), bar_.Width(), bar_.Height());
    ghost_.SetVisible(true);
  });
  bar_.OnMouseMove.Listen([this](int button, int, long x, long) {
    if (dragging_ && button == ui::vbLeftButton) ghost_.SetLeft(Limit(bar_.Left() + x - grab_));
  });
  bar_.OnMouseUp.Listen([this](int, int, long x, long) {
    if (!dragging_) return;
    dragging_ = false;
    ghost_.SetVisible(false);
    MoveTo(bar_.Left() + x - grab_);
    if (AfterSplitting) AfterSplitting();
  });
}

long Splitter::Limit(long x) const {
  long lo = 0;
  for (ui::Control* c : left_) lo = std::max(lo, c->Left() + kMinPane);
  bool any = false;
  long hi = x;
  for (ui::Control* c : right_) {
    long limit = c->Left() + c->Width() - kMinPane - bar_.Width();
    hi = any ? std::min(hi, limit) : limit;
    any = true;
  }
  return hi < lo ? lo : std::clamp(x, lo, hi);
}

void Splitter::MoveTo(long x) {
  x = Limit(x);
  bar_.SetLeft(x);
  ghost_.SetLeft(x);
  for (ui::Control* c : left_) c->SetWidth(x - c->Left());
  for (ui::Control* c : right_) {
    long right = c->Left() + c->Width();
    c->SetLeft(x + bar_.Width());
    c->SetWidth(right - c->Left());
  }
}

}  // namespace quillet::fragments
