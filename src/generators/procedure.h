#pragma once
// A procedure to be written: its definition, its options, its arguments, and the finished
// text it makes. The text is built from the definition down: the header from its template,
// the procedure-name constant, one empty body line, the End line; then the error-handling
// block, the return line and the hourglass lines are merged in as fragments.
//
//   clsProcedure p;
//   p.Name = L"Total"; p.ProcType = L"Function"; p.ReturnValueType = L"Long";
//   p.GenerateCode(s);   // "Function Total() As Long\r\n\r\nEnd Function\r\n"
//
// The additions (hourglass, return line, error handler, procedure constant) are also used
// by the property and class builders on text of their own.
#include <string>

#include "generators/arguments.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::generators {

class clsProcedure {
 public:
  std::wstring Name;
  std::wstring AccessibleType;   // "Public", "Private", "Friend" or ""
  std::wstring ProcType;         // "Sub", "Function" or "Property"
  std::wstring PropertyType;     // "Get", "Let", "Set" or ""
  std::wstring ReturnValueType;  // "" for none
  bool IsStatic = false;
  std::wstring ModuleName;
  long ModuleType = 0;
  bool IncludeComment = false;   // the procedure header
  bool IncludeErrorHandler = false;
  std::wstring ErrorHandlerFile;
  std::wstring ErrorHandler;     // the text of the handler fragment
  bool IncludeHourglass = false;
  std::wstring Description;
  bool ModuleNameConstant = false;
  bool ProcedureNameConstant = false;
  bool AddReturnStatement = false;
  bool ArgumentsOnSeparateLine = false;

  // Text that stands for the whole procedure: when set, GenerateCode gives it unchanged.
  void ProcContent(std::wstring text) { content_ = std::move(text); }
  const std::wstring& ProcContentGet() const { return content_; }

  // Writes `code` into the module `ModuleName` of `project`: behind its last line, or added
  // by the editor's own rule. With `setCursor` the caret goes to the new procedure's body
  // when that module is the one in front, then to a "<cursor>" mark if the text has one;
  // without it the marks are only removed. Behind the last line, marks are looked for in
  // the new text only.
  void Create(kernel::Session& s, const std::wstring& code, const host::Ptr<host::VBProject>& project,
              bool toEndOfModule, bool setCursor);

  colArguments& Arguments() { return arguments_; }
  const colArguments& Arguments() const { return arguments_; }
  void ArgumentsRenumber(long deletedNumber) { generators::ArgumentsRenumber(arguments_, deletedNumber); }
  ArgumentsOrder ArgumentsOrderIsBad() const { return ArgumentsOrderCheck(arguments_); }

  // The whole text of the procedure, ending in CR LF. Errors are reported as
  // "clsProcedure.GenerateCode" and give what was built so far.
  std::wstring GenerateCode(kernel::Session& s);
  // The arguments joined by ", "; with one argument a line, the second and later ones go on
  // lines of their own behind " _", `start` blanks in, so they stand under the first.
  std::wstring GetArgString(long start) const;

  // The merges into a procedure's text of the error-handler fragment, the return line and
  // the hourglass lines.
  void AddErrorHandler(kernel::Session& s, std::wstring& procedureText) const;
  void AddReturnLine(kernel::Session& s, std::wstring& procedureText) const;
  void AddHourglass(kernel::Session& s, std::wstring& procedureText) const;

  // The definition line as generated last (continuation lines included); "" before.
  const std::wstring& Definition() const { return definition_; }
  // Puts the caret on the first blank line of the new procedure's body, indented; its
  // definition is looked for from line `fromLine` on.
  void CursorToBody(kernel::Session& s, long fromLine = 1) const;

 private:
  std::wstring content_;
  colArguments arguments_;
  std::wstring definition_;
};

// One line turning the hourglass on or off for the session's host, behind one indent and
// with its CR LF; a host without an hourglass gives the bare CR LF.
std::wstring BuildHourglass(kernel::Session& s, bool on);
// Whether the session's host has hourglass lines at all.
bool HourglassAvailable(const kernel::Session& s);
// The declaration of the procedure-name constant for `name`, indented, with its CR LF.
std::wstring ProcedureConstantLine(kernel::Session& s, const std::wstring& name);
// The types whose variables are assigned without Set: the return line of such a function
// empties it, of any other type sets it to Nothing.
bool IsPlainReturnType(const std::wstring& type);

}  // namespace quillet::generators
