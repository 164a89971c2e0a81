#include "codetools/view_html.h"

#include "analysis/proc_def.h"
#include "codetools/vb2html.h"
#include "io/paths.h"
#include "settings/file_objects.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::codetools {
namespace {

// The charset the page declares. The system's browser is asked where it can be; the
// platform here offers none, so the default of the editor's code page applies.
std::wstring DefaultCharset() { return L"windows-1252"; }

}  // namespace

void ViewHTML(kernel::Session& s, std::wstring_view html, std::wstring_view moduleName,
              std::wstring_view procedureName) {
  kernel::Trap(s, L"docCodeExplorer.ViewHTML", [&] {
    std::wstring folder = s.platform.ProgramFolder();
    if (!vba::EndsWithText(folder, L"\\")) folder += L"\\";
    std::wstring templateText;
    settings::File templateFile(s, folder + kHtmlTemplateFile);
    templateFile.silent = true;  // a missing template is the ordinary case
    if (s.platform.Files().FileExists(templateFile.FullName())) templateText = templateFile.ReadFile();
    if (templateText.empty()) templateText = DefaultHtmlTemplate();
    std::wstring page = HtmlPage(templateText, html, moduleName, procedureName, DefaultCharset());
    std::wstring target = io::JoinPath(s.platform.TempFolder(), kHtmlPageFile);
    settings::File pageFile(s, target);
    if (!pageFile.WriteFile(page)) return;
    s.platform.ShellOpen(target);
  });
}

std::wstring ProcedureCode(kernel::Session& s, const host::Ptr<host::VBComponent>& component,
                           std::wstring_view procedureName, host::ProcKind kind) {
  std::wstring code;
  kernel::Trap(s, L"docCodeExplorer.ProcedureCode", [&] {
    int pointer = s.platform.MousePointer();
    s.platform.SetMousePointer(host::kPointerHourglass);
    struct Restore {
      host::Platform& p;
      int pointer;
      ~Restore() { p.SetMousePointer(pointer); }
    } restore{s.platform, pointer};
    auto module = component->CodeModule();
    if (vba::Like(procedureName, L"(Declaration)")) {
      long n = module->CountOfDeclarationLines();
      code = n > 0 ? module->Lines(1, n) : std::wstring();
      return;
    }
    analysis::Rv_ProcDef def;
    auto project = component->Collection() ? component->Collection()->Parent() : nullptr;
    def.init(s, project ? project->Name() : std::wstring(), *module, procedureName, kind);
    code = def.ProcCode;
  });
  return code;
}

void Convert2HTML(kernel::Session& s, const host::Ptr<host::VBComponent>& component,
                  std::wstring_view procedureName, host::ProcKind kind) {
  kernel::Trap(s, L"docCodeExplorer.Convert2HTML", [&] {
    if (!component) return;
    std::wstring code;
    if (procedureName.empty()) {
      auto module = component->CodeModule();
      long n = module->CountOfLines();
      code = n > 0 ? module->Lines(1, n) : std::wstring();
    } else {
      code = ProcedureCode(s, component, procedureName, kind);
    }
    ViewHTML(s, VB2HTML(code), component->Name(), procedureName);
  });
}

}  // namespace quillet::codetools
