#include "generators/procedure.h"

#include <algorithm>
#include <array>

#include "analysis/scan_proc.h"
#include "generators/error_handling.h"
#include "generators/fragment_insert.h"
#include "generators/templates.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/items.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kCrLf = L"\r\n";

struct HourglassTexts {
  std::wstring_view host, on, off;
};
constexpr std::array<HourglassTexts, 4> kHourglass{{
    {L"Access", L"Screen.MousePointer = 11", L"Screen.MousePointer = 0"},
    {L"VBRUN", L"Screen.MousePointer = 11", L"Screen.MousePointer = 0"},
    {L"Excel", L"Application.Cursor=xlWait", L"Application.Cursor=xlDefault"},
    {L"Word", L"System.Cursor=wdCursorWait", L"System.Cursor=wdCursorNormal"},
}};

const HourglassTexts* HourglassOf(const kernel::Session& s) {
  for (const HourglassTexts& h : kHourglass)
    if (vba::EqualsText(s.hostName, h.host)) return &h;
  return nullptr;
}

}  // namespace

std::wstring BuildHourglass(kernel::Session& s, bool on) {
  const HourglassTexts* h = HourglassOf(s);
  if (!h) return std::wstring(kCrLf);
  return kernel::TabSpacesGet(s) + std::wstring(on ? h->on : h->off) + std::wstring(kCrLf);
}

bool HourglassAvailable(const kernel::Session& s) { return HourglassOf(s) != nullptr; }

std::wstring ProcedureConstantLine(kernel::Session& s, const std::wstring& name) {
  return kernel::TabSpacesGet(s) + L"Const " + s.settings[settings::kProcedureNameConstant].ToString() + L" = \"" +
         name + L"\"" + std::wstring(kCrLf);
}

bool IsPlainReturnType(const std::wstring& type) {
  static constexpr std::array<std::wstring_view, 10> kPlain{L"Byte",   L"Boolean",  L"Integer", L"Long",
                                                            L"Single", L"Double",   L"Currency", L"Date",
                                                            L"String", L"Variant"};
  if (type.empty()) return true;
  for (std::wstring_view t : kPlain)
    if (vba::EqualsText(type, t)) return true;
  return false;
}

std::wstring clsProcedure::GetArgString(long start) const {
  std::wstring s;
  const auto items = arguments_.Items();
  if (items.empty()) return s;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (start > 0 && ArgumentsOnSeparateLine && i >= 1) s += L"_" + std::wstring(kCrLf) + std::wstring(start, L' ');
    s += items[i]->ArgumentString() + L", ";
  }
  return s.substr(0, s.size() - 2);
}

std::wstring clsProcedure::GenerateCode(kernel::Session& s) {
  if (!content_.empty()) return content_;
  std::wstring code;
  kernel::Trap(s, L"clsProcedure.GenerateCode", [&] {
    if (!AccessibleType.empty()) code += AccessibleType + L" ";
    if (IsStatic) code += L"Static ";
    code += ProcType + L" ";
    if (ProcType == L"Property") code += PropertyType + L" ";
    code += Name + L"(";
    const long start = static_cast<long>(code.size());
    if (arguments_.Count() > 0) code += GetArgString(start);
    code += L")";
    if (!ReturnValueType.empty()) code += L" As " + ReturnValueType;
    definition_ = code;
    code += kCrLf;
    if (IncludeComment) code += HeaderGet(s, kProcedureHeader, Name, Description);
    if (ProcedureNameConstant) code += ProcedureConstantLine(s, Name);
    code += kCrLf;
    code += L"End " + ProcType + std::wstring(kCrLf);
    if (IncludeErrorHandler) AddErrorHandler(s, code);
    if (AddReturnStatement) AddReturnLine(s, code);
    if (IncludeHourglass) AddHourglass(s, code);
  });
  return code;
}

void clsProcedure::AddErrorHandler(kernel::Session& s, std::wstring& procedureText) const {
  std::wstring fragment = ErrorHandler;
  NormalizeErrorHandlerCode(s, fragment, ModuleName, Name, ProcType, ModuleNameConstant, ProcedureNameConstant);
  FragmentToTextOfProcedureAdd(s, fragment, procedureText, ProcType);
}

void clsProcedure::AddReturnLine(kernel::Session& s, std::wstring& procedureText) const {
  const std::wstring indent = kernel::TabSpacesGet(s);
  std::wstring fragment = L"<BeforeHandleExitLabel>" + std::wstring(kCrLf) + indent;
  if (IsPlainReturnType(ReturnValueType)) fragment += Name + L" = Empty";
  else fragment += L"Set " + Name + L" = Nothing";
  fragment += kCrLf;
  FragmentToTextOfProcedureAdd(s, fragment, procedureText, ProcType);
}

void clsProcedure::AddHourglass(kernel::Session& s, std::wstring& procedureText) const {
  // A host without an hourglass gives two bare line breaks, which come to nothing.
  if (!HourglassAvailable(s)) return;
  std::wstring fragment = BuildHourglass(s, true) + L"<end_of_top>" + L"<begin_of_bottom>" + BuildHourglass(s, false);
  FragmentToTextOfProcedureAdd(s, fragment, procedureText, ProcType);
}

void clsProcedure::Create(kernel::Session& s, const std::wstring& code, const host::Ptr<host::VBProject>& project,
                          bool toEndOfModule, bool setCursor) {
  kernel::Trap(s, L"clsProcedure.Create", [&] {
    if (code.empty() || !project || project->VBComponents()->Count() == 0) return;
    host::Ptr<host::VBComponent> component = project->VBComponents()->Item(ModuleName);
    host::Ptr<host::CodeModule> module = component->CodeModule();
    // Where the new text begins: the searches for its definition and its marks start
    // there, so that a procedure of the same name above cannot be taken for it and a long
    // module is not read again from its top.
    long line = 1;
    if (toEndOfModule) {
      line = module->CountOfLines() + 1;
      module->InsertLines(line, code);
    } else {
      module->AddFromString(code);
    }
    if (setCursor) {
      host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
      if (pane && vba::Like(pane->CodeModule()->Parent()->Name(), ModuleName)) {
        CursorToBody(s, line);
        kernel::SetCursor(s, line, false, component);
        return;
      }
    }
    // A mark never stays behind in the user's code, even where the caret cannot follow.
    kernel::SetCursor(s, line, true, component);
  });
}

void clsProcedure::CursorToBody(kernel::Session& s, long fromLine) const {
  if (definition_.empty()) return;
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return;
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  if (module->Parent()->Name() != ModuleName) return;
  const std::wstring first = vba::Trim(vba::Split(definition_, kCrLf).front());
  host::Selection found(std::max(1L, fromLine), 1, -1, -1);
  if (!module->Find(first, found)) return;
  pane->SetSelection(host::Selection(found.startLine, 1));
  analysis::clsScanProc scan;
  scan.init(s, true);
  const std::wstring indent = kernel::TabSpacesGet(s);
  for (long n = scan.ProcDeclAreaEndLine; n > 0 && n < module->CountOfLines(); ++n) {
    host::ProcKind kind = host::kProcKind;
    if (!vba::Like(module->ProcOfLine(n, kind), scan.ProcName)) break;
    if (vba::Trim(module->Lines(n, 1)).empty()) {
      module->ReplaceLine(n, indent);
      const long column = static_cast<long>(indent.size()) + 1;
      pane->SetSelection(host::Selection(n, column, n, column));
      return;
    }
  }
}

}  // namespace quillet::generators
