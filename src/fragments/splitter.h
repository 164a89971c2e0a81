#pragma once
// A movable bar between two panes of a dialog: moving it gives the width to one pane and
// takes it from the other, never leaving a pane narrower than its minimum. The user drags
// the bar with the mouse: while the button is down a second bar shows where it would go,
// and at the release the panes follow.
//   Splitter split{imgSplitter, picSplitter, {&tvFiles}, {&lvList}};
//   split.MoveTo(3000);   // the bar's left edge, in twips of the form
#include <functional>
#include <vector>

#include "ui/control.h"

namespace quillet::fragments {

class Splitter {
 public:
  static constexpr long kMinPane = 600;  // twips

  // `bar` is the control the user takes; `ghost` the bar drawn while dragging (hidden
  // otherwise). The bar shows the west-east resize pointer.
  Splitter(ui::Control& bar, ui::Control& ghost, std::vector<ui::Control*> left, std::vector<ui::Control*> right);
  Splitter(const Splitter&) = delete;
  Splitter& operator=(const Splitter&) = delete;

  // Puts the bar's left edge at `x` within what the panes allow; the panes on its left end
  // at the bar, those on its right start behind it and keep their right edge.
  void MoveTo(long x);
  // The bar's left edge `x` would come to, within the panes' limits.
  long Limit(long x) const;

  // Called after the panes have followed a drag.
  std::function<void()> AfterSplitting;

 private:
  ui::Control& bar_;
  ui::Control& ghost_;
  std::vector<ui::Control*> left_, right_;
  bool dragging_ = false;
  long grab_ = 0;  // where in the bar the button went down
};

}  // namespace quillet::fragments
