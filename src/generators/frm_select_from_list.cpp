#include "generators/frm_select_from_list.h"

#include "generators/pick_lists.h"
#include "generators/select_case.h"
#include "generators/selection.h"
#include "generators/statements.h"
#include "generators/variable_builder_hooks.h"
#include "kernel/errors.h"
#include "settings/items.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/numbers.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

// The form's height with and without the controls of "Select From Enum".
constexpr long kEnumHeight = 5400;
constexpr long kListHeight = 3600;
// Entries of cboVarlist above this are names of the project, the module or a procedure.
constexpr long kNameGroups = 1000;
// "Select Case " before a continued test expression's first argument.
constexpr long kSelectCaseWidth = 12;

bool IsSelectCommand(const std::wstring& command) {
  return IsOneOf(command, {L"Select Case", L"Select Case Else", L"Select Case UCase"});
}

// A label that is not a line number must be a name: a letter first, then letters, digits or
// "_", shorter than 256 characters.
bool IsLabelName(const std::wstring& value) {
  if (vba::IsNumeric(value)) return true;
  try {
    settings::NameCharactersCheck(value);
    return true;
  } catch (const vba::Error&) {
    return false;
  }
}

}  // namespace

FrmSelectFromList::FrmSelectFromList(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmSelectFromList"),
      lblList(Add<ui::Label>(L"lblList")),
      lstList(Add<ui::ListBox>(L"lstList")),
      lblVarlist(Add<ui::Label>(L"lblVarlist")),
      cboVarlist(Add<ui::ComboBox>(L"cboVarlist")),
      chkSingleCase(Add<ui::CheckBox>(L"chkSingleCase")),
      chkCompact(Add<ui::CheckBox>(L"chkCompact")),
      chkReturnValues(Add<ui::CheckBox>(L"chkReturnValues")),
      chkAddCaseElse(Add<ui::CheckBox>(L"chkAddCaseElse")),
      txtCaseElse(Add<ui::TextBox>(L"txtCaseElse")),
      cmdOk(Add<ui::CommandButton>(L"cmdOk")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Select Case from Enum Builder");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 4200, kEnumHeight);
  lblList.SetCaption(L"&Label");
  lblList.Move(120, 120, 2600, 255);
  lstList.Move(120, 390, 2600, 2400);
  lblVarlist.SetCaption(L"&Test expression is");
  lblVarlist.Move(120, 2900, 2600, 255);
  cboVarlist.Move(120, 3170, 2600, 315);
  chkSingleCase.SetCaption(L"&Single Case");
  chkSingleCase.Move(120, 3600, 1900, 255);
  chkCompact.SetCaption(L"&Compact");
  chkCompact.Move(2100, 3600, 1900, 255);
  chkReturnValues.SetCaption(L"&Return values");
  chkReturnValues.Move(120, 3900, 1900, 255);
  chkAddCaseElse.SetCaption(L"Add Case &Else");
  chkAddCaseElse.Move(2100, 3900, 1900, 255);
  txtCaseElse.SetToolTipText(L"Expression for Case Else");
  txtCaseElse.Move(120, 4250, 3900, 315);
  cmdOk.SetCaption(L"OK");
  cmdOk.Move(2900, 390, 1095, 375);
  cmdOk.SetDefault(true);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.Move(2900, 840, 1095, 375);
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"Help");
  cmdHelp.Move(2900, 1290, 1095, 375);

  cmdOk.OnClick = [this] { Ok(); };
  lstList.OnDblClick = [this] { Ok(); };
  cmdCancel.OnClick = [this] { Unload(); };
  lstList.OnClick = [this] { ListClick(); };
  cboVarlist.OnClick = [this] { VarlistClick(); };
  chkAddCaseElse.OnClick = [this] {
    bool on = chkAddCaseElse.Checked();
    txtCaseElse.SetEnabled(on);
    txtCaseElse.SetText(on ? s_.settings[settings::kCodeCaseElse].ToString() : L"");
  };
  chkReturnValues.OnClick = [this] {
    bool on = chkReturnValues.Checked();
    if (on) {
      chkAddCaseElse.SetValue(ui::vbChecked);
      chkSingleCase.SetValue(ui::vbUnchecked);
    }
    chkCompact.SetEnabled(on);
  };
  chkSingleCase.OnClick = [this] {
    if (chkSingleCase.Checked()) chkReturnValues.SetValue(ui::vbUnchecked);
  };
}

void FrmSelectFromList::Init(const vba::Variant& command) {
  Load();
  command_ = command.ToString();
  SetCaption(command_);
  const bool fromEnum = command_ == L"Select From Enum";
  if (fromEnum) lblList.SetCaption(L"E&num");
  else if (IsOneOf(command_, {L"With", L"Debug.Print "})) lblList.SetCaption(L"&Variables");
  for (ui::Control* c : std::initializer_list<ui::Control*>{&lblVarlist, &cboVarlist, &chkSingleCase, &chkCompact,
                                                             &chkReturnValues, &chkAddCaseElse, &txtCaseElse})
    c->SetVisible(fromEnum);
  SetHeight(fromEnum ? kEnumHeight : kListHeight);
  chkAddCaseElse.SetChecked(s_.settings[settings::kAddCaseElse].ToBool());
  // The box's own rule also runs when the setting leaves it unchecked.
  chkAddCaseElse.OnClick();
  chkCompact.SetEnabled(false);
}

void FrmSelectFromList::GetCollections() {
  std::wstring name, returnType;
  bool function = CurrentFunction(s_, name, returnType);
  chkReturnValues.SetEnabled(function);
  chkReturnValues.SetValue(function && s_.settings[settings::kInsertReturnValues].ToBool() ? ui::vbChecked
                                                                                             : ui::vbUnchecked);
  chkCompact.SetEnabled(chkReturnValues.Checked());
}

void FrmSelectFromList::NewVariable(const std::wstring& name, long category) {
  VarName = name;
  Category = category;
}

void FrmSelectFromList::ArgInsert(const std::wstring& text, const std::wstring&, long indent) {
  VarName = indent > 0 ? vba::Replace(text, L", ", L", _\r\n" + vba::Space(indent + kSelectCaseWidth)) : text;
  Hide();
}

void FrmSelectFromList::ListClick() {
  if (!cboVarlist.Visible() || lstList.Text() == previousListText_) return;
  previousListText_ = lstList.Text();
  int at = cboVarlist.ListIndex();
  if (at >= 0 && cboVarlist.ItemData(at) > kNameGroups) cboVarlist.SetListIndex(0);
}

void FrmSelectFromList::VarlistClick() {
  auto type = enumTypeOf.find(cboVarlist.Text());
  if (type == enumTypeOf.end()) return;
  int at = lstList.FindStringExact(type->second);
  if (at >= 0) lstList.SetListIndex(at);
  previousListText_ = lstList.Text();
}

void FrmSelectFromList::Ok() {
  kernel::Trap(s_, L"frmSelectFromList.cmdOk_Click", [&] {
    int at = lstList.ListIndex();
    std::wstring item = lstList.Text();
    if (command_ == L"Select From Enum") {
      SelectCaseInput in;
      in.command = command_;
      in.enumName = item;
      in.enumCategory = at >= 0 ? lstList.ItemData(at) : 0;
      in.testExpression = cboVarlist.Text();
      int v = cboVarlist.ListIndex();
      in.varCategory = v >= 0 ? cboVarlist.ItemData(v) : 0;
      in.addCaseElse = chkAddCaseElse.Checked();
      in.returnValues = chkReturnValues.Checked();
      in.compact = chkCompact.Checked();
      in.singleCase = chkSingleCase.Checked();
      in.caseElseText = txtCaseElse.Text();
      if (SelectCodeInsert(s_, in)) Unload();
    } else if (command_ == L"Explicit Argument") {
      if (at < 0) return;
      // Once a name is written the list offers the others with ":=" already behind them.
      if (vba::Right(item, 2) == L":=") item.resize(item.size() - 2);
      std::wstring text = item + L":= ";
      InstanceAdd(s_, s_.vbe->ActiveCodePane(), text, {.allowEmptySelection = true, .sendKeys = true});
      Unload();
    } else if (command_ == L"With") {
      if (item == L"<New Variable>") {
        const VariableBuilderHooks& hooks = VariableBuilderHooksOf(s_);
        long category = 0;
        item.clear();
        if (!hooks.newVariable) return kernel::NotAvailable(s_, L"the Variable Builder");
        if (!hooks.newVariable(s_, this, true, L"", item, category)) return;
      }
      if (WithCodeInsert(s_, item)) Unload();
    } else if (IsOneOf(command_, {L"On Error GoTo", L"GoTo", L"Resume"})) {
      if (LabelChosen(item)) Unload();
    } else if (at >= 0) {
      if (VariableChosen(item)) Unload();
    }
  });
}

bool FrmSelectFromList::LabelChosen(const std::wstring& item) {
  std::wstring label = item;
  if (item == L"<New Label>") {
    std::optional<std::wstring> answer = s_.uiHost.InputBox(L"Label", L"Quillet", L"");
    if (!answer) return false;
    label = vba::Trim(*answer);
    if (!IsLabelName(label)) label.clear();
    // Ready to paste where the label is to stand.
    if (!label.empty()) s_.platform.ClipboardSetText(label + L":");
  }
  std::wstring text = label.empty() ? command_ + L" " : command_ + L" " + label;
  return CodeInsert(s_, text, command_, {.allowInline = true, .spaceBefore = true});
}

bool FrmSelectFromList::VariableChosen(std::wstring item) {
  if (item == L"<New Variable>") {
    const VariableBuilderHooks& hooks = VariableBuilderHooksOf(s_);
    if (!hooks.newVariable) {
      kernel::NotAvailable(s_, L"the Variable Builder");
      return false;
    }
    std::wstring name;
    long category = 0;
    if (!hooks.newVariable(s_, this, false, TypeFilter, name, category)) return false;
    NewVariable(name, category);
    item = name;
  } else if (item == L"<Expression>") {
    kernel::NotAvailable(s_, L"the Line of Code Builder");
    return false;
  } else if (item == L"<Start Typing>" && IsSelectCommand(command_)) {
    item = s_.uiHost.InputBox(L"Type Expression", command_, L"").value_or(L"");
  }
  if (collectOnly) {
    VarName = item;
    Hide();
    return false;
  }
  if (command_ == L"Debug.Print ") {
    if (item == L"<Start Typing>")
      return CodeInsert(s_, command_, command_, {.allowInline = true, .spaceBefore = true});
    return CodeInsert(s_, command_ + L" " + item, L"", {.spaceBefore = true});
  }
  if (command_ == L"Insert Variable") {
    InstanceAdd(s_, s_.vbe->ActiveCodePane(), item, {.allowEmptySelection = true, .sendKeys = false});
    return true;
  }
  return false;
}

}  // namespace quillet::generators
