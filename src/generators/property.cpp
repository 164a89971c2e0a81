#include "generators/property.h"

#include "generators/procedure.h"
#include "generators/templates.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/items.h"
#include "settings/naming.h"
#include "vba/strings.h"

namespace quillet::generators {

namespace {

constexpr long kKindEnumType = 10003;
constexpr long kKindUserType = 10004;
const wchar_t* const kCrLf = L"\r\n";

host::Ptr<host::CodePane> TargetPane(kernel::Session& s, const std::wstring& module) {
  if (!s.vbe) return nullptr;
  if (module.empty()) return s.vbe->ActiveCodePane();
  host::Ptr<host::VBProject> project = s.vbe->ActiveVBProject();
  if (!project) return nullptr;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) {
    host::Ptr<host::VBComponent> c = components->Item(i);
    if (vba::EqualsText(c->Name(), module)) return c->CodeModule()->CodePane();
  }
  return nullptr;
}

}  // namespace

PropertyClass PropertyClassOf(const std::wstring& type, long kind) {
  if (settings::IsBasicType(type) || kind == kKindEnumType || kind == kKindUserType) return PropertyClass::Plain;
  if (type.empty() || type == L"Variant") return PropertyClass::Variant;
  return PropertyClass::Object;
}

std::wstring PrivPropVarName(kernel::Session& s, const std::wstring& type, const std::wstring& name) {
  std::wstring typeName = type, prefix;
  std::wstring typePart;
  if (!settings::WordHasTypePrefix(s, name, typeName, prefix, false)) {
    typePart = settings::DefaultTypePrefix(s, type);
    if (typePart.empty()) typePart = L"var";
  }
  return s.settings[settings::kPrefixModule].ToString() + typePart + name;
}

std::wstring clsProperty::Declaration(kernel::Session& s) const {
  std::wstring d = L"Private " + PrivPropVarName(s, DataType, Name);
  if (!DataType.empty()) d += L" As " + DataType;
  return d;
}

std::wstring clsProperty::ProcedureText(kernel::Session& s, Part part) const {
  const std::wstring indent = kernel::TabSpacesGet(s);
  const std::wstring v = PrivPropVarName(s, DataType, Name);
  std::wstring t;
  if (!AccessibleType.empty()) t += AccessibleType + L" ";
  if (IsStatic) t += L" Static ";
  switch (part) {
    case Part::Get: t += L"Property Get " + Name + L"()"; break;
    case Part::Let: t += L"Property Let " + Name + L"(rData"; break;
    case Part::Set: t += L"Property Set " + Name + L"(rData"; break;
  }
  if (!DataType.empty()) t += L" As " + DataType;
  if (part != Part::Get) t += L")";
  t += kCrLf;
  if (IncludeHeader) t += HeaderGet(s, kProcedureHeader, Name, Description);
  if (ProcedureNameConstant) t += ProcedureConstantLine(s, Name);
  switch (part) {
    case Part::Get:
      switch (Class()) {
        case PropertyClass::Plain: t += indent + Name + L" = " + v; break;
        case PropertyClass::Object: t += indent + L"Set " + Name + L" = " + v; break;
        case PropertyClass::Variant:
          t += indent + L"If IsObject(" + v + L") Then" + kCrLf;
          t += indent + indent + L"Set " + Name + L" = " + v + kCrLf;
          t += indent + L"Else" + kCrLf;
          t += indent + indent + Name + L" = " + v + kCrLf;
          t += indent + L"End if";
          break;
      }
      break;
    case Part::Let: t += indent + v + L" = rData"; break;
    case Part::Set: t += indent + L"Set " + v + L" = rData"; break;
  }
  t += L"\r\nEnd Property\r\n\r\n";
  CodeFragmentsAdd(s, t);
  return t;
}

void clsProperty::PropertyProceduresCodeCreate(kernel::Session& s, bool get, bool set, std::wstring& code) const {
  kernel::Trap(s, L"clsProperty.PropertyProceduresCodeCreate", [&] {
    if (get) code += ProcedureText(s, Part::Get);
    if (!set) return;
    PropertyClass c = Class();
    if (c != PropertyClass::Object) code += ProcedureText(s, Part::Let);
    if (c != PropertyClass::Plain) code += ProcedureText(s, Part::Set);
  });
}

void clsProperty::CodeFragmentsAdd(kernel::Session& s, std::wstring& text) const {
  if (!IncludeErrorHandler && !IncludeHourglass) return;
  clsProcedure p;
  p.Name = Name;
  p.ModuleName = ModuleName;
  p.ProcType = L"Property";
  p.ErrorHandler = ErrorHandler;
  p.ModuleNameConstant = ModuleNameConstant;
  p.ProcedureNameConstant = ProcedureNameConstant;
  if (IncludeErrorHandler) p.AddErrorHandler(s, text);
  if (IncludeHourglass) p.AddHourglass(s, text);
}

std::vector<kernel::CodeEdit> PropertyEdits(long declarationLines, long countOfLines, bool toEndOfModule,
                                            long caretLine, const std::wstring& declaration,
                                            const std::wstring& procedures) {
  kernel::CodeEdit decl;
  decl.line = declarationLines + 1;
  decl.text = declaration;
  if (toEndOfModule || caretLine > 0) {
    kernel::CodeEdit procs;
    procs.text = procedures;
    // The declaration's line pushes everything below the declarations down by one.
    procs.line = toEndOfModule ? countOfLines + 2 : caretLine + 1 + (caretLine > declarationLines ? 1 : 0);
    return {decl, procs};
  }
  decl.text += kCrLf + procedures;
  return {decl};
}

bool BuildPropCodeLines(kernel::Session& s, const clsProperty& property, bool toEndOfModule) {
  bool written = false;
  kernel::Trap(s, L"frmProperty.BuildPropCodeLines", [&] {
    host::Ptr<host::CodePane> pane = TargetPane(s, property.ModuleName);
    if (!pane) return;
    host::Ptr<host::CodeModule> module = pane->CodeModule();
    std::wstring procedures;
    property.PropertyProceduresCodeCreate(s, property.GetPart, property.SetPart, procedures);
    long caretLine = 0;
    if (!toEndOfModule) {
      std::wstring name;
      long body = 0;
      host::Ptr<host::CodePane> active = s.vbe->ActiveCodePane();
      bool sameModule = active && active->CodeModule().get() == module.get();
      if (sameModule && !kernel::CurrentProcGet(s, true, name, body) && kernel::CurrentProcGet(s, false, name, body)) {
        long column = 0;
        kernel::CurrentLineGet(s, caretLine, column, false);
      }
    }
    for (const kernel::CodeEdit& e :
         PropertyEdits(module->CountOfDeclarationLines(), module->CountOfLines(), toEndOfModule, caretLine,
                       property.Declaration(s), procedures)) {
      module->InsertLines(std::min(e.line, module->CountOfLines() + 1), e.text);
    }
    written = true;
  });
  return written;
}

}  // namespace quillet::generators
