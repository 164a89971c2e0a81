#include "generators/frm_argument.h"

#include <array>

#include "analysis/refresh.h"
#include "generators/frm_const.h"
#include "generators/scope.h"
#include "generators/type_combo.h"
#include "generators/values.h"
#include "kernel/errors.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kNewConstant = L"<New Constant>";
constexpr std::wstring_view kNone = L"(none)";

// The type whose constants a default may be: a plain type filters, anything else does not.
std::wstring DefaultValueFilter(const std::wstring& type) {
  static constexpr std::array<std::wstring_view, 10> kFiltered{L"Byte",   L"Boolean", L"Integer", L"Long",
                                                               L"Currency", L"Single", L"Double", L"Decimal",
                                                               L"Date",   L"String"};
  for (std::wstring_view t : kFiltered)
    if (vba::EqualsText(type, t)) return std::wstring(t);
  return {};
}

}  // namespace

FrmArgument::FrmArgument(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmArgument"),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblDataType(Add<ui::Label>(L"lblDataType")),
      cboDataType(TypeComboAdd(*this, L"cboDataType")),
      fraByValByRef(Add<ui::Frame>(L"fraByValByRef")),
      picByValByRef(Add<ui::PictureBox>(L"picByValByRef", &fraByValByRef)),
      optByVal0(Add<ui::OptionButton>(L"optByVal", &picByValByRef, 0)),
      optByVal1(Add<ui::OptionButton>(L"optByVal", &picByValByRef, 1)),
      chkOptional(Add<ui::CheckBox>(L"chkOptional")),
      chkArray(Add<ui::CheckBox>(L"chkArray")),
      chkParamArray(Add<ui::CheckBox>(L"chkParamArray")),
      lblDefaultValue(Add<ui::Label>(L"lblDefaultValue")),
      cboDefaultValue(Add<ui::ComboBox>(L"cboDefaultValue")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdOKAndNew(Add<ui::CommandButton>(L"cmdOKAndNew")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Argument Builder");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 5400, 4300);
  lblName.SetCaption(L"&Name");
  lblName.Move(120, 120, 1300, 255);
  txtName.Move(1500, 120, 2400, 315);
  lblDataType.SetCaption(L"&Type");
  lblDataType.Move(120, 520, 1300, 255);
  cboDataType.Move(1500, 520, 2400, 315);
  fraByValByRef.Move(120, 940, 1900, 900);
  picByValByRef.Move(60, 200, 1780, 640);
  optByVal0.SetCaption(L"By&Val");
  optByVal0.Move(60, 40, 1500, 255);
  optByVal1.SetCaption(L"By&Ref");
  optByVal1.Move(60, 340, 1500, 255);
  chkOptional.SetCaption(L"&Optional");
  chkOptional.Move(2200, 960, 1700, 255);
  chkArray.SetCaption(L"&Array");
  chkArray.Move(2200, 1260, 1700, 255);
  chkParamArray.SetCaption(L"&ParamArray");
  chkParamArray.Move(2200, 1560, 1700, 255);
  lblDefaultValue.SetCaption(L"&Default Value");
  lblDefaultValue.Move(120, 2000, 1300, 255);
  cboDefaultValue.Move(1500, 2000, 2400, 315);
  cmdOK.SetCaption(L"OK");
  cmdOK.SetDefault(true);
  cmdOK.Move(4020, 120, 1215, 375);
  cmdOKAndNew.SetCaption(L"OK && Ne&w");
  cmdOKAndNew.Move(4020, 560, 1215, 375);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.SetCancel(true);
  cmdCancel.Move(4020, 1000, 1215, 375);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(4020, 1440, 1215, 375);

  chkParamArray.OnClick = [this] { ParamArrayClicked(); };
  chkOptional.OnClick = [this] { OptionalClicked(); };
  cboDataType.OnClick = [this] { cboDataType_Click(); };
  cboDataType.OnChange = [this] { cboDataType_Click(); };
  cboDefaultValue.OnClick = [this] { DefaultValueChosen(); };
  cmdOK.OnClick = [this] { PressOK(false); };
  cmdOKAndNew.OnClick = [this] { PressOK(true); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmArgument::Init(std::shared_ptr<clsArgument> argument, const std::wstring& type) {
  kernel::Trap(s_, L"frmArgument.Init", [&] {
    Load();
    underEdit_ = std::move(argument);
    analysis::DataTypeList(s_, ModelsOf(s_), ScopeOf(s_).ModuleEnums, cboDataType,
                           underEdit_ ? (underEdit_->ValueType.empty() ? std::wstring(kNone) : underEdit_->ValueType)
                                      : type,
                           {.addNone = true});
    if (underEdit_ && cboDataType.FindStringExact(cboDataType.Text()) < 0) cboDataType.SetText(underEdit_->ValueType);
    cboDataType_Click();
    settingState_ = true;
    chkByVal(underEdit_ && underEdit_->IsByVal);
    if (underEdit_) {
      txtName.SetText(underEdit_->Name);
      chkOptional.SetChecked(underEdit_->IsOptional);
      chkArray.SetChecked(underEdit_->IsArray);
      chkParamArray.SetChecked(underEdit_->IsParamArray);
      cboDefaultValue.SetText(underEdit_->DefaultValue);
    }
    settingState_ = false;
    if (chkParamArray.Checked()) ParamArrayClicked();
    else OptionalClicked();
  });
}

bool FrmArgument::chkByVal() const { return optByVal0.Value(); }

void FrmArgument::chkByVal(bool byVal) {
  optByVal0.SetValue(byVal);
  optByVal1.SetValue(!byVal);
}

void FrmArgument::chkByVal_Enabled(bool enabled) { optByVal0.SetEnabled(enabled); }

void FrmArgument::ParamArrayClicked() {
  if (settingState_) return;
  settingState_ = true;
  const bool on = chkParamArray.Checked();
  chkOptional.SetValue(ui::vbUnchecked);
  chkOptional.SetEnabled(!on);
  cboDefaultValue.SetText(L"");
  cboDefaultValue.SetEnabled(!on);
  lblDefaultValue.SetEnabled(!on);
  chkArray.SetValue(chkParamArray.Value());
  chkByVal(false);
  chkByVal_Enabled(!on);
  settingState_ = false;
  CommonStateRule();
}

void FrmArgument::OptionalClicked() {
  if (settingState_) return;
  const bool on = chkOptional.Checked();
  chkArray.SetEnabled(!on);
  chkParamArray.SetEnabled(!on);
  cboDefaultValue.SetEnabled(on);
  lblDefaultValue.SetEnabled(on);
  CommonStateRule();
}

void FrmArgument::CommonStateRule() {
  if (!parent_) return;
  for (const auto& a : parent_->Procedure().Arguments().Items()) {
    if (a == underEdit_) continue;
    if (a->IsOptional) {
      chkParamArray.SetEnabled(false);
      return;
    }
    if (a->IsParamArray) {
      chkOptional.SetEnabled(false);
      chkArray.SetEnabled(false);
      chkParamArray.SetEnabled(false);
      lblDefaultValue.SetEnabled(false);
      return;
    }
  }
}

void FrmArgument::cboDataType_Click() {
  kernel::Trap(s_, L"frmArgument.cboDataType_Click", [&] {
    const std::wstring type = vba::Trim(cboDataType.Text());
    if (type == lastType_ && cboDefaultValue.ListCount() > 0) return;
    lastType_ = type;
    const std::wstring filter = DefaultValueFilter(type);
    cboDefaultValue.Clear();
    cboDefaultValue.AddItem(std::wstring(kNewConstant));
    analysis::Constants merged;
    auto addFrom = [&](const analysis::Constants& constants) {
      for (long i = 1; i <= constants.Count(); ++i) {
        const auto& c = constants.Item(i);
        if (c->EnumMember() || merged.Exists(c->Name)) continue;
        if (!filter.empty() && !vba::EqualsText(c->Type_, filter)) continue;
        merged.Add(c, c->Name);
      }
    };
    addFrom(ModelsOf(s_).ProjectConsts);
    addFrom(ScopeOf(s_).ModuleConsts);
    for (long i = 1; i <= merged.Count(); ++i) cboDefaultValue.AddItem(merged.Item(i)->Name);
  });
}

void FrmArgument::DefaultValueChosen() {
  if (cboDefaultValue.Text() != kNewConstant) return;
  cboDefaultValue.SetText(L"");
  std::wstring type = vba::Trim(cboDataType.Text());
  if (vba::EqualsText(type, kNone)) type.clear();
  FrmConst form(s_);
  form.SetParentForm(this);
  form.Init(type, L"");
  form.Show(true);
  if (form.Loaded()) form.Unload();
}

void FrmArgument::ArgInsert(const std::wstring& name, const std::wstring&) {
  if (cboDefaultValue.FindStringExact(name) < 0) cboDefaultValue.AddItem(name);
  cboDefaultValue.SetListIndex(cboDefaultValue.FindStringExact(name));
}

bool FrmArgument::PressOK(bool andNew) {
  bool stored = false;
  kernel::Trap(s_, L"frmArgument.PressOK", [&] {
    if (!parent_) return;
    colArguments& arguments = parent_->Procedure().Arguments();
    const std::wstring name = vba::Trim(txtName.Text());
    std::wstring type = vba::Trim(cboDataType.Text());
    if (vba::EqualsText(type, kNone)) type.clear();
    const std::shared_ptr<clsArgument> self = underEdit_;
    settings::NameLookup taken = [&arguments, self](std::wstring_view n) {
      const std::shared_ptr<clsArgument>* a = arguments.Find(n);
      return a && *a != self;
    };
    const long answer = settings::CheckNewNameIsOK(s_, name, false, false, {taken});
    if (answer == ui::vbCancel || answer == settings::kErrNameMissing) {
      txtName.SetFocus();
      return;
    }
    if (answer == ui::vbNo) return;
    if (!type.empty() && cboDataType.FindStringExact(type) < 0) cboDataType.AddItem(type);

    auto a = underEdit_ ? underEdit_ : std::make_shared<clsArgument>();
    const std::wstring oldName = a->Name;
    a->Name = name;
    a->ValueType = type;
    a->IsByVal = chkByVal();
    a->IsOptional = chkOptional.Checked();
    a->DefaultValue.clear();
    if (a->IsOptional) {
      const std::wstring value = vba::Trim(cboDefaultValue.Text());
      const int at = cboDataType.FindStringExact(cboDataType.Text());
      const int kind = at >= 0 && !type.empty() ? static_cast<int>(cboDataType.ItemData(at)) : vbEmpty;
      if (cboDefaultValue.FindStringExact(value) > 0) {
        a->DefaultValue = value;  // a constant of the list stands as its name
      } else if (!value.empty()) {
        Scope& scope = ScopeOf(s_);
        a->DefaultValue = ValueAsCode(s_, vba::Variant(value), kind, scope.ModuleConsts, scope.ProcConsts);
      }
    }
    a->IsArray = chkArray.Checked();
    a->IsParamArray = chkParamArray.Checked();
    if (!underEdit_) {
      a->Number = arguments.Count() + 1;
      arguments.Add(a);
    } else if (oldName != name) {
      // The key follows the name.
      arguments.RemoveIf([&a](const std::shared_ptr<clsArgument>& x) { return x == a; });
      arguments.Add(a);
    }
    parent_->ArgumentsList();
    stored = true;
    if (andNew) {
      underEdit_.reset();
      FieldsClear();
    } else {
      Unload();
    }
  });
  return stored;
}

void FrmArgument::FieldsClear() {
  txtName.SetText(L"");
  const int at = cboDataType.FindStringExact(L"String");
  if (at >= 0) cboDataType.SetListIndex(at);
  else cboDataType.SetText(L"String");
  chkParamArray.SetValue(ui::vbUnchecked);
  chkOptional.SetValue(ui::vbUnchecked);
  chkArray.SetValue(ui::vbUnchecked);
  chkByVal(false);
  cboDefaultValue.SetText(L"");
  OptionalClicked();
  txtName.SetFocus();
}

}  // namespace quillet::generators
