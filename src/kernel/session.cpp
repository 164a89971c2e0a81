#include "kernel/session.h"

#include "kernel/timer_form.h"
#include "ui/form.h"
#include "ui/ui_context.h"

namespace quillet::kernel {

Session::Session(host::Platform& platform, ui::UiContext& ui)
    : platform(platform), ui(ui), uiHost(ui.Host()), clock(ui.Clock()) {}

Session::~Session() = default;

void DoEvents(Session& s) {
  s.platform.DoEvents();
  s.uiHost.DoEvents();
}

}  // namespace quillet::kernel
