#include "shell/frm_about.h"

#include "kernel/product.h"
#include "ui/controls.h"
#include "version.h"

namespace quillet::shell {

FrmAbout::FrmAbout(kernel::Session& s)
    : kernel::BuilderForm(s.ui, L"frmAbout"),
      lblTitle(Add<ui::Label>(L"lblTitle")),
      lblVersion(Add<ui::Label>(L"lblVersion")),
      lblSupport(Add<ui::Label>(L"lblSupport")),
      cmdOK(Add<ui::CommandButton>(L"cmdOK")) {
  SetCaption(L"About Quillet");
  SetBorderStyle(ui::vbFixedDialog);
  Move(0, 0, 4800, 2400);
  lblTitle.SetCaption(L"Quillet, a code-writing assistant for VBA");
  lblTitle.Move(240, 240, 4200, 255);
  lblVersion.SetCaption(L"Version " + std::to_wstring(kVersionMajor) + L"." + std::to_wstring(kVersionMinor) + L"." +
                        std::to_wstring(kVersionRevision));
  lblVersion.Move(240, 600, 4200, 255);
  lblSupport.SetCaption(std::wstring(L"Support: ") + kernel::kSupportAddress);
  lblSupport.Move(240, 960, 4200, 255);
  cmdOK.SetCaption(L"OK");
  cmdOK.Move(3360, 1440, 1095, 375);
  cmdOK.SetDefault(true);
  cmdOK.SetCancel(true);
  cmdOK.OnClick = [this] { Unload(); };
}

}  // namespace quillet::shell
