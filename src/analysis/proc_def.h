#pragma once
// The procedure definition model: a procedure's definition line, taken from a code module
// or from a stored text, read into its name, kind, visibility, return type and arguments.
// The reading works on one normalised line with plain string operations and exact limits;
// the odd results those limits give for unusual definitions are the model's behaviour.
#include <memory>
#include <string>
#include <string_view>

#include "analysis/shared_text.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"
#include "vba/collection.h"

namespace quillet::analysis {

// One argument of a definition: "Optional ByVal b As String = "x"".
class Rv_ProcArgument {
 public:
  // The texts first and the flags together behind them: a project holds thousands.
  std::wstring ArgDef;         // the text as given, untouched
  SharedText PassedBy;         // "ByVal" or "ByRef" ("ByRef" when nothing was written)
  std::wstring Name;           // a type character stays in it
  std::wstring Type_;          // as written, "Variant" if none
  std::wstring DefaultValue;   // the text behind "="
  bool IsOptional = false;
  bool IsPassedByVal = false;
  bool IsParamArray = false;
  bool IsArray = false;        // "(" followed the name
  bool IsEnum = false;         // set by the users of the model

  // The keywords are recognised case-sensitively at the left end, in the order Optional,
  // ByVal/ByRef, ParamArray. A default written without a blank behind a one-character
  // "=" tail ("x As Long =5") is not read.
  void init(std::wstring_view vstrArgDef);
};

// The arguments of one definition, in source order, keyed by name.
class Rv_ProcArguments {
 public:
  using Items_ = vba::Collection<std::shared_ptr<Rv_ProcArgument>>;

  std::wstring StringOfArguments;       // the raw text between the parentheses
  std::wstring ShortStringOfArguments;  // "a, [b], c": optional names in brackets

  // Reads the list between the first "(" and the last ")" outside double quotes. A list
  // of one character ("Sub P(x)") gives no argument. A repeated name raises error 457.
  void init(std::wstring_view vstrProcDef);
  long Count() const { return items_.Count(); }
  Items_& Items() { return items_; }
  const Items_& Items() const { return items_; }
  // Adds under the argument's name.
  void Add(std::shared_ptr<Rv_ProcArgument> argument);

 private:
  Items_ items_;
};

// Where a procedure lies in its module, as the editor counts: the first line that belongs
// to it (the comments above its header included), how many lines do, and the header's line.
struct ProcLines {
  long startLine = 0, countLines = 0, bodyLine = 0;
};
// What every procedure of one module shares, asked of the editor once for all of them.
struct ProcModule {
  SharedText project;            // the project's name as the reader was given it
  SharedText moduleName;
  bool inActiveProject = false;  // the procedures' GroupName is the project's name
};
ProcModule ProcModuleOf(kernel::Session& s, std::wstring_view project, host::CodeModule& module);
// The editor's answers for one procedure. Failures of the host reach the caller.
ProcLines ProcLinesOf(host::CodeModule& module, std::wstring_view name, host::ProcKind kind);

// One procedure of a module, of a library file or of a Declare statement.
class Rv_ProcDef {
 public:
  Rv_ProcDef();

  bool IsLibraryProcedure = false;
  // The project's name when the procedure lies in the active project, the module's name
  // for a library procedure.
  SharedText GroupName;
  SharedText HelpStr, HelpFile;
  long HelpContext = 0;
  std::wstring ProcReturnType;         // of a function, "" when unknown
  bool IsDeclarationSection = false;   // set: the definition is not read
  SharedText Project;                  // "Library" for a library procedure
  SharedText ModuleName;
  std::wstring Name;                   // without a type character
  bool ProcIsFunction = false;
  bool ProcIsPublic = false;
  bool ProcIsStatic = false;
  host::ProcKind ProcKind = host::kProcKind;
  SharedText ProcKindStr;              // "Sub/Function", "Property Let", "Property Set", "Property Get"
  long ProcBodyLine = 0, ProcCountLines = 0, ProcStartLine = 0;
  long ProcDefStartLine = 0;           // equals ProcBodyLine
  long ProcDefCountOfLines = 0;        // lines the definition takes, blank ones included
  std::wstring ProcDef;                // as it stands, continuation lines kept, first statement only
  std::wstring OneLineProcDef;         // joined to one line, first statement only
  std::shared_ptr<Rv_ProcArguments> ProcArguments;
  std::wstring ProcCode;               // from the body line to the end of the procedure

  // A procedure of a loaded module. Failures of the host calls reach the caller. With
  // `definitionOnly` only the lines of the definition are read and ProcCode stays empty:
  // what a list of the module's procedures needs, read without copying any body.
  void init(kernel::Session& s, std::wstring_view project, host::CodeModule& module, std::wstring_view name,
            host::ProcKind kind, bool definitionOnly = false);
  // The same where the module and the procedure's place are known already: what a walk
  // over all the procedures of a module uses.
  void init(kernel::Session& s, const ProcModule& where, host::CodeModule& module, std::wstring_view name,
            host::ProcKind kind, const ProcLines& at, bool definitionOnly);
  // A procedure stored as text (a file of the library folder).
  void Init2(kernel::Session& s, std::wstring_view codeText, const SharedText& moduleName);
  // Reads the definition at the start of ProcCode and its arguments: the last step of both
  // inits. ProcCode needs to hold no more than the definition's lines.
  void DefinitionRead(kernel::Session& s);

 private:
  // Reads the definition at the start of `code`; a failure is reported as
  // "Rv_ProcDef.ProcDefGet".
  void ProcDefGet(kernel::Session& s, std::wstring_view code);
};

using ProcDefCollection = vba::Collection<std::shared_ptr<Rv_ProcDef>>;

// "Sub/Function", "Property Let", "Property Set" or "Property Get".
std::wstring ProcKindString(host::ProcKind kind);

// The procedures of one module or group, keyed by name, "*" and the kind's number.
class Rv_ProcDefs {
 public:
  std::wstring ProjectName;
  std::wstring ModuleName;
  int ModuleType = 0;          // 0 standard module, 1 any other
  std::wstring ModuleTypeStr;  // "Standard module" or "Class module"

  void init(std::wstring_view projectName, host::CodeModule& module);
  // Adds the procedure that holds `vlngLineNo` unless it is known already; with
  // `vblnOnlyPublic` only a public one. Failures are reported as "Rv_ProcDefs.AddProc".
  void Add(kernel::Session& s, host::CodeModule& module, long vlngLineNo, bool vblnOnlyPublic,
           bool definitionOnly = false);
  // The same for the procedure `name` of `kind`, found in the module by the caller, which
  // knows its place and its module already.
  void Add(kernel::Session& s, const ProcModule& where, host::CodeModule& module, std::wstring_view name,
           host::ProcKind kind, const ProcLines& at, bool vblnOnlyPublic, bool definitionOnly);
  // Adds under `key`, or without one when it is empty. A key in use keeps its entry.
  void AddProc(kernel::Session& s, std::shared_ptr<Rv_ProcDef> procedure, std::wstring_view key);
  long Count() const { return items_.Count(); }
  ProcDefCollection& Items() { return items_; }
  const ProcDefCollection& Items() const { return items_; }

 private:
  void Read(kernel::Session& s, const ProcModule* where, host::CodeModule& module, std::wstring_view name,
            host::ProcKind kind, const ProcLines* at, bool vblnOnlyPublic, bool definitionOnly);

  ProcDefCollection items_;
  // Procedures read by Add and refused as not public, so that they are read once.
  vba::Collection<bool> refused_;
};

// A procedure declared by "Declare": `text` is the statement behind "Declare" ("Function
// GetTickCount Lib "kernel32" () As Long"). It goes into `procs` under the active project's
// name, ".", and its name. A name already there keeps its entry; other failures are
// reported as "basGlobal.DeclaredProcAdd".
void DeclaredProcAdd(kernel::Session& s, std::wstring_view text, const SharedText& moduleName,
                     ProcDefCollection& procs, bool isPublic);

}  // namespace quillet::analysis
