#include "shell/tips.h"

#include "shell/product.h"
#include "vba/variant.h"

namespace quillet::shell {

void ShowTipAtStartup(Session& s) {
  std::wstring show = s.platform.GetSetting(kAppName, L"Quillet", L"Show Tips at Startup", L"0");
  if (!vba::Variant(show).ToBool()) return;
  // The tip form arrives with the help subsystem; until then the startup tip is skipped.
}

}  // namespace quillet::shell
