#pragma once
// Plays a scenario against a session on the in-memory editor and reports its outcome as
// JSON (see the scenario format document).
#include <nlohmann/json.hpp>

#include <filesystem>
#include <map>
#include <memory>
#include <string>

#include "frontends/cli/json_text.h"
#include "frontends/cli/sandbox.h"
#include "hostmodel/clock.h"
#include "hostmodel/memory_platform.h"
#include "hostmodel/memory_vbe.h"
#include "shell/connect.h"
#include "kernel/session.h"
#include "ui/ui_context.h"

namespace quillet::cli {

class RunnerUiHost;

class ScenarioRunner {
 public:
  ScenarioRunner();
  ~ScenarioRunner();

  // Plays the scenario; the exit status: 0 played to its end, 1 the scenario is wrong.
  // Unreadable input throws UnreadableInput.
  int Run(const json& scenario, std::filesystem::path baseFolder = {});
  // The outcome, complete after Run.
  const json& Output() const { return output_; }

  // For the UiHost: the step that would run next (nullptr at the end), its use as an
  // answer, and running it while a modal form waits.
  const json* PeekStep() const;
  void ConsumeStep() { ++next_; }
  void RunNextStep();
  // "step 3 {"click":"cmdOK"}" for messages.
  std::string StepLabel(std::size_t index) const;
  std::size_t NextIndex() const { return next_; }
  // Where the scenario stands, for messages: its set-up, the start, or the last step.
  std::string Where() const;
  void Record(json entry) { transcript_.push_back(std::move(entry)); }
  // A scenario error about what the engine is waiting for.
  [[noreturn]] void WrongAnswer(const std::string& asked, const char* answerStep) const;

 private:
  void Setup(const json& s);
  void SetupHome(const json& s);
  void SetupSettings(bool firstRun, const json& values);
  void SetupProjects(const json& projects);
  void AddProject(const json& p);
  void SetupActive(const json& active);
  void Start(const std::string& mode);

  void Execute(const json& step);
  void ExecuteFormStep(const json& step);
  void ExecuteEditorStep(const std::string& kind, const json& value);
  // After each outside event: keystrokes land, as the host's message loop delivers them.
  void Settle();

  void Connect(int connectMode);
  void Disconnect();
  std::shared_ptr<host::MemoryComponent> Component(const json& ref) const;
  std::shared_ptr<host::MemoryProject> ProjectNamed(const std::string& name) const;
  json DumpBar() const;
  // Why the user could not click a control of the bar now; empty when they could.
  std::string WhyNotClickable(const host::MemoryControl& control) const;
  void Finish(bool ok, const std::string& error);

  Sandbox sandbox_;
  host::Clock clock_;
  std::unique_ptr<host::MemoryPlatform> platform_;
  std::unique_ptr<host::MemoryVBE> vbe_;
  std::unique_ptr<RunnerUiHost> uiHost_;
  std::unique_ptr<ui::UiContext> ui_;
  std::unique_ptr<kernel::Session> session_;
  std::unique_ptr<shell::Connect> connect_;
  std::unique_ptr<shell::OfficeConnect> excel_, word_, access_;
  std::shared_ptr<host::OfficeApplication> excelApp_, wordApp_, accessApp_;
  bool connected_ = false;
  bool started_ = false;  // the set-up is done

  json steps_ = json::array();
  std::size_t next_ = 0;
  json transcript_ = json::array();
  json output_;
  std::filesystem::path baseFolder_;  // where relative real paths of the scenario start
};

// A reference as a scenario writes it ({"name", "fullPath", "broken"}): a library the editor
// knows by default keeps its path and identity unless the scenario gives them.
io::ReferenceInfo ReferenceOf(const json& r);

// `quillet script FILE|-`: reads the scenario, plays it, prints the outcome.
int RunScriptCommand(const std::string& path);

}  // namespace quillet::cli
