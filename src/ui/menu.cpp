#include "ui/menu.h"

#include "vba/encoding.h"

namespace quillet::ui {

Menu::Menu(Form& form, std::wstring name, Control* container, int index)
    : CaptionedControl(form, std::move(name), container, index) {
  Move(0, 0, 0, 0);
  SetTabStop(false);
}

void Menu::DescribeInto(nlohmann::json& out) const {
  CaptionedControl::DescribeInto(out);
  if (parent_) out["menu"] = vba::ToUtf8(parent_->FullName());
  if (popupFor_) out["popupFor"] = vba::ToUtf8(popupFor_->FullName());
}

}  // namespace quillet::ui
