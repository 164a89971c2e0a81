#pragma once
// The add-in objects the hosts load. `Connect` is loaded by the editor and does everything;
// the three Office add-ins only keep a reference to their application.
#include <map>
#include <memory>
#include <string>

#include "hostmodel/office.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"
#include "vba/text.h"

namespace quillet::shell {

class Connect {
 public:
  explicit Connect(kernel::Session& s) : s_(s) {}
  ~Connect();

  // The editor loads the add-in. `connectMode` 0 means after the host had started.
  void OnConnection(host::VBE* application, int connectMode);
  void OnDisconnection(int removeMode);
  void OnAddInsUpdate();

  int ConnectMode() const { return connectMode_; }
  kernel::Session& session() { return s_; }

  // The event-carrying variables: each control of the bar is hooked under the name of its
  // handler without "_Click" ("mnuhAddProcedure").
  void Hook(const std::wstring& handler, const host::Ptr<host::CommandBarControl>& control);
  void Unhook();
  // The control hooked under a handler's name; nullptr when none is.
  host::Ptr<host::CommandBarControl> ControlOf(std::wstring_view handler) const;
  // What a click on the control hooked under `handler` runs: the command table.
  void Handle(const std::wstring& handler, const host::Ptr<host::CommandBarControl>& control);

 private:
  void DirectAccessToolWindowCreate();
  void CodeExplorerToolWindowCreate();

  kernel::Session& s_;
  int connectMode_ = 0;
  struct Hooked {
    host::Ptr<host::CommandBarControl> control;
    int connection = 0;
  };
  std::map<std::wstring, Hooked, vba::TextLess> events_;
};

// The add-in object connected to the session's editor; nullptr before and after.
Connect*& ConnectOf(kernel::Session& s);

// ExcelConnect, WordConnect and AccessConnect: each keeps its application in one slot of
// the session while it is loaded.
class OfficeConnect {
 public:
  using Slot = std::shared_ptr<host::OfficeApplication> kernel::Session::*;
  OfficeConnect(kernel::Session& s, Slot slot) : s_(s), slot_(slot) {}

  void OnConnection(std::shared_ptr<host::OfficeApplication> application);
  void OnDisconnection();

 private:
  kernel::Session& s_;
  Slot slot_;
};

}  // namespace quillet::shell
