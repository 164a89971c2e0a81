#include "analysis/module_scan.h"

#include "analysis/keyed.h"
#include "analysis/line_scan.h"
#include "analysis/module_procs.h"
#include "kernel/errors.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {
namespace {

// A project whose code the editor does not show.
constexpr int kProjectLocked = 1;

// What a declaration statement declares.
enum class DeclKind { None, Variables, Constants, Enum, Type, Declare };

struct Decl {
  DeclKind kind = DeclKind::None;
  std::wstring text;  // behind the keywords, trimmed
};

Decl Make(DeclKind kind, std::wstring_view statement, size_t column) {
  return {kind, column <= statement.size() ? vba::Trim(statement.substr(column - 1)) : std::wstring{}};
}

// The `n`th piece (0-based) of the statement split at each blank, as Split cuts it: two
// blanks in a row give an empty piece between them.
std::wstring Word(std::wstring_view statement, size_t n) {
  size_t from = 0;
  for (; n > 0; --n) {
    size_t blank = statement.find(L' ', from);
    if (blank == std::wstring_view::npos) return {};
    from = blank + 1;
  }
  return std::wstring(statement.substr(from, statement.find(L' ', from) - from));
}

// What follows a scope word of seven letters and a blank ("Private", "Public", "Global"),
// told by the second word; a variable list when it is no keyword.
Decl BehindScopeWord(const std::wstring& statement) {
  const std::wstring second = vba::LCase(Word(statement, 1));
  if (second == L"const") return Make(DeclKind::Constants, statement, 14);
  if (second == L"enum") return Make(DeclKind::Enum, statement, 13);
  if (second == L"type") return Make(DeclKind::Type, statement, 13);
  if (second == L"declare") return Make(DeclKind::Declare, statement, 16);
  return Make(DeclKind::Variables, statement, 8);
}

// The kind of a statement read for the module's own use.
Decl ModuleDecl(const std::wstring& statement, bool standard) {
  const std::wstring first = vba::UCase(Word(statement, 0));
  if (first == L"PUBLIC") {
    if (!standard && statement.size() >= 11 && vba::EqualsText(std::wstring_view(statement).substr(7, 4), L"Enum"))
      return Make(DeclKind::Enum, statement, 13);
    return {};
  }
  if (first == L"ENUM") return standard ? Decl{} : Make(DeclKind::Enum, statement, 6);
  if (first == L"DIM") return Make(DeclKind::Variables, statement, 5);
  if (first == L"CONST") return Make(DeclKind::Constants, statement, 7);
  if (first != L"PRIVATE") return {};
  return BehindScopeWord(statement);
}

// The kind of a statement read for the project: what a standard module makes public.
Decl PublicDecl(const std::wstring& statement) {
  const std::wstring first = vba::UCase(Word(statement, 0));
  if (first == L"PUBLIC" || first == L"GLOBAL") return BehindScopeWord(statement);
  if (first == L"ENUM") return Make(DeclKind::Enum, statement, 6);
  if (first == L"TYPE") return Make(DeclKind::Type, statement, 6);
  return {};
}

template <class Record>
void ListAdd(kernel::Session& s, std::wstring_view text, const SharedText& module, vba::Collection<std::shared_ptr<Record>>& into) {
  std::vector<std::wstring> pieces;
  DeclListSplit(text, pieces);
  for (const std::wstring& piece : pieces) {
    auto record = std::make_shared<Record>();
    record->init(piece);
    record->ModuleName = module;
    AddKeepingFirst(into, std::move(record), record->Name);
  }
}

std::wstring ActiveProjectName(kernel::Session& s) {
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  return project ? project->Name() : std::wstring{};
}

// Walks the statements behind `index` up to the one that starts with `endText`, handing
// each non-empty one to `member`.
template <class F>
void BlockWalk(const std::vector<std::wstring>& statements, size_t& index, std::wstring_view endText, F&& member) {
  for (++index; index < statements.size(); ++index) {
    const std::wstring& statement = statements[index];
    if (vba::EqualsText(std::wstring_view(statement).substr(0, std::min<size_t>(8, statement.size())), endText)) return;
    if (!vba::Trim(statement).empty()) member(statement);
  }
}

std::wstring FirstWord(std::wstring_view text) { return vba::Split(vba::Trim(text), L" ").front(); }

}  // namespace

namespace {

// A block (an enum or a type) named by the first word of `text`, its members read from the
// statements up to `endText` by `member`, and kept in `blocks` under its name.
template <class Block, class Blocks, class Member>
void BlockAdd(kernel::Session& s, std::wstring_view where, std::wstring_view text,
              const std::vector<std::wstring>& statements, size_t& index, std::wstring_view endText, Blocks& blocks,
              const SharedText& module, bool isPrivate, Member&& member) {
  TrapPassingDuplicates(s, where, [&] {
    auto block = std::make_shared<Block>();
    block->Name = FirstWord(text);
    block->Project = ActiveProjectName(s);
    block->Module = module;
    block->IsPrivate = isPrivate;
    BlockWalk(statements, index, endText, [&](const std::wstring& statement) { member(*block, statement); });
    AddKeepingFirst(blocks.Items(), block, block->Name);
  });
}

}  // namespace

void EnumAdd(kernel::Session& s, std::wstring_view text, const std::vector<std::wstring>& statements, size_t& index,
             colEnums& enums, Constants* constants, const SharedText& module, bool isPrivate) {
  SharedText enumName;
  BlockAdd<clsEnum>(s, L"basGlobal.EnumAdd", text, statements, index, L"End Enum", enums, module, isPrivate,
                    [&](clsEnum& e, const std::wstring& statement) {
                      std::vector<std::wstring> parts = vba::Split(statement, L"=");
                      auto member = std::make_shared<clsConstant>();
                      member->Name = vba::Trim(parts[0]);
                      if (parts.size() > 1) member->Value = vba::Trim(parts[1]);
                      // The members hold one text of their enum's name.
                      if (enumName.empty()) enumName = e.Name;
                      member->EnumName = enumName;
                      member->Type_ = e.Name;
                      member->ModuleName = module;
                      member->Project = e.Project;
                      PassOverDuplicates([&] { e.Add(member); });
                      if (constants) AddKeepingFirst(*constants, member, member->Name);
                    });
}

void TypeAdd(kernel::Session& s, std::wstring_view text, const std::vector<std::wstring>& statements, size_t& index,
             colTypes& types, const SharedText& module, bool isPrivate) {
  BlockAdd<clsType>(s, L"basGlobal.TypeAdd", text, statements, index, L"End Type", types, module, isPrivate,
                    [&](clsType& t, const std::wstring& statement) {
                      auto field = std::make_shared<clsVariable>();
                      field->init(statement);
                      field->ModuleName = module;
                      AddKeepingFirst(t.Items(), field, field->Name);
                    });
}

Rv_ProcDefs ModuleProcsRead(kernel::Session& s, const host::Ptr<host::VBComponent>& component, bool onlyPublic) {
  Rv_ProcDefs procs;
  host::Ptr<host::CodeModule> module = component->CodeModule();
  std::wstring projectName;
  if (host::Ptr<host::VBComponents> siblings = component->Collection())
    if (host::Ptr<host::VBProject> project = siblings->Parent()) projectName = project->Name();
  procs.init(projectName, *module);
  const ProcModule where = ProcModuleOf(s, projectName, *module);
  const long count = module->CountOfLines();
  // Every line of a procedure names the same procedure: one line of each is enough, and
  // the editor is asked once where each one lies.
  for (long line = module->CountOfDeclarationLines() + 1; line <= count;) {
    host::ProcKind kind = host::kProcKind;
    std::wstring name = module->ProcOfLine(line, kind);
    if (name.empty()) {
      ++line;
      continue;
    }
    const ProcLines at = ProcLinesOf(*module, name, kind);
    procs.Add(s, where, *module, name, kind, at, onlyPublic, /*definitionOnly=*/true);
    long next = at.startLine + at.countLines;
    line = next > line ? next : line + 1;
  }
  return procs;
}

void clsScanModule::init(kernel::Session& s, host::Ptr<host::VBComponent> component, ProjectModels* models,
                         bool withProcedures) {
  kernel::Trap(s, L"clsScanModule.init", [&] {
    if (!component && s.vbe) component = s.vbe->SelectedVBComponent();
    if (!component && s.vbe)
      if (host::Ptr<host::CodePane> pane = s.vbe->ActiveCodePane()) component = pane->CodeModule()->Parent();
    if (!component) return;
    // One text of the module's name for everything the module declares.
    const SharedText module = component->Name();
    const bool standard = component->Type() == host::kStdModule;
    if (withProcedures) ModuleProcs = ModuleProperProcsGet(s, component, false);

    std::vector<std::wstring> statements;
    ModuleDeclLinesGet(*component->CodeModule(), statements);
    for (size_t i = 0; i < statements.size(); ++i) {
      Decl d = ModuleDecl(statements[i], standard);
      switch (d.kind) {
        case DeclKind::Variables: ListAdd(s, d.text, module, ModuleVars); break;
        case DeclKind::Constants: ListAdd(s, d.text, module, ModuleConsts); break;
        case DeclKind::Enum: EnumAdd(s, d.text, statements, i, ModuleEnums, nullptr, module, true); break;
        case DeclKind::Type: TypeAdd(s, d.text, statements, i, ModuleTypes, module, true); break;
        case DeclKind::Declare: DeclaredProcAdd(s, d.text, module, ModuleProcs, false); break;
        case DeclKind::None: break;
      }
    }
  });
  if (models) {
    // The public view of the same module follows it.
    kernel::Trap(s, L"clsScanModule.PublicRefresh", [&] {
      if (component) clsScanProject(s, *models).init(component->Name());
    });
  }
}

void clsScanProject::init(const std::wstring& moduleName) {
  kernel::Trap(s_, L"clsScanProject.init", [&] {
    host::Ptr<host::VBProject> project = s_.vbe ? s_.vbe->ActiveVBProject() : nullptr;
    if (!project || project->Protection() == kProjectLocked) return;
    host::Ptr<host::VBComponents> components = project->VBComponents();
    if (!moduleName.empty()) {
      host::Ptr<host::VBComponent> c;
      try {
        c = components->Item(moduleName);
      } catch (const vba::Error&) {
        return;  // a module that is gone has nothing to scan
      }
      ScanModule(c);
      return;
    }
    for (long i = 1; i <= components->Count(); ++i) ScanModule(components->Item(i));
    // The whole project is read: the procedures keep no room for more.
    models_.ProjectProcs.ShrinkToFit();
  });
}

void clsScanProject::ModulePublicProcsGet(const host::Ptr<host::VBComponent>& component) {
  kernel::Trap(s_, L"clsScanProject.ModulePublicProcsGet", [&] {
    if (component->Type() != host::kStdModule) {
      if (component->Type() == host::kClassModule)
        AddKeepingFirst(models_.ProjectClasses, component->Name(), component->Name());
      return;
    }
    Rv_ProcDefs procs = ModuleProcsRead(s_, component, true);
    for (const auto& p : procs.Items()) AddKeepingFirst(models_.ProjectProcs, p, p->Name);
  });
}

void clsScanProject::ScanModule(const host::Ptr<host::VBComponent>& component) {
  ModulePublicProcsGet(component);
  // What a class or form module declares "Public" belongs to its objects, not to the
  // project: only standard modules make declarations project-wide.
  if (component->Type() != host::kStdModule) return;
  kernel::Trap(s_, L"clsScanProject.ScanModule", [&] {
    const SharedText module = component->Name();
    std::vector<std::wstring> statements;
    ModuleDeclLinesGet(*component->CodeModule(), statements);
    for (size_t i = 0; i < statements.size(); ++i) {
      Decl d = PublicDecl(statements[i]);
      switch (d.kind) {
        case DeclKind::Variables: ListAdd(s_, d.text, module, models_.ProjectVars); break;
        case DeclKind::Constants: ListAdd(s_, d.text, module, models_.ProjectConsts); break;
        case DeclKind::Enum: EnumAdd(s_, d.text, statements, i, models_.ProjectEnums, &models_.ProjectConsts, module, false); break;
        case DeclKind::Type: TypeAdd(s_, d.text, statements, i, models_.ProjectTypes, module, false); break;
        case DeclKind::Declare: DeclaredProcAdd(s_, d.text, module, models_.ProjectProcs, true); break;
        case DeclKind::None: break;
      }
    }
  });
}

}  // namespace quillet::analysis
