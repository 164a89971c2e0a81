// What the page can do, each carried out on the engine's thread: open a component, move
// the caret, type, click the bar, run a statement command, act on a form, answer what is
// asked, save.
#include "frontends/shared/bar_state.h"
#include "frontends/shared/form_step.h"
#include "frontends/studio/engine_impl.h"
#include "generators/quillet.h"
#include "hostmodel/keystrokes.h"
#include "vba/encoding.h"

namespace quillet::studio {
namespace {

std::wstring W(const json& j) {
  if (!j.is_string()) throw RequestError{400, "a text was expected, not " + j.dump()};
  return vba::FromUtf8(j.get<std::string>());
}

// The keys the code pane and the Immediate window understand, by the page's names.
host::Key KeyOf(const json& k) {
  host::Key key;
  if (k.is_string()) {
    std::wstring text = W(k);
    if (text.size() != 1) throw RequestError{400, "a key is one character or an object"};
    key.ch = text[0];
    return key;
  }
  if (!k.is_object()) throw RequestError{400, "a key is one character or an object"};
  if (k.contains("ch")) {
    std::wstring text = W(k["ch"]);
    if (text.size() != 1) throw RequestError{400, "\"ch\" is one character"};
    key.ch = text[0];
  } else {
    key.name = W(k.at("name"));
  }
  key.shift = k.value("shift", false);
  key.control = k.value("control", false);
  key.alt = k.value("alt", false);
  return key;
}

}  // namespace

std::shared_ptr<host::MemoryComponent> StudioEngine::Impl::ComponentOf(const json& action) const {
  std::wstring name = W(action.at("component"));
  for (const auto& p : vbe->Projects()) {
    if (action.contains("project") && p->Name() != W(action["project"])) continue;
    if (auto c = p->Component(name)) return c;
  }
  throw RequestError{404, "there is no component named " + action["component"].get<std::string>()};
}

json StudioEngine::Impl::Dispatch(const json& action) {
  if (!action.is_object() || !action.contains("do") || !action["do"].is_string())
    throw RequestError{400, "an action is an object with \"do\""};
  const std::string kind = action["do"];
  const bool modalWaits = ui->TopModal() != nullptr;
  auto editorAction = [&] {
    if (modalWaits) throw RequestError{409, "a modal form waits for the user"};
  };

  if (kind == "answer") {
    // The page answers the box being asked; a path must lie in the allowed folders.
    const json& what = asks.back()->what;
    json value = action.contains("value") ? action["value"] : json(nullptr);
    std::string askKind = what["kind"];
    if (askKind == "msgbox") {
      if (!value.is_string()) throw RequestError{400, "a message box is answered with a button's name"};
      bool offered = false;
      for (const auto& b : what["buttons"]) offered = offered || b == value;
      if (!offered) throw RequestError{400, value.dump() + " is not a button of the message box"};
    } else if (!value.is_null()) {
      if (!value.is_string()) throw RequestError{400, "the answer is a text or null"};
      if (askKind != "inputbox" && !AllowedIn(*this, W(value)))
        throw RequestError{403, "that path is outside the folders the studio may open"};
    }
    asks.back()->answer = value;
    return nullptr;
  }
  if (kind == "open") {
    editorAction();
    vbe->ActivateComponent(ComponentOf(action));
    return nullptr;
  }
  if (kind == "select") {
    editorAction();
    auto pane = std::static_pointer_cast<host::MemoryCodePane>(vbe->ActiveCodePane());
    if (!pane) throw RequestError{409, "no code pane is open"};
    const json& s = action.at("selection");
    if (!s.is_array() || s.size() != 4) throw RequestError{400, "a selection is [startLine, startColumn, endLine, endColumn]"};
    vbe->ActivateWindow(std::static_pointer_cast<host::MemoryWindow>(pane->Window()));
    pane->SetSelection({s[0], s[1], s[2], s[3]});
    return nullptr;
  }
  if (kind == "keys") {
    editorAction();
    std::shared_ptr<host::MemoryWindow> window;
    if (action.value("target", std::string("code")) == "immediate") {
      window = vbe->WindowOfType(host::kImmediateWindow);
    } else {
      auto pane = vbe->ActiveCodePane();
      if (!pane) throw RequestError{409, "no code pane is open"};
      window = std::static_pointer_cast<host::MemoryWindow>(pane->Window());
    }
    if (!window) throw RequestError{409, "that window is not open"};
    vbe->ActivateWindow(window);
    if (action.contains("text"))
      for (wchar_t c : W(action["text"])) {
        host::Key key;
        if (c == L'\n') key.name = L"ENTER";
        else if (c != L'\r') key.ch = c;
        else continue;
        vbe->ApplyKey(window->HWnd(), key);
      }
    if (action.contains("keys"))
      for (const auto& k : action["keys"]) vbe->ApplyKey(window->HWnd(), KeyOf(k));
    return nullptr;
  }
  if (kind == "click") {
    editorAction();
    auto* bar = frontends::AddInBar(*vbe);
    if (!bar) throw RequestError{409, "the add-in has no command bar"};
    std::shared_ptr<host::MemoryControl> control;
    if (action.contains("handler")) control = std::dynamic_pointer_cast<host::MemoryControl>(connect->ControlOf(W(action["handler"])));
    else control = frontends::ControlAt(*bar, action.at("path").get<std::vector<int>>());
    if (!control) throw RequestError{404, "no control of the command bar is there"};
    std::string blocked = frontends::WhyNotClickable(*bar, *control);
    if (!blocked.empty()) throw RequestError{409, "that control cannot be clicked: " + blocked};
    if (control->Type() == host::kControlDropdown) {
      std::wstring text = W(action.at("text"));
      long index = 0;
      for (long i = 1; i <= control->ListCount(); ++i)
        if (control->List(i) == text) index = i;
      if (index == 0) throw RequestError{400, "the dropdown has no entry " + action["text"].dump()};
      AsEngine([&] { control->Choose(index); });
    } else {
      AsEngine([&] { control->Execute(); });
    }
    platform->DoEvents();
    return nullptr;
  }
  if (kind == "command") {
    editorAction();
    std::wstring command = W(action.at("command"));
    std::wstring argument = action.contains("argument") ? W(action["argument"]) : std::wstring();
    AsEngine([&] { generators::QuilletHandle(*session, command, argument); });
    platform->DoEvents();
    return nullptr;
  }
  if (kind == "form") {
    try {
      frontends::ApplyFormStep(*ui, action);
    } catch (const frontends::BadFormStep& e) {
      throw RequestError{400, e.what()};
    }
    platform->DoEvents();
    return nullptr;
  }
  if (kind == "save") {
    editorAction();
    for (const auto& p : vbe->Projects()) {
      if (action.contains("project") && p->Name() != W(action["project"])) continue;
      if (p->folder.empty()) continue;
      vbe->SaveProject(p);  // every module prepared first: all or nothing
      MarkSaved(*p);
    }
    return nullptr;
  }
  if (kind == "dismiss") {
    // The page has shown the notices it was given.
    notices.clear();
    return nullptr;
  }
  throw RequestError{400, "unknown action \"" + kind + "\""};
}

}  // namespace quillet::studio
