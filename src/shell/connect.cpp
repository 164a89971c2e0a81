#include "shell/connect.h"

#include "hostmodel/commandbars.h"
#include "shell/command_bar.h"
#include "kernel/errors.h"
#include "shell/global.h"
#include "kernel/position.h"
#include "kernel/timer_form.h"
#include "shell/tips.h"
#include "io/paths.h"

namespace quillet::shell {

// Items of the settings that decide which tool windows show.
constexpr int kViewQuilletWindow = 47;
constexpr int kViewCodeExplorerWindow = 48;

namespace {
// The session's handle on the connected add-in object.
struct ConnectInstance {
  Connect* connect = nullptr;
};
}  // namespace

Connect*& ConnectOf(kernel::Session& s) {
  std::shared_ptr<ConnectInstance>& slot = s.Slot<ConnectInstance>();
  if (!slot) slot = std::make_shared<ConnectInstance>();
  return slot->connect;
}

Connect::~Connect() {
  Unhook();
  if (ConnectOf(s_) == this) ConnectOf(s_) = nullptr;
}

void Connect::Hook(const std::wstring& handler, const host::Ptr<host::CommandBarControl>& control) {
  Hooked h{control, 0};
  if (control->Type() == host::kControlDropdown) {
    // The dropdown's command is its change event.
    control->OnChange([this, handler](const host::Ptr<host::CommandBarControl>& c) { Handle(handler, c); });
  } else {
    h.connection = s_.vbe->ConnectClick(
        control, [this, handler](const host::Ptr<host::CommandBarControl>& c, bool&, bool&) { Handle(handler, c); });
  }
  auto old = events_.find(handler);
  if (old != events_.end() && old->second.connection && s_.vbe) s_.vbe->DisconnectClick(old->second.connection);
  events_[handler] = h;
}

void Connect::Unhook() {
  for (auto& [name, h] : events_)
    if (h.connection && s_.vbe) s_.vbe->DisconnectClick(h.connection);
  events_.clear();
}

host::Ptr<host::CommandBarControl> Connect::ControlOf(std::wstring_view handler) const {
  auto it = events_.find(handler);
  return it == events_.end() ? nullptr : it->second.control;
}

void Connect::OnConnection(host::VBE* application, int connectMode) {
  connectMode_ = connectMode;
  ConnectOf(s_) = this;
  s_.vbe = application;
  // Toolbar pictures pass through the clipboard; the user's content comes back at the end.
  kernel::ClipboardContent clip;
  kernel::Trap(s_, L"AddinInstance_OnConnection", [&] {
    clip = kernel::ClipboardSave(s_.platform);
    s_.testingMode = s_.platform.Files().FileExists(io::JoinPath(s_.platform.ProgramFolder(), L"testing.txt"));
    s_.showMode = s_.testingMode ? 0 : 1;
    s_.immediateWindowHandle = kernel::ImmediateWindowHandleGet(s_);
    AddInInitialize(s_);
    s_.currentProjectFile.clear();
    s_.timerForm = std::make_unique<kernel::TimerForm>(s_);
    s_.timerForm->heartbeat = [this] { Heartbeat(s_); };
    s_.timerForm->Load();
    CommandBarBuild(s_, *this);
    DirectAccessToolWindowCreate();
    CodeExplorerToolWindowCreate();
    s_.directAccessWindow->SetVisible(s_.settings[kViewQuilletWindow].ToBool());
    ShowTipAtStartup(s_);
    kernel::ClipboardRestore(s_.platform, clip);
  });
}

void Connect::DirectAccessToolWindowCreate() {
  s_.directAccessWindow =
      s_.vbe->Windows()->CreateToolWindow(L"Quillet.docDirectAccess", L"Shortcuts and Search", L"DirectAccessQuillet");
}

void Connect::CodeExplorerToolWindowCreate() {
  s_.codeExplorerWindow =
      s_.vbe->Windows()->CreateToolWindow(L"Quillet.docCodeExplorer", L"Code Explorer", L"CodeExplorerQuillet");
  CodeExplorerRefresh(s_);
}

void Connect::OnAddInsUpdate() {
  if (connectMode_ != 0) return;
  if (s_.directAccessWindow) s_.directAccessWindow->SetVisible(s_.settings[kViewQuilletWindow].ToBool());
  if (s_.codeExplorerWindow) s_.codeExplorerWindow->SetVisible(s_.settings[kViewCodeExplorerWindow].ToBool());
  ShowTipAtStartup(s_);
}

void Connect::OnDisconnection(int removeMode) {
  kernel::Trap(s_, L"AddinInstance_OnDisconnection", [&] {
    CommandBarRemove(s_);
    if (s_.timerForm) s_.timerForm->Unload();
    s_.timerForm.reset();
    ReleaseModels(s_);
    ConnectOf(s_) = nullptr;
    s_.vbe = nullptr;
    s_.directAccessWindow.reset();
    s_.codeExplorerWindow.reset();
  });
}

void OfficeConnect::OnConnection(std::shared_ptr<host::OfficeApplication> application) {
  if (application && application->TypeName() == L"Application") s_.*slot_ = std::move(application);
}

void OfficeConnect::OnDisconnection() { (s_.*slot_).reset(); }

}  // namespace quillet::shell
