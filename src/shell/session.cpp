#include "shell/session.h"

#include "shell/timer_form.h"
#include "ui/form.h"
#include "ui/ui_context.h"

namespace quillet::shell {

Session::Session(host::Platform& platform, ui::UiContext& ui)
    : platform(platform), ui(ui), uiHost(ui.Host()), clock(ui.Clock()) {}

Session::~Session() = default;

}  // namespace quillet::shell
