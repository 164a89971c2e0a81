#pragma once
// The Select Case writer: a Select Case block on a test expression, its Case clauses from a
// Boolean, from values the user types one by one, or from the members of an enum.
//
// As the other inserters it has two halves: `SelectCaseEdit` turns a view and a finished
// request into the edit, for tests without an editor; `SelectCodeInsert` asks what it must
// ask, applies the edit and sends the keystrokes.
#include <string>
#include <vector>

#include "kernel/code_edit.h"
#include "kernel/session.h"

namespace quillet::generators {

// Where the test expression of a Select From Enum came from (ItemData of its list).
enum TestExpressionCategory : long {
  kNewVariable = 1,  // "<New Variable>": declared after the block is written
  kFunctionCategories = 2000,  // above: a function, to be called through the Line of Code Builder
};

// One Case clause written for an enum member when the function returns a value.
struct ReturnValue {
  std::wstring procName;    // the current function
  std::wstring returnType;  // its return type, "Variant" for none
  bool moduleEnum = false;  // the return type is an enum of the module
};

// Everything the block needs, decided.
struct SelectCaseRequest {
  std::wstring command{};         // "Select Case", "Select Case Else", "Select Case UCase", "Select From Enum"
  std::wstring testExpression{};  // final form ("UCase(x)"); pieces separated by CR LF
  // The other commands: a Boolean test, or the values typed (as code).
  bool booleanTest = false;
  std::vector<std::wstring> values{};
  // "Select From Enum": the members in their order (none without an enum).
  std::vector<std::wstring> members{};
  bool singleCase = false, compact = false, addCaseElse = false, returnValues = false;
  std::wstring caseElseText{};
  ReturnValue returnValue{};
};

// A member name without its lower-case tag of at most three letters ("xlRed": "Red"); a
// name with more leading lower-case letters stays whole.
std::wstring WithoutTag(const std::wstring& name);
// The block's text at indent `n`, one indent step `tab`, without CR LF behind it.
std::wstring SelectCaseText(const SelectCaseRequest& request, int n, const std::wstring& tab);
// The keystrokes sent after writing: down to the first clause's body for "Select Case" and
// "Select Case Else" on a test expression, nothing for the others, a blank without one.
std::wstring SelectCaseKeys(const SelectCaseRequest& request);
// The edit: the block at the caret line, the caret behind "Select Case ".
kernel::CodeEdit SelectCaseEdit(const kernel::CodeView& view, const SelectCaseRequest& request);

// The command's arguments as the dialogs hand them over.
struct SelectCaseInput {
  std::wstring command{};
  std::wstring enumName{};
  long enumCategory = 0;  // 1 ModuleEnums, 2 ProjectEnums, 3 LibraryEnums
  std::wstring testExpression{};
  long varCategory = 0;   // TestExpressionCategory, or the group of a picked name
  bool addCaseElse = false, returnValues = false, compact = false, singleCase = false;
  std::wstring caseElseText{};
};
// Writes the block at the caret; false when there is no code pane.
bool SelectCodeInsert(kernel::Session& s, const SelectCaseInput& input);

}  // namespace quillet::generators
