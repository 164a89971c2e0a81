#pragma once
// Controls the user looks at but does not type into: labels, frames, picture boxes,
// images.
#include <string>

#include "ui/buttons.h"

namespace quillet::ui {

class Label : public CaptionedControl {
 public:
  Label(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Label"; }
  bool TakesFocus() const override { return false; }
};

// A captioned container: option buttons inside it form a group of their own.
class Frame : public CaptionedControl {
 public:
  Frame(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Frame"; }
  bool TakesFocus() const override { return false; }
  bool IsContainer() const override { return true; }
};

// Something that shows a picture, named by its resource key or file.
class PictureControl : public Control {
 public:
  using Control::Control;
  const std::wstring& Picture() const { return picture_; }
  void SetPicture(std::wstring picture) { picture_ = std::move(picture); }

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  std::wstring picture_;
  std::wstring designPicture_;
};

// A picture that is also a container.
class PictureBox : public PictureControl {
 public:
  PictureBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "PictureBox"; }
  bool TakesFocus() const override { return false; }
  bool IsContainer() const override { return true; }
};

class Image : public PictureControl {
 public:
  Image(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Image"; }
  bool TakesFocus() const override { return false; }
};

}  // namespace quillet::ui
