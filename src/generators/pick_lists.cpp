#include "generators/pick_lists.h"

#include <set>

#include "analysis/refresh.h"
#include "generators/scope.h"
#include "generators/select_case.h"
#include "generators/statements.h"
#include "ui/constants.h"
#include "vba/like.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

// Where a name of cboVarlist comes from.
enum NameGroup : long {
  kProjectVar = 1001, kModuleVar = 1002, kProcVar = 1003,
  kLibraryFunction = 2001, kProjectFunction = 2002, kModuleFunction = 2003,
};

using NameSet = std::set<std::wstring, vba::TextLess>;

// The names of every enum in reach: the module's, the project's, the libraries'.
NameSet EnumNames(kernel::Session& s) {
  NameSet names;
  const Scope& scope = ScopeOf(s);
  const analysis::ProjectModels& models = ModelsOf(s);
  for (const analysis::colEnums* enums : {&scope.ModuleEnums, &models.ProjectEnums, &models.LibraryEnums})
    for (const auto& e : *enums) names.insert(e->Name);
  return names;
}

void SelectFirst(ui::ListBox& list) {
  if (list.ListCount() > 0) list.SetListIndex(0);
}

// Shows the list in the session's way.
void Open(kernel::Session& s, std::unique_ptr<FrmSelectFromList> form) {
  kernel::FormOpen(s, std::move(form), {.callInit = false});
}

}  // namespace

bool CurrentFunction(kernel::Session& s, std::wstring& name, std::wstring& returnType) {
  const auto& scan = analysis::CurrentScan(s);
  if (!scan || scan->ProcTypeStr != L"Function") return false;
  name = scan->ProcName;
  returnType.clear();
  if (const auto* proc = ScopeOf(s).ModuleProcs(s).Find(name)) returnType = (*proc)->ProcReturnType;
  return true;
}

void LabelsFill(kernel::Session& s, FrmSelectFromList& form) {
  form.lstList.AddItem(L"<New Label>");
  for (const auto& label : ScopeOf(s).ProcLabels) form.lstList.AddItem(label->Name);
  SelectFirst(form.lstList);
}

void VariablesFill(kernel::Session& s, FrmSelectFromList& form) {
  const std::wstring& command = form.Command();
  ui::ListBox& list = form.lstList;
  const bool select = IsOneOf(command, {L"Select Case", L"Select Case Else", L"Select Case UCase"});
  const bool upper = command == L"Select Case UCase";
  if (select || command == L"Debug.Print ") list.AddItem(L"<Start Typing>");
  list.AddItem(L"<New Variable>");
  if (select) list.AddItem(L"<Expression>");
  if (upper) form.TypeFilter = L"String";

  Scope& scope = ScopeOf(s);
  const analysis::ProjectModels& models = ModelsOf(s);
  NameSet seen;
  for (const analysis::Variables* vars : std::initializer_list<const analysis::Variables*>{&models.ProjectVars, &scope.ModuleVars, &scope.ProcVars}) {
    for (const auto& v : *vars) {
      if (upper && v->Type_ != L"String") continue;
      if (!seen.insert(v->Name).second) continue;
      list.AddItem(v->Name);
      if (analysis::TypeIsObject(models, v->Type_, scope.ModuleEnums, scope.ModuleTypes))
        list.SetItemData(list.NewIndex(), analysis::kKindObject);
    }
  }
  std::wstring function, returnType;
  if (command != L"With" && CurrentFunction(s, function, returnType) && (!upper || returnType == L"String") &&
      seen.insert(function).second)
    list.AddItem(function);
  if (command == L"Insert Variable") analysis::KnownExpressionsGet(s, models, list, L"");
  SelectFirst(list);
}

void EnumsFill(kernel::Session& s, FrmSelectFromList& form) {
  Scope& scope = ScopeOf(s);
  const analysis::ProjectModels& models = ModelsOf(s);
  long category = 1;
  for (const analysis::colEnums* enums :
       std::initializer_list<const analysis::colEnums*>{&scope.ModuleEnums, &models.ProjectEnums, &models.LibraryEnums}) {
    for (const auto& e : *enums) {
      if (vba::Like(vba::LCase(e->Name), L"*constants*")) continue;
      form.lstList.AddItem(e->Name);
      form.lstList.SetItemData(form.lstList.NewIndex(), category);
    }
    ++category;
  }
  SelectFirst(form.lstList);

  ui::ComboBox& names = form.cboVarlist;
  names.AddItem(L"<New Variable>");
  names.SetItemData(names.NewIndex(), kNewVariable);
  const NameSet enumNames = EnumNames(s);
  auto offer = [&](const std::wstring& name, const std::wstring& type, long group) {
    if (!enumNames.count(type) || form.enumTypeOf.count(name)) return;
    names.AddItem(name);
    names.SetItemData(names.NewIndex(), group);
    form.enumTypeOf[name] = type;
  };
  for (const auto& v : models.ProjectVars) offer(v->Name, v->Type_, kProjectVar);
  for (const auto& v : scope.ModuleVars) offer(v->Name, v->Type_, kModuleVar);
  for (const auto& v : scope.ProcVars) offer(v->Name, v->Type_, kProcVar);
  for (const auto& p : models.LibraryProcs) offer(p->Name, p->ProcReturnType, kLibraryFunction);
  for (const auto& p : models.ProjectProcs) offer(p->Name, p->ProcReturnType, kProjectFunction);
  for (const auto& p : scope.ModuleProcs(s)) offer(p->Name, p->ProcReturnType, kModuleFunction);
  names.SetText(L"<New Variable>");
}

void PickLabelCommand(kernel::Session& s, const std::wstring& command, std::wstring&) {
  auto form = std::make_unique<FrmSelectFromList>(s);
  form->Init(command);
  LabelsFill(s, *form);
  Open(s, std::move(form));
}

void PickVariableCommand(kernel::Session& s, const std::wstring& command, std::wstring&) {
  auto form = std::make_unique<FrmSelectFromList>(s);
  form->Init(command);
  VariablesFill(s, *form);
  Open(s, std::move(form));
}

void SelectFromEnumCommand(kernel::Session& s, const std::wstring& command, std::wstring&) {
  auto form = std::make_unique<FrmSelectFromList>(s);
  form->Init(command);
  form->GetCollections();
  EnumsFill(s, *form);
  Open(s, std::move(form));
}

void SelectCaseCommand(kernel::Session& s, const std::wstring& command, std::wstring&) {
  // The choice comes back to this command: the form is always modal and only collects it.
  FrmSelectFromList form(s);
  form.Init(command);
  VariablesFill(s, form);
  form.collectOnly = true;
  form.Show(true);
  std::wstring value = form.VarName;
  form.Unload();
  if (!value.empty()) SelectCodeInsert(s, {.command = command, .testExpression = value});
}

}  // namespace quillet::generators
