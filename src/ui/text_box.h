#pragma once
// Text boxes: one line or many, optionally locked.
#include "ui/edit_control.h"

namespace quillet::ui {

class TextBox : public EditControl {
 public:
  TextBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "TextBox"; }

  // A multi-line box takes Enter as a line break; a one-line box leaves Enter to the
  // form's Default button.
  bool MultiLine() const { return multiLine_; }
  void SetMultiLine(bool multiLine) { multiLine_ = multiLine; }

 protected:
  bool AcceptsReturn() const override { return multiLine_; }
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  bool multiLine_ = false;
  bool designMultiLine_ = false;
};

}  // namespace quillet::ui
