#pragma once
// The builder of a new enum or user-defined type: name, prefix, items and the module, with
// a pop-up of type names behind " As" while the items are typed.
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

// The kind codes the builders are opened with.
inline constexpr long kKindEnumCode = 10003;
inline constexpr long kKindTypeCode = 10004;

class FrmEnumOrType : public kernel::BuilderForm {
 public:
  explicit FrmEnumOrType(kernel::Session& s);
  // `kind`: kKindEnumCode or kKindTypeCode.
  void Init(const vba::Variant& kind) override;

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblPrefix;
  ui::TextBox& txtPrefix;
  ui::Label& lblItems;
  ui::TextBox& txtItems;
  ui::ListBox& lstVars;
  ui::Label& lblModule;
  ui::ComboBox& cboModule;
  ui::Frame& fraAccessibility;
  ui::OptionButton& optDefault;
  ui::OptionButton& optPublic;
  ui::OptionButton& optPrivate;
  ui::CommandButton& cmdOk;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  void Ok();
  void ItemsKeyPress(int& keyAscii);
  // The chosen type goes into the items at the caret.
  void TypeChosen();
  void TypeListClose();

  kernel::Session& s_;
  bool isEnum_ = true;
};

// The dispatcher's "Enum" and "Type": a new block, or with the argument "Item" an item of
// a block that exists.
void EnumOrTypeCommand(kernel::Session& s, const std::wstring& command, std::wstring& argument);

}  // namespace quillet::generators
