#pragma once
// The About box.
#include "shell/form_open.h"
#include "ui/controls.h"

namespace quillet::shell {

class FrmAbout : public BuilderForm {
 public:
  explicit FrmAbout(Session& s);

  ui::Label& lblTitle;
  ui::Label& lblVersion;
  ui::Label& lblSupport;
  ui::CommandButton& cmdOK;
};

}  // namespace quillet::shell
