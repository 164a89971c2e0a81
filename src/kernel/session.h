#pragma once
// What the add-in keeps from connection to disconnection: the host objects, the settings,
// the scan models, the open tool windows. One object per session, passed to everything;
// nothing of it is global, so that many sessions can run in one process.
#include <any>
#include <array>
#include <map>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <typeindex>
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

namespace quillet::kernel {

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

  // Runs before a builder opens with a rescan: brings the scan models up to date. Set by
  // the add-in shell at initialisation; nothing to do without it.
  std::function<void(const vba::Variant& argument)> refreshModels;

  // What a feature keeps for the session (the naming standard, the scan models, the scope
  // of the last command), each behind the handle of its own type. The feature names the
  // type; the session never needs to know it:
  //
  //   std::shared_ptr<analysis::ProjectModels>& models = s.Slot<analysis::ProjectModels>();
  //   if (!models) models = std::make_shared<analysis::ProjectModels>();
  template <class T>
  std::shared_ptr<T>& Slot() {
    std::any& slot = slots_[std::type_index(typeid(T))];
    if (!slot.has_value()) slot = std::shared_ptr<T>();
    return *std::any_cast<std::shared_ptr<T>>(&slot);
  }

 private:
  std::map<std::type_index, std::any> slots_;
};

// Yields to the host: queued keystrokes land, pending outside work runs.
void DoEvents(Session& s);

}  // namespace quillet::kernel
