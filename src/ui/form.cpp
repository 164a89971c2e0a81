#include "ui/form.h"

#include <algorithm>

#include "ui/buttons.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {
constexpr long kErrFormAlreadyShown = 400;
constexpr long kErrModalShown = 401;
}  // namespace

Form::Form(UiContext& context, std::wstring name) : context_(context), name_(std::move(name)) {}

Form::~Form() {
  // The handlers belong to the derived dialog, which is gone by now: no events here.
  context_.Forget(*this);
}

void Form::SetWidth(long v) {
  width_ = v;
  Raise(OnResize);
}

void Form::SetHeight(long v) {
  height_ = v;
  Raise(OnResize);
}

void Form::Move(long left, long top, long width, long height) {
  left_ = left;
  top_ = top;
  bool resized = (width >= 0 && width != width_) || (height >= 0 && height != height_);
  if (width >= 0) width_ = width;
  if (height >= 0) height_ = height;
  if (resized) Raise(OnResize);
}

int Form::BorderPixels() const { return borderStyle_ == vbBSNone ? 0 : 3; }
int Form::TitleBarPixels() const { return borderStyle_ == vbBSNone ? 0 : 20; }

long Form::ScaleWidth() const { return std::max(0L, width_ - 2L * BorderPixels() * kTwipsPerPixel); }

long Form::ScaleHeight() const {
  return std::max(0L, height_ - (2L * BorderPixels() + TitleBarPixels()) * kTwipsPerPixel);
}

// --- life cycle ---

void Form::Load() {
  if (loaded_) return;
  if (!designSaved_) {
    for (auto& c : controls_) c->SaveDesign();
    designSaved_ = true;
  }
  loaded_ = true;
  context_.Loaded(*this);
  for (auto& c : controls_) c->FormLoaded();
  Raise(OnLoad);
}

void Form::Show(bool modal) {
  if (visible_ && modal)
    vba::Raise(kErrFormAlreadyShown, L"Form already displayed; can't show modally", name_ + L".Show");
  if (!modal && !visible_ && context_.TopModal())
    vba::Raise(kErrModalShown, L"Can't show non-modal form when modal form is displayed", name_ + L".Show");
  Load();
  if (!loaded_) return;  // the Load handler unloaded it
  bool wasVisible = visible_;
  visible_ = true;
  modal_ = modal;
  if (!wasVisible) Host().FormShown(*this, modal);
  context_.Activate(*this);
  if (!wasVisible && visible_) FocusOnShow();
  if (!modal) return;

  // The caller waits here until the form goes; the host feeds the events meanwhile.
  struct ModalScope {
    UiContext& context;
    Form& form;
    ~ModalScope() { context.PopModal(form); }
  } scope{context_, *this};
  context_.PushModal(*this);
  while (loaded_ && visible_) Host().Pump();
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  modal_ = false;
  focusShown_ = false;
  Host().FormHidden(*this);
  context_.Hidden(*this);
}

void Form::SetFocus() {
  if (visible_) context_.Activate(*this);
}

bool Form::Unload(int unloadMode) {
  if (!loaded_ || unloading_) return !loaded_;
  struct Busy {
    bool& flag;
    ~Busy() { flag = false; }
  } busy{unloading_};
  unloading_ = true;

  int cancel = 0;
  Raise(OnQueryUnload, cancel, unloadMode);
  if (cancel != 0) return false;
  Raise(OnUnload, cancel);
  if (cancel != 0) return false;

  bool wasVisible = visible_;
  visible_ = false;
  modal_ = false;
  focusShown_ = false;
  loaded_ = false;
  activeControl_ = nullptr;
  for (auto& c : controls_) {
    c->FormUnloaded();
    c->RestoreDesign();
  }
  if (wasVisible) context_.Hidden(*this);
  context_.Unloaded(*this);
  Host().FormUnloaded(*this);
  return true;
}

// --- controls ---

void Form::Adopt(std::unique_ptr<Control> control) {
  control->props_.tabIndex = static_cast<int>(controls_.size());
  controls_.push_back(std::move(control));
}

Control* Form::Find(std::wstring_view name) const {
  for (const auto& c : controls_)
    if (vba::EqualsText(c->FullName(), name)) return c.get();
  return nullptr;
}

std::vector<Control*> Form::TabOrder() const {
  std::vector<Control*> order;
  for (const auto& c : controls_) order.push_back(c.get());
  std::stable_sort(order.begin(), order.end(),
                   [](const Control* a, const Control* b) { return a->TabIndex() < b->TabIndex(); });
  return order;
}

void Form::SetTabIndexOf(Control& control, int index) {
  std::vector<Control*> order = TabOrder();
  order.erase(std::find(order.begin(), order.end(), &control));
  index = std::clamp(index, 0, static_cast<int>(order.size()));
  order.insert(order.begin() + index, &control);
  for (std::size_t i = 0; i < order.size(); ++i) order[i]->props_.tabIndex = static_cast<int>(i);
}

Control* Form::NextTabStop(const Control* from, bool backwards) const {
  std::vector<Control*> order = TabOrder();
  if (backwards) std::reverse(order.begin(), order.end());
  auto start = std::find(order.begin(), order.end(), from);
  std::size_t n = order.size();
  std::size_t first = start == order.end() ? 0 : static_cast<std::size_t>(start - order.begin()) + 1;
  for (std::size_t k = 0; k < n; ++k) {
    Control* c = order[(first + k) % n];
    if (c != from && c->TabStop() && c->CanFocus()) return c;
  }
  return nullptr;
}

CommandButton* Form::DefaultButton() const {
  for (const auto& c : controls_) {
    auto* b = dynamic_cast<CommandButton*>(c.get());
    if (b && b->Default() && b->IsEffectivelyEnabled() && b->IsEffectivelyVisible()) return b;
  }
  return nullptr;
}

CommandButton* Form::CancelButton() const {
  for (const auto& c : controls_) {
    auto* b = dynamic_cast<CommandButton*>(c.get());
    if (b && b->Cancel() && b->IsEffectivelyEnabled() && b->IsEffectivelyVisible()) return b;
  }
  return nullptr;
}

// --- focus ---

bool Form::MoveFocus(Control& target) {
  if (!visible_ || !focusShown_) {
    // Not on screen: the control gets the focus when the form shows.
    activeControl_ = &target;
    return true;
  }
  Control* from = activeControl_;
  if (from == &target) return true;
  if (from && target.CausesValidation()) {
    bool cancel = false;
    from->Raise(from->OnValidate, cancel);
    if (cancel) return false;
  }
  activeControl_ = &target;
  if (from) from->Raise(from->OnLostFocus);
  // A LostFocus handler may have sent the focus elsewhere.
  if (activeControl_ == &target) target.Raise(target.OnGotFocus);
  return activeControl_ == &target;
}

void Form::FocusOnShow() {
  Control* target = activeControl_ && activeControl_->CanFocus() ? activeControl_ : NextTabStop(nullptr);
  activeControl_ = target;
  focusShown_ = true;
  if (target) target->Raise(target->OnGotFocus);
}

// --- handlers by name ---

bool Form::CallHandler(std::wstring_view handlerName) {
  std::size_t cut = handlerName.rfind(L'_');
  if (cut == std::wstring_view::npos) return false;
  std::wstring_view owner = handlerName.substr(0, cut);
  std::wstring_view event = handlerName.substr(cut + 1);
  if (vba::EqualsText(owner, L"Form")) {
    const Event<>* e = nullptr;
    if (vba::EqualsText(event, L"Load")) e = &OnLoad;
    else if (vba::EqualsText(event, L"Activate")) e = &OnActivate;
    else if (vba::EqualsText(event, L"Deactivate")) e = &OnDeactivate;
    else if (vba::EqualsText(event, L"Click")) e = &OnClick;
    else if (vba::EqualsText(event, L"Resize")) e = &OnResize;
    return e && e->CallHandler();
  }
  Control* c = Find(owner);
  if (!c) return false;
  Event<>* e = c->FindEvent(event);
  return e && e->CallHandler();
}

// --- self-description ---

nlohmann::json Form::Describe() const {
  nlohmann::json j;
  j["form"] = vba::ToUtf8(name_);
  j["caption"] = vba::ToUtf8(caption_);
  j["visible"] = visible_;
  j["left"] = left_;
  j["top"] = top_;
  j["width"] = width_;
  j["height"] = height_;
  if (activeControl_) j["activeControl"] = vba::ToUtf8(activeControl_->FullName());
  nlohmann::json controls = nlohmann::json::array();
  for (const auto& c : controls_) controls.push_back(c->Describe());
  j["controls"] = std::move(controls);
  return j;
}

}  // namespace quillet::ui
