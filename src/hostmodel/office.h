#pragma once
// The Office applications that host the editor, as far as the system reads them. The
// object-name and form-building features extend this with the hosts' own objects.
#include <string>

#include "hostmodel/commandbars.h"

namespace quillet::host {

class OfficeApplication {
 public:
  virtual ~OfficeApplication() = default;
  // The object's type name; an add-in keeps the object only when it is "Application".
  virtual std::wstring TypeName() const { return L"Application"; }
  // "Microsoft Excel", "Microsoft Word", "Microsoft Access".
  virtual std::wstring Name() const = 0;
  // The host's own command bars (Access's toolbar), nullptr when it has none.
  virtual host::CommandBars* CommandBars() { return nullptr; }
};

}  // namespace quillet::host
