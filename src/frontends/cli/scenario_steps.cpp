// The steps of a scenario: what the host, the user and the clock do.
#include <map>
#include <set>

#include "analysis/models_dump.h"
#include "codetools/view_html.h"
#include "frontends/cli/json_text.h"
#include "frontends/cli/scenario_check.h"
#include "frontends/cli/scenario_error.h"
#include "frontends/cli/scenario_runner.h"
#include "frontends/shared/bar_state.h"
#include "frontends/shared/form_step.h"
#include "generators/quillet.h"
#include "settings/items.h"
#include "hostmodel/keystrokes.h"
#include "kernel/errors.h"
#include "shell/menu_tree.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/user_input.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::cli {
namespace {

constexpr const wchar_t* kProgramFolderPath = L"C:\\Program Files\\Quillet\\";

const std::set<std::string> kAnswerSteps = {"msgbox", "inputbox", "file", "folder"};
const std::set<std::string> kEditorSteps = {"select",  "activate",        "window",    "selectComponent",
                                            "type",    "setCode",         "addComponent", "removeComponent",
                                            "addProject", "closeProject", "protect",   "clipboard",
                                            "saveProject", "addReference", "removeReference"};

}  // namespace

void ScenarioRunner::Execute(const json& step) {
  std::string label = StepLabel(next_ - 1);
  // The scenario was checked whole before the run: each step has exactly one action.
  std::string kind = ActionOf(step);
  if (kind == "form") return ExecuteFormStep(step);
  const json& value = step[kind];
  if (kAnswerSteps.count(kind))
    throw ScenarioError{label + ": this step answers a " + kind + ", but the engine is not asking for one"};
  // What the engine does on these steps it reports itself; an error that still comes out
  // is reported the same way, and the scenario goes on.
  auto engine = [&](auto&& body) {
    try {
      body();
    } catch (const vba::Error& e) {
      kernel::HandleError(*session_, e, 0, L"quillet script");
    } catch (const ui::InputRefused&) {
      throw;
    } catch (const std::exception& e) {
      kernel::HandleError(*session_, kernel::InternalError(e), 0, L"quillet script");
    }
  };
  if (kind == "connect") return Connect(0);
  if (kind == "disconnect") return Disconnect();
  if (kind == "tick") {
    if (!value.is_number_integer() || value.get<long long>() < 0)
      throw ScenarioError{label + ": \"tick\" takes a number of milliseconds"};
    return engine([&] { clock_.Advance(value.get<long long>()); });
  }
  if (kind == "click") {
    if (!connected_) throw ScenarioError{label + ": the add-in is not connected, so it has no command bar"};
    auto control = std::dynamic_pointer_cast<host::MemoryControl>(connect_->ControlOf(W(value)));
    if (!control) throw ScenarioError{label + ": no control of the command bar has the handler " + value.get<std::string>()};
    std::string blocked = WhyNotClickable(*control);
    if (!blocked.empty()) throw ScenarioError{label + ": the user cannot click " + value.get<std::string>() + ": " + blocked};
    if (control->Type() == host::kControlDropdown) {
      if (!step.contains("text")) throw ScenarioError{label + ": a dropdown is clicked with the \"text\" of an entry"};
      std::wstring text = W(step["text"]);
      long index = 0;
      for (long i = 1; i <= control->ListCount(); ++i)
        if (control->List(i) == text) index = i;
      if (index == 0) throw ScenarioError{label + ": the dropdown has no entry " + step["text"].dump()};
      return engine([&] { control->Choose(index); });
    }
    return engine([&] { control->Execute(); });
  }
  if (kind == "command") {
    std::wstring command = W(value);
    std::wstring argument = step.contains("argument") ? W(step["argument"]) : std::wstring();
    return engine([&] { generators::QuilletHandle(*session_, command, argument); });
  }
  if (kind == "convertToHtml") {
    // The Code Explorer's "Convert to HTML" on a module's node, or on a procedure's.
    json ref = value.is_object() && value.contains("project") ? json{{"project", value["project"]}, {"component", value.at("component")}}
               : value.is_object()                            ? value.at("component")
                                                              : value;
    auto component = Component(ref);
    std::wstring procedure = value.is_object() && value.contains("procedure") ? W(value["procedure"]) : L"";
    auto procKind = static_cast<host::ProcKind>(value.is_object() ? value.value("kind", 0) : 0);
    return engine([&] { codetools::Convert2HTML(*session_, component, procedure, procKind); });
  }
  if (kind == "dumpBar") return Record(DumpBar());
  if (kind == "dump" && value == "models") {
    // What the scans know of the active project: the models as they stand now.
    const auto& models = analysis::Models(*session_);
    return Record(json{{"models", models ? json::parse(analysis::ModelsDescribe(*models).dump()) : json(nullptr)}});
  }
  if (kind == "dump") throw ScenarioError{label + ": not available: the tool windows arrive later"};
  if (kEditorSteps.count(kind)) return ExecuteEditorStep(kind, value);
  throw ScenarioError{label + ": unknown step \"" + kind + "\""};
}

void ScenarioRunner::ExecuteFormStep(const json& step) {
  std::string label = StepLabel(next_ - 1);
  if (step.contains("dump")) {
    Record({{"dump", ui::UserInput::FindForm(*ui_, W(step["form"])).Describe()}});
    return;
  }
  try {
    frontends::ApplyFormStep(*ui_, step);
  } catch (const frontends::BadFormStep& e) {
    throw ScenarioError{label + ": " + e.what()};
  }
}

void ScenarioRunner::ExecuteEditorStep(const std::string& kind, const json& value) {
  std::string label = next_ > 0 ? StepLabel(next_ - 1) : std::string("\"active\"");
  if (kind == "select") {
    auto pane = vbe_->ActiveCodePane();
    if (!pane) throw ScenarioError{label + ": no code pane is open to select in"};
    if (!value.is_array() || value.size() != 4) throw ScenarioError{label + ": a selection is [l1, c1, l2, c2]"};
    pane->SetSelection({value[0], value[1], value[2], value[3]});
  } else if (kind == "activate") {
    vbe_->ActivateComponent(Component(value));
  } else if (kind == "window") {
    std::string which = value.get<std::string>();
    std::shared_ptr<host::MemoryWindow> w;
    if (which == "immediate") {
      w = vbe_->WindowOfType(host::kImmediateWindow);
    } else if (which == "projectExplorer") {
      w = vbe_->WindowOfType(host::kProjectWindow);
    } else if (which == "code") {
      auto pane = vbe_->ActiveCodePane();
      if (!pane) throw ScenarioError{label + ": no code window is open"};
      return pane->Show();
    } else if (which == "designer") {
      auto c = std::static_pointer_cast<host::MemoryComponent>(vbe_->SelectedVBComponent());
      if (!c || !c->DesignerWindow()) throw ScenarioError{label + ": the selected component has no designer"};
      return c->Activate();
    } else {
      throw ScenarioError{label + ": a window is \"code\", \"immediate\", \"designer\" or \"projectExplorer\""};
    }
    vbe_->ActivateWindow(w);
  } else if (kind == "selectComponent") {
    vbe_->SelectComponent(Component(value));
    vbe_->ActivateWindow(vbe_->WindowOfType(host::kProjectWindow));
  } else if (kind == "type") {
    for (wchar_t c : W(value)) {
      host::Key key;
      if (c == L'\n') key.name = L"ENTER";
      else if (c != L'\r') key.ch = c;
      else continue;
      vbe_->ApplyKey(platform_->GetFocus(), key);
    }
  } else if (kind == "setCode") {
    Component(value.at("component"))->Module()->SetAllLines(CodeLines(value.at("code")));
  } else if (kind == "addComponent") {
    auto project = value.contains("project") ? ProjectNamed(value["project"])
                                             : std::static_pointer_cast<host::MemoryProject>(vbe_->ActiveVBProject());
    if (!project) throw ScenarioError{label + ": there is no project to add to"};
    std::wstring name = W(value.at("name"));
    if (project->Component(name)) throw ScenarioError{label + ": a component " + U(name) + " exists already"};
    project->AddComponent(name, value.value("type", 1),
                          value.contains("code") ? CodeLines(value["code"]) : std::vector<std::wstring>{});
  } else if (kind == "removeComponent") {
    auto c = Component(value);
    c->Project()->Remove(c);
  } else if (kind == "addProject") {
    AddProject(value);
  } else if (kind == "closeProject") {
    vbe_->RemoveProject(ProjectNamed(value.get<std::string>()));
  } else if (kind == "protect") {
    ProjectNamed(value.at("project").get<std::string>())->SetProtection(value.value("locked", true) ? 1 : 0);
  } else if (kind == "saveProject") {
    // The user saves: the project goes back to the folder it came from, or to "folder".
    std::string name = value.is_object() ? value.at("project").get<std::string>() : value.get<std::string>();
    std::wstring folder = value.is_object() && value.contains("folder") ? W(value["folder"]) : std::wstring();
    vbe_->SaveProject(ProjectNamed(name), folder);
  } else if (kind == "addReference" || kind == "removeReference") {
    // The user ticks or unticks a library in the references of a project, the active one
    // unless the step names it.
    const bool add = kind == "addReference";
    auto project = value.is_object() && value.contains("project")
                       ? ProjectNamed(value["project"].get<std::string>())
                       : std::static_pointer_cast<host::MemoryProject>(vbe_->ActiveVBProject());
    if (!project) throw ScenarioError{label + ": there is no project to change the references of"};
    const std::wstring name = W(value.is_object() ? value.at("name") : value);
    std::vector<io::ReferenceInfo> refs;
    bool found = false;
    for (const auto& r : project->ReferenceList()) {
      const bool same = vba::EqualsText(r->Info().name, name);
      found = found || same;
      if (!(same && !add)) refs.push_back(r->Info());
    }
    if (add && found) throw ScenarioError{label + ": project " + U(project->Name()) + " has a reference " + U(name) + " already"};
    if (!add && !found) throw ScenarioError{label + ": project " + U(project->Name()) + " has no reference " + U(name)};
    if (add) refs.push_back(ReferenceOf(value));
    project->SetReferences(refs);
  } else if (kind == "clipboard") {
    platform_->ClipboardClear();
    platform_->ClipboardSetText(W(value));
  }
}

std::string ScenarioRunner::WhyNotClickable(const host::MemoryControl& control) const {
  auto* bar = frontends::AddInBar(*vbe_);
  if (!bar) return "there is no command bar";
  return frontends::WhyNotClickable(*bar, control);
}

json ScenarioRunner::DumpBar() const {
  auto bar = static_cast<host::MemoryCommandBars&>(vbe_->CommandBars()).Bar(L"Quillet");
  if (!bar) throw ScenarioError{StepLabel(next_ - 1) + ": there is no command bar \"Quillet\""};
  // Each control's click handler, from the command table through the add-in's hooks.
  std::map<const host::CommandBarControl*, std::string> handlers;
  std::function<void(const std::vector<shell::MenuNode>&)> collect = [&](const std::vector<shell::MenuNode>& nodes) {
    for (const auto& n : nodes) {
      if (!n.handler.empty())
        if (auto c = connect_->ControlOf(n.handler)) handlers[c.get()] = U(n.handler);
      collect(n.children);
    }
  };
  collect(shell::CommandBarTree());
  if (auto c = connect_->ControlOf(L"mnuhControlAdd")) handlers[c.get()] = "mnuhControlAdd";
  std::function<json(const host::MemoryControls&)> dump = [&](const host::MemoryControls& controls) {
    json list = json::array();
    for (const auto& c : controls.All()) {
      json entry;
      std::wstring id = c->Parameter();
      entry["id"] = id.empty() ? json(c->Id()) : json(std::stol(id));
      entry["caption"] = U(c->Caption());
      if (auto h = handlers.find(c.get()); h != handlers.end()) entry["handler"] = h->second;
      entry["type"] = c->Type();
      entry["visible"] = c->Visible();
      entry["enabled"] = c->Enabled();
      if (c->BeginGroup()) entry["beginGroup"] = true;
      if (!c->Picture().empty()) entry["picture"] = U(c->Picture());
      if (!c->TooltipText().empty()) entry["toolTip"] = U(c->TooltipText());
      if (c->Type() == host::kControlDropdown) {
        json items = json::array();
        for (long i = 1; i <= c->ListCount(); ++i) items.push_back(U(c->List(i)));
        entry["list"] = items;
        entry["text"] = U(c->Text());
      }
      if (auto* children = static_cast<host::MemoryControls*>(c->Controls())) entry["controls"] = dump(*children);
      list.push_back(entry);
    }
    return list;
  };
  return {{"bar", dump(bar->Items())}, {"barEnabled", bar->Enabled()}, {"barVisible", bar->Visible()}};
}

void ScenarioRunner::SetupSettings(bool firstRun, const json& values) {
  // Not a first run: the user has been here before and has a settings file.
  if (!firstRun) settings::WriteDefaultSettingsFiles(sandbox_.Files(), kProgramFolderPath, L"Developer");
  if (!values.is_object()) throw UnreadableInput{"\"settings\" is an object of keys and values"};
  std::vector<std::pair<std::wstring, std::wstring>> pairs;
  for (const auto& [key, value] : values.items())
    pairs.emplace_back(W(json(key)), value.is_string() ? W(value) : W(json(value.dump())));
  std::vector<std::wstring> unknown = settings::WriteSettingValues(sandbox_.Files(), kProgramFolderPath, pairs);
  if (!unknown.empty()) throw UnreadableInput{"\"settings\": no setting has the key \"" + U(unknown.front()) + "\""};
}

}  // namespace quillet::cli
