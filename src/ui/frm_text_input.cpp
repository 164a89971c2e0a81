#include "ui/frm_text_input.h"

namespace quillet::ui {

FrmTextInput::FrmTextInput(UiContext& context) : Form(context, L"frmTextInput") {
  SetBorderStyle(vbBSNone);
  Move(0, 0, 2400, 285);
  txtInput.Move(0, 0, 2400, 285);

  OnActivate = [this] {
    captured_ = true;
    txtInput.SetFocus();
  };
  txtInput.OnKeyPress = [this](int& keyAscii) {
    if (keyAscii == vbKeyReturn || keyAscii == vbKeyEscape) {
      int key = keyAscii;
      keyAscii = 0;
      Close(key);
    }
  };
}

void FrmTextInput::Init() {
  text_.clear();
  closeKey_ = 0;
  Load();
  txtInput.SetText(L"");
}

void FrmTextInput::Close(int key) {
  closeKey_ = key;
  text_ = key == vbKeyReturn ? txtInput.Text() : std::wstring();
  captured_ = false;
  Hide();
}

void FrmTextInput::MouseDownOutside() {
  if (captured_) Close(vbKeyEscape);
}

}  // namespace quillet::ui
