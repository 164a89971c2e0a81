#include "ui/edit_control.h"

#include <algorithm>

#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {
constexpr long kErrInvalidPropertyValue = 380;

long Length(const std::wstring& s) { return static_cast<long>(s.size()); }
}  // namespace

void EditControl::SetText(std::wstring text) {
  bool changed = text != text_;
  text_ = std::move(text);
  bool moved = selStart_ != 0 || selLength_ != 0;
  selStart_ = 0;
  selLength_ = 0;
  if (changed) TextChanged();
  if (changed || moved) SelectionChanged();
}

void EditControl::ReplaceTextQuietly(std::wstring text) {
  text_ = std::move(text);
  selStart_ = 0;
  selLength_ = Length(text_);
  SelectionChanged();
}

void EditControl::SetSelStart(long start) {
  if (start < 0) vba::Raise(kErrInvalidPropertyValue, L"Invalid property value", FullName() + L".SelStart");
  start = std::min(start, Length(text_));
  if (start == selStart_ && selLength_ == 0) return;
  selStart_ = start;
  selLength_ = 0;
  SelectionChanged();
}

void EditControl::SetSelLength(long length) {
  if (length < 0) vba::Raise(kErrInvalidPropertyValue, L"Invalid property value", FullName() + L".SelLength");
  length = std::min(length, Length(text_) - selStart_);
  if (length == selLength_) return;
  selLength_ = length;
  SelectionChanged();
}

void EditControl::Select(long start, long length) {
  if (start < 0 || length < 0)
    vba::Raise(kErrInvalidPropertyValue, L"Invalid property value", FullName() + L".SelStart");
  start = std::min(start, Length(text_));
  length = std::min(length, Length(text_) - start);
  if (start == selStart_ && length == selLength_) return;
  selStart_ = start;
  selLength_ = length;
  SelectionChanged();
}

std::wstring EditControl::SelText() const { return text_.substr(selStart_, selLength_); }

void EditControl::SetSelText(std::wstring_view text) { Splice(selStart_, selLength_, text); }

void EditControl::Splice(long start, long length, std::wstring_view with) {
  start = std::clamp(start, 0L, Length(text_));
  length = std::clamp(length, 0L, Length(text_) - start);
  bool changed = text_.compare(start, length, with) != 0;
  text_.replace(start, length, with);
  selStart_ = start + static_cast<long>(with.size());
  selLength_ = 0;
  Spliced(start, length, static_cast<long>(with.size()));
  if (changed) TextChanged();
  SelectionChanged();
}

bool EditControl::TypeFits(long added) const {
  return maxLength_ == 0 || Length(text_) - selLength_ + added <= maxLength_;
}

void EditControl::KeyPressDefault(int keyAscii) {
  if (!AcceptsTyping()) return;
  if (keyAscii == vbKeyBack) {
    if (selLength_ > 0) Splice(selStart_, selLength_, L"");
    else if (selStart_ > 0) Splice(selStart_ - 1, 1, L"");
  } else if (keyAscii == vbKeyReturn) {
    if (AcceptsReturn() && TypeFits(2)) Splice(selStart_, selLength_, L"\r\n");
  } else if (keyAscii == vbKeyTab) {
    if (TakesTab() && TypeFits(1)) Splice(selStart_, selLength_, L"\t");
  } else if (keyAscii >= 32 && TypeFits(1)) {
    wchar_t c = static_cast<wchar_t>(keyAscii);
    Splice(selStart_, selLength_, std::wstring_view(&c, 1));
  }
}

void EditControl::KeyDownDefault(int keyCode, int shift) {
  switch (keyCode) {
    case vbKeyDelete:
      if (!AcceptsTyping()) return;
      if (selLength_ > 0) Splice(selStart_, selLength_, L"");
      else if (selStart_ < Length(text_)) Splice(selStart_, 1, L"");
      break;
    case vbKeyLeft:
      SetSelStart(selLength_ > 0 ? selStart_ : std::max(0L, selStart_ - 1));
      break;
    case vbKeyRight:
      SetSelStart(selLength_ > 0 ? selStart_ + selLength_ : selStart_ + 1);
      break;
    case vbKeyHome: {
      std::size_t lineStart = text_.find_last_of(L"\r\n", selStart_ > 0 ? selStart_ - 1 : 0);
      SetSelStart(selStart_ == 0 || lineStart == std::wstring::npos ? 0 : static_cast<long>(lineStart) + 1);
      break;
    }
    case vbKeyEnd: {
      std::size_t lineEnd = text_.find_first_of(L"\r\n", selStart_);
      SetSelStart(lineEnd == std::wstring::npos ? Length(text_) : static_cast<long>(lineEnd));
      break;
    }
    default:
      break;
  }
}

bool EditControl::TypeText(std::wstring_view text) {
  if (!AcceptsTyping()) return false;
  std::wstring typed(text);
  if (maxLength_ > 0 && Length(typed) > maxLength_) typed.resize(maxLength_);
  Splice(0, Length(text_), typed);
  return true;
}

Event<>* EditControl::FindEvent(std::wstring_view name) {
  if (vba::EqualsText(name, L"Change")) return &OnChange;
  return Control::FindEvent(name);
}

void EditControl::DescribeInto(nlohmann::json& out) const {
  out["text"] = vba::ToUtf8(text_);
  out["selStart"] = selStart_;
  out["selLength"] = selLength_;
  if (locked_) out["locked"] = true;
}

void EditControl::SaveDesign() {
  Control::SaveDesign();
  design_ = Design{text_, locked_, maxLength_};
}

void EditControl::RestoreDesign() {
  Control::RestoreDesign();
  text_ = design_.text;
  locked_ = design_.locked;
  maxLength_ = design_.maxLength;
  selStart_ = 0;
  selLength_ = 0;
}

}  // namespace quillet::ui
