#pragma once
// The models a project change builds: what the whole project and its referenced libraries
// declare publicly. ProjectInitialize replaces them whole; the builders and the statement
// commands look names up in them.
#include <memory>

#include "analysis/proc_def.h"
#include "analysis/records.h"
#include "kernel/session.h"

namespace quillet::analysis {

struct ProjectModels {
  Variables ProjectVars;        // public variables of the project
  Constants ProjectConsts;      // public constants of the project
  colEnums ProjectEnums;        // public enums of the project
  colTypes ProjectTypes;        // public user-defined types of the project
  ProcDefCollection ProjectProcs;  // public procedures of the project
  colEnums LibraryEnums;        // enums of the referenced libraries
  ProcDefCollection LibraryProcs;  // keyed by library name, ".", procedure name
};

// The session's handle on its models: null before the first project change and after
// disconnection.
inline std::shared_ptr<ProjectModels>& Models(kernel::Session& s) { return s.Slot<ProjectModels>(); }

}  // namespace quillet::analysis
