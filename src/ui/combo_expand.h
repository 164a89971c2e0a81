#pragma once
// Completion while typing in a combo box: each key looks for the first entry that begins
// with what the box would then hold (Backspace: the entry that equals it). Found, the
// entry is selected with the completed part highlighted, so that further typing replaces
// it, and the key is spent; not found, the box has no entry selected and the key types
// as usual. When the selection changed, the owner's Click handler of the box is called
// by name for the boxes whose handler the builders rely on.
#include <memory>

#include "ui/form.h"
#include "ui/list_controls.h"

namespace quillet::ui {

class ComboExpand {
 public:
  // Attaches to the combo box: it handles the box's keys from then on, for as long as the
  // box lives (whether or not this object does).
  void Init(ComboBox& combo, Form& owner);

 private:
  struct State {
    ComboBox* combo = nullptr;
    Form* owner = nullptr;
  };
  // `removeKey`: 8 Backspace, 46 Delete, 0 for a typed character `c`. True when the key
  // was spent on a completion.
  static bool Expand(const State& state, int removeKey, wchar_t c);

  std::shared_ptr<State> state_;
};

}  // namespace quillet::ui
