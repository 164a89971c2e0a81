#pragma once
// The scan of the procedure that holds the caret: its lines, declarations, labels, the
// declaration area where new declarations go and the Exit line above which closing code
// goes. A snapshot: its numbers go stale at the first edit, so the builders scan again
// after inserting. The session keeps the current one (CurrentScan).
#include <memory>
#include <string>
#include <vector>

#include "analysis/records.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::analysis {

// A line label of a procedure.
class clsLabel {
 public:
  std::wstring Name;       // without the colon
  bool HasReturn = false;  // a Return statement follows it
};

using Labels = vba::Collection<std::shared_ptr<clsLabel>>;

class clsScanProc {
 public:
  Variables ProcVars;       // keyed by name; arguments too when scanned with fArgToVar
  Constants ProcConsts;     // keyed by name
  Labels ProcLabels;        // keyed by name
  long ProcStartLine = 0;       // first line of the procedure, comments above it included
  long ProcRealStartLine = 0;   // the line on which the definition starts
  long ProcEndLine = 0;         // last line the editor counts to the procedure
  long ProcRealEndLine = 0;     // the line of its closing End statement
  host::ProcKind ProcType = host::kProcKind;
  std::wstring ProcTypeStr;     // "Sub", "Function" or "Property"
  std::wstring ProcName;
  long ProcExitLine = 0;        // the line of the last Exit statement, else the End line
  long ProcDeclAreaLineCount = 0;
  long ProcDeclAreaStartLine = 0;
  long ProcDeclAreaEndLine = 0;
  long ProcDefLineCount = 0;    // physical lines of the definition

  // Scans the procedure at the caret of the active code pane; with `fArgToVar` its
  // arguments join ProcVars. Outside a procedure, without a project or in a locked one the
  // scan stays empty. Repeated names keep their first entry; other failures are reported
  // as "clsScanProc.Init" and leave what was read until then.
  //
  // The statement walk keeps the label candidate and the declaration text of the last
  // statement across Dim, Static, Const and Return statements, so a declaration right
  // behind a label adds that label's name shortened by one more character, and a Return
  // reads the last declaration list again. This is the scan's established behaviour.
  void init(kernel::Session& s, bool fArgToVar);

 private:
  void Reset();
  void StatementsRead(const std::vector<std::wstring>& statements);
  void ExitLineRead(kernel::Session& s, const std::vector<std::wstring>& lines);
  void ArgsToVarsAdd(kernel::Session& s, const std::vector<std::wstring>& lines);
};

// The session's handle on the current scan: the procedure at the caret as the statement
// commands and the error handling last read it; null while no procedure was scanned.
inline std::shared_ptr<clsScanProc>& CurrentScan(kernel::Session& s) { return s.Slot<clsScanProc>(); }

}  // namespace quillet::analysis
