#include "ui/static_controls.h"

#include "vba/encoding.h"

namespace quillet::ui {

Label::Label(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 255);
}

Frame::Frame(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 2415, 1455);
}

void PictureControl::DescribeInto(nlohmann::json& out) const {
  if (!picture_.empty()) out["picture"] = vba::ToUtf8(picture_);
}

void PictureControl::SaveDesign() {
  Control::SaveDesign();
  designPicture_ = picture_;
}

void PictureControl::RestoreDesign() {
  Control::RestoreDesign();
  picture_ = designPicture_;
}

PictureBox::PictureBox(Form& form, std::wstring name, Control* container, int index)
    : PictureControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 1215);
}

Image::Image(Form& form, std::wstring name, Control* container, int index)
    : PictureControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 1215);
}

}  // namespace quillet::ui
