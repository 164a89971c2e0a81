#pragma once
// Keeping the project's models in step with its code without events: the references and
// the standard modules are compared with what the models were built from, and only what
// differs is scanned again. A module's fingerprint is the length of its text, so an edit
// that keeps the length is seen at the next edit that does not. Also here: the data type
// lists every builder offers and the known expressions by type from qltvars.ini.
#include <string>
#include <string_view>

#include "analysis/project_models.h"
#include "analysis/records.h"
#include "kernel/session.h"
#include "ui/list_controls.h"

namespace quillet::analysis {

// ItemData of list entries: basic types carry their variant type number, these the kind.
enum ListKind : long { kKindEnum = 10003, kKindType = 10004, kKindObject = 10009 };

// Brings `models` up to date with the active project; `loadExpressions` rereads qltvars.ini,
// which is read again anyway when the usable references differ from the last ones read.
void ProjectRefresh(kernel::Session& s, ProjectModels& models, bool loadExpressions);
// Reads the usable references again and drops what a library no longer referenced put in
// the models; true when the names differ from those read before.
bool ReferencesRefresh(kernel::Session& s, ProjectModels& models);
// Each standard module of the active project with the length of its text (none for a
// locked project).
void StdModulesGet(kernel::Session& s, ItemCollection& modules);
void ModuleAdd(kernel::Session& s, ProjectModels& models, const std::wstring& name);
void ModuleRemove(ProjectModels& models, std::wstring_view name);
// Removes what a library that is no longer referenced put into the models.
void RefLibRemove(ProjectModels& models, std::wstring_view name);
void KnownExpressionsLoad(kernel::Session& s, ProjectModels& models);

// The expressions that give a value of `typeName` (all of them for ""), at the end of
// `list` with the object kind; "Form." and "Report." ones only in a document module, as "Me.".
template <class List>
void KnownExpressionsGet(kernel::Session& s, const ProjectModels& models, List& list, std::wstring_view typeName);

struct DataTypeListOptions {
  bool addNone = false;      // "(none)" first
  bool noObjects = false;    // no Variant, Object, classes, enums or types
  bool noUserTypes = false;  // no basic types and no enums
  bool clear = true;
};
// The data types a declaration may take: basic types, classes, enums, user-defined types;
// `selected` chosen when it is there, the first entry otherwise.
template <class List>
void DataTypeList(kernel::Session& s, const ProjectModels& models, const colEnums& moduleEnums, List& list,
                  std::wstring_view selected, const DataTypeListOptions& options);

enum class ListPosition { Top = 0, ListOrder = 1, End = 2 };
// The one way a collection reaches a list: each text not in the list yet, with `itemData`
// when it is not 0; sorted first when asked.
template <class List>
void ListItemsAdd(const std::vector<std::wstring>& items, List& list, long itemData, bool sorted, ListPosition position);

// Whether a declaration of `typeName` holds an object: not for a basic type, Variant, an
// enum or a user-defined type.
bool TypeIsObject(const ProjectModels& models, std::wstring_view typeName, const colEnums& moduleEnums,
                  const colTypes& moduleTypes);
// Adds each type of a comma list, parentheses around it allowed, and selects the first.
template <class List>
void AddTypeItem(List& list, std::wstring_view text);
// The word the user selected on one line, without quotes and punctuation, when shorter
// than 32 characters; otherwise "".
std::wstring CurrentWordGet(kernel::Session& s);

extern template void DataTypeList(kernel::Session&, const ProjectModels&, const colEnums&, ui::ComboBox&,
                                  std::wstring_view, const DataTypeListOptions&);
extern template void DataTypeList(kernel::Session&, const ProjectModels&, const colEnums&, ui::ListBox&,
                                  std::wstring_view, const DataTypeListOptions&);
extern template void ListItemsAdd(const std::vector<std::wstring>&, ui::ComboBox&, long, bool, ListPosition);
extern template void ListItemsAdd(const std::vector<std::wstring>&, ui::ListBox&, long, bool, ListPosition);
extern template void KnownExpressionsGet(kernel::Session&, const ProjectModels&, ui::ComboBox&, std::wstring_view);
extern template void KnownExpressionsGet(kernel::Session&, const ProjectModels&, ui::ListBox&, std::wstring_view);
extern template void AddTypeItem(ui::ComboBox&, std::wstring_view);
extern template void AddTypeItem(ui::ListBox&, std::wstring_view);

}  // namespace quillet::analysis
