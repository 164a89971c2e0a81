#include "ui/popup.h"

#include <algorithm>

#include "ui/frm_list.h"

namespace quillet::ui {

PixelPoint CaretPixels(const EditControl& box) {
  // The caret stands at SelStart whatever the selection's length, so the selection is
  // left alone (a box keeps it when the pop-up is cancelled).
  const std::wstring& text = box.Text();
  long caret = std::min(box.SelStart(), static_cast<long>(text.size()));
  long line = 0;
  long lineStart = 0;
  for (long i = 0; i < caret; ++i) {
    wchar_t c = text[i];
    if (c == L'\n' || (c == L'\r' && (i + 1 >= static_cast<long>(text.size()) || text[i + 1] != L'\n'))) {
      ++line;
      lineStart = i + 1;
    }
  }
  long column = caret - lineStart;
  // A carriage return before the caret's own line break belongs to the line before.
  if (column > 0 && text[caret - 1] == L'\r') column = 0;
  long visibleLines = std::max(1L, box.Height() / kTwipsPerPixel / kLineHeightPixels);
  line = std::min(line, visibleLines - 1);
  return PixelPoint{column * kCharWidthPixels, line * kLineHeightPixels};
}

PixelPoint PopupPosition(const EditControl& box, const Form& owner) {
  long border = (owner.Width() / kTwipsPerPixel - owner.ScaleWidth() / kTwipsPerPixel) / 2;
  long titleBar = owner.Height() / kTwipsPerPixel - owner.ScaleHeight() / kTwipsPerPixel - 2 * border;
  PixelPoint caret = CaretPixels(box);
  long x = owner.Left() / kTwipsPerPixel + border + box.FormLeft() / kTwipsPerPixel + caret.x + 4;
  long y = owner.Top() / kTwipsPerPixel + titleBar + border + box.FormTop() / kTwipsPerPixel + caret.y + 16;
  return PixelPoint{x, y};
}

void ShowPopUpForm(EditControl& box, Form& owner, Form& popup) {
  PixelPoint at = PopupPosition(box, owner);
  popup.Move(at.x * kTwipsPerPixel, at.y * kTwipsPerPixel);
  popup.Show(true);
}

void ShowListForm(EditControl& box, Form& owner, FrmList& list) { ShowPopUpForm(box, owner, list); }

}  // namespace quillet::ui
