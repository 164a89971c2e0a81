#include "ui/colorize.h"

#include <cwchar>

#include "vba/vba_scan.h"
#include "ui/constants.h"
#include "vba/text.h"

namespace quillet::ui {
namespace {

class BoxPainter {
 public:
  explicit BoxPainter(ui::RichTextBox& box) : box_(box), text_(box.Text()) {}

  std::size_t Word(std::size_t start, std::size_t length, std::size_t at) {
    std::wstring_view word = std::wstring_view(text_).substr(start, length);
    vba::KeywordHit hit = vba::LookUpKeyword(word);
    if (hit.function) Paint(start, length, FunctionColor());
    if (hit.statement) Paint(start, length, StatementColor());
    if (vba::IsRemWord(word)) {
      // A comment up to the line end; the scan goes on there.
      std::size_t end = LineEnd(start);
      Paint(start, end - start, CommentColor());
      return end > at + 1 ? end - 1 : at;
    }
    return at;
  }
  void String(std::size_t, std::size_t) {}
  void Comment(std::size_t start, std::size_t length) { Paint(start, length, CommentColor()); }
  std::size_t Other(std::size_t at, wchar_t c) {
    if (c == L'{') {
      // A token of the templates when its brace closes on the same line.
      std::size_t end = LineEnd(at);
      std::size_t close = text_.find(L'}', at + 1);
      if (close != std::wstring::npos && close < end) {
        Paint(at, close + 1 - at, TokenColor());
        return close;
      }
    } else if (c == L'<') {
      for (const wchar_t* mark : {L"<cursor>", L"<end_of_top>", L"<begin_of_bottom>"}) {
        std::size_t length = std::wcslen(mark);
        if (vba::EqualsText(std::wstring_view(text_).substr(at, length), mark)) {
          box_.Select(static_cast<long>(at), static_cast<long>(length));
          box_.SetSelBold(true);
          return at + length - 1;
        }
      }
    }
    return at;
  }
  void End(wchar_t) {}

 private:
  std::size_t LineEnd(std::size_t from) const {
    std::size_t end = text_.find_first_of(L"\r\n", from);
    return end == std::wstring::npos ? text_.size() : end;
  }
  void Paint(std::size_t start, std::size_t length, long color) {
    box_.Select(static_cast<long>(start), static_cast<long>(length));
    box_.SetSelColor(color);
  }

  ui::RichTextBox& box_;
  std::wstring text_;
};

}  // namespace

long CommentColor() { return ui::RGB(0, 127, 0); }
long FunctionColor() { return ui::RGB(0, 0, 0); }
long StatementColor() { return ui::RGB(0, 0, 127); }
long TokenColor() { return ui::RGB(128, 0, 128); }

void Colorize(ui::RichTextBox& box) {
  box.Select(0, static_cast<long>(box.Text().size()));
  box.SetSelColor(0);
  box.SetSelBold(false);
  box.Select(0, 0);
  BoxPainter painter(box);
  vba::ScanVba(box.Text(), painter);
  box.Select(0, 0);
}

}  // namespace quillet::ui
