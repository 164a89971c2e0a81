#include "ui/rich_text_box.h"

#include "vba/text.h"

namespace quillet::ui {

RichTextBox::RichTextBox(Form& form, std::wstring name, Control* container, int index)
    : EditControl(form, std::move(name), container, index) {
  Move(0, 0, 2415, 1215);
}

void RichTextBox::SetText(std::wstring text) {
  formats_.assign(text.size(), CharFormat{});
  typingSet_ = false;
  EditControl::SetText(std::move(text));
}

CharFormat RichTextBox::FormatAt(long position) const {
  if (position < 0 || position >= static_cast<long>(formats_.size())) return CharFormat{};
  return formats_[position];
}

CharFormat RichTextBox::TypingFormat() const {
  if (typingSet_) return typing_;
  long caret = SelStart();
  if (caret > 0) return FormatAt(caret - 1);
  return FormatAt(0);
}

void RichTextBox::Spliced(long start, long removed, long inserted) {
  // Typed text takes the format of what it replaces, else the one chosen at the caret,
  // else that of the character before it.
  CharFormat format;
  if (removed > 0) format = formats_[start];
  else if (typingSet_) format = typing_;
  else if (start > 0) format = formats_[start - 1];
  else if (!formats_.empty()) format = formats_[0];
  formats_.erase(formats_.begin() + start, formats_.begin() + start + removed);
  formats_.insert(formats_.begin() + start, inserted, format);
}

void RichTextBox::SelectionChanged() {
  typingSet_ = false;
  Raise(OnSelChange);
}

std::vector<RichTextBox::Run> RichTextBox::Runs() const {
  std::vector<Run> runs;
  for (long i = 0; i < static_cast<long>(formats_.size()); ++i) {
    if (!runs.empty() && runs.back().format == formats_[i]) ++runs.back().length;
    else runs.push_back(Run{i, 1, formats_[i]});
  }
  return runs;
}

long RichTextBox::Find(std::wstring_view what, long start, long end, bool matchCase) {
  const std::wstring& text = Text();
  long limit = end < 0 || end > static_cast<long>(text.size()) ? static_cast<long>(text.size()) : end;
  long n = static_cast<long>(what.size());
  if (what.empty()) return -1;
  for (long i = start < 0 ? 0 : start; i + n <= limit; ++i) {
    std::wstring_view here(text.data() + i, n);
    if (matchCase ? here == what : vba::EqualsText(here, what)) {
      Select(i, n);
      return i;
    }
  }
  return -1;
}

Event<>* RichTextBox::FindEvent(std::wstring_view name) {
  if (vba::EqualsText(name, L"SelChange")) return &OnSelChange;
  return EditControl::FindEvent(name);
}

void RichTextBox::DescribeInto(nlohmann::json& out) const {
  EditControl::DescribeInto(out);
  // Only the stretches that differ from plain black text, so that a plain box says nothing.
  nlohmann::json runs = nlohmann::json::array();
  for (const Run& r : Runs()) {
    if (r.format == CharFormat{}) continue;
    nlohmann::json j{{"start", r.start}, {"length", r.length}, {"color", r.format.color}};
    if (r.format.bold) j["bold"] = true;
    if (r.format.italic) j["italic"] = true;
    if (r.format.underline) j["underline"] = true;
    if (r.format.protect) j["protected"] = true;
    runs.push_back(std::move(j));
  }
  if (!runs.empty()) out["runs"] = std::move(runs);
}

void RichTextBox::RestoreDesign() {
  EditControl::RestoreDesign();
  formats_.assign(Text().size(), CharFormat{});
  typingSet_ = false;
}

}  // namespace quillet::ui
