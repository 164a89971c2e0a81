#pragma once
// Inside the studio's engine: the parts of the session, the queue of requests, the loop
// that runs them and the clock, the boxes being asked and the published state.
#include "frontends/cli/sandbox.h"
#include "frontends/studio/studio_engine.h"
#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "shell/connect.h"
#include "kernel/session.h"
#include "ui/ui_context.h"
#include "ui/ui_host.h"

namespace quillet::studio {

// One request of an HTTP handler; its reply is given once, when the work is done or when
// the engine starts waiting for the user.
struct Request {
  std::function<json()> work;
  bool answers = false;  // it answers the box being asked
  std::mutex m;
  std::condition_variable cv;
  bool replied = false;
  json reply;
  std::optional<RequestError> error;
  void Reply(json r, std::optional<RequestError> e = std::nullopt);
};

// A box, picker or input the engine waits on.
struct Ask {
  json what;                    // {"kind": "msgbox", ...}
  std::optional<json> answer;   // set by the page
};

class StudioUiHost;

class StudioEngine::Impl {
 public:
  explicit Impl(std::filesystem::path projectFolder);
  ~Impl();

  // HTTP side.
  json Submit(std::function<json()> work, bool answers);
  json WaitState(long long since, std::chrono::milliseconds timeout);

  // Engine side (on the engine's thread only).
  void Loop();
  // One turn: waits up to the next timer (at most `maxWait`) for a request, runs what is
  // queued, moves the clock to real time, lets keystrokes land and publishes the state.
  void Turn(std::chrono::milliseconds maxWait);
  // The engine now waits for the user: every request under way gets its reply.
  void ReleaseRunning();
  json AskUser(json what);
  void Publish();
  json BuildState();
  // Runs engine work as a user action: errors of the engine are reported by it (boxes).
  void AsEngine(const std::function<void()>& body);
  json Dispatch(const json& action);  // studio_actions.cpp
  void MarkSaved(const host::MemoryProject& project);
  bool Dirty(const host::MemoryProject& project) const;
  std::shared_ptr<host::MemoryComponent> ComponentOf(const json& action) const;
  // True when the Windows path lies in one of the allowed folders.
  static bool AllowedIn(const Impl& impl, std::wstring_view windowsPath);

  std::filesystem::path projectFolder;  // real, canonical
  std::wstring projectWindowsFolder;
  std::vector<std::filesystem::path> pickedFolders;  // real, canonical; engine thread writes, guarded by stateMutex

  mutable cli::Sandbox sandbox{true};
  host::Clock clock;
  std::unique_ptr<host::MemoryPlatform> platform;
  std::unique_ptr<host::MemoryVBE> vbe;
  std::unique_ptr<StudioUiHost> uiHost;
  std::unique_ptr<ui::UiContext> ui;
  std::unique_ptr<kernel::Session> session;
  std::unique_ptr<shell::Connect> connect;
  std::chrono::steady_clock::time_point started;

  // The queue.
  std::mutex queueMutex;
  std::condition_variable queueCv;
  std::deque<std::shared_ptr<Request>> queue;
  bool stopping = false;
  std::vector<std::shared_ptr<Request>> running;  // engine thread only
  std::vector<Ask*> asks;                         // engine thread only
  std::vector<json> notices;                      // transient messages for the page
  long long noticeCount = 0;

  // The published state.
  mutable std::mutex stateMutex;
  std::condition_variable stateCv;
  json state;
  std::string stateText;
  long long revision = 0;
  bool closing = false;  // the studio stops: no wait for a new state holds

  std::map<std::wstring, std::map<std::wstring, std::vector<std::wstring>>> saved;
  // Parts of the state kept until what they show changes.
  std::map<std::wstring, std::pair<unsigned long long, bool>> dirtyCache;
  std::pair<const void*, unsigned long long> linesOf{nullptr, 0};
  json linesJson;
  long long barKey = 0;
  json barJson;  // project -> component -> lines
  std::thread thread;
};

class StudioUiHost : public ui::UiHost {
 public:
  explicit StudioUiHost(StudioEngine::Impl& engine) : engine_(engine) {}
  int MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) override;
  std::optional<std::wstring> InputBox(std::wstring_view prompt, std::wstring_view title,
                                       std::wstring_view defaultText) override;
  std::optional<std::wstring> OpenFile(const ui::FileDialogRequest& request) override;
  std::optional<std::wstring> SaveFile(const ui::FileDialogRequest& request) override;
  std::optional<std::wstring> ChooseFolder(std::wstring_view title, std::wstring_view startFolder) override;
  void FormShown(ui::Form& form, bool modal) override;
  void FormHidden(ui::Form& form) override {}
  void FormUnloaded(ui::Form& form) override {}
  void Pump() override;
  void DoEvents() override {}

 private:
  std::optional<std::wstring> FileDialog(const char* kind, const ui::FileDialogRequest& request);
  StudioEngine::Impl& engine_;
};

}  // namespace quillet::studio
