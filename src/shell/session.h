#pragma once
// What the add-in keeps from connection to disconnection: the host objects, the settings,
// the scan models, the open tool windows. One object per session, passed to everything;
// nothing of it is global, so that many sessions can run in one process.
#include <array>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "hostmodel/clock.h"
#include "hostmodel/office.h"
#include "hostmodel/platform.h"
#include "hostmodel/vbe.h"
#include "vba/variant.h"

namespace quillet::ui {
class Form;
class UiContext;
class UiHost;
}

namespace quillet::settings {
struct NamingStandard;
}
namespace quillet::analysis {
class clsScanProc;
struct ProjectModels;
}
namespace quillet::generators {
struct Scope;
}

namespace quillet::shell {

class Connect;
class TimerForm;

// How many numbered settings items exist.
inline constexpr int kSettingsCount = 58;

struct Session {
  Session(host::Platform& platform, ui::UiContext& ui);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  // The outside world.
  host::Platform& platform;
  ui::UiContext& ui;      // the forms: their host, their clock, the loaded ones
  ui::UiHost& uiHost;     // message boxes, input boxes, pickers
  host::Clock& clock;     // the session's time: timers and the dates written into code

  // The editor given at connection (VBInstance); nullptr before and after.
  host::VBE* vbe = nullptr;
  Connect* connectInstance = nullptr;
  // The Office applications given by the three small add-ins; nullptr when not loaded.
  std::shared_ptr<host::OfficeApplication> hostExcel, hostWord, hostAccess;

  // Name of the second reference of the active project ("Excel", "Word", "Access",
  // "Outlook", "VBRUN"), read once at the first tick that finds a project.
  std::wstring hostName;
  // File name of the project last initialised, "NewProject" for an unsaved one, "" for none.
  std::wstring currentProjectFile;
  // How builders are shown: 1 modal, 0 modeless in testing mode.
  int showMode = 1;
  bool testingMode = false;

  // Delivery of messages to the Immediate window.
  long immediateWindowHandle = 0;
  std::wstring pendingMessage;
  bool immediateActivating = false;
  // The command being carried out: its name followed by its detail.
  std::wstring currentCommand;

  // The numbered settings items, indexed 0 to 57.
  std::array<vba::Variant, kSettingsCount> settings;

  // The hidden form that carries the three timers.
  std::unique_ptr<TimerForm> timerForm;
  // The two tool windows.
  host::Ptr<host::Window> directAccessWindow, codeExplorerWindow;
  // Builders shown modeless (testing mode) live here until the user closes them.
  std::vector<std::unique_ptr<ui::Form>> openForms;
  // Commands of later versions that have said so once in the Immediate window.
  std::set<std::wstring> announcedUnavailable;

  // ---- settings ----
  // The naming standard: the type-to-prefix table, the prefix lookups derived from it and
  // the keywords; made on first use by settings::Naming.
  std::shared_ptr<settings::NamingStandard> namingStandard;

  // --- analysis ---
  // The current scan: the procedure at the caret as the statement builders and the error
  // handling last read it; nullptr while no procedure was scanned.
  std::shared_ptr<analysis::clsScanProc> currentScan;
  // The project's and the libraries' public declarations, replaced at each project change.
  std::shared_ptr<analysis::ProjectModels> models;

  // ---- generators ----
  // The scope collections of the statement commands, rebuilt for each command.
  std::shared_ptr<generators::Scope> scope;
};

}  // namespace quillet::shell
