#pragma once
// The tree of the command bar "Quillet", as data: caption ids in creation order, with
// groups, pictures, handlers and the conditions under which a control is made.
#include <string>
#include <vector>

namespace quillet::shell {

struct MenuNode {
  enum Condition {
    kAlways,
    kObjectNameHost,  // Insert Objectname: a host whose objects can be named
    kTestingMode,     // Add Control: only while testing
    kAccessHost,      // Object Inventory: only under Access
  };
  int captionId;
  int type;                     // host::kControlButton, kControlPopup, kControlDropdown
  bool beginGroup = false;
  bool picture = false;         // a picture with the number of the caption
  std::wstring handler;         // the click handler without "_Click"; none for popups
  const wchar_t* webPath = nullptr;  // web entries: the page on the product's site
  Condition condition = kAlways;
  std::vector<MenuNode> children;
};

// The bar's level 1 in creation order, popups with their children.
const std::vector<MenuNode>& CommandBarTree();

}  // namespace quillet::shell
