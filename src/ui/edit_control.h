#pragma once
// The edit field that text boxes, rich text boxes and combo boxes share: the text, the
// caret and selection (0-based, as SelStart counts), and what typing does to them.
#include <string>
#include <string_view>

#include "ui/control.h"

namespace quillet::ui {

class EditControl : public Control {
 public:
  using Control::Control;

  const std::wstring& Text() const { return text_; }
  // Raises Change when the text differs; the caret goes to the start.
  virtual void SetText(std::wstring text);

  long SelStart() const { return selStart_; }
  // Collapses the selection to a caret there; beyond the end means the end, a negative
  // start raises error 380.
  void SetSelStart(long start);
  long SelLength() const { return selLength_; }
  // Cut to the end of the text; negative raises error 380.
  void SetSelLength(long length);
  std::wstring SelText() const;
  // Replaces the selection; the caret goes behind the new text. Change when it differs.
  void SetSelText(std::wstring_view text);
  // Selects `length` characters from `start` in one step.
  void Select(long start, long length);

  // A locked field refuses the user's typing; code still sets its text.
  bool Locked() const { return locked_; }
  void SetLocked(bool locked) { locked_ = locked; }
  // The most characters the user may type; 0 for no limit. Code is not limited.
  long MaxLength() const { return maxLength_; }
  void SetMaxLength(long length) { maxLength_ = length < 0 ? 0 : length; }

  Event<> OnChange;
  Event<>* FindEvent(std::wstring_view name) override;

 protected:
  // Whether the user may type into the field now.
  virtual bool AcceptsTyping() const { return !locked_; }
  // Whether Enter types a line break.
  virtual bool AcceptsReturn() const { return false; }
  // Replaces `length` characters at `start` by `with`, leaving the caret behind it, and
  // raises Change when the text changed.
  void Splice(long start, long length, std::wstring_view with);
  // Replaces the text without Change and selects all of it: what choosing a list entry
  // does to a combo box's field.
  void ReplaceTextQuietly(std::wstring text);
  // Hooks for fields that keep more per character (formats) or report caret moves.
  virtual void Spliced(long start, long removed, long inserted) {}
  virtual void SelectionChanged() {}
  virtual void TextChanged() { Raise(OnChange); }

  // The user's typing: a character replaces the selection, Backspace and Delete remove.
  void KeyPressDefault(int keyAscii) override;
  void KeyDownDefault(int keyCode, int shift) override;
  // The user types a whole new text, as a "set" step does: the field is replaced and the
  // caret stands behind it. False when the field refuses typing.
  bool TypeText(std::wstring_view text);

  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  friend class UserInput;
  // Whether `added` more characters fit under MaxLength in place of the selection.
  bool TypeFits(long added) const;

  std::wstring text_;
  long selStart_ = 0;
  long selLength_ = 0;
  bool locked_ = false;
  long maxLength_ = 0;

  struct Design {
    std::wstring text;
    bool locked = false;
    long maxLength = 0;
  } design_;
};

}  // namespace quillet::ui
