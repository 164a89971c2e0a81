#pragma once
// The base of every dialog: a headless form that owns its controls, loads, shows (modal
// or not, through the session's UiHost), hides and unloads with the classic events, keeps
// the focus and the tab order, and describes itself as data.
//
// A dialog derives from Form, adds its controls in its constructor and wires their events
// there:
//   class FrmName : public ui::Form {
//    public:
//     explicit FrmName(ui::UiContext& c) : Form(c, L"frmName") {
//       cmdOK.OnClick = [this] { ... };
//     }
//     ui::TextBox& txtName = Add<ui::TextBox>(L"txtName");
//     ui::CommandButton& cmdOK = Add<ui::CommandButton>(L"cmdOK");
//   };
// What the constructor sets is the design state: it raises no events, and Unload brings
// it back. Code outside the constructor should load the form (Load or Show) before it
// touches the controls, as touching them loads a classic form.
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ui/constants.h"
#include "ui/control.h"
#include "ui/event.h"
#include "ui/ui_context.h"

namespace quillet::ui {

class CommandButton;

enum FormBorderStyle : int { vbBSNone = 0, vbFixedSingle = 1, vbSizable = 2, vbFixedDialog = 3 };

class Form {
 public:
  Form(UiContext& context, std::wstring name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  UiContext& Context() const { return context_; }
  UiHost& Host() const { return context_.Host(); }
  const std::wstring& Name() const { return name_; }

  const std::wstring& Caption() const { return caption_; }
  void SetCaption(std::wstring caption) { caption_ = std::move(caption); }
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }

  // Outer position and size in twips (screen coordinates).
  long Left() const { return left_; }
  long Top() const { return top_; }
  long Width() const { return width_; }
  long Height() const { return height_; }
  void SetLeft(long v) { left_ = v; }
  void SetTop(long v) { top_ = v; }
  void SetWidth(long v);
  void SetHeight(long v);
  void Move(long left, long top, long width = -1, long height = -1);
  int BorderStyle() const { return borderStyle_; }
  void SetBorderStyle(int style) { borderStyle_ = style; }
  // The client area in twips: the outer size less the borders and the title bar.
  long ScaleWidth() const;
  long ScaleHeight() const;
  // One side's border and the title bar, in pixels.
  int BorderPixels() const;
  int TitleBarPixels() const;

  // Keys go to the form's key events before the control's.
  bool KeyPreview() const { return keyPreview_; }
  void SetKeyPreview(bool preview) { keyPreview_ = preview; }

  bool Loaded() const { return loaded_; }
  bool Visible() const { return visible_; }
  bool IsModal() const { return visible_ && modal_; }

  // Loads the form once: raises Load. A loaded form is in the context's Forms.
  void Load();
  // Loads if needed, makes the form visible and active (Activate, then GotFocus of the
  // control that gets the focus) and tells the host. Modal: returns only when the form
  // has been hidden or unloaded, pumping the host's events meanwhile.
  void Show(bool modal = false);
  // Makes the form invisible; a modal Show returns.
  void Hide();
  // Brings a showing form to the front as the active one (Activate).
  void SetFocus();
  // QueryUnload and Unload (either may cancel: then false), then the form leaves Forms
  // and its controls return to their design state.
  bool Unload(int unloadMode = vbFormCode);

  Control* ActiveControl() const { return activeControl_; }

  // Adds a control. `container` is a Frame or PictureBox of this form, or nullptr for the
  // form itself; `index` >= 0 makes a member of a control array ("txtPS(0)").
  template <class C>
  C& Add(std::wstring name, Control* container = nullptr, int index = -1) {
    auto control = std::make_unique<C>(*this, std::move(name), container, index);
    C& ref = *control;
    Adopt(std::move(control));
    return ref;
  }
  // The controls in creation order.
  const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
  // A control by the name handlers and steps use ("txtName", "txtPS(0)"), without regard
  // to case; nullptr when there is none.
  Control* Find(std::wstring_view name) const;
  template <class C>
  C* FindAs(std::wstring_view name) const {
    return dynamic_cast<C*>(Find(name));
  }
  // The controls ordered by TabIndex.
  std::vector<Control*> TabOrder() const;
  // The next control after `from` (or the first, with nullptr) in tab order that can take
  // the focus and has TabStop; nullptr when there is none.
  Control* NextTabStop(const Control* from, bool backwards = false) const;
  // The enabled, visible command button with Default (Cancel) set; nullptr when none is.
  CommandButton* DefaultButton() const;
  CommandButton* CancelButton() const;

  // Calls a handler by its classic name: "cboDataType_Click" calls the Click handler of
  // cboDataType, "Form_Load" the form's. False when there is no such handler.
  bool CallHandler(std::wstring_view handlerName);

  // The form as data, in the shape of the scenario dump:
  // {"form", "caption", "left", "top", "width", "height", "visible", "controls": [...]}.
  nlohmann::json Describe() const;
  // What closing the form decided, for the record of a run (a pop-up's key and choice);
  // null for a form that decides nothing by closing.
  virtual nlohmann::json Outcome() const { return nullptr; }

  Event<> OnLoad;
  Event<> OnActivate;
  Event<> OnDeactivate;
  Event<> OnClick;
  Event<> OnResize;
  Event<int&, int> OnQueryUnload;  // (cancel, unloadMode)
  Event<int&> OnUnload;            // (cancel)
  Event<int&, int> OnKeyDown;      // with KeyPreview
  Event<int&> OnKeyPress;
  Event<int&, int> OnKeyUp;

 protected:
  // True while loaded: form events are raised only then.
  template <class... A, class... P>
  void Raise(const Event<A...>& event, P&&... args) const {
    if (loaded_) event(std::forward<P>(args)...);
  }

 private:
  friend class Control;
  friend class UiContext;
  friend class UserInput;

  void Adopt(std::unique_ptr<Control> control);
  // Moves the focus; false when the Validate of the control losing it cancelled the move.
  bool MoveFocus(Control& target);
  // Gives the focus to the marked control, or the first tab stop, as the form shows.
  void FocusOnShow();
  void SetTabIndexOf(Control& control, int index);
  void Activated() { Raise(OnActivate); }
  void Deactivated() { Raise(OnDeactivate); }

  UiContext& context_;
  std::wstring name_;
  std::wstring caption_;
  std::wstring tag_;
  long left_ = 0, top_ = 0, width_ = 4800, height_ = 3600;
  int borderStyle_ = vbSizable;
  bool keyPreview_ = false;

  bool loaded_ = false;
  bool visible_ = false;
  bool modal_ = false;
  bool unloading_ = false;
  bool designSaved_ = false;
  Control* activeControl_ = nullptr;
  bool focusShown_ = false;  // the active control has had its GotFocus
  std::vector<std::unique_ptr<Control>> controls_;
};

}  // namespace quillet::ui
