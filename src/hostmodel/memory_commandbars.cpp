#include "hostmodel/memory_commandbars.h"

#include <algorithm>

#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::host {
namespace {

// Captions are matched as the host matches them: without "&" and without regard to case.
std::wstring PlainCaption(std::wstring_view caption) {
  std::wstring out;
  for (wchar_t c : caption)
    if (c != L'&') out += c;
  return out;
}

}  // namespace

MemoryControl::MemoryControl(MemoryVBE& vbe, MemoryControls& owner, int type, int id)
    : vbe_(vbe), owner_(owner), type_(type), id_(id) {
  if (type_ == kControlPopup) children_ = std::make_unique<MemoryControls>(vbe_);
}

long MemoryControl::Index() const { return owner_.IndexOf(this); }

void MemoryControl::SetVisible(bool visible) {
  if (visible != visible_) ++writes_;
  visible_ = visible;
}

void MemoryControl::SetEnabled(bool enabled) {
  if (enabled != enabled_) ++writes_;
  enabled_ = enabled;
}

void MemoryControl::SetPicture(std::wstring_view picture, std::wstring_view mask) {
  if (!HasPictureProperty()) vba::Raise(438);
  picture_ = picture;
}

void MemoryControl::PasteFace() {
  if (!vbe_.Platform().ClipboardHasFormat(kCfBitmap)) vba::Raise(vba::kErrInvalidCall, L"Nothing to paste");
  picture_ = vba::FromUtf8(vbe_.Platform().ClipboardGetData(kCfBitmap));
}

void MemoryControl::CopyFace() {
  vbe_.Platform().ClipboardClear();
  vbe_.Platform().ClipboardSetData(kCfBitmap, vba::ToUtf8(picture_));
}

CommandBarControls* MemoryControl::Controls() { return children_.get(); }

std::wstring MemoryControl::List(long index) const {
  if (index < 1 || index > ListCount()) vba::Raise(vba::kErrInvalidCall);
  return items_[index - 1];
}

void MemoryControl::SetListIndex(long index) {
  if (index < 0 || index > ListCount()) vba::Raise(vba::kErrInvalidCall);
  listIndex_ = index;
  text_ = index == 0 ? std::wstring() : items_[index - 1];
}

void MemoryControl::Choose(long index) {
  SetListIndex(index);
  if (onChange_) onChange_(shared_from_this());
}

void MemoryControl::Execute() {
  if (!enabled_) return;
  if (action) action();
  vbe_.RaiseClick(shared_from_this());
}

void MemoryControl::Delete() { owner_.Remove(this); }

Ptr<CommandBarControl> MemoryControls::Item(long index) const {
  if (index < 1 || index > Count()) vba::Raise(vba::kErrInvalidCall);
  return controls_[index - 1];
}

Ptr<CommandBarControl> MemoryControls::Item(std::wstring_view caption) const {
  std::wstring wanted = PlainCaption(caption);
  for (const auto& c : controls_)
    if (vba::EqualsText(PlainCaption(c->Caption()), wanted)) return c;
  vba::Raise(vba::kErrInvalidCall);
}

Ptr<CommandBarControl> MemoryControls::Add(int type, int id, bool temporary) {
  if (type != kControlButton && type != kControlPopup && type != kControlDropdown && type != kControlComboBox &&
      type != kControlEdit)
    vba::Raise(vba::kErrInvalidCall);
  auto c = std::make_shared<MemoryControl>(vbe_, *this, type, id);
  controls_.push_back(c);
  return c;
}

void MemoryControls::Remove(const MemoryControl* control) {
  controls_.erase(std::remove_if(controls_.begin(), controls_.end(), [&](const auto& c) { return c.get() == control; }),
                  controls_.end());
}

long MemoryControls::IndexOf(const MemoryControl* control) const {
  for (std::size_t i = 0; i < controls_.size(); ++i)
    if (controls_[i].get() == control) return static_cast<long>(i) + 1;
  return 0;
}

Ptr<CommandBarControl> MemoryControls::FindId(int id) const {
  for (const auto& c : controls_) {
    if (c->Id() == id) return c;
    if (auto* children = static_cast<MemoryControls*>(c->Controls()))
      if (auto found = children->FindId(id)) return found;
  }
  return nullptr;
}

MemoryCommandBar::MemoryCommandBar(MemoryVBE& vbe, std::wstring name, int position, bool temp)
    : temporary(temp), name_(std::move(name)), position_(position), controls_(vbe) {}

MemoryCommandBars::MemoryCommandBars(MemoryVBE& vbe) : vbe_(vbe) {
  // The editor's own bars that the system touches.
  auto menu = std::make_shared<MemoryCommandBar>(vbe_, L"Menu Bar", kBarTop, false);
  menu->SetVisible(true);
  bars_.push_back(menu);
  auto standard = std::make_shared<MemoryCommandBar>(vbe_, L"Standard", kBarTop, false);
  standard->SetVisible(true);
  bars_.push_back(standard);
  bars_.push_back(std::make_shared<MemoryCommandBar>(vbe_, L"Code Window", kBarPopup, false));
  auto run = std::make_shared<MemoryCommandBar>(vbe_, L"Run", kBarPopup, false);
  auto reset = run->Items().Add(kControlButton, 228);
  reset->SetCaption(L"&Reset");
  bars_.push_back(run);
}

long MemoryCommandBars::Count() const { return static_cast<long>(Bars().size()); }

std::vector<std::shared_ptr<MemoryCommandBar>> MemoryCommandBars::Bars() const {
  bars_.erase(std::remove_if(bars_.begin(), bars_.end(), [](const auto& b) { return b->deleted; }), bars_.end());
  return bars_;
}

std::shared_ptr<MemoryCommandBar> MemoryCommandBars::Bar(std::wstring_view name) const {
  for (const auto& b : Bars())
    if (vba::EqualsText(b->Name(), name)) return b;
  return nullptr;
}

Ptr<CommandBar> MemoryCommandBars::Item(std::wstring_view name) const {
  auto b = Bar(name);
  if (!b) vba::Raise(vba::kErrInvalidCall);
  return b;
}

Ptr<CommandBar> MemoryCommandBars::Item(long index) const {
  auto bars = Bars();
  if (index < 1 || index > static_cast<long>(bars.size())) vba::Raise(vba::kErrInvalidCall);
  return bars[index - 1];
}

Ptr<CommandBar> MemoryCommandBars::Add(std::wstring_view name, int position, bool menuBar, bool temporary) {
  if (Bar(name)) vba::Raise(vba::kErrInvalidCall, L"A command bar of that name exists");
  auto b = std::make_shared<MemoryCommandBar>(vbe_, std::wstring(name), position, temporary);
  bars_.push_back(b);
  return b;
}

Ptr<CommandBarControl> MemoryCommandBars::FindControl(int id) const {
  for (const auto& b : Bars())
    if (auto c = b->Items().FindId(id)) return c;
  return nullptr;
}

}  // namespace quillet::host
