#pragma once
// The pick list that pops up at the caret: Enter, a blank or a double click takes the
// current entry; Tab, Escape, a mouse press outside or the loss of the focus close it
// with no choice. The caller fills lstList, shows it with ShowListForm and reads the
// outcome afterwards.
#include <string>

#include "ui/form.h"
#include "ui/list_controls.h"

namespace quillet::ui {

class FrmList : public Form {
 public:
  explicit FrmList(UiContext& context);

  ListBox& lstList = Add<ListBox>(L"lstList");

  // The outcome of the last showing: the chosen entry's text and ItemData, and the key
  // that closed the list (13 for a choice, 27 for none).
  const std::wstring& ChosenText() const { return chosenText_; }
  long ChosenItemData() const { return chosenItemData_; }
  int CloseKey() const { return closeKey_; }

  // Closing unloads the form rather than hiding it.
  bool UnloadOnClose() const { return unloadOnClose_; }
  void SetUnloadOnClose(bool unload) { unloadOnClose_ = unload; }

  // While it shows, the list holds the mouse: a press outside its area closes it as
  // Escape; a press inside takes the mouse back after the list's own handling.
  bool MouseCaptured() const;
  void MouseDownOutside();
  void MouseDownInside();

  // {"closeKey", "chosenText", "chosenItemData", "mouseCaptured"}.
  nlohmann::json Outcome() const override;

 private:
  void Choose();
  void Close(int key);
  void Capture();

  std::wstring chosenText_;
  long chosenItemData_ = 0;
  int closeKey_ = 0;
  bool unloadOnClose_ = false;
};

}  // namespace quillet::ui
