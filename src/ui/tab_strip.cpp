#include "ui/tab_strip.h"

#include "vba/encoding.h"

namespace quillet::ui {

int Tab::Index() const { return strip_.Tabs().IndexOf(this); }
bool Tab::Selected() const { return strip_.SelectedItem() == this; }

void Tab::SetSelected(bool selected) {
  if (selected) strip_.SetSelectedItem(*this);
}

TabStrip::TabStrip(Form& form, std::wstring name, Control* container, int index)
    : Control(form, std::move(name), container, index) {
  Move(0, 0, 2415, 1815);
}

Tab& TabCollection::Add(std::wstring key, std::wstring caption, int index) {
  std::size_t at = index >= 1 ? static_cast<std::size_t>(index - 1) : items_.All().size();
  Tab& tab = items_.Insert(at, std::make_unique<Tab>(strip_, std::move(key), std::move(caption)));
  if (!strip_.selected_) strip_.selected_ = &tab;
  return tab;
}

void TabCollection::Remove(int index) {
  Tab& tab = items_.Item(index);
  bool wasSelected = strip_.selected_ == &tab;
  items_.Take(&tab);
  if (wasSelected) strip_.selected_ = items_.Count() > 0 ? &items_.Item(1) : nullptr;
}

void TabCollection::Clear() {
  items_.Clear();
  strip_.selected_ = nullptr;
}

void TabStrip::SetSelectedItem(Tab& tab) {
  if (selected_ == &tab) return;
  int cancel = 0;
  Raise(OnBeforeClick, cancel);
  if (cancel) return;
  selected_ = &tab;
  Raise(OnClick);
}

void TabStrip::KeyDownDefault(int keyCode, int shift) {
  if (!selected_) return;
  int i = selected_->Index();
  if (keyCode == vbKeyRight && i < tabs_.Count()) SetSelectedItem(tabs_.Item(i + 1));
  else if (keyCode == vbKeyLeft && i > 1) SetSelectedItem(tabs_.Item(i - 1));
}

void TabStrip::DescribeInto(nlohmann::json& out) const {
  nlohmann::json tabs = nlohmann::json::array();
  for (const auto& t : tabs_.All())
    tabs.push_back({{"key", vba::ToUtf8(t->Key())}, {"caption", vba::ToUtf8(t->Caption())}});
  out["tabs"] = std::move(tabs);
  out["value"] = selected_ ? selected_->Index() : 0;
}

void TabStrip::SaveDesign() {
  Control::SaveDesign();
  designTabs_.clear();
  for (const auto& t : tabs_.All()) designTabs_.push_back(DesignTab{t->Key(), t->Caption()});
}

void TabStrip::RestoreDesign() {
  Control::RestoreDesign();
  tabs_.Clear();
  for (const auto& t : designTabs_) tabs_.Add(t.key, t.caption);
}

}  // namespace quillet::ui
