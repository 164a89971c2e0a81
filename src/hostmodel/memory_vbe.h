#pragma once
// The in-memory editor: projects, components, code panes, windows and command bars that
// behave as the real editor's do. Front-ends and tests set it up through the extra
// members of these classes; the logic sees only the interfaces of vbe.h.
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hostmodel/memory_commandbars.h"
#include "hostmodel/memory_module.h"
#include "hostmodel/vbe.h"
#include "io/module_file.h"
#include "io/project_folder.h"

namespace quillet::host {

class MemoryVBE;
class MemoryPlatform;
class MemoryProject;

class MemoryWindow : public Window, public std::enable_shared_from_this<MemoryWindow> {
 public:
  MemoryWindow(MemoryVBE& vbe, int type, std::wstring caption, long hwnd);
  std::wstring Caption() const override { return caption_; }
  bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override;
  int Type() const override { return type_; }
  void SetFocus() override;
  long HWnd() const override { return hwnd_; }
  void Close() override;

  void SetCaption(std::wstring caption) { caption_ = std::move(caption); }
  // The tool window's document, as the add-in registered it.
  const std::wstring& ProgId() const { return progId_; }
  void SetProgId(std::wstring id) { progId_ = std::move(id); }
  std::weak_ptr<MemoryCodePane> pane;  // for code windows

 private:
  MemoryVBE& vbe_;
  int type_;
  std::wstring caption_;
  long hwnd_;
  bool visible_ = false;
  std::wstring progId_;
};

class MemoryDesigner : public Designer {
 public:
  std::vector<Ptr<DesignerControl>> Controls() const override { return controls_; }
  std::vector<Ptr<DesignerControl>> controls_;
};

class MemoryComponent : public VBComponent, public std::enable_shared_from_this<MemoryComponent> {
 public:
  MemoryComponent(MemoryVBE& vbe, std::weak_ptr<MemoryProject> project, io::ModuleFile file);
  void Init();  // makes the code module; needs shared_from_this

  std::wstring Name() const override { return name_; }
  void SetName(std::wstring_view name) override;
  ComponentType Type() const override { return static_cast<ComponentType>(type_); }
  Ptr<host::CodeModule> CodeModule() override { return module_; }
  Ptr<host::Designer> Designer() override { return designer_; }
  Ptr<host::Window> DesignerWindow() override;
  Ptr<VBComponents> Collection() const override;
  void Export(std::wstring_view path) override;
  void Activate() override;
  std::wstring Property(std::wstring_view name) const override;

  std::shared_ptr<MemoryCodeModule> Module() const { return module_; }
  // The file the component was loaded from, within its project's folder; empty for a new one.
  std::wstring fileName;
  std::shared_ptr<MemoryProject> Project() const { return project_.lock(); }
  // The module file with the current code: what Export and saving write.
  io::ModuleFile File() const;

 private:
  MemoryVBE& vbe_;
  std::weak_ptr<MemoryProject> project_;
  io::ModuleFile file_;  // header, member attributes and designer part kept from loading
  std::wstring name_;
  int type_;
  std::shared_ptr<MemoryCodeModule> module_;
  std::shared_ptr<MemoryDesigner> designer_;
  std::shared_ptr<MemoryWindow> designerWindow_;
};

class MemoryReference : public Reference {
 public:
  explicit MemoryReference(io::ReferenceInfo info) : info_(std::move(info)) {}
  std::wstring Name() const override { return info_.name; }
  std::wstring FullPath() const override { return info_.fullPath; }
  std::wstring Guid() const override { return info_.guid; }
  std::wstring Description() const override { return info_.description; }
  long Major() const override { return info_.major; }
  long Minor() const override { return info_.minor; }
  bool IsBroken() const override { return info_.isBroken; }
  bool BuiltIn() const override { return info_.builtIn; }
  const io::ReferenceInfo& Info() const { return info_; }

 private:
  io::ReferenceInfo info_;
};

class MemoryProject : public VBProject,
                      public VBComponents,
                      public std::enable_shared_from_this<MemoryProject> {
 public:
  MemoryProject(MemoryVBE& vbe, std::wstring name, std::wstring fileName);

  // VBProject
  std::wstring Name() const override { return name_; }
  void SetName(std::wstring_view name) override { name_ = name; }
  std::wstring FileName() const override { return fileName_; }
  host::Protection Protection() const override { return static_cast<host::Protection>(protection_); }
  int Type() const override { return 100; }
  std::wstring HelpFile() const override { return helpFile_; }
  Ptr<host::VBComponents> VBComponents() override;
  Ptr<host::References> References() override;

  // VBComponents
  long Count() const override { return static_cast<long>(components_.size()); }
  Ptr<VBComponent> Item(long index) const override;
  Ptr<VBComponent> Item(std::wstring_view name) const override;
  Ptr<VBProject> Parent() const override;
  Ptr<VBComponent> Add(ComponentType type) override;
  Ptr<VBComponent> Import(std::wstring_view path) override;
  void Remove(const Ptr<VBComponent>& component) override;

  // Set-up and inspection.
  void SetFileName(std::wstring fileName) { fileName_ = std::move(fileName); }
  void SetProtection(int protection) { protection_ = protection; }
  void SetHelpFile(std::wstring file) { helpFile_ = std::move(file); }
  void SetReferences(std::vector<io::ReferenceInfo> refs);
  const std::vector<std::shared_ptr<MemoryReference>>& ReferenceList() const { return references_; }
  std::shared_ptr<MemoryComponent> AddComponent(io::ModuleFile file);
  std::shared_ptr<MemoryComponent> AddComponent(std::wstring name, int type, std::vector<std::wstring> code);
  std::shared_ptr<MemoryComponent> Component(std::wstring_view name) const;
  const std::vector<std::shared_ptr<MemoryComponent>>& Components() const { return components_; }
  // The folder the project was loaded from, for saving it back.
  std::wstring folder;
  bool hasProjectFile = false;
  // The project as a folder of exported modules, with the code as it stands now.
  io::ProjectFolder ToFolder() const;

 private:
  std::wstring FreeName(std::wstring_view base) const;

  MemoryVBE& vbe_;
  std::wstring name_, fileName_, helpFile_;
  int protection_ = 0;
  std::vector<std::shared_ptr<MemoryComponent>> components_;
  std::vector<std::shared_ptr<MemoryReference>> references_;
  std::shared_ptr<host::References> refView_;
};

class MemoryVBE : public VBE {
 public:
  explicit MemoryVBE(MemoryPlatform& platform);
  ~MemoryVBE() override;

  // VBE
  Ptr<VBProject> ActiveVBProject() const override { return activeProject_.lock(); }
  void SetActiveVBProject(const Ptr<VBProject>& project) override;
  Ptr<CodePane> ActiveCodePane() const override;
  void SetActiveCodePane(const Ptr<CodePane>& pane) override;
  Ptr<Window> ActiveWindow() const override { return activeWindow_.lock(); }
  long CodePanesCount() const override;
  Ptr<host::VBProjects> VBProjects() const override;
  Ptr<VBComponent> SelectedVBComponent() const override { return selected_.lock(); }
  Ptr<Window> MainWindow() const override { return mainWindow_; }
  Ptr<host::Windows> Windows() const override;
  host::CommandBars& CommandBars() override { return commandBars_; }
  int ConnectClick(const Ptr<CommandBarControl>& control, ClickHandler handler) override;
  void DisconnectClick(int id) override;
  std::wstring Version() const override { return L"7.01"; }

  // Set-up and inspection.
  MemoryPlatform& Platform() { return platform_; }
  std::shared_ptr<MemoryProject> AddProject(std::wstring name, std::wstring fileName = {});
  std::shared_ptr<MemoryProject> AddProject(io::ProjectFolder folder);
  void RemoveProject(const std::shared_ptr<MemoryProject>& project);
  // Writes the project back to the folder it was loaded from (or `folder`), each module
  // atomically and an unchanged one byte for byte.
  void SaveProject(const std::shared_ptr<MemoryProject>& project, std::wstring folder = {});
  std::shared_ptr<MemoryProject> Project(std::wstring_view name) const;
  const std::vector<std::shared_ptr<MemoryProject>>& Projects() const { return projects_; }
  // Opens the component's code window and makes it active, as a click in the tree does.
  void ActivateComponent(const std::shared_ptr<MemoryComponent>& component);
  void SelectComponent(const std::shared_ptr<MemoryComponent>& component);
  // Makes the first window of a type the active one ("immediate", "projectExplorer", ...).
  std::shared_ptr<MemoryWindow> WindowOfType(int type) const;
  void ActivateWindow(const std::shared_ptr<MemoryWindow>& window);
  const std::vector<std::shared_ptr<MemoryWindow>>& AllWindows() const { return windows_; }
  std::shared_ptr<MemoryWindow> WindowByHandle(long hwnd) const;
  // What reached the Immediate window.
  const std::wstring& ImmediateText() const { return immediate_; }
  void ClearImmediate() { immediate_.clear(); }
  // Keystrokes that reach the window with this handle.
  void ApplyKey(long hwnd, const Key& key);
  // Runs the click sources of a control.
  void RaiseClick(const Ptr<CommandBarControl>& control);
  // Code panes call these.
  std::shared_ptr<MemoryWindow> OpenCodeWindow(const std::shared_ptr<MemoryCodePane>& pane);
  void CloseWindow(MemoryWindow& window);
  void FocusWindow(MemoryWindow& window);
  long NewHandle() { return nextHandle_++; }
  void AddWindow(std::shared_ptr<MemoryWindow> window) { windows_.push_back(std::move(window)); }
  void ComponentRemoved(const std::shared_ptr<MemoryComponent>& component);

 private:
  MemoryPlatform& platform_;
  std::vector<std::shared_ptr<MemoryProject>> projects_;
  std::weak_ptr<MemoryProject> activeProject_;
  std::weak_ptr<MemoryCodePane> activePane_;
  std::weak_ptr<MemoryWindow> activeWindow_;
  std::weak_ptr<MemoryComponent> selected_;
  std::shared_ptr<MemoryWindow> mainWindow_;
  std::vector<std::shared_ptr<MemoryWindow>> windows_;
  std::shared_ptr<host::VBProjects> projectsView_;
  std::shared_ptr<host::Windows> windowsView_;
  MemoryCommandBars commandBars_;
  std::map<int, std::pair<std::weak_ptr<CommandBarControl>, ClickHandler>> clickHandlers_;
  int nextClickId_ = 1;
  long nextHandle_ = 0x1000;
  std::wstring immediate_;
};

}  // namespace quillet::host
