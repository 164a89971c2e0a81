#include "generators/error_module.h"

#include "analysis/project_models.h"
#include "generators/module_create.h"
#include "generators/templates.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "settings/items.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

std::wstring Item(kernel::Session& s, int item) { return s.settings[item].ToString(); }

void ReplaceToken(std::wstring& text, std::wstring_view token, std::wstring_view value) {
  text = vba::Replace(text, token, value, 1, -1, vba::Compare::Text);
}

// Whether a standard module of the project defines `procedure`.
bool ProjectHoldsProcedure(const host::Ptr<host::VBProject>& project, const std::wstring& procedure) {
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) {
    host::Ptr<host::VBComponent> c = components->Item(i);
    if (c->Type() != host::kStdModule) continue;
    try {
      if (c->CodeModule()->ProcBodyLine(procedure, host::kProcKind) > 0) return true;
    } catch (const vba::Error&) {
    }
  }
  return false;
}

}  // namespace

bool ErrorHandleModuleAdd(kernel::Session& s) {
  bool made = false;
  kernel::Trap(s, L"basGlobal.ErrorHandleModuleAdd", [&] {
    host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
    const std::wstring path = settings::ErrorHandleFileGet(s);
    if (!project || path.empty()) return;
    settings::File templateFile(s, path);
    templateFile.silent = true;
    std::wstring text = templateFile.ReadFile();
    if (text.empty()) return;

    const std::wstring module = Item(s, settings::kErrorHandleModule);
    ReplaceToken(text, L"{MODULENAME}", module);
    ReplaceToken(text, L"{PROCEDURENAME}", Item(s, settings::kErrorHandleProcedure));
    ReplaceToken(text, L"{PROJECTNAME}", project->Name());
    text = vba::Replace(text, L"    ", kernel::TabSpacesGet(s));
    if (vba::InStr(text, L"{MODULEHEADER}", vba::Compare::Text) > 0)
      ReplaceToken(text, L"{MODULEHEADER}", HeaderGet(s, kModuleHeader, module, L""));

    if (!ModuleImportText(s, project, templateFile.NameWithExtension(), text)) return;
    made = true;
  });
  return made;
}

void ErrorHandlerEnsure(kernel::Session& s) {
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  if (!project) return;
  const std::wstring procedure = Item(s, settings::kErrorHandleProcedure);
  // The models know the project's public procedures; the modules themselves are asked too,
  // for a module the user wrote since the models were read.
  std::shared_ptr<analysis::ProjectModels>& models = analysis::Models(s);
  if (models && models->ProjectProcs.Find(procedure)) return;
  if (ProjectHoldsProcedure(project, procedure) || !ErrorHandleModuleAdd(s) || !models) return;
  auto entry = std::make_shared<analysis::Rv_ProcDef>();
  entry->Name = procedure;
  entry->ModuleName = Item(s, settings::kErrorHandleModule);
  entry->Project = project->Name();
  entry->ProcIsPublic = true;
  models->ProjectProcs.Add(entry, procedure);
}

}  // namespace quillet::generators
