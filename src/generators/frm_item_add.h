#pragma once
// Adds items to an enum or a user-defined type that exists: the block from a list, the
// item's text and an optional description; "OK & New" keeps the dialog open for the next.
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

class FrmItemAdd : public kernel::BuilderForm {
 public:
  explicit FrmItemAdd(kernel::Session& s);
  // `kind`: 10003 enum, 10004 type.
  void Init(const vba::Variant& kind) override;

  ui::Label& lblList;
  ui::ComboBox& cboList;
  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblDescription;
  ui::TextBox& txtDescription;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdNext;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  // Adds the item; true when it was written.
  bool AddItem();

  kernel::Session& s_;
  bool isEnum_ = true;
};

}  // namespace quillet::generators
