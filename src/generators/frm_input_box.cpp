#include "generators/frm_input_box.h"

#include <memory>

#include "generators/scope.h"
#include "generators/var_const_code.h"
#include "kernel/position.h"
#include "settings/items.h"
#include "settings/name_checks.h"
#include "settings/naming.h"
#include "vba/dates.h"
#include "vba/error.h"
#include "vba/numbers.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

// The buttons of a box without a value field stand this much higher.
constexpr long kValueRowHeight = 670;
constexpr long kTallHeight = 2010;

const wchar_t* KindWord(int kind) {
  switch (kind) {
    case kKindVariable: return L"Variable";
    case kKindConstant: return L"Constant";
    case kKindProperty: return L"Property";
  }
  return L"";
}

bool InRange(double v, double low, double high) { return v >= low && v <= high; }

}  // namespace

bool ValueFits(const std::wstring& value, const std::wstring& type) {
  std::wstring t = vba::LCase(type);
  std::wstring v = vba::Trim(value);
  if (t == L"string") return true;
  if (t == L"date") return vba::IsDate(v) || vba::IsNumeric(v);
  if (t == L"boolean") return vba::StrComp(v, L"True", vba::Compare::Text) == 0 ||
                              vba::StrComp(v, L"False", vba::Compare::Text) == 0 || vba::IsNumeric(v);
  static const struct {
    const wchar_t* name;
    double low, high;
  } numeric[] = {{L"byte", 0, 255},
                 {L"integer", -32768.5, 32767.5},
                 {L"long", -2147483648.5, 2147483647.5},
                 {L"currency", -922337203685477.5808, 922337203685477.5807},
                 {L"single", -3.402823e38, 3.402823e38},
                 {L"double", -1.79769313486231e308, 1.79769313486231e308},
                 {L"decimal", -7.9228162514264337593543950335e28, 7.9228162514264337593543950335e28}};
  for (const auto& n : numeric)
    if (t == n.name) return vba::IsNumeric(v) && InRange(vba::CDbl(v), n.low, n.high);
  return true;
}

settings::NameLookup ModuleProcsLookup(host::Ptr<host::CodeModule> module) {
  // The editor knows a module's procedures by name: reading their definitions would cost
  // a scan of the whole module for one name.
  return [module](std::wstring_view name) {
    if (!module) return false;
    for (host::ProcKind kind : {host::kProcKind, host::kGetKind, host::kLetKind, host::kSetKind}) {
      try {
        module->ProcStartLine(name, kind);
        return true;
      } catch (const vba::Error&) {
      }
    }
    return false;
  };
}

long NewNameIsOK(kernel::Session& s, const std::wstring& name, int kind) {
  std::vector<settings::NameLookup> lookups;
  if (kind == kKindVariable || kind == kKindConstant) {
    const analysis::ProjectModels& models = ModelsOf(s);
    Scope& scope = ScopeOf(s);
    host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
    settings::NameLookup moduleProcs = ModuleProcsLookup(pane ? pane->CodeModule() : nullptr);
    lookups = {settings::LookupIn(models.LibraryProcs), settings::LookupIn(models.ProjectProcs),
               settings::LookupIn(models.ProjectVars),  settings::LookupIn(models.ProjectConsts),
               moduleProcs,                             settings::LookupIn(scope.ModuleVars),
               settings::LookupIn(scope.ModuleConsts),  settings::LookupIn(scope.ProcVars),
               settings::LookupIn(scope.ProcConsts)};
  }
  return settings::CheckNewNameIsOK(s, name, false, false, lookups);
}

FrmInputBox::FrmInputBox(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmInputBox"),
      lblName(Add<ui::Label>(L"lblName")),
      txtName(Add<ui::TextBox>(L"txtName")),
      lblValue(Add<ui::Label>(L"lblValue")),
      txtValue(Add<ui::TextBox>(L"txtValue")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")),
      cmdCancel(Add<ui::CommandButton>(L"cmdCancel")),
      cmdHelp(Add<ui::CommandButton>(L"cmdHelp")),
      s_(s) {
  SetCaption(L"Constant");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 4200, kTallHeight);
  lblName.SetCaption(L"&Name");
  lblName.Move(120, 120, 3900, 255);
  txtName.Move(120, 375, 3900, 315);
  lblValue.SetCaption(L"&Value");
  lblValue.Move(120, 790, 3900, 255);
  txtValue.Move(120, 1045, 3900, 315);
  cmdOK.SetCaption(L"OK");
  cmdOK.Move(120, 1460, 1215, 375);
  cmdOK.SetDefault(true);
  cmdCancel.SetCaption(L"Cancel");
  cmdCancel.Move(1455, 1460, 1215, 375);
  cmdCancel.SetCancel(true);
  cmdHelp.SetCaption(L"&Help");
  cmdHelp.Move(2790, 1460, 1215, 375);

  txtName.OnChange = [this] { cmdOK.SetEnabled(!txtName.Text().empty()); };
  cmdOK.OnClick = [this] { PressOK(); };
  cmdCancel.OnClick = [this] { Unload(); };
}

void FrmInputBox::Init(int kind, const std::wstring& proposedName, const std::wstring& type,
                       const std::wstring& proposedValue) {
  Load();
  kind_ = kind;
  type_ = type;
  SetCaption(std::wstring(KindWord(kind)) + (type.empty() ? L"" : L" (" + type + L")"));
  bool withValue = kind == kKindConstant;
  lblValue.SetVisible(withValue);
  txtValue.SetVisible(withValue);
  if (withValue) {
    if (type.empty() || ValueFits(proposedValue, type)) txtValue.SetText(proposedValue);
  } else {
    for (ui::CommandButton* b : {&cmdOK, &cmdCancel, &cmdHelp}) b->SetTop(b->Top() - kValueRowHeight);
    SetHeight(Height() - kValueRowHeight);
  }
  std::wstring name = proposedName;
  if (s_.settings[settings::kAutoPrefixVariableName].ToLong() != settings::kNoAutoPrefix && kind != kKindProperty) {
    // A variable's prefix takes the module's scope outside a procedure and the first
    // scope inside one; a constant leaves the scope to the name.
    std::wstring procName;
    long body = 0;
    long scope = 0;
    if (kind == kKindVariable)
      scope = kernel::CurrentProcGet(s_, true, procName, body) ? settings::kScopeGlobal : settings::kScopeModule;
    std::wstring typeName = type, scopePrefix;
    name = settings::NameWithPrefix(s_, name, typeName, nullptr, scope, kind == kKindConstant, scopePrefix);
  }
  txtName.SetText(name);
  txtName.SetSelStart(0);
  txtName.SetSelLength(vba::Len(name));
  cmdOK.SetEnabled(!name.empty());
}

void FrmInputBox::PressOK() {
  std::wstring name = vba::Trim(txtName.Text());
  std::wstring value = vba::Trim(txtValue.Text());
  long answer = NewNameIsOK(s_, name, kind_);
  if (answer == settings::kErrNameMissing || answer == ui::vbNo) {
    txtName.SetFocus();
    return;
  }
  Unload();
  if (answer == ui::vbCancel) return;
  VarConstCodeInsert(s_, name, type_, kind_, value);
}

void QuickBoxOpen(kernel::Session& s, int kind, const std::wstring& type) {
  auto form = std::make_unique<FrmInputBox>(s);
  Scope& scope = ScopeOf(s);
  form->Init(kind, scope.proposedName, type, scope.proposedValue);
  kernel::FormOpenOptions o;
  o.callInit = false;
  kernel::FormOpen(s, std::move(form), o);
}

}  // namespace quillet::generators
