#pragma once
// Event slots of controls and forms. A dialog assigns its handler in its constructor
// (`cmdOK.OnClick = [this] { PressOk(); };`); helper objects that attach to a control
// later, the way a class declared WithEvents does, add listeners beside it.
#include <functional>
#include <vector>

namespace quillet::ui {

template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  Event() = default;
  Event(const Event&) = delete;
  Event& operator=(const Event&) = delete;

  // The owner's handler (the form's `txtName_Change`); assigning replaces it.
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }
  // A further sink, called after the owner's handler.
  void Listen(Handler listener) { listeners_.push_back(std::move(listener)); }
  bool HasHandler() const { return static_cast<bool>(handler_); }

  // Raises the event: the owner's handler, then every listener. Copies are called, so a
  // handler may replace itself while it runs.
  void operator()(Args... args) const {
    if (handler_) {
      Handler h = handler_;
      h(args...);
    }
    for (std::size_t i = 0; i < listeners_.size(); ++i) {
      Handler l = listeners_[i];
      l(args...);
    }
  }

  // Calls the owner's handler only, as calling `cboDataType_Click` by its name does.
  bool CallHandler(Args... args) const {
    if (!handler_) return false;
    Handler h = handler_;
    h(args...);
    return true;
  }

 private:
  Handler handler_;
  std::vector<Handler> listeners_;
};

// Sets a flag for the life of a scope and restores it after: the usual way a dialog
// keeps its own handlers quiet while it fills its controls in code.
//   { ScopedFlag busy(mfUpdating); chkAll.SetValue(1); }   // the Click handler sees mfUpdating
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag), old_(flag) { flag_ = true; }
  ~ScopedFlag() { flag_ = old_; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;

 private:
  bool& flag_;
  bool old_;
};

}  // namespace quillet::ui
