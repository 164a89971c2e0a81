#include "generators/select_case.h"

#include "generators/scope.h"
#include "generators/values.h"
#include "generators/variable_builder_hooks.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "ui/ui_host.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

constexpr const wchar_t* kCrLf = L"\r\n";
constexpr const wchar_t* kSelectCase = L"Select Case";
constexpr const wchar_t* kCase = L"Case";
constexpr const wchar_t* kCaseElse = L"Case Else";
constexpr const wchar_t* kEndSelect = L"End Select";
// The caret waits on the head line just behind "Select Case".
constexpr int kTestExpressionColumn = 12;
// The longest lower-case tag a member name may carry ("xl", "vbe").
constexpr std::size_t kMaxTag = 3;

// What follows the member of a clause that returns a value.
std::wstring Assignment(const ReturnValue& r, const std::wstring& member) {
  if (vba::EqualsText(r.returnType, L"String")) return r.procName + L" = \"" + WithoutTag(member) + L"\"";
  if (r.moduleEnum) return r.procName + L" = " + r.returnType + L".";
  return r.procName + L" = ";
}

// The enum of that name in a collection; null when there is none.
std::shared_ptr<analysis::clsEnum> EnumNamed(const analysis::colEnums& enums, const std::wstring& name) {
  for (const auto& e : enums)
    if (vba::EqualsText(e->Name, name)) return e;
  return nullptr;
}

}  // namespace

std::wstring WithoutTag(const std::wstring& name) {
  std::size_t lower = 0;
  while (lower < name.size() && name[lower] >= L'a' && name[lower] <= L'z') ++lower;
  return lower <= kMaxTag ? name.substr(lower) : name;
}

std::wstring SelectCaseText(const SelectCaseRequest& r, int n, const std::wstring& tab) {
  const std::wstring I(static_cast<std::size_t>(n), L' ');
  const std::wstring body = I + tab + kCrLf;
  std::wstring text;
  if (r.testExpression.empty()) {
    text = I + kSelectCase + L" " + kCrLf;
  } else {
    std::vector<std::wstring> pieces = vba::Split(r.testExpression, kCrLf);
    text = I + kSelectCase + L" " + pieces[0] + kCrLf;
    for (std::size_t i = 1; i < pieces.size(); ++i) text += I + pieces[i] + kCrLf;
  }
  const bool withElse = r.command == L"Select Case Else";
  if (r.command != L"Select From Enum") {
    if (r.booleanTest) {
      text += I + kCase + L" True" + kCrLf + body;
      text += withElse ? I + kCaseElse + kCrLf + kCrLf : I + kCase + L" False" + kCrLf + body;
    } else {
      for (const std::wstring& value : r.values) text += I + kCase + L" " + value + kCrLf + body;
      if (withElse) text += I + kCaseElse + kCrLf + kCrLf;
    }
  } else if (!r.members.empty()) {
    const std::wstring afterCase = r.compact ? L": " : kCrLf + I + tab;
    if (r.singleCase) {
      text += I + kCase + L" " + vba::Join(r.members, L", ") + kCrLf + body;
    } else {
      for (const std::wstring& member : r.members) {
        text += I + kCase + L" " + member + afterCase;
        if (r.returnValues) text += Assignment(r.returnValue, member);
        text += kCrLf;
      }
    }
    if (r.addCaseElse) text += I + kCaseElse + afterCase + r.caseElseText + kCrLf;
  }
  return text + I + kEndSelect;
}

std::wstring SelectCaseKeys(const SelectCaseRequest& r) {
  if (r.testExpression.empty()) return L" ";
  if (r.command != L"Select Case" && r.command != L"Select Case Else") return L"";
  std::size_t continuations = vba::Split(r.testExpression, kCrLf).size() - 1;
  return L"{Down " + std::to_wstring(continuations + 2) + L"} {Backspace}";
}

kernel::CodeEdit SelectCaseEdit(const kernel::CodeView& view, const SelectCaseRequest& r) {
  int n = kernel::CurrentIndent(view);
  kernel::CodeEdit edit = kernel::LineInsertEdit(view, SelectCaseText(r, n, view.tab), n + kTestExpressionColumn);
  edit.keys = SelectCaseKeys(r);
  return edit;
}

bool SelectCodeInsert(kernel::Session& s, const SelectCaseInput& input) {
  SelectCaseRequest r;
  r.command = input.command;
  r.testExpression = input.testExpression;
  std::wstring functionName;
  if (input.varCategory == kNewVariable) r.testExpression.clear();
  if (input.varCategory > kFunctionCategories) {
    functionName = r.testExpression;
    r.testExpression.clear();
  }
  if (r.command == L"Select Case UCase") r.testExpression = L"UCase(" + r.testExpression + L")";

  if (r.command != L"Select From Enum") {
    std::wstring type;
    if (vba::Like(r.testExpression, L"*(*)"))
      type = ProcReturnTypeGet(s, r.testExpression.substr(0, r.testExpression.find(L'(')));
    else
      type = VarTypeGet(s, r.testExpression);
    r.booleanTest = type == L"Boolean";
    if (!r.booleanTest) {
      Scope& scope = ScopeOf(s);
      while (std::optional<std::wstring> answer = s.uiHost.InputBox(L"Value", L"Case", L"")) {
        if (answer->empty()) break;
        if (r.command == L"Select Case UCase") *answer = vba::UCase(*answer);
        r.values.push_back(ValueAsCode(s, vba::Variant(*answer), vbEmpty, scope.ModuleConsts, scope.ProcConsts));
      }
    }
  } else if (!input.enumName.empty()) {
    Scope& scope = ScopeOf(s);
    const analysis::ProjectModels& models = ModelsOf(s);
    std::shared_ptr<analysis::clsEnum> e =
        EnumNamed(input.enumCategory == 1   ? scope.ModuleEnums
                  : input.enumCategory == 2 ? models.ProjectEnums
                                            : models.LibraryEnums,
                  input.enumName);
    if (e)
      for (const auto& member : *e) r.members.push_back(member->Name);
    r.singleCase = input.singleCase;
    r.compact = input.compact;
    r.addCaseElse = input.addCaseElse;
    r.returnValues = input.returnValues;
    r.caseElseText = input.caseElseText;
    if (r.returnValues) {
      const auto& scan = analysis::CurrentScan(s);
      r.returnValue.procName = scan ? scan->ProcName : L"";
      if (const auto* proc = scope.ModuleProcs(s).Find(r.returnValue.procName))
        r.returnValue.returnType = (*proc)->ProcReturnType;
      if (r.returnValue.returnType.empty()) r.returnValue.returnType = L"Variant";
      r.returnValue.moduleEnum = EnumNamed(scope.ModuleEnums, r.returnValue.returnType) != nullptr;
    }
  }

  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (!view) return false;
  kernel::ApplyEdit(s.platform, *s.vbe->ActiveCodePane(), SelectCaseEdit(*view, r));

  // What follows comes a moment later, after the keystrokes have landed.
  if (input.varCategory == kNewVariable || input.varCategory > kFunctionCategories) kernel::DoEvents(s);
  if (input.varCategory == kNewVariable) {
    const VariableBuilderHooks& hooks = VariableBuilderHooksOf(s);
    if (hooks.openLater) hooks.openLater(s, input.enumName);
    else kernel::NotAvailable(s, L"the Variable Builder");
  } else if (input.varCategory > kFunctionCategories) {
    kernel::NotAvailable(s, L"the Line of Code Builder for " + functionName);
  }
  return true;
}

}  // namespace quillet::generators
