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

// The toolbar's Buttons collection.
class ToolbarButtons {
 public:
  ToolbarButtons() : items_(L"Buttons") {}
  // `index` is 1-based; -1 adds at the end.
  ToolbarButton& Add(std::wstring key, std::wstring caption = {}, std::wstring image = {}, int index = -1);
  int Count() const { return items_.Count(); }
  ToolbarButton& Item(int index) const { return items_.Item(index); }
  ToolbarButton& Item(std::wstring_view key) const { return items_.Item(key); }
  ToolbarButton* Find(std::wstring_view key) const { return items_.Find(key); }
  const std::vector<std::unique_ptr<ToolbarButton>>& All() const { return items_.All(); }
  void Clear() { items_.Clear(); }

 private:
  KeyedItems<ToolbarButton> items_;
};

class Toolbar : public Control {
 public:
  Toolbar(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Toolbar"; }
  bool TakesFocus() const override { return false; }

  ToolbarButtons& Buttons() { return buttons_; }
  const ToolbarButtons& Buttons() const { return buttons_; }

  Event<ToolbarButton&> OnButtonClick;

 protected:
  void DescribeInto(nlohmann::json& out) const override;

 private:
  friend class UserInput;
  void Press(ToolbarButton& button) { Raise(OnButtonClick, button); }
  ToolbarButtons buttons_;
};

}  // namespace quillet::ui
