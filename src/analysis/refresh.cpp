#include "analysis/refresh.h"

#include <algorithm>

#include "analysis/keyed.h"
#include "analysis/module_scan.h"
#include "settings/ini_file.h"
#include "settings/items.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {
namespace {

constexpr int kProjectLocked = 1;
constexpr int kDocumentModule = 100;

host::Ptr<host::VBProject> ActiveProject(kernel::Session& s) { return s.vbe ? s.vbe->ActiveVBProject() : nullptr; }

// Removes every entry that `gone` picks; the rest stays in order.
template <class T, class F>
void RemoveWhere(vba::Collection<T>& items, F&& gone) {
  items.RemoveIf(gone);
}

// The basic types in the order the lists show them, with their variant type numbers.
struct BasicType {
  const wchar_t* name;
  long itemData;
};
constexpr BasicType kBasicTypes[] = {{L"Byte", 17},    {L"Boolean", 11},  {L"Integer", 2}, {L"Long", 3},  {L"Single", 4},
                                     {L"Double", 5},   {L"Currency", 6},  {L"Date", 7},    {L"String", 8}};

// Adds the names of `records` that the list does not hold yet, with `itemData`.
template <class List, class Records>
void NamesAdd(List& list, const Records& records, long itemData) {
  for (const auto& r : records) {
    if (list.FindStringExact(r->Name) >= 0) continue;
    list.AddItem(r->Name);
    list.SetItemData(list.NewIndex(), itemData);
  }
}

}  // namespace

void StdModulesGet(kernel::Session& s, ItemCollection& modules) {
  host::Ptr<host::VBProject> project = ActiveProject(s);
  if (!project || project->Protection() == kProjectLocked) return;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) {
    host::Ptr<host::VBComponent> c = components->Item(i);
    if (c->Type() != host::kStdModule) continue;
    auto item = std::make_shared<clsItem>();
    item->Name = c->Name();
    item->Value = c->CodeModule()->TextLength();
    AddKeepingFirst(modules, item, item->Name);
  }
}

void ModuleAdd(kernel::Session& s, ProjectModels& models, const std::wstring& name) {
  clsScanProject(s, models).init(name);
}

void ModuleRemove(ProjectModels& models, std::wstring_view name) {
  auto inModule = [&](const auto& record) { return vba::EqualsText(record->ModuleName, name); };
  RemoveWhere(models.ProjectProcs, inModule);
  RemoveWhere(models.ProjectVars, inModule);
  RemoveWhere(models.ProjectConsts, inModule);
  auto declaredThere = [&](const auto& record) { return vba::EqualsText(record->Module, name); };
  RemoveWhere(models.ProjectEnums.Items(), declaredThere);
  RemoveWhere(models.ProjectTypes.Items(), declaredThere);
}

void RefLibRemove(ProjectModels& models, std::wstring_view name) {
  auto fromLibrary = [&](const auto& record) { return vba::EqualsText(record->Project, name); };
  RemoveWhere(models.LibraryProcs, fromLibrary);
  RemoveWhere(models.LibraryConsts, fromLibrary);
  RemoveWhere(models.LibraryEnums.Items(), fromLibrary);
}

bool ReferencesRefresh(kernel::Session& s, ProjectModels& models) {
  // Names joined with a delimiter at both ends of each, so that a name is found whole.
  auto joined = [](const vba::Collection<std::wstring>& names) {
    std::wstring text;
    for (const std::wstring& n : names) text += L"|" + n + L"|";
    return text;
  };
  const std::wstring before = joined(models.ReferenceNames);
  models.ReferenceNames = {};
  host::Ptr<host::VBProject> project = ActiveProject(s);
  if (!project) return !before.empty();
  host::Ptr<host::References> references = project->References();
  for (long i = 1; i <= references->Count(); ++i) {
    try {
      host::Ptr<host::Reference> r = references->Item(i);
      if (r->IsBroken() || r->FullPath().empty()) continue;
      AddKeepingFirst(models.ReferenceNames, r->Name(), r->Name());
    } catch (const vba::Error&) {
      // A reference that cannot be read is not usable.
    }
  }
  const std::wstring after = joined(models.ReferenceNames);
  const bool changed = !vba::EqualsText(before, after);
  if (before.empty()) return changed;
  // A library that came is read by the type library scan when it exists; one that went
  // leaves the models now.
  for (const std::wstring& name : vba::Split(before, L"|"))
    if (!name.empty() && vba::InStr(after, L"|" + name + L"|", vba::Compare::Text) == 0) RefLibRemove(models, name);
  return changed;
}

void ProjectRefresh(kernel::Session& s, ProjectModels& models, bool loadExpressions) {
  kernel::Trap(s, L"basGlobal.ProjectRefresh", [&] {
    const bool referencesChanged = ReferencesRefresh(s, models);
    ItemCollection current;
    StdModulesGet(s, current);
    // A module that went takes its entries along before any other is read, so that a
    // module renamed (gone under its old name, new under the new one) finds its own names
    // free again.
    for (const auto& module : models.StdModules)
      if (!current.Exists(module->Name)) ModuleRemove(models, module->Name);
    for (const auto& module : current) {
      const std::shared_ptr<clsItem>* known = models.StdModules.Find(module->Name);
      if (!known) {
        ModuleAdd(s, models, module->Name);
      } else if ((*known)->Value != module->Value) {
        ModuleRemove(models, module->Name);
        ModuleAdd(s, models, module->Name);
      }
    }
    models.StdModules = std::move(current);
    // The known expressions are those of the referenced libraries: read again with them.
    if (loadExpressions || referencesChanged) KnownExpressionsLoad(s, models);
    kernel::OutlookFocusRestore(s);
  });
}

void KnownExpressionsLoad(kernel::Session& s, ProjectModels& models) {
  kernel::Trap(s, L"basGlobal.KnownExpressionsLoad", [&] {
    models.KnownExpressions = {};
    settings::IniFile ini(s);
    ini.SetName(settings::IniFile2Name(s, settings::kVarsIni));
    if (ini.Name().empty()) return;
    for (const auto& section : ini.Sections()) {
      if (!models.ReferenceNames.Exists(section->name) || !section->Items() || section->Count() == 0) continue;
      for (const auto& entry : *section->Items()) {
        if (entry->name.empty()) continue;
        auto item = std::make_shared<clsItem>();
        item->Name = entry->name;
        item->Library = section->name;
        item->Items = vba::Split(entry->value, L",");
        AddKeepingFirst(models.KnownExpressions, item, section->name + L"." + entry->name);
      }
    }
  });
}

template <class List>
void KnownExpressionsGet(kernel::Session& s, const ProjectModels& models, List& list, std::wstring_view typeName) {
  kernel::Trap(s, L"basGlobal.KnownExpressionsGet", [&] {
    host::Ptr<host::VBComponent> selected = s.vbe ? s.vbe->SelectedVBComponent() : nullptr;
    const bool inDocument = selected && selected->Type() == kDocumentModule;
    std::vector<std::wstring> found;
    for (const auto& item : models.KnownExpressions) {
      if (!typeName.empty() && !vba::EqualsText(item->Name, typeName)) continue;
      for (const std::wstring& expression : item->Items) {
        std::vector<std::wstring> pieces = vba::Split(expression, L".");
        std::wstring text = expression;
        if (vba::EqualsText(pieces[0], L"Form") || vba::EqualsText(pieces[0], L"Report")) {
          if (!inDocument) continue;
          text = L"Me." + (pieces.size() > 1 ? pieces[1] : std::wstring{});
        }
        if (std::find(found.begin(), found.end(), text) == found.end()) found.push_back(text);
      }
    }
    if (!found.empty()) ListItemsAdd(found, list, kKindObject, false, ListPosition::ListOrder);
  });
}

template <class List>
void ListItemsAdd(const std::vector<std::wstring>& items, List& list, long itemData, bool sorted, ListPosition position) {
  std::vector<std::wstring> texts = items;
  if (sorted) std::sort(texts.begin(), texts.end());
  for (const std::wstring& text : texts) {
    if (list.FindStringExact(text) >= 0) continue;
    switch (position) {
      case ListPosition::Top: list.AddItem(text, 0); break;
      case ListPosition::ListOrder: list.AddItem(text); break;
      case ListPosition::End: list.AddItem(text, list.ListCount()); break;
    }
    if (itemData != 0) list.SetItemData(list.NewIndex(), itemData);
  }
}

template <class List>
void DataTypeList(kernel::Session& s, const ProjectModels& models, const colEnums& moduleEnums, List& list,
                  std::wstring_view selected, const DataTypeListOptions& options) {
  kernel::Trap(s, L"basGlobal.DataTypeList", [&] {
    if (options.clear) list.Clear();
    if (options.addNone) list.AddItem(L"(none)");
    if (!options.noUserTypes)
      for (const BasicType& t : kBasicTypes) {
        list.AddItem(t.name);
        list.SetItemData(list.NewIndex(), t.itemData);
      }
    if (!options.noObjects) {
      std::vector<std::wstring> names = {L"Variant", L"Object", L"Collection"};
      if (host::Ptr<host::VBProject> project = ActiveProject(s)) {
        host::Ptr<host::VBComponents> components = project->VBComponents();
        for (long i = 1; i <= components->Count(); ++i)
          if (components->Item(i)->Type() != host::kStdModule) names.push_back(components->Item(i)->Name());
      }
      ListItemsAdd(names, list, kKindObject, false, ListPosition::End);
      if (!options.noUserTypes) {
        NamesAdd(list, moduleEnums, kKindEnum);
        NamesAdd(list, models.ProjectEnums, kKindEnum);
      }
      NamesAdd(list, models.ProjectTypes, kKindType);
    }
    if (list.ListCount() == 0) return;
    const int at = selected.empty() ? 0 : list.FindStringExact(selected);
    list.SetListIndex(at >= 0 ? at : 0);
  });
}

bool TypeIsObject(const ProjectModels& models, std::wstring_view typeName, const colEnums& moduleEnums,
                  const colTypes& moduleTypes) {
  if (typeName.empty()) return false;
  for (const BasicType& t : kBasicTypes)
    if (typeName == t.name) return false;
  if (typeName == L"Variant") return false;
  if (models.ProjectEnums.Find(typeName) || moduleEnums.Find(typeName) || models.LibraryEnums.Find(typeName)) return false;
  return !(models.ProjectTypes.Find(typeName) || moduleTypes.Find(typeName));
}

template <class List>
void AddTypeItem(List& list, std::wstring_view text) {
  std::wstring t = vba::Trim(text);
  if (t.empty()) return;
  if (t.front() == L'(') t.erase(0, 1);
  if (!t.empty() && t.back() == L')') t.pop_back();
  for (const std::wstring& piece : vba::Split(t, L",")) list.AddItem(vba::Trim(piece));
  list.SetListIndex(0);
}

std::wstring CurrentWordGet(kernel::Session& s) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return {};
  const host::Selection sel = pane->GetSelection();
  if (!sel.IsOneLine() || sel.IsCaret()) return {};
  const std::wstring line = pane->CodeModule()->Lines(sel.startLine, 1);
  const long from = std::min(sel.startColumn, sel.endColumn), to = std::max(sel.startColumn, sel.endColumn);
  std::wstring word = from <= static_cast<long>(line.size()) ? line.substr(from - 1, to - from) : std::wstring{};
  static constexpr std::wstring_view kDropped = L"\" `~!@#$%^&*()-+={}[]?<>,.";
  std::erase_if(word, [](wchar_t c) { return kDropped.find(c) != std::wstring_view::npos; });
  return word.size() < 32 ? word : std::wstring{};
}

template void DataTypeList(kernel::Session&, const ProjectModels&, const colEnums&, ui::ComboBox&, std::wstring_view,
                           const DataTypeListOptions&);
template void DataTypeList(kernel::Session&, const ProjectModels&, const colEnums&, ui::ListBox&, std::wstring_view,
                           const DataTypeListOptions&);
template void ListItemsAdd(const std::vector<std::wstring>&, ui::ComboBox&, long, bool, ListPosition);
template void ListItemsAdd(const std::vector<std::wstring>&, ui::ListBox&, long, bool, ListPosition);
template void KnownExpressionsGet(kernel::Session&, const ProjectModels&, ui::ComboBox&, std::wstring_view);
template void KnownExpressionsGet(kernel::Session&, const ProjectModels&, ui::ListBox&, std::wstring_view);
template void AddTypeItem(ui::ComboBox&, std::wstring_view);
template void AddTypeItem(ui::ListBox&, std::wstring_view);

}  // namespace quillet::analysis
