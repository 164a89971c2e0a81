#pragma once
// The models a project change builds: what the whole project and its referenced libraries
// declare publicly. ProjectInitialize replaces them whole; the builders and the statement
// commands look names up in them.
#include <memory>
#include <string>
#include <vector>

#include "analysis/library_folder.h"
#include "analysis/proc_def.h"
#include "analysis/records.h"
#include "kernel/session.h"

namespace quillet::analysis {

// A named entry of the refresh lists: a standard module with the length of its text, or a
// type of a library with the expressions known to give a value of it.
struct clsItem {
  std::wstring Name;
  long Value = 0;
  std::wstring Library;
  std::vector<std::wstring> Items;
};
using ItemCollection = vba::Collection<std::shared_ptr<clsItem>>;

struct ProjectModels {
  Variables ProjectVars;        // public variables of the project
  Constants ProjectConsts;      // public constants of the project
  colEnums ProjectEnums;        // public enums of the project
  colTypes ProjectTypes;        // public user-defined types of the project
  ProcDefCollection ProjectProcs;  // public procedures of the project
  vba::Collection<std::wstring> ProjectClasses;  // the class modules, by name
  colEnums LibraryEnums;        // enums of the referenced libraries
  ProcDefCollection LibraryProcs;  // keyed by library name, ".", procedure name
  Constants LibraryConsts;      // constants of the referenced libraries

  // What the refresh compares: the usable references by name, and each standard module
  // with the length of its text.
  vba::Collection<std::wstring> ReferenceNames;
  ItemCollection StdModules;
  // The expressions of qltvars.ini for the referenced libraries, keyed library, ".", type.
  ItemCollection KnownExpressions;
  // The procedures of the library folder.
  clsScanLibraryFolder LibraryFolder;
};

// The session's handle on its models: null before the first project change and after
// disconnection.
inline std::shared_ptr<ProjectModels>& Models(kernel::Session& s) { return s.Slot<ProjectModels>(); }

}  // namespace quillet::analysis
