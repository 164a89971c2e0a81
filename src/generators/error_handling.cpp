#include "generators/error_handling.h"

#include "analysis/live_code.h"
#include "analysis/scan_proc.h"
#include "generators/error_module.h"
#include "generators/fragment_insert.h"
#include "generators/fragment_zones.h"
#include "generators/templates.h"
#include "generators/var_const_code.h"
#include "kernel/code_edit.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "settings/items.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

std::wstring Item(kernel::Session& s, int item) { return s.settings[item].ToString(); }

bool Has(std::wstring_view text, std::wstring_view token) { return vba::InStr(text, token, vba::Compare::Text) > 0; }

// The name inside a literal, at its start and at its end, turned into the constant.
void NameToConstant(std::wstring& code, const std::wstring& name, const std::wstring& constant) {
  if (name.empty()) return;
  code = vba::Replace(code, L"\"" + name, L"\"\" & " + constant + L" & \"", 1, -1, vba::Compare::Text);
  code = vba::Replace(code, name + L"\"", L"\" & " + constant + L" & \"\"", 1, -1, vba::Compare::Text);
}

}  // namespace

std::wstring ErrorHandlerRead(kernel::Session& s, const std::wstring& name) {
  std::wstring file = name;
  if (!vba::EqualsText(vba::Right(file, 4), L".bas")) file += L".bas";
  settings::File f(s, settings::PathCombine({settings::ErrorHandlersFolderGet(s), file}));
  return f.ReadFile();
}

bool ErrorHandlerGet(kernel::Session& s, std::wstring& code, std::wstring& moduleName, std::wstring& procedureName,
                     std::wstring& procedureType) {
  return Substitute(s, code, moduleName, procedureName, procedureType);
}

std::wstring NameConstantsApply(std::wstring code, const std::wstring& moduleName, const std::wstring& procedureName,
                                const std::wstring& moduleConstant, const std::wstring& procedureConstant,
                                bool moduleFlag, bool procedureFlag) {
  if (moduleFlag) NameToConstant(code, moduleName, moduleConstant);
  if (procedureFlag) NameToConstant(code, procedureName, procedureConstant);
  // An empty literal glued to a constant says nothing: it goes.
  code = vba::Replace(code, L"\"\" & ", L"");
  code = vba::Replace(code, L" & \"\"", L"");
  return code;
}

void NormalizeErrorHandlerCode(kernel::Session& s, std::wstring& code, std::wstring moduleName,
                               std::wstring procedureName, std::wstring procedureType, bool moduleFlag,
                               bool procedureFlag) {
  kernel::Trap(s, L"basGlobal.NormalizeErrorHandlerCode", [&] {
    ErrorHandlerGet(s, code, moduleName, procedureName, procedureType);
    code = NameConstantsApply(code, moduleName, procedureName, Item(s, settings::kModuleNameConstant),
                              Item(s, settings::kProcedureNameConstant), moduleFlag, procedureFlag);
  });
}

bool HasErrorHandling(const std::wstring& procedureText, const std::wstring& errorLabel) {
  return !errorLabel.empty() && Has(procedureText, errorLabel + L":");
}

bool ModuleConstantAdd(kernel::Session& s, const std::wstring& module, bool quiet) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return false;
  const std::wstring constant = Item(s, settings::kModuleNameConstant);
  // The declarations looked at are those of the module the constant goes to.
  host::Ptr<host::CodeModule> code = pane->CodeModule();
  if (host::Ptr<host::VBComponent> component = kernel::ModuleFind(s, module)) code = component->CodeModule();
  const long declarations = code->CountOfDeclarationLines();
  if (declarations > 0 && Has(code->Lines(1, declarations), L"Const " + constant)) return true;
  if (quiet) return false;
  std::wstring target = module;
  VarConstPlace place;
  place.moduleLevel = true;
  place.name = constant;
  return VarConstCodeAdd(s, L"Private Const " + constant + L" As String = \"" + module + L"\"", target, place);
}

bool ErrorHandlingAdd(kernel::Session& s, const std::wstring& fragment) {
  bool added = false;
  kernel::Trap(s, L"basQuillet.ErrorHandlingAdd", [&] {
    host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
    if (!pane) return;
    std::shared_ptr<analysis::clsScanProc> scan = ProcScanRefresh(s);
    if (scan->ProcName.empty() || scan->ProcRealStartLine <= 0) return;
    host::Ptr<host::CodeModule> module = pane->CodeModule();
    const std::wstring procedureText =
        module->Lines(scan->ProcRealStartLine, scan->ProcRealEndLine - scan->ProcRealStartLine + 1);
    if (HasErrorHandling(procedureText, Item(s, settings::kErrorHandler))) return;

    const bool moduleFlag = s.settings[settings::kMakeModuleConstantTrue].ToBool();
    const bool procedureFlag = s.settings[settings::kMakeProcedureConstantTrue].ToBool();
    std::wstring code = ErrorHandlerRead(s, fragment.empty() ? Item(s, settings::kDefaultErrorHandle) : fragment);
    if (code.empty()) return;

    const std::wstring moduleName = module->Parent()->Name();
    const std::wstring procedureName = scan->ProcName;
    const std::wstring procedureType = scan->ProcTypeStr;
    if (Has(code, L"{ERRORHANDLEPROCEDURE}")) ErrorHandlerEnsure(s);
    if (Has(code, L"{MODULENAME}") && moduleFlag) ModuleConstantAdd(s, moduleName, false);
    if (Has(code, L"{PROCEDURENAME}") && procedureFlag) {
      const std::wstring constant = Item(s, settings::kProcedureNameConstant);
      if (!analysis::CodeHasText(procedureText, constant))
        qltProcVariableAdd(s, L"Const " + constant + L" = \"" + procedureName + L"\"");
    }
    NormalizeErrorHandlerCode(s, code, moduleName, procedureName, procedureType, moduleFlag, procedureFlag);

    FragmentToProcedureAdd(s, code, ProcScanRefresh(s));
    added = true;
  });
  return added;
}

}  // namespace quillet::generators
