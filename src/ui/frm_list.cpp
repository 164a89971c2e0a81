#include "ui/frm_list.h"

#include "vba/encoding.h"

namespace quillet::ui {

FrmList::FrmList(UiContext& context) : Form(context, L"frmList") {
  SetBorderStyle(vbBSNone);
  Move(0, 0, 2400, 2010);
  lstList.Move(0, 0, 2400, 2010);

  OnActivate = [this] {
    chosenText_.clear();
    chosenItemData_ = 0;
    closeKey_ = 0;
    if (lstList.ListCount() == 0) {
      Close(vbKeyEscape);
      return;
    }
    lstList.SetListIndex(0);
    lstList.SetFocus();
    Capture();
  };
  lstList.OnKeyPress = [this](int& keyAscii) {
    if (keyAscii == vbKeyReturn || keyAscii == vbKeySpace) {
      keyAscii = 0;
      Choose();
    } else if (keyAscii == vbKeyTab || keyAscii == vbKeyEscape) {
      keyAscii = 0;
      Close(vbKeyEscape);
    }
  };
  lstList.OnDblClick = [this] { Choose(); };
  lstList.OnLostFocus = [this] { Close(vbKeyEscape); };
}

void FrmList::Choose() {
  int i = lstList.ListIndex();
  if (i < 0) {
    Close(vbKeyEscape);
    return;
  }
  chosenText_ = lstList.List(i);
  chosenItemData_ = lstList.ItemData(i);
  Close(vbKeyReturn);
}

void FrmList::Close(int key) {
  if (!Visible()) return;
  closeKey_ = key;
  Context().ReleaseCapture(*this);
  if (unloadOnClose_) Unload();
  else Hide();
}

void FrmList::Capture() {
  Context().SetCapture(*this, [this] { MouseDownOutside(); });
}

bool FrmList::MouseCaptured() const { return Context().Capture() == this; }

void FrmList::MouseDownOutside() {
  if (MouseCaptured()) Close(vbKeyEscape);
}

void FrmList::MouseDownInside() {
  if (Visible()) Capture();
}

nlohmann::json FrmList::Outcome() const {
  return {{"closeKey", closeKey_},
          {"chosenText", vba::ToUtf8(chosenText_)},
          {"chosenItemData", chosenItemData_},
          {"mouseCaptured", MouseCaptured()}};
}

}  // namespace quillet::ui
