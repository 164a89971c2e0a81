#pragma once
// Pop-up forms at the caret of a text control: the pop-up's top-left corner goes just
// below the caret's line, and it is shown modally over its owner.
#include "ui/edit_control.h"
#include "ui/form.h"

namespace quillet::ui {

class FrmList;

struct PixelPoint {
  long x = 0;
  long y = 0;
  bool operator==(const PixelPoint&) const = default;
};

// Where the caret of a text control stands, in pixels from its top-left corner: the
// column estimated at a fixed character width, the line at a fixed line height; a caret
// below the box's last visible line counts as on that line, as the box scrolls it there.
PixelPoint CaretPixels(const EditControl& box);
// The screen position in pixels for a pop-up just below the caret of `box` on `owner`:
// the owner's corner, its border and title bar, the box's place on the owner, the caret,
// and a margin of 4 across and 16 down.
PixelPoint PopupPosition(const EditControl& box, const Form& owner);
// Moves `popup` to that position and shows it modally; returns when it has closed.
void ShowPopUpForm(EditControl& box, Form& owner, Form& popup);
// The same for the pick list prepared in `list.lstList`.
void ShowListForm(EditControl& box, Form& owner, FrmList& list);

}  // namespace quillet::ui
