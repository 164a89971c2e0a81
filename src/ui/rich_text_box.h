#pragma once
// A rich text box: an edit field whose characters carry a format (colour, bold, italic,
// underline, protected), set through the selection as classic code does:
//   rtb.Select(10, 4); rtb.SetSelColor(ui::RGB(0, 0, 127));
#include <optional>
#include <string_view>
#include <vector>

#include "ui/edit_control.h"

namespace quillet::ui {

struct CharFormat {
  long color = 0;  // black
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool protect = false;  // the "protected" attribute
  bool operator==(const CharFormat&) const = default;
};

class RichTextBox : public EditControl {
 public:
  RichTextBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "RichTextBox"; }

  // A new text comes in the default format.
  void SetText(std::wstring text) override;

  // The format of the selection: nullopt when it is mixed. With no selection, the format
  // that typing at the caret gets; setting it then changes what is typed next.
  std::optional<long> SelColor() const { return SelAttribute(&CharFormat::color); }
  void SetSelColor(long color) { SetSelAttribute(&CharFormat::color, color); }
  std::optional<bool> SelBold() const { return SelAttribute(&CharFormat::bold); }
  void SetSelBold(bool bold) { SetSelAttribute(&CharFormat::bold, bold); }
  std::optional<bool> SelItalic() const { return SelAttribute(&CharFormat::italic); }
  void SetSelItalic(bool italic) { SetSelAttribute(&CharFormat::italic, italic); }
  std::optional<bool> SelUnderline() const { return SelAttribute(&CharFormat::underline); }
  void SetSelUnderline(bool underline) { SetSelAttribute(&CharFormat::underline, underline); }
  std::optional<bool> SelProtected() const { return SelAttribute(&CharFormat::protect); }
  void SetSelProtected(bool isProtected) { SetSelAttribute(&CharFormat::protect, isProtected); }

  // The format of one character (0-based); the default beyond the text.
  CharFormat FormatAt(long position) const;
  // Stretches of equal format over the whole text, in order.
  struct Run {
    long start = 0;
    long length = 0;
    CharFormat format;
  };
  std::vector<Run> Runs() const;

  // Searches the text from `start` (0-based) up to `end` (-1: the end) and selects what
  // it finds; returns its position, or -1. Without regard to case unless `matchCase`.
  long Find(std::wstring_view what, long start = 0, long end = -1, bool matchCase = false);

  Event<> OnSelChange;
  Event<>* FindEvent(std::wstring_view name) override;

 protected:
  bool AcceptsReturn() const override { return true; }
  void Spliced(long start, long removed, long inserted) override;
  void SelectionChanged() override;
  void DescribeInto(nlohmann::json& out) const override;
  void RestoreDesign() override;

 private:
  // The format typed text gets at the caret.
  CharFormat TypingFormat() const;

  template <class T>
  std::optional<T> SelAttribute(T CharFormat::*member) const {
    if (SelLength() == 0) return TypingFormat().*member;
    T first = formats_[SelStart()].*member;
    for (long i = SelStart() + 1; i < SelStart() + SelLength(); ++i)
      if (formats_[i].*member != first) return std::nullopt;
    return first;
  }
  template <class T>
  void SetSelAttribute(T CharFormat::*member, T value) {
    if (SelLength() == 0) {
      typing_ = TypingFormat();
      typing_.*member = value;
      typingSet_ = true;
      return;
    }
    for (long i = SelStart(); i < SelStart() + SelLength(); ++i) formats_[i].*member = value;
  }

  std::vector<CharFormat> formats_;  // one per character of the text
  CharFormat typing_;
  bool typingSet_ = false;  // a format was chosen at the caret and not yet used
};

}  // namespace quillet::ui
