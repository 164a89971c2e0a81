#pragma once
// The one-line input that pops up at the caret: Enter takes the text, Escape or a mouse
// press outside drops it.
#include <string>

#include "ui/form.h"
#include "ui/text_box.h"

namespace quillet::ui {

class FrmTextInput : public Form {
 public:
  explicit FrmTextInput(UiContext& context);

  TextBox& txtInput = Add<TextBox>(L"txtInput");

  // Empties the text and the input field before a showing.
  void Init();

  // The text entered (empty after Escape) and the key that closed the input (13, 27).
  const std::wstring& EnteredText() const { return text_; }
  int CloseKey() const { return closeKey_; }

  bool MouseCaptured() const;
  // A mouse press outside its area counts as Escape.
  void MouseDownOutside();

  // {"closeKey", "text", "mouseCaptured"}.
  nlohmann::json Outcome() const override;

 private:
  void Close(int key);

  std::wstring text_;
  int closeKey_ = 0;
};

}  // namespace quillet::ui
