#include "generators/dispatcher_commands.h"

#include <map>

#include "analysis/scan_proc.h"
#include "generators/error_handling.h"
#include "generators/frm_input_box.h"
#include "generators/var_const_code.h"
#include "generators/explicit_argument.h"
#include "generators/frm_enum_or_type.h"
#include "generators/pick_lists.h"
#include "generators/selection.h"
#include "generators/statements.h"

namespace quillet::generators {
namespace {

void OneLineStatement(kernel::Session& s, const std::wstring& command, std::wstring&) {
  CodeInsert(s, command, L"", {.spaceBefore = true});
}
void IfBlock(kernel::Session& s, const std::wstring& command, std::wstring&) { IfCodeInsert(s, command); }
void LoopBlock(kernel::Session& s, const std::wstring& command, std::wstring&) { LoopCodeInsert(s, command); }
void Exit(kernel::Session& s, const std::wstring&, std::wstring&) {
  // Outside a procedure there is nothing to leave.
  const std::shared_ptr<analysis::clsScanProc>& scan = analysis::CurrentScan(s);
  if (scan && !scan->ProcTypeStr.empty())
    CodeInsert(s, L"Exit " + scan->ProcTypeStr, L"Exit", {.allowInline = true, .spaceBefore = true});
}
// The error-handling block named by the argument (the dropdown's chosen scheme), the
// default one when the argument is empty.
void ErrorHandling(kernel::Session& s, const std::wstring&, std::wstring& scheme) { ErrorHandlingAdd(s, scheme); }
void Filename(kernel::Session& s, const std::wstring&, std::wstring&) { FilenameAdd(s); }
void Folder(kernel::Session& s, const std::wstring&, std::wstring&) { FoldernameAdd(s); }
// The quick box of a declaration, the argument naming the data type.
template <int kind>
void QuickBox(kernel::Session& s, const std::wstring&, std::wstring& type) {
  QuickBoxOpen(s, kind, type);
}

}  // namespace

const std::vector<DispatcherCommand>& DispatcherCommands() {
  static const std::vector<DispatcherCommand> table = {
      {L"Dim", QuickBox<kKindVariable>}, {L"Const", QuickBox<kKindConstant>},
      {L"Property", QuickBox<kKindProperty>}, {L"Insert Variable", PickVariableCommand}, {L"Insert Objectname"},
      {L"Explicit Argument", ExplicitArgumentCommand}, {L"Type", EnumOrTypeCommand}, {L"Enum", EnumOrTypeCommand},
      {L"With", PickVariableCommand},
      {L"If Then", IfBlock}, {L"If Then Else", IfBlock}, {L"If Then Else If", IfBlock},
      {L"If Then ElseIf Else", IfBlock},
      {L"Select Case", SelectCaseCommand}, {L"Select Case Else", SelectCaseCommand},
      {L"Select Case UCase", SelectCaseCommand}, {L"Select From Enum", SelectFromEnumCommand},
      {L"IfDoLoopWhile", LoopBlock}, {L"IfDoLoopUntil", LoopBlock}, {L"ForEachNext", LoopBlock},
      {L"ForNext", LoopBlock}, {L"While", LoopBlock},
      {L"On Error GoTo", PickLabelCommand}, {L"On Error Resume Next", OneLineStatement}, {L"On Error GoTo 0", OneLineStatement},
      {L"Resume", PickLabelCommand}, {L"GoTo", PickLabelCommand}, {L"Exit", Exit}, {L"ErrorHandling", ErrorHandling},
      {L"Filename", Filename}, {L"Folder", Folder},
      {L"Comment Lines Add"}, {L"Comment Lines Remove"}, {L"Debug.Print ", PickVariableCommand},
  };
  return table;
}

namespace {
// The bodies given by features above the dispatcher, by command name.
struct DispatcherBodies {
  std::map<std::wstring, DispatcherBody> byName;
};
}  // namespace

void DispatcherBodySet(kernel::Session& s, const std::wstring& name, DispatcherBody body) {
  auto& bodies = s.Slot<DispatcherBodies>();
  if (!bodies) bodies = std::make_shared<DispatcherBodies>();
  bodies->byName[name] = std::move(body);
}

const DispatcherBody* DispatcherBodyOf(kernel::Session& s, const std::wstring& name) {
  const auto& bodies = s.Slot<DispatcherBodies>();
  if (!bodies) return nullptr;
  auto it = bodies->byName.find(name);
  return it == bodies->byName.end() ? nullptr : &it->second;
}

const DispatcherCommand* FindDispatcherCommand(const std::wstring& name) {
  for (const DispatcherCommand& c : DispatcherCommands())
    if (c.name == name) return &c;
  return nullptr;
}

}  // namespace quillet::generators
