#include "ui/user_input.h"

#include "ui/buttons.h"
#include "ui/form.h"
#include "ui/list_controls.h"
#include "ui/list_view.h"
#include "ui/rich_text_box.h"
#include "ui/tab_strip.h"
#include "ui/text_box.h"
#include "ui/toolbar.h"
#include "ui/tree_view.h"
#include "vba/encoding.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {

[[noreturn]] void Refuse(const std::wstring& why) { throw InputRefused(vba::ToUtf8(why)); }

void CheckForm(const Form& form) {
  if (!form.Loaded()) Refuse(L"form '" + form.Name() + L"' is not loaded");
  if (!form.Visible()) Refuse(L"form '" + form.Name() + L"' is not showing");
  Form* modal = form.Context().TopModal();
  if (modal && modal != &form)
    Refuse(L"form '" + form.Name() + L"' is behind the modal form '" + modal->Name() + L"'");
}

void Check(const Control& control) {
  CheckForm(control.Parent());
  std::wstring name = control.Parent().Name() + L"." + control.FullName();
  if (!control.IsEffectivelyVisible()) Refuse(name + L" is not visible");
  if (!control.IsEffectivelyEnabled()) Refuse(name + L" is disabled");
}

// The key code and shift state that the key of a character has on a US keyboard.
std::pair<int, int> KeyCodeOf(int keyAscii) {
  if (keyAscii >= 'a' && keyAscii <= 'z') return {keyAscii - 'a' + 'A', 0};
  if (keyAscii >= 'A' && keyAscii <= 'Z') return {keyAscii, vbShiftMask};
  if (keyAscii >= '0' && keyAscii <= '9') return {keyAscii, 0};
  if (keyAscii < 32) return {keyAscii, 0};  // 8, 9, 13, 27 are their own key codes
  if (keyAscii == ' ') return {vbKeySpace, 0};
  static const std::wstring_view plain = L";=,-./`[\\]'";
  static const std::wstring_view shifted = L":+<_>?~{|}\"";
  static const int codes[] = {186, 187, 188, 189, 190, 191, 192, 219, 220, 221, 222};
  static const std::wstring_view shiftedDigits = L")!@#$%^&*(";
  wchar_t c = static_cast<wchar_t>(keyAscii);
  if (auto i = plain.find(c); i != std::wstring_view::npos) return {codes[i], 0};
  if (auto i = shifted.find(c); i != std::wstring_view::npos) return {codes[i], vbShiftMask};
  if (auto i = shiftedDigits.find(c); i != std::wstring_view::npos) return {'0' + static_cast<int>(i), vbShiftMask};
  return {0, 0};
}

bool IsMultiLineBox(const Control& c) {
  if (auto* t = dynamic_cast<const TextBox*>(&c)) return t->MultiLine();
  return dynamic_cast<const RichTextBox*>(&c) != nullptr;
}

std::wstring Text(const nlohmann::json& value) { return vba::FromUtf8(value.get<std::string>()); }

}  // namespace

Form& UserInput::FindForm(UiContext& context, std::wstring_view name) {
  Form* form = context.FindForm(name);
  if (!form) Refuse(L"no form '" + std::wstring(name) + L"' is loaded");
  return *form;
}

Control& UserInput::FindControl(Form& form, std::wstring_view name) {
  Control* control = form.Find(name);
  if (!control) Refuse(L"form '" + form.Name() + L"' has no control '" + std::wstring(name) + L"'");
  return *control;
}

bool UserInput::Focus(Control& control) {
  Check(control);
  if (!control.TakesFocus()) return true;
  return control.Parent().MoveFocus(control);
}

bool UserInput::Click(Control& control) {
  if (!Focus(control)) return false;
  control.UserClick();
  return true;
}

bool UserInput::DblClick(Control& control) {
  if (!Focus(control)) return false;
  control.Raise(control.OnDblClick);
  return true;
}

bool UserInput::Key(Control& control, int keyAscii) {
  if (!Focus(control)) return false;
  Form& form = control.Parent();
  if (keyAscii == vbKeyReturn) {
    if (dynamic_cast<CommandButton*>(&control)) {
      control.Raise(control.OnClick);
      return true;
    }
    CommandButton* def = form.DefaultButton();
    if (def && !IsMultiLineBox(control)) {
      def->Raise(def->OnClick);
      return true;
    }
  }
  if (keyAscii == vbKeyEscape) {
    if (CommandButton* cancel = form.CancelButton()) {
      cancel->Raise(cancel->OnClick);
      return true;
    }
  }
  if (keyAscii == vbKeyTab && !control.TakesTab()) {
    // A control alone on its form gets the Tab as a key of its own.
    if (Control* next = form.NextTabStop(&control)) return form.MoveFocus(*next);
  }

  auto [keyCode, shift] = KeyCodeOf(keyAscii);
  int code = keyCode;
  if (form.KeyPreview()) form.Raise(form.OnKeyDown, code, shift);
  if (code != 0) control.Raise(control.OnKeyDown, code, shift);
  if (!form.Loaded()) return true;

  int key = keyAscii;
  if (form.KeyPreview()) form.Raise(form.OnKeyPress, key);
  if (key != 0) control.Raise(control.OnKeyPress, key);
  if (!form.Loaded()) return true;
  if (key != 0) control.KeyPressDefault(key);
  if (!form.Loaded()) return true;

  code = keyCode;
  if (form.KeyPreview()) form.Raise(form.OnKeyUp, code, shift);
  if (code != 0) control.Raise(control.OnKeyUp, code, shift);
  return true;
}

bool UserInput::KeyDown(Control& control, int keyCode, int shift) {
  if (keyCode == vbKeyTab && !control.TakesTab()) {
    if (!Focus(control)) return false;
    Form& form = control.Parent();
    Control* next = form.NextTabStop(&control, (shift & vbShiftMask) != 0);
    return !next || form.MoveFocus(*next);
  }
  if ((keyCode == vbKeyReturn || keyCode == vbKeyEscape || keyCode == vbKeyBack || keyCode == vbKeySpace) &&
      shift == 0)
    return Key(control, keyCode);

  if (!Focus(control)) return false;
  Form& form = control.Parent();
  int code = keyCode;
  if (form.KeyPreview()) form.Raise(form.OnKeyDown, code, shift);
  if (code != 0) control.Raise(control.OnKeyDown, code, shift);
  if (!form.Loaded()) return true;
  if (code != 0) control.KeyDownDefault(code, shift);
  if (!form.Loaded()) return true;
  code = keyCode;
  if (form.KeyPreview()) form.Raise(form.OnKeyUp, code, shift);
  if (code != 0) control.Raise(control.OnKeyUp, code, shift);
  return true;
}

bool UserInput::Drag(Control& control, long dx, long dy) {
  if (!Focus(control)) return false;
  // Taken at its middle, as a user takes a bar.
  const long x = control.Width() / 2, y = control.Height() / 2;
  Form& form = control.Parent();
  control.Raise(control.OnMouseDown, static_cast<int>(vbLeftButton), 0, x, y);
  if (!form.Loaded()) return true;
  control.Raise(control.OnMouseMove, static_cast<int>(vbLeftButton), 0, x + dx, y + dy);
  if (!form.Loaded()) return true;
  control.Raise(control.OnMouseUp, static_cast<int>(vbLeftButton), 0, x + dx, y + dy);
  return true;
}

bool UserInput::Caret(Control& control, long start, long length) {
  auto* edit = dynamic_cast<EditControl*>(&control);
  if (!edit) Refuse(control.FullName() + L" has no caret");
  if (!Focus(control)) return false;
  edit->Select(start < 0 ? 0 : start, length < 0 ? 0 : length);
  return true;
}

bool UserInput::Set(Control& control, const nlohmann::json& value) {
  Check(control);
  std::wstring name = control.Parent().Name() + L"." + control.FullName();

  if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    int index = -1;
    std::wstring text;
    if (value.is_number_integer()) {
      index = value.get<int>();
      if (index < -1 || index >= combo->ListCount()) Refuse(name + L" has no entry " + std::to_wstring(index));
    } else if (value.is_string()) {
      text = Text(value);
      index = combo->FindStringExact(text);
      bool typeable = combo->Style() != vbComboDropdownList && !combo->Locked();
      if (index < 0 && !typeable) Refuse(name + L" has no entry '" + text + L"'");
    } else {
      Refuse(name + L" takes a text or an index");
    }
    if (!Focus(control)) return false;
    if (index >= 0 || !value.is_string()) combo->SetListIndex(index);
    else combo->TypeText(text);
    return true;
  }
  if (auto* edit = dynamic_cast<EditControl*>(&control)) {
    if (!value.is_string()) Refuse(name + L" takes a text");
    if (edit->Locked()) Refuse(name + L" is locked");
    if (!Focus(control)) return false;
    edit->TypeText(Text(value));
    return true;
  }
  if (auto* list = dynamic_cast<ListBox*>(&control)) {
    auto indexOf = [&](const nlohmann::json& v) {
      int i = v.is_number_integer() ? v.get<int>() : v.is_string() ? list->FindStringExact(Text(v)) : -2;
      if (i < 0 || i >= list->ListCount()) Refuse(name + L" has no entry " + vba::FromUtf8(v.dump()));
      return i;
    };
    std::vector<bool> wanted(list->ListCount(), false);
    int index = -1;
    if (value.is_array()) {
      for (const auto& v : value) wanted[indexOf(v)] = true;
    } else {
      index = indexOf(value);
    }
    if (!Focus(control)) return false;
    if (value.is_array()) {
      for (int i = 0; i < list->ListCount(); ++i) list->SetSelected(i, wanted[i]);
    } else {
      list->SetListIndex(index);
    }
    return true;
  }
  if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    int v = value.is_boolean() ? (value.get<bool>() ? 1 : 0) : value.is_number_integer() ? value.get<int>() : -1;
    if (v < 0 || v > 2) Refuse(name + L" takes 0, 1 or 2");
    if (!Focus(control)) return false;
    check->SetValue(v);
    return true;
  }
  if (dynamic_cast<OptionButton*>(&control)) {
    bool on = value.is_boolean() ? value.get<bool>() : value.is_number_integer() && value.get<int>() != 0;
    if (!on) Refuse(name + L" can only be chosen, not cleared");
    return Click(control);
  }
  if (auto* strip = dynamic_cast<TabStrip*>(&control)) {
    if (value.is_number_integer()) return ChooseTab(*strip, value.get<int>());
    if (!value.is_string()) Refuse(name + L" takes a tab number, key or caption");
    std::wstring text = Text(value);
    Tab* tab = strip->Tabs().Find(text);
    for (int i = 1; !tab && i <= strip->Tabs().Count(); ++i)
      if (vba::EqualsText(strip->Tabs().Item(i).Caption(), text)) tab = &strip->Tabs().Item(i);
    if (!tab) Refuse(name + L" has no tab '" + text + L"'");
    return ChooseTab(*strip, tab->Index());
  }
  Refuse(name + L" (" + vba::FromUtf8(control.Kind()) + L") takes no value");
}

bool UserInput::ClickNode(TreeView& tree, std::wstring_view key) {
  Check(tree);
  Node* node = tree.Nodes().Find(key);
  if (!node) Refuse(tree.FullName() + L" has no node '" + std::wstring(key) + L"'");
  if (!Focus(tree)) return false;
  tree.UserSelect(*node);
  return true;
}

bool UserInput::DblClickNode(TreeView& tree, std::wstring_view key) {
  if (!ClickNode(tree, key)) return false;
  if (Node* node = tree.Nodes().Find(key); node && node->Children() > 0) node->SetExpanded(!node->Expanded());
  tree.Raise(tree.OnDblClick);
  return true;
}

bool UserInput::ExpandNode(TreeView& tree, std::wstring_view key, bool expand) {
  Check(tree);
  Node* node = tree.Nodes().Find(key);
  if (!node) Refuse(tree.FullName() + L" has no node '" + std::wstring(key) + L"'");
  // A node without children shows no button to open or close it.
  if (node->Children() == 0) Refuse(tree.FullName() + L" node '" + std::wstring(key) + L"' has no children");
  if (!Focus(tree)) return false;
  node->SetExpanded(expand);
  return true;
}

bool UserInput::ClickItem(Control& control, std::wstring_view keyOrText) {
  Check(control);
  std::wstring what(keyOrText);
  if (auto* view = dynamic_cast<ListView*>(&control)) {
    ListItem* item = view->Items().Find(keyOrText);
    for (int i = 1; !item && i <= view->Items().Count(); ++i)
      if (vba::EqualsText(view->Items().Item(i).Text(), keyOrText)) item = &view->Items().Item(i);
    if (!item) Refuse(control.FullName() + L" has no item '" + what + L"'");
    if (!Focus(control)) return false;
    view->UserSelect(*item);
    return true;
  }
  if (auto* bar = dynamic_cast<Toolbar*>(&control)) {
    ToolbarButton* button = bar->Buttons().Find(keyOrText);
    if (!button || !button->Visible()) Refuse(control.FullName() + L" has no button '" + what + L"'");
    if (!button->Enabled()) Refuse(control.FullName() + L" button '" + what + L"' is disabled");
    bar->Press(*button);
    return true;
  }
  if (dynamic_cast<ListBox*>(&control) || dynamic_cast<ComboBox*>(&control)) {
    auto* combo = dynamic_cast<ComboBox*>(&control);
    int i = combo ? combo->FindStringExact(keyOrText) : dynamic_cast<ListBox&>(control).FindStringExact(keyOrText);
    if (i < 0) Refuse(control.FullName() + L" has no entry '" + what + L"'");
    return Set(control, i);
  }
  Refuse(control.FullName() + L" has no items");
}

bool UserInput::ClickColumn(ListView& view, std::wstring_view keyOrText) {
  Check(view);
  ColumnHeader* column = view.Columns().Find(keyOrText);
  for (int i = 1; !column && i <= view.Columns().Count(); ++i)
    if (vba::EqualsText(view.Columns().Item(i).Text(), keyOrText)) column = &view.Columns().Item(i);
  if (!column) Refuse(view.FullName() + L" has no column '" + std::wstring(keyOrText) + L"'");
  view.Raise(view.OnColumnClick, *column);
  return true;
}

bool UserInput::EditLabel(ListView& view, std::wstring_view text) {
  Check(view);
  if (!view.EditingItem()) Refuse(view.FullName() + L" has no label open for editing");
  return view.FinishLabelEdit(std::wstring(text));
}

bool UserInput::ChooseTab(TabStrip& strip, int index) {
  Check(strip);
  if (index < 1 || index > strip.Tabs().Count())
    Refuse(strip.FullName() + L" has no tab " + std::to_wstring(index));
  if (!Focus(strip)) return false;
  strip.SetSelectedItem(strip.Tabs().Item(index));
  return true;
}

bool UserInput::CloseForm(Form& form) {
  CheckForm(form);
  return form.Unload(vbFormControlMenu);
}

bool UserInput::PressOutside(Form& form) {
  CheckForm(form);
  if (form.Context().Capture() != &form)
    Refuse(L"form '" + form.Name() + L"' does not hold the mouse: a press outside it lands on the window beneath");
  return form.Context().PressOutsideCapture();
}

bool UserInput::Leave(Form& form) {
  CheckForm(form);
  if (form.Context().ActiveForm() != &form) Refuse(L"form '" + form.Name() + L"' does not have the focus");
  if (Control* c = form.ActiveControl()) c->Raise(c->OnLostFocus);
  return true;
}

}  // namespace quillet::ui
