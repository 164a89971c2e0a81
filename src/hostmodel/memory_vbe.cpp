#include "hostmodel/memory_vbe.h"

#include <algorithm>

#include "hostmodel/memory_platform.h"
#include "io/paths.h"
#include "vba/error.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::host {
namespace {

class ProjectsView : public VBProjects {
 public:
  explicit ProjectsView(const MemoryVBE& vbe) : vbe_(vbe) {}
  long Count() const override { return static_cast<long>(vbe_.Projects().size()); }
  Ptr<VBProject> Item(long index) const override {
    if (index < 1 || index > Count()) vba::Raise(vba::kErrSubscript);
    return vbe_.Projects()[index - 1];
  }

 private:
  const MemoryVBE& vbe_;
};

class WindowsView : public Windows {
 public:
  explicit WindowsView(MemoryVBE& vbe) : vbe_(vbe) {}
  long Count() const override { return static_cast<long>(vbe_.AllWindows().size()); }
  Ptr<Window> Item(long index) const override {
    if (index < 1 || index > Count()) vba::Raise(vba::kErrSubscript);
    return vbe_.AllWindows()[index - 1];
  }
  Ptr<Window> CreateToolWindow(std::wstring_view progId, std::wstring_view caption,
                               std::wstring_view guidPosition) override;

 private:
  MemoryVBE& vbe_;
};

class ReferencesView : public References {
 public:
  explicit ReferencesView(const MemoryProject& project) : project_(project) {}
  long Count() const override { return static_cast<long>(project_.ReferenceList().size()); }
  Ptr<Reference> Item(long index) const override {
    if (index < 1 || index > Count()) vba::Raise(vba::kErrSubscript);
    return project_.ReferenceList()[index - 1];
  }

 private:
  const MemoryProject& project_;
};

}  // namespace

// ---------------------------------------------------------------------------------------
// Windows

MemoryWindow::MemoryWindow(MemoryVBE& vbe, int type, std::wstring caption, long hwnd)
    : vbe_(vbe), type_(type), caption_(std::move(caption)), hwnd_(hwnd) {}

void MemoryWindow::SetVisible(bool visible) {
  if (visible == visible_) return;
  if (!visible && type_ == kCodeWindow) return Close();
  visible_ = visible;
}

void MemoryWindow::SetFocus() { vbe_.FocusWindow(*this); }

void MemoryWindow::Close() {
  visible_ = false;
  vbe_.CloseWindow(*this);
}

Ptr<Window> WindowsView::CreateToolWindow(std::wstring_view progId, std::wstring_view caption,
                                          std::wstring_view guidPosition) {
  auto w = std::make_shared<MemoryWindow>(vbe_, kToolWindow, std::wstring(caption), vbe_.NewHandle());
  w->SetProgId(std::wstring(progId));
  vbe_.AddWindow(w);
  return w;
}

// ---------------------------------------------------------------------------------------
// Components

MemoryComponent::MemoryComponent(MemoryVBE& vbe, std::weak_ptr<MemoryProject> project, io::ModuleFile file)
    : vbe_(vbe), project_(std::move(project)), file_(std::move(file)), name_(file_.name), type_(file_.type) {}

void MemoryComponent::Init() {
  // The code lives in the module from here on; the file keeps the rest.
  module_ = std::make_shared<MemoryCodeModule>(vbe_, weak_from_this(), std::move(file_.code));
  file_.code.clear();
  if (type_ == kMSForm) designer_ = std::make_shared<MemoryDesigner>();
}

void MemoryComponent::SetName(std::wstring_view name) {
  auto project = Project();
  if (name.empty()) vba::Raise(vba::kErrInvalidCall);
  if (project) {
    auto other = project->Component(name);
    if (other && other.get() != this) vba::Raise(vba::kErrInvalidCall, L"Name conflicts with existing module, project, or object library");
  }
  name_ = name;
  if (designerWindow_) designerWindow_->SetCaption((project ? project->Name() : L"") + L" - " + name_ + L" (UserForm)");
}

Ptr<Window> MemoryComponent::DesignerWindow() {
  if (!designer_) return nullptr;
  if (!designerWindow_) {
    auto project = Project();
    designerWindow_ = std::make_shared<MemoryWindow>(vbe_, kDesignerWindow,
                                                     (project ? project->Name() : L"") + L" - " + name_ + L" (UserForm)",
                                                     vbe_.NewHandle());
    vbe_.AddWindow(designerWindow_);
  }
  return designerWindow_;
}

Ptr<VBComponents> MemoryComponent::Collection() const { return project_.lock(); }

io::ModuleFile MemoryComponent::File() const {
  io::ModuleFile f = file_;
  f.name = name_;
  f.type = type_;
  f.code = module_->AllLines();
  return f;
}

void MemoryComponent::Export(std::wstring_view path) {
  // The editor writes its own format, whatever the module was loaded from: CR LF,
  // Windows-1252, a line end behind the last line; a form's designer part goes beside it.
  io::ModuleFile f = File();
  f.encoding = io::TextEncoding::Windows1252;
  f.lineEnd = io::LineEnd::CrLf;
  f.finalLineEnd = true;
  io::FileSystem& fs = vbe_.Platform().Files();
  fs.WriteFile(path, io::SerializeModuleFile(f));
  if (type_ == kMSForm && !f.designer.empty())
    fs.WriteFile(io::JoinPath(io::FolderOf(path), io::DesignerFileName(f, path)), f.designer);
}

void MemoryComponent::Activate() {
  auto self = shared_from_this();
  if (designer_) {
    vbe_.SelectComponent(self);
    auto w = std::static_pointer_cast<MemoryWindow>(DesignerWindow());
    w->SetVisible(true);
    vbe_.ActivateWindow(w);
  } else {
    vbe_.ActivateComponent(self);
  }
}

std::wstring MemoryComponent::Property(std::wstring_view name) const {
  if (vba::EqualsText(name, L"Name")) return name_;
  // Properties written in the designer block of the header: "  Caption = "Text"".
  for (const auto& line : file_.header) {
    std::wstring t = vba::Trim(line);
    std::size_t eq = t.find(L'=');
    if (eq == std::wstring::npos) continue;
    if (!vba::EqualsText(vba::Trim(t.substr(0, eq)), name)) continue;
    std::wstring value = vba::Trim(t.substr(eq + 1));
    if (value.size() >= 2 && value.front() == L'"') {
      std::size_t close = value.find(L'"', 1);
      return value.substr(1, close == std::wstring::npos ? std::wstring::npos : close - 1);
    }
    return value;
  }
  return {};
}

// ---------------------------------------------------------------------------------------
// Projects

MemoryProject::MemoryProject(MemoryVBE& vbe, std::wstring name, std::wstring fileName)
    : vbe_(vbe), name_(std::move(name)), fileName_(std::move(fileName)) {
  refView_ = std::make_shared<ReferencesView>(*this);
}

Ptr<host::VBComponents> MemoryProject::VBComponents() { return shared_from_this(); }
Ptr<host::References> MemoryProject::References() { return refView_; }

void MemoryProject::SetReferences(std::vector<io::ReferenceInfo> refs) {
  references_.clear();
  for (auto& r : refs) references_.push_back(std::make_shared<MemoryReference>(std::move(r)));
}

Ptr<VBComponent> MemoryProject::Item(long index) const {
  if (index < 1 || index > Count()) vba::Raise(vba::kErrSubscript);
  return components_[index - 1];
}

Ptr<VBComponent> MemoryProject::Item(std::wstring_view name) const {
  auto c = Component(name);
  if (!c) vba::Raise(vba::kErrSubscript);
  return c;
}

std::shared_ptr<MemoryComponent> MemoryProject::Component(std::wstring_view name) const {
  for (const auto& c : components_)
    if (vba::EqualsText(c->Name(), name)) return c;
  return nullptr;
}

Ptr<VBProject> MemoryProject::Parent() const { return std::const_pointer_cast<MemoryProject>(shared_from_this()); }

std::wstring MemoryProject::FreeName(std::wstring_view base) const {
  for (int n = 1;; ++n) {
    std::wstring name = std::wstring(base) + std::to_wstring(n);
    if (!Component(name)) return name;
  }
}

std::shared_ptr<MemoryComponent> MemoryProject::AddComponent(io::ModuleFile file) {
  auto c = std::make_shared<MemoryComponent>(vbe_, weak_from_this(), std::move(file));
  c->Init();
  components_.push_back(c);
  return c;
}

std::shared_ptr<MemoryComponent> MemoryProject::AddComponent(std::wstring name, int type,
                                                             std::vector<std::wstring> code) {
  io::ModuleFile file = io::NewModuleFile(name, type);
  file.code = std::move(code);
  return AddComponent(std::move(file));
}

Ptr<VBComponent> MemoryProject::Add(ComponentType type) {
  std::wstring base;
  switch (type) {
    case kStdModule: base = L"Module"; break;
    case kClassModule: base = L"Class"; break;
    case kMSForm: base = L"UserForm"; break;
    default: vba::Raise(vba::kErrInvalidCall);
  }
  // A new module starts as the editor's own does: with the options it is told to require.
  return AddComponent(FreeName(base), type, {});
}

Ptr<VBComponent> MemoryProject::Import(std::wstring_view path) {
  io::FileSystem& fs = vbe_.Platform().Files();
  if (!fs.FileExists(path)) vba::Raise(vba::kErrFileNotFound, L"File not found: " + std::wstring(path));
  io::ModuleFile file = io::ParseModuleFile(fs.ReadFile(path), io::FileNameOf(path));
  if (file.type == kMSForm) {
    std::wstring frx = io::JoinPath(io::FolderOf(path), io::DesignerFileName(file, path));
    if (fs.FileExists(frx)) file.designer = fs.ReadFile(frx);
  }
  // Importing under a name in use gives the next free name, as the editor does.
  if (Component(file.name)) file.name = FreeName(file.name);
  return AddComponent(std::move(file));
}

void MemoryProject::Remove(const Ptr<VBComponent>& component) {
  auto it = std::find_if(components_.begin(), components_.end(),
                         [&](const auto& c) { return c.get() == component.get(); });
  if (it == components_.end()) vba::Raise(vba::kErrInvalidCall);
  auto removed = *it;
  components_.erase(it);
  vbe_.ComponentRemoved(removed);
}

// ---------------------------------------------------------------------------------------
// The editor

MemoryVBE::MemoryVBE(MemoryPlatform& platform) : platform_(platform), commandBars_(*this) {
  platform_.Attach(this);
  projectsView_ = std::make_shared<ProjectsView>(*this);
  windowsView_ = std::make_shared<WindowsView>(*this);
  mainWindow_ = std::make_shared<MemoryWindow>(*this, kMainWindow, L"Microsoft Visual Basic for Applications", NewHandle());
  mainWindow_->SetVisible(true);
  auto add = [&](int type, const wchar_t* caption, bool visible) {
    auto w = std::make_shared<MemoryWindow>(*this, type, caption, NewHandle());
    w->SetVisible(visible);
    windows_.push_back(w);
  };
  add(kProjectWindow, L"Project - VBAProject", true);
  add(kPropertyWindow, L"Properties", true);
  add(kImmediateWindow, L"Immediate", false);
  activeWindow_ = windows_.front();
  platform_.SetHostInBack(false);
  platform_.NoteFocus(windows_.front()->HWnd());
}

MemoryVBE::~MemoryVBE() { platform_.Attach(nullptr); }

void MemoryVBE::SetActiveVBProject(const Ptr<VBProject>& project) {
  for (const auto& p : projects_)
    if (p.get() == project.get()) activeProject_ = p;
}

Ptr<CodePane> MemoryVBE::ActiveCodePane() const { return activePane_.lock(); }

void MemoryVBE::SetActiveCodePane(const Ptr<CodePane>& pane) {
  auto p = std::dynamic_pointer_cast<MemoryCodePane>(pane);
  if (p) p->Show();
}

long MemoryVBE::CodePanesCount() const {
  return static_cast<long>(std::count_if(windows_.begin(), windows_.end(),
                                         [](const auto& w) { return w->Type() == kCodeWindow; }));
}

Ptr<host::VBProjects> MemoryVBE::VBProjects() const { return projectsView_; }
Ptr<host::Windows> MemoryVBE::Windows() const { return windowsView_; }

int MemoryVBE::ConnectClick(const Ptr<CommandBarControl>& control, ClickHandler handler) {
  int id = nextClickId_++;
  clickHandlers_[id] = {control, std::move(handler)};
  return id;
}

void MemoryVBE::DisconnectClick(int id) { clickHandlers_.erase(id); }

void MemoryVBE::RaiseClick(const Ptr<CommandBarControl>& control) {
  std::vector<ClickHandler> handlers;
  for (const auto& [id, entry] : clickHandlers_)
    if (entry.first.lock() == control) handlers.push_back(entry.second);
  bool handled = false, cancel = false;
  for (auto& h : handlers) h(control, handled, cancel);
}

std::shared_ptr<MemoryProject> MemoryVBE::AddProject(std::wstring name, std::wstring fileName) {
  auto p = std::make_shared<MemoryProject>(*this, std::move(name), std::move(fileName));
  projects_.push_back(p);
  if (!activeProject_.lock()) activeProject_ = p;
  return p;
}

std::shared_ptr<MemoryProject> MemoryVBE::AddProject(io::ProjectFolder folder) {
  auto p = AddProject(folder.name, folder.fileName);
  p->folder = folder.folder;
  p->hasProjectFile = folder.hasProjectFile;
  p->SetProtection(folder.protection);
  p->SetReferences(std::move(folder.references));
  for (std::size_t i = 0; i < folder.modules.size(); ++i) {
    auto c = p->AddComponent(std::move(folder.modules[i]));
    if (i < folder.moduleFiles.size()) c->fileName = folder.moduleFiles[i];
  }
  return p;
}

io::ProjectFolder MemoryProject::ToFolder() const {
  io::ProjectFolder f;
  f.folder = folder;
  f.name = name_;
  f.fileName = fileName_;
  f.protection = protection_;
  f.hasProjectFile = hasProjectFile;
  for (const auto& r : references_) f.references.push_back(r->Info());
  for (const auto& c : components_) {
    f.modules.push_back(c->File());
    f.moduleFiles.push_back(c->fileName);
  }
  return f;
}

void MemoryVBE::SaveProject(const std::shared_ptr<MemoryProject>& project, std::wstring folder) {
  io::ProjectFolder f = project->ToFolder();
  if (!folder.empty()) f.folder = std::move(folder);
  if (f.folder.empty()) vba::Raise(vba::kErrPathNotFound, L"The project " + project->Name() + L" has no folder to be saved in");
  io::SaveProjectFolder(platform_.Files(), f);
}

void MemoryVBE::RemoveProject(const std::shared_ptr<MemoryProject>& project) {
  for (const auto& c : std::vector(project->Components())) ComponentRemoved(c);
  projects_.erase(std::remove(projects_.begin(), projects_.end(), project), projects_.end());
  if (activeProject_.lock() == project || !activeProject_.lock())
    activeProject_ = projects_.empty() ? std::weak_ptr<MemoryProject>() : projects_.front();
}

std::shared_ptr<MemoryProject> MemoryVBE::Project(std::wstring_view name) const {
  for (const auto& p : projects_)
    if (vba::EqualsText(p->Name(), name)) return p;
  return nullptr;
}

std::shared_ptr<MemoryWindow> MemoryVBE::OpenCodeWindow(const std::shared_ptr<MemoryCodePane>& pane) {
  std::shared_ptr<MemoryWindow> window;
  for (const auto& w : windows_)
    if (w->pane.lock() == pane) window = w;
  auto module = pane->Module();
  auto component = module ? std::static_pointer_cast<MemoryComponent>(module->Parent()) : nullptr;
  if (!window) {
    std::wstring caption;
    if (component) {
      auto project = component->Project();
      caption = (project ? project->Name() : L"") + L" - " + component->Name() + L" (Code)";
    }
    window = std::make_shared<MemoryWindow>(*this, kCodeWindow, caption, NewHandle());
    window->pane = pane;
    windows_.push_back(window);
  }
  window->SetVisible(true);
  activePane_ = pane;
  if (component) {
    selected_ = component;
    activeProject_ = component->Project();
  }
  ActivateWindow(window);
  return window;
}

void MemoryVBE::ActivateComponent(const std::shared_ptr<MemoryComponent>& component) {
  auto pane = std::static_pointer_cast<MemoryCodePane>(component->CodeModule()->CodePane());
  OpenCodeWindow(pane);
}

void MemoryVBE::SelectComponent(const std::shared_ptr<MemoryComponent>& component) {
  selected_ = component;
  if (component) activeProject_ = component->Project();
}

std::shared_ptr<MemoryWindow> MemoryVBE::WindowOfType(int type) const {
  for (const auto& w : windows_)
    if (w->Type() == type) return w;
  return nullptr;
}

std::shared_ptr<MemoryWindow> MemoryVBE::WindowByHandle(long hwnd) const {
  if (mainWindow_->HWnd() == hwnd) return mainWindow_;
  for (const auto& w : windows_)
    if (w->HWnd() == hwnd) return w;
  return nullptr;
}

void MemoryVBE::ActivateWindow(const std::shared_ptr<MemoryWindow>& window) {
  if (!window) return;
  window->SetVisible(true);
  FocusWindow(*window);
}

void MemoryVBE::FocusWindow(MemoryWindow& window) {
  // A host behind another program does not let its windows take the focus.
  if (platform_.HostInBack()) return;
  activeWindow_ = window.shared_from_this();
  if (window.Type() == kCodeWindow) {
    if (auto pane = window.pane.lock()) {
      activePane_ = pane;
      if (auto module = pane->Module())
        if (auto c = std::static_pointer_cast<MemoryComponent>(module->Parent())) {
          selected_ = c;
          activeProject_ = c->Project();
        }
    }
  }
  platform_.NoteFocus(window.HWnd());
}

void MemoryVBE::CloseWindow(MemoryWindow& window) {
  if (window.Type() != kCodeWindow && window.Type() != kDesignerWindow) return;
  auto it = std::find_if(windows_.begin(), windows_.end(), [&](const auto& w) { return w.get() == &window; });
  if (it == windows_.end()) return;
  auto keep = *it;  // the window object outlives its removal from the list
  if (window.Type() == kCodeWindow) windows_.erase(it);
  if (activePane_.lock() == window.pane.lock()) {
    activePane_.reset();
    for (auto w = windows_.rbegin(); w != windows_.rend(); ++w)
      if ((*w)->Type() == kCodeWindow) {
        activePane_ = (*w)->pane;
        break;
      }
  }
  if (activeWindow_.lock().get() == &window) {
    std::shared_ptr<MemoryWindow> next;
    if (auto pane = activePane_.lock()) next = std::static_pointer_cast<MemoryWindow>(pane->Window());
    if (!next) next = WindowOfType(kProjectWindow);
    activeWindow_ = next;
    if (next) platform_.NoteFocus(next->HWnd());
  }
}

void MemoryVBE::ComponentRemoved(const std::shared_ptr<MemoryComponent>& component) {
  auto pane = std::static_pointer_cast<MemoryCodePane>(component->CodeModule()->CodePane());
  if (auto w = std::static_pointer_cast<MemoryWindow>(pane->Window())) w->Close();
  if (auto dw = component->DesignerWindow()) {
    auto mw = std::static_pointer_cast<MemoryWindow>(dw);
    windows_.erase(std::remove(windows_.begin(), windows_.end(), mw), windows_.end());
    if (activeWindow_.lock() == mw) activeWindow_ = WindowOfType(kProjectWindow);
  }
  if (selected_.lock() == component) selected_.reset();
}

void MemoryVBE::ApplyKey(long hwnd, const Key& key) {
  auto window = WindowByHandle(hwnd);
  if (!window) return;
  if (window->Type() == kCodeWindow) {
    if (auto pane = window->pane.lock()) pane->ApplyKey(key);
  } else if (window->Type() == kImmediateWindow) {
    // The Immediate window receives text at its end.
    if (key.ch != 0 && key.control && (key.ch == L'v' || key.ch == L'V')) {
      immediate_ += platform_.ClipboardGetText();
    } else if (key.ch != 0 && !key.control && !key.alt) {
      immediate_ += key.ch;
    } else if (key.name == L"ENTER") {
      immediate_ += L"\r\n";
    } else if (key.name == L"BACKSPACE" && !immediate_.empty()) {
      immediate_.pop_back();
    }
  }
}

}  // namespace quillet::host
