#pragma once
// The editor's object model, as the system uses it. The in-memory editor implements it;
// a binding to the real editor would implement it the same way.
//
// Lines and columns are 1-based; a text of several lines joins them with CR LF. Members
// that the real editor lets fail raise vba::Error.
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostmodel/selection.h"

namespace quillet::host {

template <class T>
using Ptr = std::shared_ptr<T>;

class VBE;
class VBProject;
class VBComponent;
class VBComponents;
class CodeModule;
class CodePane;
class Window;
class Windows;
class Reference;
class References;
class Designer;
class CommandBars;
class CommandBarControl;

// Window types of the editor.
enum WindowType : int {
  kCodeWindow = 0,
  kDesignerWindow = 1,
  kBrowserWindow = 2,
  kWatchWindow = 3,
  kLocalsWindow = 4,
  kImmediateWindow = 5,
  kProjectWindow = 6,
  kPropertyWindow = 7,
  kMainWindow = 12,
  kToolWindow = 15,
};

// Component types of the editor.
enum ComponentType : int {
  kStdModule = 1,
  kClassModule = 2,
  kMSForm = 3,
  kVBForm = 5,
  kVBMDIForm = 6,
  kActiveXDesigner = 11,
  kDocument = 100,
};

// How a project is protected: a locked one cannot be read.
enum Protection : int { kNoProtection = 0, kLocked = 1 };

// How Find matches its target.
struct FindOptions {
  bool wholeWord = false;
  bool matchCase = false;
  bool patternSearch = false;
};

// Procedure kinds of the editor: Sub and Function are one kind.
enum ProcKind : int { kProcKind = 0, kLetKind = 1, kSetKind = 2, kGetKind = 3 };

class Window {
 public:
  virtual ~Window() = default;
  virtual std::wstring Caption() const = 0;
  virtual bool Visible() const = 0;
  virtual void SetVisible(bool visible) = 0;
  virtual int Type() const = 0;
  virtual void SetFocus() = 0;
  virtual long HWnd() const = 0;
  virtual void Close() = 0;
};

class Windows {
 public:
  virtual ~Windows() = default;
  virtual long Count() const = 0;
  virtual Ptr<Window> Item(long index) const = 0;  // 1-based; raises error 9
  // A dockable window owned by the add-in; `progId` names the document that fills it.
  virtual Ptr<Window> CreateToolWindow(std::wstring_view progId, std::wstring_view caption,
                                       std::wstring_view guidPosition) = 0;
};

class CodeModule {
 public:
  virtual ~CodeModule() = default;
  virtual Ptr<VBComponent> Parent() const = 0;
  virtual std::wstring Name() const = 0;

  // Inserts before the first procedure, or at the end when the module has none.
  virtual void AddFromString(std::wstring_view text) = 0;
  // `count` lines from `start` joined by CR LF; a line beyond the end raises error 9.
  virtual std::wstring Lines(long start, long count) const = 0;
  virtual long CountOfLines() const = 0;
  // The length of Lines(1, CountOfLines), 0 for an empty module: the cheap fingerprint by
  // which the models notice that a module changed.
  virtual long TextLength() const {
    const long n = CountOfLines();
    return n ? static_cast<long>(Lines(1, n).size()) : 0;
  }
  // Up to the last line of the declarations section that is neither blank nor a comment.
  virtual long CountOfDeclarationLines() const = 0;
  // Before `line`, which may be CountOfLines + 1; `text` may hold several lines.
  virtual void InsertLines(long line, std::wstring_view text) = 0;
  virtual void DeleteLines(long start, long count = 1) = 0;
  // `text` may hold several lines.
  virtual void ReplaceLine(long line, std::wstring_view text) = 0;

  // The procedure a line belongs to, "" in the declarations section. Comments and blank
  // lines above a header belong to that procedure; the last one owns the lines behind its
  // End. Raises error 9 for a line that does not exist.
  virtual std::wstring ProcOfLine(long line, ProcKind& kind) const = 0;
  // An unknown procedure raises error 35.
  virtual long ProcStartLine(std::wstring_view name, ProcKind kind) const = 0;
  virtual long ProcBodyLine(std::wstring_view name, ProcKind kind) const = 0;
  virtual long ProcCountLines(std::wstring_view name, ProcKind kind) const = 0;

  // Searches `range`; -1 for its end line and column means to the end of the module. On
  // success `range` holds the match.
  virtual bool Find(std::wstring_view target, Selection& range, const FindOptions& options = {}) const = 0;

  // The pane that shows the module; opening it is left to CodePane::Show.
  virtual Ptr<host::CodePane> CodePane() = 0;
};

class CodePane {
 public:
  virtual ~CodePane() = default;
  virtual Ptr<host::CodeModule> CodeModule() const = 0;
  virtual Ptr<host::Window> Window() const = 0;
  // The selection, its start before its end whichever way the user drew it.
  virtual Selection GetSelection() const = 0;
  virtual void SetSelection(const Selection& selection) = 0;
  virtual long TopLine() const = 0;
  virtual void SetTopLine(long line) = 0;
  // Opens the code window and makes it the active one.
  virtual void Show() = 0;
};

// A control on a form's designer. The form-building features use more of it.
class DesignerControl {
 public:
  virtual ~DesignerControl() = default;
  virtual std::wstring Name() const = 0;
  virtual std::wstring ProgId() const = 0;
};

class Designer {
 public:
  virtual ~Designer() = default;
  virtual std::vector<Ptr<DesignerControl>> Controls() const = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::wstring Name() const = 0;
  virtual void SetName(std::wstring_view name) = 0;
  virtual ComponentType Type() const = 0;
  virtual Ptr<host::CodeModule> CodeModule() = 0;
  virtual Ptr<host::Designer> Designer() = 0;        // nullptr without a visual designer
  virtual Ptr<host::Window> DesignerWindow() = 0;    // nullptr without a visual designer
  virtual Ptr<VBComponents> Collection() const = 0;
  // Writes the component as an exported module file.
  virtual void Export(std::wstring_view path) = 0;
  virtual void Activate() = 0;
  // The component's properties by name ("Name", "Caption", ...); nullptr-like absence as "".
  virtual std::wstring Property(std::wstring_view name) const = 0;
};

class VBComponents {
 public:
  virtual ~VBComponents() = default;
  virtual long Count() const = 0;
  virtual Ptr<VBComponent> Item(long index) const = 0;            // 1-based; error 9
  virtual Ptr<VBComponent> Item(std::wstring_view name) const = 0;  // error 9 when missing
  virtual Ptr<VBProject> Parent() const = 0;
  virtual Ptr<VBComponent> Add(ComponentType type) = 0;
  // Imports an exported module file; raises error 53 when the file does not exist.
  virtual Ptr<VBComponent> Import(std::wstring_view path) = 0;
  virtual void Remove(const Ptr<VBComponent>& component) = 0;
};

class Reference {
 public:
  virtual ~Reference() = default;
  virtual std::wstring Name() const = 0;
  virtual std::wstring FullPath() const = 0;
  virtual std::wstring Guid() const = 0;
  virtual std::wstring Description() const = 0;
  virtual long Major() const = 0;
  virtual long Minor() const = 0;
  virtual bool IsBroken() const = 0;
  virtual bool BuiltIn() const = 0;
};

class References {
 public:
  virtual ~References() = default;
  virtual long Count() const = 0;
  virtual Ptr<Reference> Item(long index) const = 0;  // 1-based; error 9
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  virtual std::wstring Name() const = 0;
  virtual void SetName(std::wstring_view name) = 0;
  // Empty for a project that was never saved. Reading it may fail on some hosts.
  virtual std::wstring FileName() const = 0;
  virtual host::Protection Protection() const = 0;
  virtual int Type() const = 0;        // 100 host project
  virtual std::wstring HelpFile() const = 0;
  virtual Ptr<host::VBComponents> VBComponents() = 0;
  virtual Ptr<host::References> References() = 0;
};

class VBProjects {
 public:
  virtual ~VBProjects() = default;
  virtual long Count() const = 0;
  virtual Ptr<VBProject> Item(long index) const = 0;  // 1-based; error 9
};

// The click source of a command bar control.
using ClickHandler = std::function<void(const Ptr<CommandBarControl>& control, bool& handled, bool& cancelDefault)>;

class VBE {
 public:
  virtual ~VBE() = default;
  virtual Ptr<VBProject> ActiveVBProject() const = 0;
  virtual void SetActiveVBProject(const Ptr<VBProject>& project) = 0;
  virtual Ptr<CodePane> ActiveCodePane() const = 0;
  virtual void SetActiveCodePane(const Ptr<CodePane>& pane) = 0;
  virtual Ptr<Window> ActiveWindow() const = 0;
  virtual long CodePanesCount() const = 0;  // open code windows
  virtual Ptr<host::VBProjects> VBProjects() const = 0;
  virtual Ptr<VBComponent> SelectedVBComponent() const = 0;
  virtual Ptr<Window> MainWindow() const = 0;
  virtual Ptr<host::Windows> Windows() const = 0;
  virtual host::CommandBars& CommandBars() = 0;
  // Connects a handler to the control's click source; the returned id disconnects it.
  virtual int ConnectClick(const Ptr<CommandBarControl>& control, ClickHandler handler) = 0;
  virtual void DisconnectClick(int id) = 0;
  virtual std::wstring Version() const = 0;
};

}  // namespace quillet::host
