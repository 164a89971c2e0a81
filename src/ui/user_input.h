#pragma once
// What the user does to forms: typing, choosing, clicking, keys, caret moves, tree nodes,
// list items and tabs. The script runner's form steps and the studio both come through
// here, so a dialog behaves the same whoever drives it.
//
// Each action first checks that a user could do it: the form is loaded and showing and
// not behind a modal form, the control is enabled and visible (and not locked, for
// typing). What a user could not do throws InputRefused. A control that takes the focus
// gets it first, as a user's click or typing would give it; when the Validate of the
// control that has the focus cancels, the focus stays there and the action returns false
// without effect, as the user's input would be lost.
#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillet::ui {

class Control;
class EditControl;
class Form;
class ListView;
class TabStrip;
class TreeView;
class UiContext;

class InputRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class UserInput {
 public:
  // The loaded form of that name; InputRefused when none is loaded.
  static Form& FindForm(UiContext& context, std::wstring_view name);
  // The control of that name ("txtName", "txtPS(0)"); InputRefused when there is none.
  static Control& FindControl(Form& form, std::wstring_view name);

  // Gives a control a value as the user would:
  // * text box, rich text box: the text is typed over the old one (Change once);
  // * combo box: a text that equals an entry chooses it (Click when the choice changes);
  //   any other text is typed into a drop-down combo and refused by a drop-down list;
  //   a number chooses by index;
  // * list box: a text chooses the entry of that text, a number by index (Click when the
  //   choice changes); an array of texts or indexes is the selection of a multi-select
  //   list;
  // * check box: 0, 1, 2 or false/true (Click when it changes);
  // * option button: true chooses it (Click);
  // * tab strip: a 1-based number, or a tab's key or caption, chooses the tab.
  static bool Set(Control& control, const nlohmann::json& value);
  static bool Set(Form& form, std::wstring_view control, const nlohmann::json& value) {
    return Set(FindControl(form, control), value);
  }

  // A mouse click: the focus comes (for controls that take it), then the control's
  // click: a check box toggles, an option button is chosen, anything raises Click.
  static bool Click(Control& control);
  // A double click: the focus comes, then DblClick.
  static bool DblClick(Control& control);
  // The user moves into the control (a click into it, or Tab).
  static bool Focus(Control& control);

  // A key stroke with a character (13 Enter, 27 Escape, 8 Backspace, 9 Tab, 32 blank,
  // letters): Enter presses the focused button, else the form's Default button unless a
  // multi-line box has the focus; Escape presses the Cancel button; Tab moves to the next
  // tab stop, unless the control takes Tab as a key of its own. Otherwise KeyDown,
  // KeyPress (form first with KeyPreview; 0 cancels), the key's own action (a character is
  // typed at the selection), KeyUp.
  static bool Key(Control& control, int keyAscii);
  // A key without a character (arrows, Delete, Home, End, F-keys), with the shift mask:
  // KeyDown (0 cancels), the key's own action, KeyUp. Tab and Shift+Tab move the focus on
  // and back, unless the control takes Tab: then they are keys like these.
  static bool KeyDown(Control& control, int keyCode, int shift = 0);

  // A drag with the left button: MouseDown at the control's middle, one MouseMove by dx,
  // dy twips, MouseUp there. Coordinates are the control's own, as the events give them.
  static bool Drag(Control& control, long dx, long dy);

  // Moves the caret or selection of a text control (SelStart, SelLength).
  static bool Caret(Control& control, long start, long length);

  // Clicks the tree node with that key: it is selected and NodeClick is raised.
  static bool ClickNode(TreeView& tree, std::wstring_view key);
  // Double-clicks it: NodeClick, its expansion toggles (Expand/Collapse) when it has
  // children, then DblClick.
  static bool DblClickNode(TreeView& tree, std::wstring_view key);
  // Opens or closes the node with its button (Expand/Collapse); a node without children
  // has no button and is refused.
  static bool ExpandNode(TreeView& tree, std::wstring_view key, bool expand);

  // Clicks an item: a list view item by key (else by text; ItemClick), a list or combo
  // box entry by text (Click when the choice changes), a toolbar button by key
  // (ButtonClick).
  static bool ClickItem(Control& control, std::wstring_view keyOrText);
  // Clicks a list view column header by key or caption (ColumnClick).
  static bool ClickColumn(ListView& view, std::wstring_view keyOrText);
  // Ends the label edit that the list view opened with the user's text.
  static bool EditLabel(ListView& view, std::wstring_view text);
  // Chooses the tab of that 1-based index.
  static bool ChooseTab(TabStrip& strip, int index);

  // The user closes the form with its close box: QueryUnload with vbFormControlMenu.
  static bool CloseForm(Form& form);

  // A mouse press outside the form's area. Only a form that holds the mouse capture sees
  // it (a pop-up closes on it); any other form's press would land on the window beneath.
  static bool PressOutside(Form& form);
  // The focus leaves the active form for a window outside the program: the control that
  // has the focus gets LostFocus, and has the focus again when the user comes back.
  static bool Leave(Form& form);
};

}  // namespace quillet::ui
