#pragma once
// A movable bar between two panes of a dialog: moving it gives the width to one pane and
// takes it from the other, never leaving a pane narrower than its minimum.
//   Splitter split{picSplitter, {&tvFiles}, {&lvList}};
//   split.MoveTo(3000);   // the bar's left edge, in twips of the form
#include <vector>

#include "ui/control.h"

namespace quillet::fragments {

class Splitter {
 public:
  static constexpr long kMinPane = 600;  // twips

  Splitter(ui::Control& bar, std::vector<ui::Control*> left, std::vector<ui::Control*> right)
      : bar_(bar), left_(std::move(left)), right_(std::move(right)) {}

  // Puts the bar's left edge at `x` within what the panes allow; the panes on its left end
  // at the bar, those on its right start behind it and keep their right edge.
  void MoveTo(long x);

 private:
  ui::Control& bar_;
  std::vector<ui::Control*> left_, right_;
};

}  // namespace quillet::fragments
