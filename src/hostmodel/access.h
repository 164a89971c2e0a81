#pragma once
// The Access application as the class generator reads it: what kind of project is open
// (an Access project on a server, ProjectType 1, is read through ADO; a database file
// through DAO) and the tables of its database with their fields.
//
//   auto* access = dynamic_cast<host::AccessApplication*>(s.hostAccess.get());
//   if (access && access->ProjectType() == host::kAccessProjectAdp) { ... access->CatalogTables() ... }
#include <string>
#include <vector>

#include "hostmodel/office.h"

namespace quillet::host {

// CurrentProject.ProjectType of an Access project on a server.
inline constexpr long kAccessProjectAdp = 1;

struct AccessField {
  std::wstring name;
  long type = 0;  // the field's type constant: DAO's in a database file, ADO's in a project
};

struct AccessTable {
  std::wstring name;
  std::wstring type = L"TABLE";  // the catalog's kind of entry: "TABLE", "VIEW", "SYSTEM TABLE"
  std::vector<AccessField> fields;
};

class AccessApplication : public OfficeApplication {
 public:
  std::wstring Name() const override { return L"Microsoft Access"; }
  // CurrentProject.ProjectType: 1 for a project on a server, else a database file.
  virtual long ProjectType() const = 0;
  // CurrentDb.TableDefs of a database file, system tables included.
  virtual std::vector<AccessTable> TableDefs() const = 0;
  // The Tables of a catalog on CurrentProject.Connection, every kind of entry included.
  virtual std::vector<AccessTable> CatalogTables() const = 0;
};

}  // namespace quillet::host
