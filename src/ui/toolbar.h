#pragma once
// A toolbar of buttons with key, tool tip and image; a press raises ButtonClick.
#include <string>
#include <string_view>

#include "ui/control.h"
#include "ui/keyed_items.h"

namespace quillet::ui {

class ToolbarButton {
 public:
  ToolbarButton(std::wstring key, std::wstring caption, std::wstring image)
      : key_(std::move(key)), caption_(std::move(caption)), image_(std::move(image)) {}
  const std::wstring& Key() const { return key_; }
  const std::wstring& Caption() const { return caption_; }
  void SetCaption(std::wstring caption) { caption_ = std::move(caption); }
  const std::wstring& Image() const { return image_; }
  void SetImage(std::wstring image) { image_ = std::move(image); }
  const std::wstring& ToolTipText() const { return toolTip_; }
  void SetToolTipText(std::wstring text) { toolTip_ = std::move(text); }
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { enabled_ = enabled; }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { visible_ = visible; }

 private:
  std::wstring key_;
  std::wstring caption_;
  std::wstring image_;
  std::wstring toolTip_;
  std::wstring tag_;
  bool enabled_ = true;
  bool visible_ = true;
};

class Toolbar : public Control {
 public:
  Toolbar(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Toolbar"; }
  bool TakesFocus() const override { return false; }

  // `index` is 1-based; -1 adds at the end.
  ToolbarButton& AddButton(std::wstring key, std::wstring caption = {}, std::wstring image = {}, int index = -1);
  int ButtonCount() const { return buttons_.Count(); }
  ToolbarButton& Button(int index) const { return buttons_.Item(index); }
  ToolbarButton& Button(std::wstring_view key) const { return buttons_.Item(key); }
  ToolbarButton* FindButton(std::wstring_view key) const { return buttons_.Find(key); }
  const std::vector<std::unique_ptr<ToolbarButton>>& Buttons() const { return buttons_.All(); }

  Event<ToolbarButton&> OnButtonClick;

 protected:
  void DescribeInto(nlohmann::json& out) const override;

 private:
  friend class UserInput;
  void Press(ToolbarButton& button) { Raise(OnButtonClick, button); }
  KeyedItems<ToolbarButton> buttons_{L"Buttons"};
};

}  // namespace quillet::ui
