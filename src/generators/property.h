#pragma once
// A property as the Property Builder and the Class Builder describe it, and the text of its
// procedures: a Get, and a Let or a Set (both for a Variant), backed by a private variable
// whose name carries the module prefix and the type's prefix.
//
//   clsProperty p;
//   p.Name = L"Name";
//   p.DataType = L"String";
//   std::wstring code;
//   p.PropertyProceduresCodeCreate(s, true, true, code);
//   // Public Property Get Name() As String / Name = mstrName / End Property / ...
//   //   ... Public Property Let Name(rData As String) / mstrName = rData / End Property
#include <memory>
#include <string>
#include <vector>

#include "kernel/code_edit.h"
#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::generators {

// How the type of a property decides what is written.
enum class PropertyClass { Plain, Object, Variant };

// `kind` is the type's kind from the type list: 10003 an enum, 10004 a user-defined type.
PropertyClass PropertyClassOf(const std::wstring& type, long kind);

// The private variable behind a property: the module prefix, the type's prefix (none when
// the name carries it already; "var" for a type the standard has no prefix for) and the name.
std::wstring PrivPropVarName(kernel::Session& s, const std::wstring& type, const std::wstring& name);

class clsProperty {
 public:
  std::wstring Name;
  std::wstring AccessibleType = L"Public";
  bool IsStatic = false;
  std::wstring ModuleName;
  bool IncludeHeader = false;
  bool IncludeErrorHandler = false;
  std::wstring ErrorHandlerFile;
  std::wstring ErrorHandler;
  bool IncludeHourglass = false;
  std::wstring Description;
  bool ModuleNameConstant = false;
  bool ProcedureNameConstant = false;
  std::wstring DataType;
  long DataType2 = 0;
  bool GetPart = true;
  bool SetPart = true;

  PropertyClass Class() const { return PropertyClassOf(DataType, DataType2); }
  // "Private ", the backing variable and its type: the property's line of the declarations.
  std::wstring Declaration(kernel::Session& s) const;
  // Appends the Get (with `get`) and then the Let and/or Set (with `set`) to `code`.
  void PropertyProceduresCodeCreate(kernel::Session& s, bool get, bool set, std::wstring& code) const;
  // The error handler and the hourglass of one finished procedure's text.
  void CodeFragmentsAdd(kernel::Session& s, std::wstring& text) const;

 private:
  enum class Part { Get, Let, Set };
  std::wstring ProcedureText(kernel::Session& s, Part part) const;
};

// The properties of a class in their order, keyed by name.
using colProperties = vba::Collection<std::shared_ptr<clsProperty>>;

// Where the property goes in a module: the declaration under the declarations, and the
// procedures at the end of the module (`toEndOfModule`), below line `caretLine` (the caret
// in the comments above a procedure or the blanks behind one; 0 when it is elsewhere), or
// directly under the declaration. The edits apply in their order.
std::vector<kernel::CodeEdit> PropertyEdits(long declarationLines, long countOfLines, bool toEndOfModule,
                                            long caretLine, const std::wstring& declaration,
                                            const std::wstring& procedures);

// Writes the property into its module (the active pane's when ModuleName is empty). False
// when there is no such module.
bool BuildPropCodeLines(kernel::Session& s, const clsProperty& property, bool toEndOfModule);

}  // namespace quillet::generators
