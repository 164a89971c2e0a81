#pragma once
// The About box.
#include "kernel/form_open.h"
#include "ui/controls.h"

namespace quillet::shell {

class FrmAbout : public kernel::BuilderForm {
 public:
  explicit FrmAbout(kernel::Session& s);

  ui::Label& lblTitle;
  ui::Label& lblVersion;
  ui::Label& lblSupport;
  ui::CommandButton& cmdOK;
};

}  // namespace quillet::shell
