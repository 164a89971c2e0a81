#pragma once
// A menu entry of a form: the pop-up menus a dialog opens over its lists. An entry has a
// caption, an enabled state and a Click; a pop-up is a top entry whose children follow
// it in creation order, shown with the form's PopupMenu:
//   ui::Menu& mnuLvPopUp = Add<ui::Menu>(L"mnuLvPopUp");
//   ui::Menu& mnuRename = Add<ui::Menu>(L"mnuRename");   // then mnuRename.SetParentMenu(&mnuLvPopUp)
//   mnuLvPopUp.SetPopupFor(&lvList);                       // opened by a right click on the list
// A headless user chooses an entry by clicking it by name, as if the pop-up were open.
#include <string>

#include "ui/buttons.h"

namespace quillet::ui {

class Menu : public CaptionedControl {
 public:
  Menu(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "Menu"; }
  bool TakesFocus() const override { return false; }

  // The pop-up this entry belongs to; nullptr for a top entry.
  Menu* ParentMenu() const { return parent_; }
  void SetParentMenu(Menu* parent) { parent_ = parent; }
  // For a pop-up: the control it opens over when the user right-clicks it.
  Control* PopupFor() const { return popupFor_; }
  void SetPopupFor(Control* control) { popupFor_ = control; }

 protected:
  void DescribeInto(nlohmann::json& out) const override;

 private:
  Menu* parent_ = nullptr;
  Control* popupFor_ = nullptr;
};

}  // namespace quillet::ui
