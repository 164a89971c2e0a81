#include "generators/module_create.h"

#include "generators/templates.h"
#include "kernel/errors.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "kernel/product.h"
#include "ui/ui_host.h"

namespace quillet::generators {

std::wstring ModuleCreate(kernel::Session& s, const std::wstring& name, host::ComponentType kind) {
  std::wstring result;
  kernel::Trap(s, L"basGlobal.ModuleCreate", [&] {
    host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
    if (!project) return;
    const host::Ptr<host::CodePane> activePane = s.vbe->ActiveCodePane();
    host::Ptr<host::VBComponent> component = project->VBComponents()->Add(kind);
    try {
      component->SetName(name);
    } catch (const vba::Error&) {
      s.uiHost.MsgBox(L"It is impossible to give the name '" + name + L"'.\r\nThe new module has a name '" +
                          component->Name() + L"'.",
                      ui::vbOKOnly | ui::vbExclamation, kernel::kAppName);
    }
    const std::wstring header = HeaderGet(s, kModuleHeader, component->Name(), L"");
    if (!header.empty()) component->CodeModule()->AddFromString(header);
    if (activePane && s.vbe->ActiveCodePane() != activePane) s.vbe->SetActiveCodePane(activePane);
    result = component->Name();
  });
  return result;
}

bool ModuleImportText(kernel::Session& s, const host::Ptr<host::VBProject>& project, const std::wstring& fileName,
                      const std::wstring& text) {
  settings::File temporary(s, settings::PathCombine({s.platform.TempFolder(), fileName}));
  if (s.platform.Files().FileExists(temporary.FullName())) s.platform.Files().DeleteFile(temporary.FullName());
  if (!temporary.WriteFile(text)) return false;
  project->VBComponents()->Import(temporary.FullName());
  s.platform.Files().DeleteFile(temporary.FullName());
  return true;
}

}  // namespace quillet::generators
