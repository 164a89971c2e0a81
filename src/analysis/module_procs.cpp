#include "analysis/module_procs.h"

#include "analysis/keyed.h"
#include "analysis/module_scan.h"
#include "shell/errors.h"
#include "shell/position.h"

namespace quillet::analysis {

ProcDefCollection ModuleProperProcsGet(shell::Session& s, const host::Ptr<host::VBComponent>& component, bool all) {
  ProcDefCollection result;
  shell::Trap(s, L"basGlobal.ModuleProperProcsGet", [&] {
    host::Ptr<host::VBComponent> c = component;
    if (!c) {
      host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
      if (!pane) return;
      c = pane->CodeModule()->Parent();
    }
    if (c->CodeModule()->CountOfLines() == 0) return;
    Rv_ProcDefs procs = ModuleProcsRead(s, c, false);

    const bool standard = c->Type() == host::kStdModule;
    for (const std::shared_ptr<Rv_ProcDef>& p : procs.Items()) {
      bool wanted = all || (standard ? !p->ProcIsPublic : p->ProcKind == host::kProcKind);
      if (wanted) AddKeepingFirst(result, p, p->Name);
    }
  });
  return result;
}

bool CursorProcGet(shell::Session& s, bool fullTest, std::wstring& procName, long& bodyLine, bool& onDefinition,
                   host::ProcKind& kind) {
  return shell::CurrentProcGet(s, fullTest, procName, bodyLine, &onDefinition, &kind);
}

std::shared_ptr<Rv_ProcArguments> qltCurProcArgsGet(shell::Session& s, std::wstring& procName, host::ProcKind& kind) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return nullptr;
  long sl, sc, el, ec;
  pane->GetSelection(sl, sc, el, ec);
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  if (sl < 1 || sl > module->CountOfLines()) return nullptr;
  procName = module->ProcOfLine(sl, kind);
  if (procName.empty()) return nullptr;
  host::Ptr<host::VBProject> project = s.vbe->ActiveVBProject();
  Rv_ProcDef definition;
  definition.init(s, project ? project->Name() : std::wstring(), *module, procName, kind);
  return definition.ProcArguments;
}

}  // namespace quillet::analysis
