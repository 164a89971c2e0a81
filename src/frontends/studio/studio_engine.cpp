#include "frontends/studio/studio_engine.h"

#include <ctime>

#include "frontends/shared/bar_state.h"
#include "frontends/studio/engine_impl.h"
#include "frontends/studio/fenced_file_system.h"
#include "io/paths.h"
#include "io/project_folder.h"
#include "settings/items.h"
#include "kernel/errors.h"
#include "ui/form.h"
#include "ui/user_input.h"
#include "vba/encoding.h"
#include "vba/error.h"

namespace quillet::studio {
namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* kProgramFolder = L"C:\\Program Files\\Quillet\\";
constexpr const wchar_t* kTempFolder = L"C:\\Temp\\";
// How long a turn of the loop waits at most when no timer falls due sooner.
constexpr std::chrono::milliseconds kIdleTurn{50};

std::string U(std::wstring_view s) { return vba::ToUtf8(s); }

vba::DateTime LocalNow() {
  std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  return vba::DateTime{tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

json LinesJson(const std::vector<std::wstring>& lines) {
  json out = json::array();
  for (const auto& l : lines) out.push_back(U(l));
  return out;
}

// Is `path` the folder `root` or inside it? Both canonical.
bool Within(const fs::path& path, const fs::path& root) {
  auto rel = path.lexically_relative(root);
  return !rel.empty() && *rel.begin() != "..";
}

}  // namespace

void Request::Reply(json r, std::optional<RequestError> e) {
  std::lock_guard lock(m);
  if (replied) return;
  replied = true;
  reply = std::move(r);
  error = std::move(e);
  cv.notify_all();
}

StudioEngine::Impl::Impl(fs::path folder) {
  projectFolder = fs::canonical(folder);
  if (!fs::is_directory(projectFolder)) throw std::runtime_error("no folder " + projectFolder.string());
  sandbox.CopyIn(cli::DataFolder(), kProgramFolder);
  sandbox.MakeFolders(kProgramFolder);
  sandbox.MakeFolders(kTempFolder);
  settings::WriteDefaultSettingsFiles(sandbox.Files(), kProgramFolder, L"Developer");
  clock.SetStart(LocalNow());

  // The engine reaches the sandbox's drives, the project folder and the picked folders.
  fs::path drives = fs::weakly_canonical(sandbox.Files().RealPath(L"C:\\")).parent_path();
  // The sandbox holds no links, so a path inside it is told apart by its text alone.
  auto fenced = std::make_unique<FencedFileSystem>(sandbox.TakeFileSystem(), [this, drives](std::wstring_view path) {
    try {
      if (Within(sandbox.Files().RealPath(path).lexically_normal(), drives)) return true;
    } catch (...) {
      return false;
    }
    return AllowedIn(*this, path);
  });
  platform = std::make_unique<host::MemoryPlatform>(std::move(fenced), kProgramFolder, kTempFolder);
  // Keystrokes the engine sends reach the editor by themselves; what else the platform
  // does for the engine (a document opened) is told to the page, the last few of it.
  platform->onEvent = [this](const host::MemoryPlatform::Event& e) {
    if (e.kind == "sendkeys") return;
    notices.push_back({{"kind", e.kind}, {"text", U(e.text)}, {"id", ++noticeCount}});
    if (notices.size() > 5) notices.erase(notices.begin());
  };
  vbe = std::make_unique<host::MemoryVBE>(*platform);
  uiHost = std::make_unique<StudioUiHost>(*this);
  ui = std::make_unique<ui::UiContext>(*uiHost, clock);
  session = std::make_unique<kernel::Session>(*platform, *ui);
  connect = std::make_unique<shell::Connect>(*session);

  projectWindowsFolder = *sandbox.Files().WindowsPath(projectFolder);
  auto project = vbe->AddProject(io::LoadProjectFolder(platform->Files(), projectWindowsFolder));
  MarkSaved(*project);
  if (!project->Components().empty()) vbe->ActivateComponent(project->Components().front());
  started = std::chrono::steady_clock::now();
  thread = std::thread([this] { Loop(); });
}

StudioEngine::Impl::~Impl() {
  {
    std::lock_guard lock(queueMutex);
    stopping = true;
  }
  queueCv.notify_all();
  if (thread.joinable()) thread.join();
  // The session goes first: its forms and timers reach into the rest.
  connect.reset();
  session.reset();
  ui.reset();
}

json StudioEngine::Impl::Submit(std::function<json()> work, bool answers) {
  auto request = std::make_shared<Request>();
  request->work = std::move(work);
  request->answers = answers;
  {
    std::lock_guard lock(queueMutex);
    if (stopping) throw RequestError{503, "the studio is closing"};
    queue.push_back(request);
  }
  queueCv.notify_all();
  std::unique_lock lock(request->m);
  request->cv.wait(lock, [&] { return request->replied; });
  if (request->error) throw *request->error;
  return request->reply;
}

struct StopLoop {};

void StudioEngine::Impl::Loop() {
  try {
    // The add-in connects as the editor starts, then the first ticks come.
    AsEngine([&] { connect->OnConnection(vbe.get(), 1); });
    for (;;) Turn(kIdleTurn);
  } catch (const StopLoop&) {
  }
  // Whatever still waits is told the studio closes.
  std::lock_guard lock(queueMutex);
  for (auto& r : queue) r->Reply(nullptr, RequestError{503, "the studio is closing"});
  for (auto& r : running) r->Reply(nullptr, RequestError{503, "the studio is closing"});
}

void StudioEngine::Impl::Turn(std::chrono::milliseconds maxWait) {
  auto elapsed = [&] {
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - started).count();
  };
  std::shared_ptr<Request> next;
  {
    std::unique_lock lock(queueMutex);
    long long wait = maxWait.count();
    long long due = clock.NextDue();
    if (due >= 0) wait = std::max<long long>(0, std::min(wait, due - elapsed()));
    queueCv.wait_for(lock, std::chrono::milliseconds(wait), [&] { return stopping || !queue.empty(); });
    if (stopping) throw StopLoop{};
    if (!queue.empty()) {
      next = queue.front();
      queue.pop_front();
    }
  }
  if (next) {
    if (!asks.empty() && !next->answers) {
      next->Reply(nullptr, RequestError{409, "the studio waits for an answer to its question"});
    } else if (asks.empty() && next->answers) {
      next->Reply(nullptr, RequestError{409, "nothing is being asked"});
    } else {
      running.push_back(next);
      try {
        json result = next->work();
        Publish();
        next->Reply({{"ok", true}, {"result", result}, {"revision", revision}});
      } catch (const RequestError& e) {
        next->Reply(nullptr, e);
      } catch (const ui::InputRefused& e) {
        next->Reply(nullptr, RequestError{409, e.what()});
      } catch (const StopLoop&) {
        running.pop_back();
        throw;
      } catch (const std::exception& e) {
        next->Reply(nullptr, RequestError{400, e.what()});
      }
      running.pop_back();
    }
  }
  long long now = elapsed();
  if (now > clock.Elapsed()) AsEngine([&] { clock.Advance(now - clock.Elapsed()); });
  platform->DoEvents();
  Publish();
}

void StudioEngine::Impl::ReleaseRunning() {
  Publish();
  for (auto& r : running) r->Reply({{"ok", true}, {"waiting", true}, {"revision", revision}});
}

void StudioEngine::Impl::AsEngine(const std::function<void()>& body) {
  try {
    body();
  } catch (const vba::Error& e) {
    kernel::HandleError(*session, e, 0, L"quillet studio");
  } catch (const ui::InputRefused&) {
    throw;
  } catch (const RequestError&) {
    throw;
  } catch (const StopLoop&) {
    throw;
  } catch (const std::exception& e) {
    kernel::HandleError(*session, kernel::InternalError(e), 0, L"quillet studio");
  }
}

json StudioEngine::Impl::AskUser(json what) {
  Ask ask{std::move(what), std::nullopt};
  ask.what["id"] = ++noticeCount;
  asks.push_back(&ask);
  ReleaseRunning();
  try {
    while (!ask.answer) Turn(kIdleTurn);
  } catch (...) {
    asks.pop_back();
    throw;
  }
  asks.pop_back();
  return *ask.answer;
}

void StudioEngine::Impl::MarkSaved(const host::MemoryProject& project) {
  auto& components = saved[project.Name()];
  components.clear();
  dirtyCache.erase(project.Name());
  for (const auto& c : project.Components()) components[c->Name()] = c->Module()->AllLines();
}

bool StudioEngine::Impl::Dirty(const host::MemoryProject& project) const {
  auto it = saved.find(project.Name());
  if (it == saved.end()) return true;
  if (it->second.size() != project.Components().size()) return true;
  for (const auto& c : project.Components()) {
    auto s = it->second.find(c->Name());
    if (s == it->second.end() || s->second != c->Module()->AllLines()) return true;
  }
  return false;
}

json StudioEngine::Impl::BuildState() {
  json s;
  json projects = json::array();
  for (const auto& p : vbe->Projects()) {
    json comps = json::array();
    for (const auto& c : p->Components()) comps.push_back({{"name", U(c->Name())}, {"type", c->Type()}});
    // Whether the project differs from its folder is asked again only after an edit.
    unsigned long long edits = p->Components().size();
    for (const auto& c : p->Components()) edits += c->Module()->Revision() * 31 + c->Name().size();
    auto& known = dirtyCache[p->Name()];
    if (known.first != edits + 1) known = {edits + 1, Dirty(*p)};
    projects.push_back({{"name", U(p->Name())}, {"folder", U(p->folder)}, {"dirty", known.second}, {"components", comps}});
  }
  s["projects"] = projects;
  json active = nullptr;
  if (auto pane = std::static_pointer_cast<host::MemoryCodePane>(vbe->ActiveCodePane())) {
    auto module = pane->Module();
    auto component = std::static_pointer_cast<host::MemoryComponent>(module->Parent());
    auto project = component->Project();
    const host::Selection sel = pane->GetSelection();
    if (linesOf.first != module.get() || linesOf.second != module->Revision()) {
      linesOf = {module.get(), module->Revision()};
      linesJson = LinesJson(module->AllLines());
    }
    active = {{"project", U(project ? project->Name() : L"")}, {"component", U(component->Name())},
              {"lines", linesJson},
              {"selection", {sel.startLine, sel.startColumn, sel.endLine, sel.endColumn}}};
  }
  s["active"] = active;
  auto window = vbe->ActiveWindow();
  s["focus"] = window && window->Type() == host::kImmediateWindow ? "immediate" : "code";
  auto* bar = frontends::AddInBar(*vbe);
  if (!bar) {
    barJson = nullptr;
    barKey = 0;
  } else if (long long key = frontends::BarChanges(*bar); key != barKey) {
    barKey = key;
    barJson = frontends::DescribeBar(*bar);
  }
  s["bar"] = barJson;
  json forms = json::array();
  ui::Form* top = ui->TopModal();
  for (ui::Form* f : ui->Forms()) {
    if (!f->Visible()) continue;
    json d = f->Describe();
    d["modal"] = f->IsModal();
    d["topModal"] = f == top;  // the form that takes the input; "top" is its place
    forms.push_back(std::move(d));
  }
  s["forms"] = forms;
  s["ask"] = asks.empty() ? json(nullptr) : asks.back()->what;
  s["immediate"] = U(vbe->ImmediateText());
  s["notices"] = notices;
  return s;
}

void StudioEngine::Impl::Publish() {
  json s = BuildState();
  std::string text = s.dump(-1, ' ', false, json::error_handler_t::replace);
  std::lock_guard lock(stateMutex);
  if (text == stateText) return;
  stateText = std::move(text);
  state = std::move(s);
  state["revision"] = ++revision;
  stateCv.notify_all();
}

json StudioEngine::Impl::WaitState(long long since, std::chrono::milliseconds timeout) {
  std::unique_lock lock(stateMutex);
  stateCv.wait_for(lock, timeout, [&] { return closing || revision > since; });
  return state;
}

// ---- the host's boxes and pickers: each asks the page and waits for its answer

int StudioUiHost::MsgBox(std::wstring_view prompt, int buttons, std::wstring_view title) {
  json offered = json::array();
  for (auto b : ui::MsgBoxButtons(buttons)) offered.push_back(U(ui::MsgBoxResultName(b)));
  json answer = engine_.AskUser({{"kind", "msgbox"}, {"prompt", U(prompt)}, {"title", U(title)},
                                 {"style", buttons}, {"buttons", offered}});
  return ui::MsgBoxResultOf(vba::FromUtf8(answer.get<std::string>()));
}

std::optional<std::wstring> StudioUiHost::InputBox(std::wstring_view prompt, std::wstring_view title,
                                                   std::wstring_view defaultText) {
  json answer = engine_.AskUser({{"kind", "inputbox"}, {"prompt", U(prompt)}, {"title", U(title)},
                                 {"default", U(defaultText)}});
  if (answer.is_null()) return std::nullopt;
  return vba::FromUtf8(answer.get<std::string>());
}

std::optional<std::wstring> StudioUiHost::FileDialog(const char* kind, const ui::FileDialogRequest& request) {
  json filters = json::array();
  for (const auto& f : request.filters) filters.push_back({{"description", U(f.description)}, {"pattern", U(f.pattern)}});
  std::wstring start = request.initialFolder;
  if (start.empty() || !engine_.vbe || !StudioEngine::Impl::AllowedIn(engine_, start)) start = engine_.projectWindowsFolder;
  json answer = engine_.AskUser({{"kind", kind}, {"title", U(request.title)}, {"filters", filters},
                                 {"filterIndex", request.filterIndex}, {"folder", U(start)},
                                 {"fileName", U(request.fileName)}, {"defaultExtension", U(request.defaultExtension)}});
  if (answer.is_null()) return std::nullopt;
  return vba::FromUtf8(answer.get<std::string>());
}

std::optional<std::wstring> StudioUiHost::OpenFile(const ui::FileDialogRequest& request) {
  return FileDialog("open", request);
}

std::optional<std::wstring> StudioUiHost::SaveFile(const ui::FileDialogRequest& request) {
  return FileDialog("save", request);
}

std::optional<std::wstring> StudioUiHost::ChooseFolder(std::wstring_view title, std::wstring_view startFolder) {
  std::wstring start(startFolder);
  if (start.empty() || !StudioEngine::Impl::AllowedIn(engine_, start)) start = engine_.projectWindowsFolder;
  json answer = engine_.AskUser({{"kind", "folder"}, {"title", U(title)}, {"folder", U(start)}});
  if (answer.is_null()) return std::nullopt;
  std::wstring chosen = vba::FromUtf8(answer.get<std::string>());
  {
    std::lock_guard lock(engine_.stateMutex);
    engine_.pickedFolders.push_back(fs::weakly_canonical(engine_.sandbox.Files().RealPath(chosen)));
  }
  return chosen;
}

void StudioUiHost::FormShown(ui::Form& form, bool modal) { engine_.Publish(); }

void StudioUiHost::Pump() {
  // A modal form waits: the page's requests that led here are answered, and the next
  // events (the user's actions on the form, the timers) run inside the wait.
  engine_.ReleaseRunning();
  engine_.Turn(kIdleTurn);
}

// ---- the public face

StudioEngine::StudioEngine(fs::path projectFolder) : impl_(std::make_unique<Impl>(std::move(projectFolder))) {}
StudioEngine::~StudioEngine() = default;

json StudioEngine::Act(const json& action) {
  bool answers = action.is_object() && action.value("do", std::string()) == "answer";
  Impl* impl = impl_.get();
  return impl_->Submit([impl, action] { return impl->Dispatch(action); }, answers);
}

json StudioEngine::WaitState(long long since, std::chrono::milliseconds timeout) {
  return impl_->WaitState(since, timeout);
}

void StudioEngine::Close() {
  std::lock_guard lock(impl_->stateMutex);
  impl_->closing = true;
  impl_->stateCv.notify_all();
}

json StudioEngine::State() { return impl_->WaitState(-1, std::chrono::milliseconds(0)); }

std::vector<fs::path> StudioEngine::AllowedFolders() const {
  std::vector<fs::path> out{impl_->projectFolder,
                            fs::weakly_canonical(impl_->sandbox.Files().RealPath(kProgramFolder))};
  std::lock_guard lock(impl_->stateMutex);
  for (const auto& p : impl_->pickedFolders) out.push_back(p);
  return out;
}

std::wstring StudioEngine::WindowsPathOf(const fs::path& real) const {
  return impl_->sandbox.Files().WindowsPath(real).value_or(L"");
}

fs::path StudioEngine::RealPathOf(std::wstring_view windowsPath) const {
  return impl_->sandbox.Files().RealPath(windowsPath);
}

bool StudioEngine::Allowed(std::wstring_view windowsPath) const { return Impl::AllowedIn(*impl_, windowsPath); }

json StudioEngine::ListFolder(std::wstring_view windowsPath) const {
  if (!Allowed(windowsPath)) throw RequestError{403, "that folder is outside the folders the studio may open"};
  fs::path real = fs::weakly_canonical(RealPathOf(windowsPath));
  if (!fs::is_directory(real)) throw RequestError{404, "no such folder"};
  json entries = json::array();
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(real, ec))
    entries.push_back({{"name", e.path().filename().string()}, {"folder", e.is_directory()}});
  std::sort(entries.begin(), entries.end(), [](const json& a, const json& b) {
    if (a["folder"] != b["folder"]) return a["folder"].get<bool>();
    return a["name"].get<std::string>() < b["name"].get<std::string>();
  });
  json roots = json::array();
  for (const auto& r : AllowedFolders()) roots.push_back(U(WindowsPathOf(r)));
  std::wstring win = WindowsPathOf(real);
  fs::path parent = real.parent_path();
  bool up = false;
  for (const auto& r : AllowedFolders()) up = up || (Within(parent, r));
  return {{"folder", U(win)}, {"parent", up ? json(U(WindowsPathOf(parent))) : json(nullptr)}, {"entries", entries}, {"roots", roots}};
}

bool StudioEngine::Impl::AllowedIn(const Impl& impl, std::wstring_view windowsPath) {
  fs::path real;
  try {
    real = fs::weakly_canonical(impl.sandbox.Files().RealPath(windowsPath));
  } catch (...) {
    return false;
  }
  std::vector<fs::path> roots{impl.projectFolder,
                              fs::weakly_canonical(impl.sandbox.Files().RealPath(kProgramFolder))};
  {
    std::lock_guard lock(impl.stateMutex);
    for (const auto& p : impl.pickedFolders) roots.push_back(p);
  }
  for (const auto& r : roots)
    if (Within(real, r)) return true;
  return false;
}

}  // namespace quillet::studio
