#pragma once
// The base of every control on a headless form: name, position, enabled and visible
// state, focus, keys, and the events every control has. Events are raised only while the
// control's form is loaded: what a dialog's constructor sets up is the design state and
// raises nothing.
#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

#include "ui/constants.h"
#include "ui/event.h"

namespace quillet::ui {

class Form;
class UserInput;

struct FontInfo {
  std::wstring name = L"MS Sans Serif";
  double size = 8;
  bool bold = false;
  bool italic = false;
};

class Control {
 public:
  // Controls are made by Form::Add, which passes the form and the container (a Frame or a
  // PictureBox; nullptr for the form itself). `index` >= 0 makes a member of a control
  // array, named "txtPS(0)".
  Control(Form& form, std::wstring name, Control* container, int index);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  // The classic type name: "TextBox", "ComboBox", ...
  virtual const char* Kind() const = 0;

  const std::wstring& Name() const { return name_; }
  int Index() const { return index_; }  // -1 outside a control array
  // The name as handlers and steps use it: "txtName", or "txtPS(0)" in an array.
  std::wstring FullName() const;
  Form& Parent() const { return form_; }
  Control* Container() const { return container_; }
  virtual bool IsContainer() const { return false; }

  bool Enabled() const { return props_.enabled; }
  void SetEnabled(bool enabled);
  bool Visible() const { return props_.visible; }
  void SetVisible(bool visible) { props_.visible = visible; }
  // The control and every container around it enabled (visible): what the user meets.
  bool IsEffectivelyEnabled() const;
  bool IsEffectivelyVisible() const;

  // Position and size in twips, relative to the container.
  long Left() const { return props_.left; }
  long Top() const { return props_.top; }
  long Width() const { return props_.width; }
  long Height() const { return props_.height; }
  void SetLeft(long v) { props_.left = v; }
  void SetTop(long v) { props_.top = v; }
  void SetWidth(long v) { props_.width = v; }
  void SetHeight(long v) { props_.height = v; }
  // A negative width or height keeps the present one.
  void Move(long left, long top, long width = -1, long height = -1);
  // The position relative to the form's client area, through all containers.
  long FormLeft() const;
  long FormTop() const;

  const std::wstring& ToolTipText() const { return props_.toolTip; }
  void SetToolTipText(std::wstring text) { props_.toolTip = std::move(text); }
  const std::wstring& Tag() const { return props_.tag; }
  void SetTag(std::wstring tag) { props_.tag = std::move(tag); }
  const FontInfo& Font() const { return props_.font; }
  void SetFont(FontInfo font) { props_.font = std::move(font); }
  long ForeColor() const { return props_.foreColor; }
  void SetForeColor(long color) { props_.foreColor = color; }
  long BackColor() const { return props_.backColor; }
  void SetBackColor(long color) { props_.backColor = color; }

  // Tab order: indexes run from 0 without gaps over the form's controls; setting one
  // moves the others, as classic forms do.
  int TabIndex() const { return props_.tabIndex; }
  void SetTabIndex(int index);
  bool TabStop() const { return props_.tabStop; }
  void SetTabStop(bool stop) { props_.tabStop = stop; }
  // Moving the focus to a control that causes validation raises Validate on the control
  // that loses it.
  bool CausesValidation() const { return props_.causesValidation; }
  void SetCausesValidation(bool causes) { props_.causesValidation = causes; }

  // The pointer's shape over the control; a front-end shows it (the resize arrows over a
  // splitter bar).
  int MousePointer() const { return props_.mousePointer; }
  void SetMousePointer(int shape) { props_.mousePointer = shape; }
  // Whether Tab is a key of the control's own (its KeyDown and KeyPress see it) rather
  // than the key that moves the focus on.
  bool TakesTab() const { return props_.takesTab; }
  void SetTakesTab(bool takes) { props_.takesTab = takes; }

  // Whether this kind of control takes the focus at all (labels and frames do not).
  virtual bool TakesFocus() const { return true; }
  // Whether it can take the focus now: its kind does, and it is enabled and visible.
  bool CanFocus() const;
  // Moves the focus here (Validate, LostFocus, GotFocus as the move goes). Raises error 5
  // when the control cannot take the focus; on a form not shown yet it only marks the
  // control to get the focus when the form shows.
  void SetFocus();
  bool HasFocus() const;

  Event<> OnClick;
  Event<> OnDblClick;
  Event<> OnGotFocus;
  Event<> OnLostFocus;
  Event<bool&> OnValidate;          // (cancel)
  Event<int&, int> OnKeyDown;       // (keyCode, shift); 0 cancels the key's own action
  Event<int&> OnKeyPress;           // (keyAscii); 0 cancels the key
  Event<int&, int> OnKeyUp;         // (keyCode, shift)
  // (button, shift, x, y), x and y in twips from the control's top left corner.
  Event<int, int, long, long> OnMouseDown;
  Event<int, int, long, long> OnMouseMove;
  Event<int, int, long, long> OnMouseUp;

  // A parameterless event by its classic name ("Click", "Change"), for calls of a handler
  // by name; nullptr when the control has no such event.
  virtual Event<>* FindEvent(std::wstring_view name);

  // The control as data: name, kind, enabled, visible, position, and what its kind adds.
  nlohmann::json Describe() const;

 protected:
  // True while the form is loaded: only then are events raised.
  bool Live() const;
  template <class... A, class... P>
  void Raise(const Event<A...>& event, P&&... args) const {
    if (Live()) event(std::forward<P>(args)...);
  }

  virtual void DescribeInto(nlohmann::json& out) const {}

  // The design state is kept at the form's first Load and restored at each Unload, as a
  // form's controls come back fresh when it is loaded again.
  virtual void SaveDesign() { design_ = props_; }
  virtual void RestoreDesign() { props_ = design_; }
  virtual void FormLoaded() {}
  virtual void FormUnloaded() {}
  virtual void EnabledChanged() {}

  // What a key does after the key events let it through.
  virtual void KeyPressDefault(int keyAscii) {}
  virtual void KeyDownDefault(int keyCode, int shift) {}
  // What a click of the user does: raises Click; check boxes and the like do more.
  virtual void UserClick() { Raise(OnClick); }

 private:
  friend class Form;
  friend class UserInput;

  struct Common {
    bool enabled = true;
    bool visible = true;
    long left = 0, top = 0, width = 1215, height = 375;
    std::wstring toolTip;
    std::wstring tag;
    FontInfo font;
    long foreColor = vbWindowText;
    long backColor = vbWindowBackground;
    int tabIndex = 0;
    bool tabStop = true;
    bool causesValidation = true;
    int mousePointer = vbDefault;
    bool takesTab = false;
  };

  Form& form_;
  std::wstring name_;
  Control* container_;
  int index_;
  Common props_;
  Common design_;
};

}  // namespace quillet::ui
