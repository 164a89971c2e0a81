#include "ui/frm_text_input.h"

#include "vba/encoding.h"

namespace quillet::ui {

FrmTextInput::FrmTextInput(UiContext& context) : Form(context, L"frmTextInput") {
  SetBorderStyle(vbBSNone);
  Move(0, 0, 2400, 285);
  txtInput.Move(0, 0, 2400, 285);

  OnActivate = [this] {
    Context().SetCapture(*this, [this] { MouseDownOutside(); });
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
  Context().ReleaseCapture(*this);
  Hide();
}

bool FrmTextInput::MouseCaptured() const { return Context().Capture() == this; }

void FrmTextInput::MouseDownOutside() {
  if (MouseCaptured()) Close(vbKeyEscape);
}

nlohmann::json FrmTextInput::Outcome() const {
  return {{"closeKey", closeKey_}, {"text", vba::ToUtf8(text_)}, {"mouseCaptured", MouseCaptured()}};
}

}  // namespace quillet::ui
