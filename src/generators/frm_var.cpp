#include "generators/frm_var.h"

#include "generators/variable_builder_hooks.h"
#include "kernel/timer_form.h"

#include "analysis/module_procs.h"
#include "analysis/refresh.h"
#include "analysis/scan_proc.h"
#include "generators/frm_input_box.h"
#include "generators/scope.h"
#include "generators/values.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/items.h"
#include "settings/naming.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr const wchar_t* kCrLf = L"\r\n";

// The entries of cboAccessibility, by their ItemData.
struct AccessibilityItem {
  long itemData;
  const wchar_t* text;
  int varLevel;
  long accessibility;
  bool procedureBound;
};
constexpr AccessibilityItem kAccessibilityItems[] = {
    {2, L"Dim - Procedure", kProcedureLevel, 0, true}, {1, L"Dim - Module", kModuleLevel, 0, false},
    {3, L"Interface", kInterfaceLevel, 0, true},       {4, L"Public", kModuleLevel, 1, false},
    {5, L"Private", kModuleLevel, 2, false},           {6, L"Static", kProcedureLevel, 4, true}};

const AccessibilityItem* ItemOf(long itemData) {
  for (const AccessibilityItem& i : kAccessibilityItems)
    if (i.itemData == itemData) return &i;
  return nullptr;
}

// Leading blanks of a line.
std::wstring IndentOf(const std::wstring& line) {
  return line.substr(0, line.find_first_not_of(L' ') == std::wstring::npos ? line.size() : line.find_first_not_of(L' '));
}

}  // namespace

std::optional<kernel::CodeEdit> ArgumentAddEdit(const DeclView& v, const std::wstring& argument, int before,
                                                bool eachOnNewLine, const std::wstring& name,
                                                const std::wstring& description) {
  if (v.procLine == 0) return std::nullopt;
  long defLines = 1;
  while (v.procLine + defLines - 1 < v.code.count && vba::Right(vba::RTrim(v.code.line(v.procLine + defLines - 1)), 2) == L" _")
    ++defLines;
  std::vector<std::wstring> sigLines;
  for (long n = 0; n < defLines; ++n) sigLines.push_back(v.code.line(v.procLine + n));
  std::wstring sig = vba::JoinLines(sigLines);
  std::wstring indent = defLines > 1 ? IndentOf(sigLines[1]) : std::wstring();
  std::size_t open = sig.find(L'(');
  std::size_t close = sig.rfind(L')');
  if (open == std::wstring::npos || close == std::wstring::npos || close < open) return std::nullopt;

  // Where each argument starts, behind "(" or a comma outside parentheses and quotes.
  std::vector<std::size_t> starts;
  auto startBehind = [&](std::size_t p) {
    while (p < close && (sig[p] == L' ' || sig[p] == L'_' || sig[p] == L'\r' || sig[p] == L'\n')) ++p;
    return p;
  };
  std::size_t first = startBehind(open + 1);
  if (first < close) starts.push_back(first);
  int depth = 0;
  bool quoted = false;
  for (std::size_t p = open + 1; p < close; ++p) {
    wchar_t c = sig[p];
    if (c == L'"') quoted = !quoted;
    if (quoted) continue;
    if (c == L'(') ++depth;
    if (c == L')') --depth;
    if (c == L',' && depth == 0) starts.push_back(startBehind(p + 1));
  }
  bool multiLine = defLines > 1;
  if (before < 0 || before >= static_cast<int>(starts.size())) {
    if (starts.empty()) sig.insert(open + 1, argument);
    else sig.insert(close, (eachOnNewLine && multiLine ? L", _" + std::wstring(kCrLf) + indent : L", ") + argument);
  } else {
    std::size_t at = starts[static_cast<std::size_t>(before)];
    std::size_t from = before == 0 ? open + 1 : sig.rfind(L',', at) + 1;
    bool continued = sig.substr(from, at - from).find(L'_') != std::wstring::npos;
    sig.insert(at, continued ? argument + L", _" + kCrLf + indent : argument + L", ");
  }
  if (!vba::Trim(description).empty()) sig += kCrLf + (L"'" + name + L": " + vba::Trim(description));
  kernel::CodeEdit edit;
  edit.line = v.procLine;
  edit.mode = kernel::CodeEdit::kReplaceLine;
  edit.replaced = defLines;
  edit.text = sig;
  return edit;
}

FrmVar::FrmVar(kernel::Session& s)
    : DeclBuilder(s, L"frmVar"),
      lblLength(Add<ui::Label>(L"lblLength")),
      txtLength(Add<ui::TextBox>(L"txtLength")),
      chkArray(Add<ui::CheckBox>(L"chkArray")),
      lblDimensions(Add<ui::Label>(L"lblDimensions")),
      txtDimensions(Add<ui::TextBox>(L"txtDimensions")),
      fraInterface(Add<ui::Frame>(L"fraInterface")),
      chkByVal(Add<ui::CheckBox>(L"chkByVal", &fraInterface)),
      chkOptional(Add<ui::CheckBox>(L"chkOptional", &fraInterface)),
      chkParamArray(Add<ui::CheckBox>(L"chkParamArray", &fraInterface)),
      txtDefault(Add<ui::TextBox>(L"txtDefault", &fraInterface)),
      lblBefore(Add<ui::Label>(L"lblBefore", &fraInterface)),
      cboArgument(Add<ui::ComboBox>(L"cboArgument", &fraInterface)),
      fraObject(Add<ui::Frame>(L"fraObject")),
      chkNew(Add<ui::CheckBox>(L"chkNew", &fraObject)),
      chkNothing(Add<ui::CheckBox>(L"chkNothing", &fraObject)),
      chkWith(Add<ui::CheckBox>(L"chkWith", &fraObject)) {
  SetCaption(L"Variable Builder");
  Move(0, 0, 6600, 5400);
  lblLength.SetCaption(L"Lengt&h");
  chkArray.SetCaption(L"&Is Array");
  lblDimensions.SetCaption(L"Arra&y Dimensions");
  fraInterface.SetCaption(L"Interface");
  chkByVal.SetCaption(L"B&yVal");
  chkOptional.SetCaption(L"&Optional");
  chkParamArray.SetCaption(L"Pa&ramArray");
  lblBefore.SetCaption(L"Be&fore");
  cboArgument.SetStyle(ui::vbComboDropdownList);
  fraObject.SetCaption(L"Object");
  chkNew.SetCaption(L"Set = N&ew");
  chkNothing.SetCaption(L"Set = Nothin&g");
  chkWith.SetCaption(L"With &...");

  for (ui::Control* c : std::initializer_list<ui::Control*>{&chkArray, &chkByVal, &chkOptional, &chkParamArray,
                                                            &cboAccessibility, &cboDataType, &chkNew, &chkWith})
    c->OnClick = [this] { SetControlsState(); };
  cboDataType.OnChange = [this] { SetControlsState(); };
  cmdOK.OnClick = [this] { PressOK(false); };
  cmdOKAndPaste.OnClick = [this] { PressOK(true); };
  cmdObjectName.OnClick = [this] { kernel::NotAvailable(s_, L"the object name dialog"); };
}

void FrmVar::Init(const VarInit& o) {
  Load();
  std::wstring procName;
  long body = 0;
  inProc_ = kernel::CurrentProcGet(s_, true, procName, body);
  insertInstance_ = o.insertInstance;
  const analysis::ProjectModels& models = ModelsOf(s_);
  Scope& scope = ScopeOf(s_);
  if (o.withMode) {
    analysis::DataTypeList(s_, models, scope.ModuleEnums, cboDataType, L"Object", {});
    for (int i = cboDataType.ListCount() - 1; i >= 0; --i)
      if (!analysis::TypeIsObject(models, cboDataType.List(i), scope.ModuleEnums, scope.ModuleTypes))
        cboDataType.RemoveItem(i);
    cboDataType.SetListIndex(cboDataType.FindStringExact(L"Object"));
  } else if (o.types.empty()) {
    analysis::DataTypeList(s_, models, scope.ModuleEnums, cboDataType, L"String", {});
  } else if (o.onlyTypes) {
    cboDataType.Clear();
    analysis::AddTypeItem(cboDataType, o.types);
  } else {
    analysis::DataTypeList(s_, models, scope.ModuleEnums, cboDataType, o.types, {});
  }
  ModulesListFill();
  AccessibilityComboBoxFill();
  cboArgument.Clear();
  if (inProc_) {
    host::ProcKind kind = host::kProcKind;
    if (auto args = analysis::qltCurProcArgsGet(s_, procName, kind))
      for (const auto& a : args->Items()) cboArgument.AddItem(a->Name);
  }
  prefilled_ = !txtName.Text().empty();
  if (!prefilled_) {
    long item = cboAccessibility.ListIndex() >= 0 ? cboAccessibility.ItemData(cboAccessibility.ListIndex()) : 0;
    long scopeOfName = item == 1 || item == 5 ? settings::kScopeModule
                       : item == 4            ? settings::kScopeGlobal
                       : item == 3            ? (chkByVal.Value() ? settings::kScopeByVal : settings::kScopeByRef)
                                              : settings::kScopeLocal;
    std::wstring typeName = cboDataType.Text(), scopePrefix;
    txtName.SetText(settings::NameWithPrefix(s_, L"", typeName, nullptr, scopeOfName, false, scopePrefix));
  }
  cmdOKAndPaste.SetEnabled(!ParentForm() && !insertInstance_);
  SetControlsState();
}

void FrmVar::AccessibilityComboBoxFill() {
  int before = cboAccessibility.ListIndex();
  cboAccessibility.Clear();
  for (const AccessibilityItem& i : kAccessibilityItems) {
    if (i.procedureBound && !inProc_) continue;
    cboAccessibility.AddItem(i.text);
    cboAccessibility.SetItemData(cboAccessibility.NewIndex(), i.itemData);
  }
  cboAccessibility.SetListIndex(before >= 0 && before < cboAccessibility.ListCount() ? before : 0);
}

int FrmVar::VarLevel() const {
  int i = cboAccessibility.ListIndex();
  const AccessibilityItem* item = i >= 0 ? ItemOf(cboAccessibility.ItemData(i)) : nullptr;
  return item ? item->varLevel : kModuleLevel;
}

long FrmVar::Accessibility() const {
  int i = cboAccessibility.ListIndex();
  const AccessibilityItem* item = i >= 0 ? ItemOf(cboAccessibility.ItemData(i)) : nullptr;
  return item ? item->accessibility : 0;
}

void FrmVar::SetAccessibilityItem(long itemData) {
  for (int i = 0; i < cboAccessibility.ListCount(); ++i)
    if (cboAccessibility.ItemData(i) == itemData) cboAccessibility.SetListIndex(i);
}

void FrmVar::SetControlsState() {
  if (settingState_) return;
  settingState_ = true;
  const int level = VarLevel();
  const bool iface = level == kInterfaceLevel;
  // A box that loses its availability loses its check; its partners may then change, so
  // the rules run until they hold.
  auto allow = [](ui::CheckBox& box, bool enabled) {
    box.SetEnabled(enabled);
    if (!enabled && box.Value() != 0) box.SetValue(0);
  };
  for (int pass = 0; pass < 2; ++pass) {
    bool array = chkArray.Value() != 0;
    allow(chkByVal, iface && chkParamArray.Value() == 0);
    allow(chkOptional, iface && chkParamArray.Value() == 0);
    allow(chkParamArray, iface && array && chkByVal.Value() == 0 && chkOptional.Value() == 0);
  }
  bool array = chkArray.Value() != 0;
  txtDimensions.SetEnabled(array);
  lblDimensions.SetEnabled(array);
  if (!array) txtDimensions.SetText(L"");
  fraInterface.SetEnabled(iface);
  cboArgument.SetEnabled(iface);
  lblBefore.SetEnabled(iface);
  bool withDefault = iface && chkOptional.Value() != 0;
  txtDefault.SetEnabled(withDefault);
  if (!withDefault) txtDefault.SetText(L"");
  lblModule.SetEnabled(level == kModuleLevel);
  cboModule.SetEnabled(level == kModuleLevel);
  if (level != kModuleLevel) {
    host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
    if (pane) {
      int i = cboModule.FindStringExact(pane->CodeModule()->Parent()->Name());
      if (i >= 0 && i != cboModule.ListIndex()) cboModule.SetListIndex(i);
    }
  }
  std::wstring type = vba::Trim(cboDataType.Text());
  bool length = type == L"String" && !iface;
  txtLength.SetEnabled(length);
  lblLength.SetEnabled(length);
  if (!length) txtLength.SetText(L"");
  Scope& scope = ScopeOf(s_);
  bool object = level == kProcedureLevel && !type.empty() &&
                analysis::TypeIsObject(ModelsOf(s_), type, scope.ModuleEnums, scope.ModuleTypes);
  fraObject.SetEnabled(object);
  allow(chkNew, object && type != L"Object");
  allow(chkNothing, object);
  allow(chkWith, object);
  settingState_ = false;
}

FrmVar::CodeLine FrmVar::BuildCodeLine() const {
  std::wstring keyword;
  if (VarLevel() == kProcedureLevel) keyword = IsStatic() ? L"Static " : L"Dim ";
  else keyword = Accessibility() == 1 ? L"Public " : Accessibility() == 2 ? L"Private " : L"Dim ";
  CodeLine c;
  c.namePart = vba::Trim(txtName.Text());
  if (chkArray.Value() != 0) c.namePart += L"(" + txtDimensions.Text() + L")";
  if (!cboDataType.Text().empty()) c.namePart += L" As " + cboDataType.Text();
  if (!txtLength.Text().empty()) c.namePart += L" * " + txtLength.Text();
  c.line = keyword + c.namePart + DescriptionSuffix();
  return c;
}

bool FrmVar::PressOK(bool paste) {
  std::wstring name = vba::Trim(txtName.Text());
  std::wstring module = vba::Trim(cboModule.Text());
  if (!NameAccepted(name, kKindVariable)) return false;
  std::wstring type = vba::Trim(cboDataType.Text());
  const int level = VarLevel();
  host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
  if (!pane) return false;
  if (level == kInterfaceLevel) {
    ArgumentAdd(name);
  } else {
    CodeLine code = BuildCodeLine();
    std::wstring blockName;
    long blockLine = ModuleIsActive() ? BlockLineGet(DeclViewOf(*pane, kernel::TabSpacesGet(s_)), false, blockName) : 0;
    std::wstring text = blockLine > 0 ? code.namePart : code.line;
    if (!VarConstCodeAdd(s_, text, module,
                         {.moduleLevel = level == kModuleLevel, .appendToDeclarations = true, .name = name,
                          .lineNumber = blockLine}))
      return false;
    if (blockLine == 0) {
      auto variable = std::make_shared<analysis::clsVariable>();
      variable->init(code.namePart);
      variable->ModuleName = module;
      const bool standard = ModuleIsStandard(module);
      auto& models = analysis::Models(s_);
      if (level == kModuleLevel && Accessibility() == 1 && standard && models) {
        if (!models->ProjectVars.Exists(name)) models->ProjectVars.Add(variable, name);
      } else if (ParentForm() && !ParentForm()->IsPickList()) {
        ParentForm()->AddNewVar(variable, level == kModuleLevel);
      }
    }
    if (DeclParent* parent = ParentForm()) {
      if (parent->IsPickList()) {
        int i = cboDataType.FindStringExact(type);
        if (i >= 0) parent->NewVariable(name, cboDataType.ItemData(i));
      } else {
        parent->ArgInsert(name, type);
      }
    }
    ObjectCodeAdd(name, type);
  }
  NameDelivered(name, paste, insertInstance_);
  Done(name);
  return true;
}

void FrmVar::ArgumentAdd(const std::wstring& name) {
  host::Ptr<host::CodePane> pane = s_.vbe ? s_.vbe->ActiveCodePane() : nullptr;
  if (!pane) return;
  std::wstring type = vba::Trim(cboDataType.Text());
  std::wstring arg;
  if (chkOptional.Value()) arg += L"Optional ";
  if (chkByVal.Value()) arg += L"ByVal ";
  if (chkParamArray.Value()) arg += L"ParamArray ";
  arg += name;
  if (chkArray.Value()) arg += L"()";
  if (!type.empty()) arg += L" As " + type;
  if (!txtDefault.Text().empty()) {
    int i = cboDataType.FindStringExact(type);
    Scope& scope = ScopeOf(s_);
    std::wstring value = ValueAsCode(s_, vba::Variant(txtDefault.Text()), i >= 0 ? static_cast<int>(cboDataType.ItemData(i)) : 0,
                                     scope.ModuleConsts, scope.ProcConsts);
    if (!value.empty()) arg += L" = " + value;
  }
  int before = cboArgument.ListIndex();
  std::optional<kernel::CodeEdit> edit =
      ArgumentAddEdit(DeclViewOf(*pane, kernel::TabSpacesGet(s_)), arg, before,
                      s_.settings[settings::kEachArgumentOnANewLine].ToBool(), name, txtDescription.Text());
  if (edit) kernel::ApplyEdit(s_.platform, *pane, *edit);
}

void FrmVar::ObjectCodeAdd(const std::wstring& name, const std::wstring& type) {
  bool withNew = chkNew.Value() != 0, withBlock = chkWith.Value() != 0, withNothing = chkNothing.Value() != 0;
  if (!withNew && !withBlock && !withNothing) return;
  host::Ptr<host::CodePane> pane = s_.vbe->ActiveCodePane();
  analysis::clsScanProc scan;
  scan.init(s_, true);
  if (scan.ProcRealStartLine == 0) return;
  long line = scan.ProcDeclAreaLineCount > 0 ? scan.ProcDeclAreaEndLine + 1 : scan.ProcRealStartLine + scan.ProcDefLineCount;
  const std::wstring t = kernel::TabSpacesGet(s_);
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  long added = 0;
  if (withNew) {
    module->InsertLines(line, t + L"Set " + name + L" = New " + type);
    ++line;
    ++added;
  }
  if (withBlock) {
    module->InsertLines(line, t + L"With " + name + kCrLf + t + t + L"<cursor>" + kCrLf + t + L"End With");
    line += 3;
    added += 3;
    long from = 1;
    kernel::SetCursor(s_, from, false, nullptr);
  }
  if (withNothing) module->InsertLines(scan.ProcExitLine + added, t + L"Set " + name + L" = Nothing");
}

void VarBuilderOpen(kernel::Session& s) {
  if (!kernel::CodeWindowActive(s)) return;
  initialize(s, L"", L"");
  auto form = std::make_unique<FrmVar>(s);
  form->Init(VarInit{});
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

namespace {

// A pick list's side of the Variable Builder: the new name and its category come back.
class PickListParent : public DeclParent {
 public:
  bool IsPickList() const override { return true; }
  void NewVariable(const std::wstring& n, long c) override {
    name = n;
    category = c;
    answered = true;
  }
  std::wstring name;
  long category = 0;
  bool answered = false;
};

// The type a delayed Variable Builder is limited to.
struct PendingVarType {
  std::wstring type;
};

}  // namespace

void VariableBuilderServe(kernel::Session& s) {
  VariableBuilderHooksSet(
      s, {.newVariable =
              [](kernel::Session& s, ui::Form*, bool withMode, const std::wstring& onlyTypes, std::wstring& name,
                 long& category) {
                PickListParent parent;
                FrmVar form(s);
                form.SetParentForm(&parent);
                form.Init({.types = onlyTypes, .onlyTypes = !onlyTypes.empty(), .withMode = withMode});
                form.Show(true);
                if (form.Loaded()) form.Unload();
                if (!parent.answered) return false;
                name = parent.name;
                category = parent.category;
                return true;
              },
          .openLater =
              [](kernel::Session& s, const std::wstring& onlyType) {
                if (!s.timerForm) return;
                auto& pending = s.Slot<PendingVarType>();
                pending = std::make_shared<PendingVarType>(PendingVarType{onlyType});
                s.timerForm->openDelayed = [&s](const std::wstring& form, const std::wstring& text) {
                  DelayedBuilderOpen(s, form, text);
                };
                s.timerForm->DelayedStart(L"frmVar", L"", 50);
              }});
}

void DelayedBuilderOpen(kernel::Session& s, const std::wstring& formName, const std::wstring&) {
  if (formName != L"frmVar") return;
  auto& pending = s.Slot<PendingVarType>();
  const std::wstring type = pending ? pending->type : std::wstring();
  pending.reset();
  auto form = std::make_unique<FrmVar>(s);
  form->Init({.types = type, .onlyTypes = !type.empty()});
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

}  // namespace quillet::generators
