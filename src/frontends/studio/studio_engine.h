#pragma once
// The studio's session of the engine. It lives on a thread of its own with the real clock,
// so the heartbeat and the tool windows' timers tick as in the editor. The HTTP handlers
// hand it requests through a queue; it publishes its state (code, caret, bar, forms, the
// box it asks, the Immediate window) as numbered revisions that the page waits for.
#include <nlohmann/json.hpp>

#include <chrono>
#include <condition_variable>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace quillet::studio {

using nlohmann::json;

// A request the engine refuses: the HTTP status and the reason.
struct RequestError {
  int status;
  std::string message;
};

class StudioEngine {
 public:
  // Opens the project folder (a real path) in a fresh session and connects the add-in.
  // Throws std::exception when the folder does not load.
  explicit StudioEngine(std::filesystem::path projectFolder);
  ~StudioEngine();
  StudioEngine(const StudioEngine&) = delete;
  StudioEngine& operator=(const StudioEngine&) = delete;

  // Carries out one action of the page (see studio_actions.cpp) on the engine's thread.
  // Returns when it is done, or as soon as the engine waits for the user (a box asked, a
  // modal form shown): then the reply says "waiting". Throws RequestError.
  json Act(const json& action);

  // The state once its revision is above `since`, or the current one after `timeout`.
  json WaitState(long long since, std::chrono::milliseconds timeout);
  json State();
  // Releases every wait for a new state, now and from now on: the studio closes.
  void Close();

  // The folders the page may browse and answer with (real paths, canonical).
  std::vector<std::filesystem::path> AllowedFolders() const;
  // The Windows path of a real path and back, as the engine sees the file system.
  std::wstring WindowsPathOf(const std::filesystem::path& real) const;
  std::filesystem::path RealPathOf(std::wstring_view windowsPath) const;
  // True when the Windows path lies in an allowed folder.
  bool Allowed(std::wstring_view windowsPath) const;
  // Lists a folder (a Windows path within the allowed ones) for the pickers.
  json ListFolder(std::wstring_view windowsPath) const;

  class Impl;

 private:
  std::unique_ptr<Impl> impl_;
};

}  // namespace quillet::studio
