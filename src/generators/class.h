#pragma once
// A class module to be made in one go: its header, the private variables behind its
// properties, the property procedures, the methods, and optionally a collection class
// from the template and the code that binds the class to a table of the Access database.
//
//   clsClass c;
//   c.Name = L"Customer";
//   c.Properties().Add(std::make_shared<clsProperty>(...), L"Name");
//   c.Create(s, project);   // a new class module "Customer" with its text, the caret in it
#include <memory>
#include <string>
#include <vector>

#include "generators/procedure.h"
#include "generators/property.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::generators {

// The methods of a class in their order, keyed by name.
using colProcedures = vba::Collection<std::shared_ptr<clsProcedure>>;

// An object the class makes when it starts: `Set name = New type`.
struct ClassInitObject {
  std::wstring name, type;
};

class clsClass {
 public:
  std::wstring Name;
  std::wstring Description;
  bool MakeCollectionClass = false;
  std::wstring CollectionClassName;
  bool ModuleNameConstant = false;
  std::wstring TableName;  // the table the class is bound to; "" for none

  colProcedures& Methods() { return methods_; }
  const colProcedures& Methods() const { return methods_; }
  colProperties& Properties() { return properties_; }
  const colProperties& Properties() const { return properties_; }

  // The class module's whole text. Errors are reported as "clsClass.GenerateCode".
  std::wstring GenerateCode(kernel::Session& s);
  // A Class_Initialize that makes `objects`; "" for none.
  std::wstring GenerateInitCode(kernel::Session& s, const std::vector<ClassInitObject>& objects) const;
  // Adds the class module (and the collection class when asked for) to `project` and
  // leaves the caret at a "<cursor>" mark of its text. False when nothing was made.
  bool Create(kernel::Session& s, const host::Ptr<host::VBProject>& project);
  // The collection class from the template of "Collection Class Template"; nothing when the
  // template is missing or empty.
  bool CollectionClassModuleAdd(kernel::Session& s, const host::Ptr<host::VBProject>& project) const;

 private:
  colProcedures methods_;
  colProperties properties_;
};

// What MethodsFromTable writes for one dialect.
struct TableMethodsInput {
  std::wstring table;
  std::vector<std::wstring> fields;      // the table's field names
  std::vector<std::wstring> properties;  // the property of each field, by position
  std::vector<bool> publicProperty;      // whether that property is public (else its variable is used)
  std::vector<std::wstring> variables;   // the backing variable of each property
  std::wstring loadedVariable;           // the backing variable of the "Loaded" property
  std::wstring indent;
  bool ado = false;
};
// The methods of a class bound to a table, in this order: Load, Update, Class_Initialize,
// Class_Terminate, FindFirst, AddNew; each as (name, accessibility, whole text).
struct TableMethod {
  std::wstring name, accessibility, text;
};
std::vector<TableMethod> TableMethodsText(const TableMethodsInput& in);

// Gives `c` a property for each field (its name made legal, its type from the field's type,
// public), the private "Recordset" and "Loaded" properties, and the methods above, in DAO
// or, for an Access project, ADO. `fields` are the table's chosen fields.
void ClassFromTable(kernel::Session& s, clsClass& c, const std::wstring& table,
                    const std::vector<std::wstring>& fieldNames, const std::vector<long>& fieldTypes);

}  // namespace quillet::generators
