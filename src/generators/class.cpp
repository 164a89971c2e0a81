#include "generators/class.h"

#include "generators/frm_select_table.h"
#include "generators/module_create.h"
#include "generators/templates.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "settings/items.h"
#include "vba/strings.h"

namespace quillet::generators {

namespace {

const std::wstring kCrLf = L"\r\n";

std::wstring ReplaceAll(const std::wstring& text, std::wstring_view token, std::wstring_view value) {
  return vba::Replace(text, token, value);
}

std::wstring Join(const std::vector<std::wstring>& lines) {
  std::wstring out;
  for (std::size_t i = 0; i < lines.size(); ++i) out += (i ? kCrLf : L"") + lines[i];
  return out;
}

}  // namespace

std::wstring clsClass::GenerateCode(kernel::Session& s) {
  std::wstring code;
  kernel::Trap(s, L"clsClass.GenerateCode", [&] {
    if (!Description.empty()) code += WrapText(Description) + kCrLf;
    code += HeaderGet(s, kModuleHeader, Name, Description);
    if (ModuleNameConstant)
      code += L"Private Const " + s.settings[settings::kModuleNameConstant].ToString() + L" As String = \"" + Name +
              L"\"" + kCrLf;
    for (long i = 1; i <= properties_.Count(); ++i) code += properties_.Item(i)->Declaration(s) + kCrLf;
    for (long i = 1; i <= properties_.Count(); ++i) {
      clsProperty& p = *properties_.Item(i);
      p.ModuleName = Name;
      p.PropertyProceduresCodeCreate(s, p.GetPart, p.SetPart, code);
    }
    for (long i = 1; i <= methods_.Count(); ++i) {
      clsProcedure& m = *methods_.Item(i);
      m.ModuleName = Name;
      code += m.GenerateCode(s) + kCrLf;
    }
    std::wstring init = GenerateInitCode(s, {});
    if (!init.empty()) code += init + kCrLf;
  });
  return code;
}

std::wstring clsClass::GenerateInitCode(kernel::Session& s, const std::vector<ClassInitObject>& objects) const {
  if (objects.empty()) return {};
  const std::wstring indent = kernel::TabSpacesGet(s);
  std::wstring t = L"Private Sub Class_Initialize()" + kCrLf;
  for (const ClassInitObject& o : objects) t += indent + L"Set " + o.name + L" = New " + o.type + kCrLf;
  return t + kCrLf + kCrLf + L"End Sub" + kCrLf;
}

bool clsClass::Create(kernel::Session& s, const host::Ptr<host::VBProject>& project) {
  bool made = false;
  kernel::Trap(s, L"clsClass.Create", [&] {
    if (!project) return;
    host::Ptr<host::VBComponent> component = project->VBComponents()->Add(host::kClassModule);
    component->SetName(Name);
    std::wstring code = vba::Replace(GenerateCode(s), L"<cursor>", L"", 1, -1, vba::Compare::Text);
    component->CodeModule()->AddFromString(code);
    made = true;
    if (MakeCollectionClass) CollectionClassModuleAdd(s, project);
    long line = 1;
    kernel::SetCursor(s, line, false, component);
  });
  return made;
}

bool clsClass::CollectionClassModuleAdd(kernel::Session& s, const host::Ptr<host::VBProject>& project) const {
  bool made = false;
  kernel::Trap(s, L"clsClass.CollectionClassModuleAdd", [&] {
    const std::wstring path = settings::CollectionClassTemplateGet(s);
    if (!project || path.empty()) return;
    settings::File templateFile(s, path);
    templateFile.silent = true;
    std::wstring text = templateFile.ReadFile();
    if (text.empty()) return;
    text = vba::Replace(text, L"{MODULENAME}", CollectionClassName, 1, -1, vba::Compare::Text);
    text = vba::Replace(text, L"{BASECLASSNAME}", Name, 1, -1, vba::Compare::Text);
    text = vba::Replace(text, L"    ", kernel::TabSpacesGet(s));
    if (vba::InStr(text, L"{MODULEHEADER}", vba::Compare::Text) > 0)
      text = vba::Replace(text, L"{MODULEHEADER}",
                          HeaderGet(s, kModuleHeader, CollectionClassName, L"Collection Class for " + Name), 1, -1,
                          vba::Compare::Text);
    made = ModuleImportText(s, project, templateFile.NameWithExtension(), text);
  });
  return made;
}

std::vector<TableMethod> TableMethodsText(const TableMethodsInput& in) {
  const std::wstring loaded = in.loadedVariable + L" = True";
  auto fill = [&](std::wstring t) {
    t = ReplaceAll(t, L"[Loaded]", loaded);
    return ReplaceAll(t, L"[Indent]", in.indent);
  };
  const std::wstring base = L"[Public] Sub [Name]()\r\n[Indent]With Recordset\r\n[Code]\r\n[Indent]End With\r\n"
                            L"[Indent][Loaded]\r\nEnd Sub";
  const std::wstring editMarker = in.ado ? L"" : L"[Indent][Indent][Indent].Edit";
  std::vector<std::wstring> load;
  std::wstring update = L"[Indent][Indent]If [Loaded] Then\r\n" + editMarker +
                        L"\r\n[Indent][Indent]Else\r\n[Indent][Indent][Indent].AddNew\r\n[Indent][Indent]End If";
  for (std::size_t i = 0; i < in.fields.size() && i < in.properties.size(); ++i) {
    const std::wstring& field = in.fields[i];
    const bool isPublic = i < in.publicProperty.size() ? in.publicProperty[i] : true;
    const std::wstring target = isPublic || i >= in.variables.size() ? L"Me." + in.properties[i] : in.variables[i];
    load.push_back(L"[Indent][Indent]" + target + L" = Nz(.Fields(\"" + field + L"\").Value)");
    update += L"\r\n[Indent][Indent].Fields(\"" + field + L"\").Value = Me." + in.properties[i];
  }
  update += L"\r\n[Indent][Indent].Update";
  auto method = [&](const wchar_t* access, const wchar_t* name, const std::wstring& code) {
    std::wstring t = ReplaceAll(ReplaceAll(base, L"[Public]", access), L"[Name]", name);
    return fill(ReplaceAll(t, L"[Code]", code));
  };

  std::vector<TableMethod> out;
  out.push_back({L"Load", L"Public", method(L"Private", L"Load", Join(load))});
  out.push_back({L"Update", L"Public", method(L"Public", L"Update", update)});
  std::wstring init =
      in.ado ? in.indent + L"Set Recordset = New Recordset" + kCrLf + in.indent + L"Recordset.Open \"" + in.table +
                   L"\", CurrentProject.Connection, adOpenKeyset, adLockOptimistic" + kCrLf
             : in.indent + L"Set Recordset = CurrentDb.OpenRecordset(\"" + in.table + L"\", dbOpenDynaset)";
  out.push_back({L"Class_Initialize", L"Private", L"Private Sub Class_Initialize()\r\n" + init + L"\r\nEnd Sub"});
  out.push_back({L"Class_Terminate", L"Private",
                 fill(L"Private Sub Class_Terminate()\r\n[Indent]Recordset.Close\r\n[Indent]Set Recordset = Nothing\r\n"
                      L"End Sub")});
  std::wstring find = in.ado ? L"[Indent][Indent]Recordset.Find Criteria\r\n"
                               L"[Indent][Indent]FindFirst = Not (Recordset.EOF or Recordset.BOF)"
                             : L"[Indent][Indent]Recordset.FindFirst Criteria\r\n"
                               L"[Indent][Indent]FindFirst = Not Recordset.NoMatch";
  out.push_back({L"FindFirst", L"Public",
                 fill(L"Public Function FindFirst(Optional Criteria As Variant) As Boolean\r\n"
                      L"[Indent]If IsMissing(Criteria) Then\r\n[Indent][Indent]Recordset.MoveFirst\r\n"
                      L"[Indent][Indent]FindFirst = Not Recordset.EOF\r\n[Indent]Else\r\n" +
                      find + L"\r\n[Indent]End If\r\n[Indent]If FindFirst Then Load\r\nEnd Function")});
  out.push_back({L"AddNew", L"Public",
                 L"Public Sub AddNew()\r\n" + in.indent + in.loadedVariable + L" = False\r\nEnd Sub"});
  return out;
}

void ClassFromTable(kernel::Session& s, clsClass& c, const std::wstring& table,
                    const std::vector<std::wstring>& fieldNames, const std::vector<long>& fieldTypes) {
  const bool ado = AccessIsAdo(s);
  TableMethodsInput in;
  in.table = table;
  in.ado = ado;
  in.indent = kernel::TabSpacesGet(s);
  auto add = [&](std::shared_ptr<clsProperty> p) {
    if (c.Properties().Exists(p->Name)) c.Properties().Remove(p->Name);
    c.Properties().Add(p, p->Name);
  };
  for (std::size_t i = 0; i < fieldNames.size(); ++i) {
    auto p = std::make_shared<clsProperty>();
    p->Name = LegalIdentifier(fieldNames[i]);
    p->DataType = FieldTypeToVba(i < fieldTypes.size() ? fieldTypes[i] : 0, ado);
    p->AccessibleType = L"Public";
    in.fields.push_back(fieldNames[i]);
    in.properties.push_back(p->Name);
    in.publicProperty.push_back(true);
    in.variables.push_back(PrivPropVarName(s, p->DataType, p->Name));
    add(p);
  }
  for (auto [name, type] : {std::pair{L"Recordset", L"Recordset"}, std::pair{L"Loaded", L"Boolean"}}) {
    auto p = std::make_shared<clsProperty>();
    p->Name = name;
    p->DataType = type;
    p->AccessibleType = L"Private";
    add(p);
  }
  in.loadedVariable = PrivPropVarName(s, L"Boolean", L"Loaded");
  c.TableName = table;
  for (const TableMethod& m : TableMethodsText(in)) {
    auto proc = std::make_shared<clsProcedure>();
    proc->Name = m.name;
    proc->AccessibleType = m.accessibility;
    proc->ProcType = m.name == L"FindFirst" ? L"Function" : L"Sub";
    proc->ProcContent(m.text);
    if (c.Methods().Exists(m.name)) c.Methods().Remove(m.name);
    c.Methods().Add(proc, m.name);
  }
}

}  // namespace quillet::generators
