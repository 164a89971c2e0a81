#pragma once
// The Argument Builder: adds one argument to the procedure that its parent dialog holds,
// or changes one of them, with ByVal or ByRef, Optional with its default, an array, or a
// ParamArray; the check boxes follow what the list already holds (nothing but optional
// arguments behind an optional one, nothing behind a ParamArray).
//
//   FrmArgument arg(s);
//   arg.SetParentForm(this);          // the Procedure Builder: Procedure() and ArgumentsList()
//   arg.Init(nullptr, L"String");     // a new argument, the type preset
//   arg.Show(true);
#include <memory>
#include <string>

#include "generators/frm_decl_builder.h"
#include "generators/procedure.h"
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::generators {

// What the Argument Builder needs of the dialog that opened it.
class ArgumentParent {
 public:
  virtual ~ArgumentParent() = default;
  virtual clsProcedure& Procedure() = 0;
  // Redraws the parent's list of arguments.
  virtual void ArgumentsList() = 0;
};

class FrmArgument : public kernel::BuilderForm, public DeclParent {
 public:
  explicit FrmArgument(kernel::Session& s);

  void SetParentForm(ArgumentParent* parent) { parent_ = parent; }
  ArgumentParent* ParentForm() const { return parent_; }

  // Loads the dialog for `argument` (changed in place on OK), or for a new one with the
  // type `type` chosen when `argument` is null.
  void Init(std::shared_ptr<clsArgument> argument, const std::wstring& type);
  void Init() override { Init(nullptr, L"String"); }

  // Which of the two options is chosen: true for ByVal.
  bool chkByVal() const;
  void chkByVal(bool byVal);
  void chkByVal_Enabled(bool enabled);

  // OK (`andNew` for "OK && New"): true when the argument was stored.
  bool PressOK(bool andNew);
  // The constant made by the Constant Builder, opened from "<New Constant>", becomes the
  // default value.
  void ArgInsert(const std::wstring& name, const std::wstring& type) override;
  // Refills the default values for the type chosen.
  void cboDataType_Click();

  ui::Label& lblName;
  ui::TextBox& txtName;
  ui::Label& lblDataType;
  ui::ComboBox& cboDataType;
  ui::Frame& fraByValByRef;
  ui::PictureBox& picByValByRef;
  ui::OptionButton& optByVal0;  // "By&Val"
  ui::OptionButton& optByVal1;  // "By&Ref"
  ui::CheckBox& chkOptional;
  ui::CheckBox& chkArray;
  ui::CheckBox& chkParamArray;
  ui::Label& lblDefaultValue;
  ui::ComboBox& cboDefaultValue;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdOKAndNew;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  void ParamArrayClicked();
  void OptionalClicked();
  void CommonStateRule();
  void DefaultValueChosen();
  void FieldsClear();

  kernel::Session& s_;
  ArgumentParent* parent_ = nullptr;
  std::shared_ptr<clsArgument> underEdit_;
  std::wstring lastType_;
  bool settingState_ = false;
};

}  // namespace quillet::generators
