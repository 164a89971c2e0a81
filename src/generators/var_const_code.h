#pragma once
// Where a new declaration goes: into the declaration area of the procedure at the caret,
// into the declaration section of a module, or as a member of the Enum or Type around the
// caret. The caret stays where it was; the new name goes to the clipboard.
//
// Each placing is a function from what the module shows (`DeclView`) to the edit it makes,
// which tests call without an editor; the commands below read the pane and apply it:
//
//   DeclView v = DeclViewOf({L"Sub A()", L"    Dim x As Long", L"End Sub"}, host::Selection(3, 1), L"    ");
//   std::optional<kernel::CodeEdit> e = ProcVariableEdit(v, L"Dim y As String", true);  // below "Dim x"
#include <optional>
#include <string>
#include <vector>

#include "hostmodel/vbe.h"
#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// The kinds of the quick box and of the lists that carry them.
enum DeclKind : int { kKindVariable = 10001, kKindConstant = 10002, kKindProperty = 10007 };

// What the placing of a declaration reads of a module.
struct DeclView {
  kernel::CodeView code;
  long declarationLines = 0;  // the module's declaration section
  long procLine = 0;          // the definition line of the procedure at the caret; 0 outside
  long procEnd = 0;           // the procedure's last line
};
DeclView DeclViewOf(const host::CodePane& pane, std::wstring tab);
// Plain lines; the procedure is the Sub, Function or Property around the caret line, the
// declaration section the lines above the first of them.
DeclView DeclViewOf(std::vector<std::wstring> lines, host::Selection selection, std::wstring tab);

// The line at which a new member of the Enum (or Type) around the caret goes, with
// `blockName` its name; 0 outside such a block or below the declaration section.
long BlockLineGet(const DeclView& v, bool isEnum, std::wstring& blockName);

// A variable of the procedure: below the declarations already there, above a blank line
// that ends them. nullopt outside a procedure.
std::optional<kernel::CodeEdit> ProcVariableEdit(const DeclView& v, const std::wstring& text, bool indented);
// A constant of the procedure: above the declarations already there, or directly under the
// signature when there are none. nullopt outside a procedure.
std::optional<kernel::CodeEdit> ProcConstEdit(const DeclView& v, const std::wstring& text, bool indented);
// A declaration of the module: on the caret line when the caret is in the declarations of
// this module on a blank line (or one that reads `name`); else after the Option lines and
// the comments at the top (`atTop`), or at the end of the declaration section.
kernel::CodeEdit ModuleDeclEdit(const DeclView& v, const std::wstring& text, const std::wstring& name, bool atTop,
                                bool caretModule);
// A member of an Enum or Type at line `line`: indented, in place of that line when it is
// blank or reads `name`, else below it; the caret at column 1 of that line.
kernel::CodeEdit BlockMemberEdit(const DeclView& v, long line, const std::wstring& text, const std::wstring& name);
// The quick box's line in the declaration section (the caret outside every procedure): in
// place of a blank caret line or of the line that reads the proposal, else at the end of
// the section.
kernel::CodeEdit DeclarationSectionEdit(const DeclView& v, const std::wstring& text, const std::wstring& proposal);
// The quick box's member of an Enum or Type: in place of a blank block line, else below
// it; the caret behind the text.
kernel::CodeEdit BlockLineEdit(const DeclView& v, long blockLine, const std::wstring& text);

// The commands on the active pane (or the module's pane). --------------------------------

// Appends a declaration to the declaration area of the procedure at the caret.
void qltProcVariableAdd(kernel::Session& s, const std::wstring& text);

struct VarConstPlace {
  bool moduleLevel = false;
  bool appendToDeclarations = false;  // procedure level: below the declarations there
  std::wstring name;
  long lineNumber = 0;  // above 0: a member of the Enum or Type at that line
  bool atTop = false;   // module level: above the other declarations
};
// Places a declaration for the builders. `module` names the target at module level
// ("<New Module>" asks for a name, a missing one is created after asking); the name of a
// new module comes back in it. False when nothing was written.
bool VarConstCodeAdd(kernel::Session& s, const std::wstring& text, std::wstring& module, const VarConstPlace& place);

// Places the quick box's line (the caret on `blockLine` when above 0) and, unless
// `keepClipboard`, puts `name` on the clipboard. True when the line took the caret's line
// (a member of a block, a blank line of the declarations): the caret then stands in it.
bool AddCodeLine(kernel::Session& s, const std::wstring& line, const std::wstring& name, bool keepClipboard,
                 long blockLine, const std::wstring& moduleName = L"");

// The line of the quick box by kind: a variable (or a member of a Type), a constant (or a
// member of an Enum) and a property; written and the name put at the caret. True when
// something was written.
bool VarConstCodeInsert(kernel::Session& s, const std::wstring& name, const std::wstring& type, int kind,
                        const std::wstring& value);

}  // namespace quillet::generators
