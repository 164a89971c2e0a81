#pragma once
// The library folder: ".bas" files of procedures the user keeps for reuse. Their public
// Subs and Functions are offered beside the project's own.
#include <memory>
#include <string>

#include "analysis/proc_def.h"
#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::analysis {

// One file of the library, as a module of the group "Library".
struct LibraryModule {
  std::wstring Name;
  std::wstring Group = L"Library";
};

class clsScanLibraryFolder {
 public:
  // Keyed "Library.", module name.
  vba::Collection<std::shared_ptr<LibraryModule>> Modules;
  // Every procedure of every file, keyed by name, ".Library".
  Rv_ProcDefs Procs;

  // Reads every "*.bas" file of the library folder and its subfolders.
  void init(kernel::Session& s);
  // Reads one file's text; `fileName` names the module when the text has no name attribute.
  void FileRead(kernel::Session& s, std::wstring_view text, std::wstring_view fileName);
};

}  // namespace quillet::analysis
