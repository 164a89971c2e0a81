#include "ui/text_box.h"

namespace quillet::ui {

TextBox::TextBox(Form& form, std::wstring name, Control* container, int index)
    : EditControl(form, std::move(name), container, index) {
  Move(0, 0, 1215, 285);
}

void TextBox::DescribeInto(nlohmann::json& out) const {
  EditControl::DescribeInto(out);
  if (multiLine_) out["multiLine"] = true;
}

void TextBox::SaveDesign() {
  EditControl::SaveDesign();
  designMultiLine_ = multiLine_;
}

void TextBox::RestoreDesign() {
  EditControl::RestoreDesign();
  multiLine_ = designMultiLine_;
}

}  // namespace quillet::ui
