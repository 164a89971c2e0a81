#include "kernel/form_open.h"

#include <algorithm>

#include "kernel/errors.h"
#include "kernel/position.h"

namespace quillet::kernel {

void ReleaseClosedForms(Session& s) {
  auto& forms = s.openForms;
  forms.erase(std::remove_if(forms.begin(), forms.end(), [](const auto& f) { return !f->Loaded(); }), forms.end());
}

void FormOpen(Session& s, std::unique_ptr<BuilderForm> form, const FormOpenOptions& o) {
  Trap(s, L"basCommands.FormOpen", [&] {
    ReleaseClosedForms(s);
    if (o.needCodeWindow && !CodeWindowActive(s)) return;
    if (o.rescan && s.refreshModels) s.refreshModels(o.rescanArg);
    if (o.callInit) {
      if (o.initArg1.IsEmpty()) form->Init();
      else if (o.initArg2.IsEmpty()) form->Init(o.initArg1);
      else form->Init(o.initArg1, o.initArg2);
    }
    int mode = o.showMode == -1 ? s.showMode : o.showMode;
    form->Show(mode == 1);
    // A modeless form lives on until the user closes it; a modal one is done.
    if (form->Loaded()) s.openForms.push_back(std::move(form));
    else form.reset();
    long line = 1;
    SetCursor(s, line, true, nullptr);
  });
}

}  // namespace quillet::kernel
