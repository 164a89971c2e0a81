#include "frontends/cli/scenario_runner.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>

#include "frontends/cli/json_text.h"
#include "frontends/cli/runner_ui_host.h"
#include "frontends/cli/scenario_check.h"
#include "frontends/cli/scenario_error.h"
#include "hostmodel/access.h"
#include "io/paths.h"
#include "io/project_folder.h"
#include "ui/form.h"
#include "ui/user_input.h"
#include "vba/dates.h"
#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::cli {
namespace {

constexpr const wchar_t* kProgramFolder = L"C:\\Program Files\\Quillet\\";
constexpr const wchar_t* kTempFolder = L"C:\\Temp\\";
constexpr const wchar_t* kEditorKey = L"Software\\Microsoft\\VBA\\6.0\\Common";

// The editor's own per-user values; any other registry key is one of the application's.
bool IsEditorValue(const std::string& name) {
  for (const char* v : {"TabWidth", "FontFace", "FontHeight", "AlignToGrid", "GridWidth", "GridHeight"})
    if (name == v) return true;
  return false;
}

std::wstring ValueText(const json& v) {
  if (v.is_string()) return W(v);
  if (v.is_boolean()) return v.get<bool>() ? L"-1" : L"0";
  return W(json(v.dump()));
}

// An Office application given by one of the small add-ins.
class ScenarioApplication : public host::OfficeApplication {
 public:
  explicit ScenarioApplication(std::wstring name) : name_(std::move(name)) {}
  std::wstring Name() const override { return name_; }

 private:
  std::wstring name_;
};

// Access with the database the scenario gives under "hostObjects".
class ScenarioAccess : public host::AccessApplication {
 public:
  explicit ScenarioAccess(const json& access) {
    if (access.contains("projectType")) projectType_ = access["projectType"].get<long>();
    if (!access.contains("tables")) return;
    for (const json& t : access["tables"]) {
      host::AccessTable table;
      table.name = W(t["name"]);
      if (t.contains("type")) table.type = W(t["type"]);
      if (t.contains("fields"))
        for (const json& f : t["fields"]) table.fields.push_back({W(f["name"]), f["type"].get<long>()});
      tables_.push_back(std::move(table));
    }
  }
  long ProjectType() const override { return projectType_; }
  std::vector<host::AccessTable> TableDefs() const override { return tables_; }
  std::vector<host::AccessTable> CatalogTables() const override { return tables_; }

 private:
  long projectType_ = 0;
  std::vector<host::AccessTable> tables_;
};

}  // namespace

ScenarioRunner::ScenarioRunner() = default;

ScenarioRunner::~ScenarioRunner() {
  // The session goes first: its forms and timers reach into the rest.
  connect_.reset();
  session_.reset();
  ui_.reset();
}

const json* ScenarioRunner::PeekStep() const { return next_ < steps_.size() ? &steps_[next_] : nullptr; }

std::string ScenarioRunner::StepLabel(std::size_t index) const {
  if (index >= steps_.size()) return "the end of the scenario";
  return cli::StepLabel(steps_[index], index);
}

void ScenarioRunner::WrongAnswer(const std::string& asked, const char* answerStep) const {
  if (next_ >= steps_.size())
    throw ScenarioError{"the engine asked for " + asked + " after the last step; add a \"" + answerStep +
                        "\" step to answer it"};
  throw ScenarioError{StepLabel(next_) + ": the engine is asking for " + asked + ", which this step does not answer"};
}

void ScenarioRunner::RunNextStep() {
  if (next_ >= steps_.size()) {
    ui::Form* waiting = ui_ ? ui_->TopModal() : nullptr;
    throw ScenarioError{"the scenario ended while the modal form " + (waiting ? U(waiting->Name()) : std::string("?")) +
                        " waits for the user"};
  }
  const json& step = steps_[next_++];
  // A step may run inside a modal form, below the engine's error traps: what is wrong with
  // the step itself becomes a scenario error here, before a trap could take it for a
  // failure of the engine.
  try {
    Execute(step);
  } catch (const ui::InputRefused& e) {
    throw ScenarioError{StepLabel(next_ - 1) + ": " + e.what()};
  } catch (const json::exception& e) {
    throw ScenarioError{StepLabel(next_ - 1) + ": " + e.what()};
  } catch (const vba::Error& e) {
    throw ScenarioError{StepLabel(next_ - 1) + ": " + e.what()};
  }
  Settle();
}

std::string ScenarioRunner::Where() const {
  if (!started_) return "setting up the scenario";
  return next_ == 0 ? "starting the session" : StepLabel(next_ - 1);
}

void ScenarioRunner::Settle() {
  if (platform_) platform_->DoEvents();
}

int ScenarioRunner::Run(const json& scenario, std::filesystem::path baseFolder) {
  CheckScenario(scenario);
  baseFolder_ = std::move(baseFolder);
  try {
    Setup(scenario);
    if (scenario.contains("steps")) {
      if (!scenario["steps"].is_array()) throw UnreadableInput{"\"steps\" must be an array"};
      steps_ = scenario["steps"];
    }
    started_ = true;
    Start(scenario.value("start", std::string("auto")));
    while (next_ < steps_.size()) RunNextStep();
    Finish(true, "");
    return 0;
  } catch (const ScenarioError& e) {
    Finish(false, e.message);
    return 1;
  } catch (const ui::InputRefused& e) {
    Finish(false, Where() + ": " + e.what());
    return 1;
  } catch (const json::exception& e) {
    Finish(false, Where() + ": " + e.what());
    return 1;
  } catch (const std::exception& e) {
    // The runner's own work failed (a project folder that does not load, a file that
    // cannot be written).
    Finish(false, Where() + ": " + e.what());
    return 1;
  }
}

void ScenarioRunner::Setup(const json& s) {
  vba::DateTime start{2000, 1, 1, 0, 0, 0};
  if (s.contains("now")) {
    auto parsed = s["now"].is_string() ? vba::ParseDate(W(s["now"])) : std::nullopt;
    if (!parsed) throw UnreadableInput{"\"now\" is not a date and time like \"2026-11-22 14:05:00\""};
    start = *parsed;
  }
  clock_.SetStart(start);

  SetupHome(s);
  platform_ = std::make_unique<host::MemoryPlatform>(sandbox_.TakeFileSystem(), kProgramFolder, kTempFolder);
  platform_->onEvent = [this](const host::MemoryPlatform::Event& e) { Record({{e.kind, U(e.text)}}); };
  vbe_ = std::make_unique<host::MemoryVBE>(*platform_);
  uiHost_ = std::make_unique<RunnerUiHost>(*this);
  ui_ = std::make_unique<ui::UiContext>(*uiHost_, clock_);
  session_ = std::make_unique<kernel::Session>(*platform_, *ui_);
  connect_ = std::make_unique<shell::Connect>(*session_);
  excel_ = std::make_unique<shell::OfficeConnect>(*session_, &kernel::Session::hostExcel);
  word_ = std::make_unique<shell::OfficeConnect>(*session_, &kernel::Session::hostWord);
  access_ = std::make_unique<shell::OfficeConnect>(*session_, &kernel::Session::hostAccess);

  if (s.contains("registry")) {
    if (!s["registry"].is_object()) throw UnreadableInput{"\"registry\" must be an object"};
    for (const auto& [name, value] : s["registry"].items()) {
      if (IsEditorValue(name))
        platform_->SetRegistryValue(kEditorKey, W(json(name)), ValueText(value));
      else
        platform_->SaveSetting(L"Quillet", L"Quillet", W(json(name)), ValueText(value));
    }
  }
  if (s.contains("hosts")) {
    for (const auto& h : s["hosts"]) {
      std::string name = h.get<std::string>();
      if (name == "Excel") excelApp_ = std::make_shared<ScenarioApplication>(L"Microsoft Excel");
      else if (name == "Word") wordApp_ = std::make_shared<ScenarioApplication>(L"Microsoft Word");
      else if (name == "Access") {
        json objects = s.contains("hostObjects") && s["hostObjects"].contains("Access") ? s["hostObjects"]["Access"]
                                                                                          : json::object();
        accessApp_ = std::make_shared<ScenarioAccess>(objects);
      }
      else throw UnreadableInput{"unknown host \"" + name + "\" (Excel, Word or Access)"};
    }
  }
  if (s.contains("projects")) SetupProjects(s["projects"]);
  SetupActive(s.contains("active") ? s["active"] : json::object());
  if (s.contains("clipboard")) {
    if (!s["clipboard"].is_string()) throw UnreadableInput{"\"clipboard\" must be a text"};
    platform_->ClipboardSetText(W(s["clipboard"]));
  }
  sandbox_.StartRecording();
}

void ScenarioRunner::SetupHome(const json& s) {
  if (!s.value("bareHome", false)) sandbox_.CopyIn(DataFolder(), kProgramFolder);
  sandbox_.MakeFolders(kProgramFolder);
  sandbox_.MakeFolders(kTempFolder);
  if (s.contains("home")) {
    if (!s["home"].is_object()) throw UnreadableInput{"\"home\" must be an object of files"};
    for (const auto& [rel, content] : s["home"].items()) {
      std::wstring path = io::JoinPath(kProgramFolder, io::NormalizePath(W(json(rel))));
      sandbox_.Write(path, content.get<std::string>());
    }
  }
  if (s.contains("files")) {
    if (!s["files"].is_object()) throw UnreadableInput{"\"files\" must be an object of files"};
    for (const auto& [path, content] : s["files"].items()) {
      std::wstring p = W(json(path));
      if (!io::IsAbsoluteWindowsPath(p)) throw UnreadableInput{"\"files\": \"" + path + "\" is no full Windows path"};
      sandbox_.Write(p, content.get<std::string>());
    }
  }
  if (s.contains("readOnly")) {
    // The read-only attribute: the owner's write permission taken away.
    for (const auto& entry : s["readOnly"]) {
      std::wstring p = W(entry);
      if (!io::IsAbsoluteWindowsPath(p) || !sandbox_.Files().FileExists(p))
        throw UnreadableInput{"\"readOnly\": \"" + entry.get<std::string>() + "\" is no file of the scenario"};
      std::filesystem::permissions(sandbox_.Files().RealPath(p), std::filesystem::perms::owner_write,
                                   std::filesystem::perm_options::remove);
    }
  }
  if (s.value("testing", false)) sandbox_.Write(io::JoinPath(kProgramFolder, L"testing.txt"), "");
  SetupSettings(s.value("firstRun", false), s.contains("settings") ? s["settings"] : json::object());
}

void ScenarioRunner::SetupProjects(const json& projects) {
  if (!projects.is_array()) throw UnreadableInput{"\"projects\" must be an array"};
  for (const auto& p : projects) AddProject(p);
}

void ScenarioRunner::AddProject(const json& p) {
  if (p.is_object() && p.contains("folder")) {
    // A project exported to a real folder: copied into the sandbox and loaded from there.
    std::filesystem::path real = std::filesystem::path(p["folder"].get<std::string>());
    if (real.is_relative()) real = baseFolder_ / real;
    if (!std::filesystem::is_directory(real)) throw UnreadableInput{"\"folder\": no folder " + real.string()};
    std::wstring win = L"C:\\Work\\" + vba::FromUtf8(real.lexically_normal().filename().string());
    if (win.back() == L'\\') win.pop_back();
    // A folder that cannot be copied or read as a project is unreadable input, like the
    // scenario itself, whenever it is met.
    io::ProjectFolder folder;
    try {
      sandbox_.CopyIn(real, win);
      folder = io::LoadProjectFolder(platform_->Files(), win);
    } catch (const std::exception& e) {
      throw UnreadableInput{Where() + ": \"folder\" " + real.string() + ": " + e.what()};
    }
    if (p.contains("name")) folder.name = W(p["name"]);
    if (p.contains("fileName")) folder.fileName = W(p["fileName"]);
    vbe_->AddProject(std::move(folder));
    return;
  }
  if (!p.is_object() || !p.contains("name")) throw ScenarioError{"a project needs a \"name\""};
  auto project = vbe_->AddProject(W(p["name"]), p.contains("fileName") ? W(p["fileName"]) : std::wstring());
  project->SetProtection(p.value("protection", 0));
  if (p.contains("references")) {
    std::vector<io::ReferenceInfo> refs;
    for (const auto& r : p["references"]) refs.push_back(ReferenceOf(r));
    project->SetReferences(refs);
  } else {
    project->SetReferences(io::DefaultReferences());
  }
  if (p.contains("components")) {
    for (const auto& c : p["components"]) {
      if (!c.contains("name")) throw ScenarioError{"a component needs a \"name\""};
      if (project->Component(W(c["name"])))
        throw ScenarioError{"project " + U(project->Name()) + " has two components named " + c["name"].get<std::string>()};
      project->AddComponent(W(c["name"]), c.value("type", 1), c.contains("code") ? CodeLines(c["code"]) : std::vector<std::wstring>{});
    }
  }
}

io::ReferenceInfo ReferenceOf(const json& r) {
  io::ReferenceInfo info;
  info.name = W(r.at("name"));
  for (const auto& k : io::DefaultReferences())
    if (k.name == info.name) info = k;
  if (r.contains("fullPath")) info.fullPath = W(r["fullPath"]);
  info.isBroken = r.value("broken", false);
  return info;
}

std::shared_ptr<host::MemoryProject> ScenarioRunner::ProjectNamed(const std::string& name) const {
  auto p = vbe_->Project(W(json(name)));
  if (!p) throw ScenarioError{"there is no project named \"" + name + "\""};
  return p;
}

std::shared_ptr<host::MemoryComponent> ScenarioRunner::Component(const json& ref) const {
  std::shared_ptr<host::MemoryProject> project;
  std::string name;
  if (ref.is_object()) {
    project = ProjectNamed(ref.at("project").get<std::string>());
    name = ref.at("component").get<std::string>();
  } else {
    name = ref.get<std::string>();
    auto active = std::static_pointer_cast<host::MemoryProject>(vbe_->ActiveVBProject());
    project = active;
    if (!project || !project->Component(W(json(name))))
      for (const auto& p : vbe_->Projects())
        if (p->Component(W(json(name)))) project = p;
  }
  auto c = project ? project->Component(W(json(name))) : nullptr;
  if (!c) throw ScenarioError{"there is no component named \"" + name + "\""};
  return c;
}

void ScenarioRunner::SetupActive(const json& active) {
  if (vbe_->Projects().empty()) return;
  std::shared_ptr<host::MemoryComponent> component;
  if (active.contains("component")) {
    json ref = active.contains("project") ? json{{"project", active["project"]}, {"component", active["component"]}}
                                          : active["component"];
    component = Component(ref);
  } else if (active.contains("project")) {
    auto p = ProjectNamed(active["project"]);
    vbe_->SetActiveVBProject(p);
    if (!p->Components().empty()) component = p->Components().front();
  } else if (!vbe_->Projects().front()->Components().empty()) {
    component = vbe_->Projects().front()->Components().front();
  }
  if (component) {
    vbe_->ActivateComponent(component);
    if (active.contains("selection")) {
      const json& sel = active["selection"];
      if (!sel.is_array() || sel.size() != 4) throw UnreadableInput{"\"selection\" is [startLine, startColumn, endLine, endColumn]"};
      vbe_->ActiveCodePane()->SetSelection({sel[0], sel[1], sel[2], sel[3]});
    }
  }
  if (active.contains("window")) ExecuteEditorStep("window", active["window"]);
}

void ScenarioRunner::Start(const std::string& mode) {
  if (excelApp_) excel_->OnConnection(excelApp_);
  if (wordApp_) word_->OnConnection(wordApp_);
  if (accessApp_) access_->OnConnection(accessApp_);
  if (mode == "auto") {
    Connect(1);
    clock_.Advance(500);
    Settle();
  } else if (mode != "manual") {
    throw UnreadableInput{"\"start\" is \"auto\" or \"manual\""};
  }
}

void ScenarioRunner::Connect(int connectMode) {
  if (connected_) throw ScenarioError{StepLabel(next_ - 1) + ": the add-in is connected already"};
  connected_ = true;
  connect_->OnConnection(vbe_.get(), connectMode);
  if (connectMode == 0) connect_->OnAddInsUpdate();
}

void ScenarioRunner::Disconnect() {
  if (!connected_) throw ScenarioError{StepLabel(next_ - 1) + ": the add-in is not connected"};
  connected_ = false;
  connect_->OnDisconnection(1);
}

void ScenarioRunner::Finish(bool ok, const std::string& error) {
  json out;
  out["ok"] = ok;
  out["error"] = ok ? json(nullptr) : json(error);
  json projects = json::array();
  if (vbe_) {
    for (const auto& p : vbe_->Projects()) {
      json comps = json::array();
      for (const auto& c : p->Components())
        comps.push_back({{"name", U(c->Name())}, {"type", c->Type()}, {"code", LinesJson(c->Module()->AllLines())}});
      json project = json::object();
      project["name"] = U(p->Name());
      project["components"] = std::move(comps);
      projects.push_back(std::move(project));
    }
  }
  out["projects"] = std::move(projects);
  json active = nullptr;
  if (vbe_ && vbe_->ActiveCodePane()) {
    auto module = vbe_->ActiveCodePane()->CodeModule();
    auto component = module->Parent();
    auto project = std::static_pointer_cast<host::MemoryComponent>(component)->Project();
    const host::Selection sel = vbe_->ActiveCodePane()->GetSelection();
    active = {{"project", U(project ? project->Name() : L"")}, {"component", U(component->Name())},
              {"selection", {sel.startLine, sel.startColumn, sel.endLine, sel.endColumn}}};
  }
  out["active"] = active;
  out["clipboard"] = platform_ ? U(platform_->ClipboardGetText()) : "";
  out["immediate"] = vbe_ ? U(vbe_->ImmediateText()) : "";
  json home = json::object(), written = json::object();
  std::wstring programFolder = kProgramFolder;
  for (const auto& [path, bytes] : sandbox_.WrittenFiles()) {
    if (vba::StartsWithText(path, programFolder)) {
      std::wstring rel = path.substr(programFolder.size());
      home[U(rel)] = FileText(bytes);
    } else {
      written[U(path)] = FileText(bytes);
    }
  }
  out["home"] = home;
  out["written"] = written;
  json deleted = json::array();
  for (const std::wstring& path : sandbox_.DeletedFiles())
    if (vba::StartsWithText(path, programFolder)) deleted.push_back(U(path.substr(programFolder.size())));
  if (!deleted.empty()) out["deleted"] = std::move(deleted);
  out["transcript"] = transcript_;
  output_ = std::move(out);
}

namespace {

// The scenario's text: a file, or standard input for "-". A folder, a file that cannot be
// read or one beyond any reasonable size is unreadable input.
std::string ReadScenarioText(const std::string& path) {
  constexpr std::size_t kMaxScenarioBytes = 256u << 20;
  int fd = 0;
  if (path != "-") {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0)
      throw UnreadableInput{"cannot read " + path + ": " + std::strerror(errno)};
    if (S_ISDIR(st.st_mode)) throw UnreadableInput{"cannot read " + path + ": it is a folder, not a scenario file"};
    fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) throw UnreadableInput{"cannot read " + path + ": " + std::strerror(errno)};
  }
  std::string text;
  char buffer[65536];
  for (;;) {
    ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) {
      int err = errno;
      if (fd != 0) ::close(fd);
      throw UnreadableInput{"cannot read " + path + ": " + std::strerror(err)};
    }
    if (n == 0) break;
    text.append(buffer, static_cast<std::size_t>(n));
    if (text.size() > kMaxScenarioBytes) {
      if (fd != 0) ::close(fd);
      throw UnreadableInput{"cannot read " + path + ": a scenario of more than 256 MiB"};
    }
  }
  if (fd != 0) ::close(fd);
  return text;
}

// The outcome of a run that never started: the reason on both outputs.
int Refused(const std::string& why, int status) {
  std::cerr << "quillet script: " << why << "\n";
  std::cout << json{{"ok", false}, {"error", why}}.dump(-1, ' ', false, json::error_handler_t::replace) << "\n";
  return status;
}

}  // namespace

int RunScriptCommand(const std::string& path) {
  int status;
  std::unique_ptr<ScenarioRunner> runner;
  try {
    json scenario = ParseScenario(ReadScenarioText(path));
    runner = std::make_unique<ScenarioRunner>();
    std::error_code ec;
    std::filesystem::path base = path == "-" ? std::filesystem::current_path(ec)
                                             : std::filesystem::absolute(path, ec).parent_path();
    status = runner->Run(scenario, base);
  } catch (const UnreadableInput& e) {
    return Refused(e.message, 2);
  } catch (const std::exception& e) {
    // The runner's own machinery failed before a session could start (no temporary folder).
    return Refused(e.what(), 2);
  }
  const json& output = runner->Output();
  if (status != 0) std::cerr << "quillet script: " << output["error"].get<std::string>() << "\n";
  std::cout << output.dump(2, ' ', false, json::error_handler_t::replace) << "\n";
  return status;
}

}  // namespace quillet::cli
