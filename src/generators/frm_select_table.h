#pragma once
// Choosing a table of the Access database and some of its fields, for a class bound to a
// table. The tables come from the host: a database file's table definitions without its
// system and clipboard tables, or the tables of an Access project's catalog.
//
//   FrmSelectTableAndFields form(s);
//   form.Init();
//   form.Show(true);
//   if (form.Accepted()) for (const host::AccessField& f : form.SelectedFields()) ...
#include <string>
#include <vector>

#include "hostmodel/access.h"
#include "kernel/form_open.h"
#include "kernel/session.h"
#include "ui/controls.h"

namespace quillet::generators {

// The connected Access application; nullptr when Access is not the host of the session.
host::AccessApplication* AccessOf(kernel::Session& s);
// Whether the project is read through ADO (CurrentProject.ProjectType 1) rather than DAO.
bool AccessIsAdo(kernel::Session& s);

// The tables of a database file: every definition not named like "MSys*" or "~TMPCLP*".
std::vector<host::AccessTable> GetMdbTables(const host::AccessApplication& access);
// The tables of an Access project's catalog: the entries of type "TABLE" (any case).
std::vector<host::AccessTable> GetAdpTables(const host::AccessApplication& access);

// The VBA type that holds a field of type `fieldType`: DAO's type constants (dbText = 10 ...)
// for a database file, ADO's (adVarWChar = 202 ...) with `ado`. "Variant" for the rest.
std::wstring FieldTypeToVba(long fieldType, bool ado);

// A field's name as a property's: a first character that is no letter gets `prefix`
// ("fld"), characters that are neither letters, digits nor "_" go, and the result is cut
// to 255 characters. "First Name" gives "FirstName".
std::wstring LegalIdentifier(const std::wstring& fieldName, const std::wstring& prefix = L"fld");

class FrmSelectTableAndFields : public kernel::BuilderForm {
 public:
  explicit FrmSelectTableAndFields(kernel::Session& s);

  void Init() override;
  // True after OK with a table chosen.
  bool Accepted() const { return accepted_; }
  const std::wstring& TableName() const { return table_; }
  const std::vector<host::AccessField>& SelectedFields() const { return fields_; }

  ui::Label& lblTables;
  ui::ComboBox& cboTables;
  ui::Label& lblFields;
  ui::ListBox& lstFields;
  ui::CommandButton& cmdSelectAll;
  ui::CommandButton& cmdUnSelectAll;
  ui::CommandButton& cmdOK;
  ui::CommandButton& cmdCancel;
  ui::CommandButton& cmdHelp;

 private:
  kernel::Session& s_;
  std::vector<host::AccessTable> tables_;
  bool accepted_ = false;
  std::wstring table_;
  std::vector<host::AccessField> fields_;

  void TableChosen();
  void SelectAll(bool selected);
  void PressOK();
};

}  // namespace quillet::generators
