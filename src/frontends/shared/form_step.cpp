#include "frontends/shared/form_step.h"

#include "ui/controls.h"
#include "ui/form.h"
#include "ui/ui_context.h"
#include "ui/user_input.h"
#include "vba/encoding.h"

namespace quillet::frontends {

using json = nlohmann::ordered_json;

namespace {

std::wstring W(const json& j) { return vba::FromUtf8(j.get<std::string>()); }

}  // namespace

void ApplyFormStep(ui::UiContext& context, const json& step) {
  if (!step.is_object() || !step.contains("form") || !step["form"].is_string())
    throw BadFormStep{"a form action names its \"form\""};
  ui::Form& form = ui::UserInput::FindForm(context, W(step["form"]));
  auto controlOf = [&](const json& name) -> ui::Control& { return ui::UserInput::FindControl(form, W(name)); };
  if (step.contains("set")) {
    for (const auto& [name, value] : step["set"].items()) ui::UserInput::Set(form, vba::FromUtf8(name), nlohmann::json(value));
  } else if (step.contains("click")) {
    ui::UserInput::Click(controlOf(step["click"]));
  } else if (step.contains("dblclick")) {
    ui::UserInput::DblClick(controlOf(step["dblclick"]));
  } else if (step.contains("close")) {
    ui::UserInput::CloseForm(form);
  } else if (step.contains("clickOutside")) {
    ui::UserInput::PressOutside(form);
  } else if (step.contains("leave")) {
    ui::UserInput::Leave(form);
  } else if (step.contains("focus")) {
    ui::UserInput::Focus(controlOf(step["focus"]));
  } else if (step.contains("key")) {
    const json& k = step["key"];
    ui::Control& c = controlOf(k.at("control"));
    if (k.contains("keyAscii")) ui::UserInput::Key(c, k["keyAscii"].get<int>());
    else ui::UserInput::KeyDown(c, k.at("keyCode").get<int>(), k.value("shift", 0));
  } else if (step.contains("caret")) {
    const json& k = step["caret"];
    ui::UserInput::Caret(controlOf(k.at("control")), k.at("start").get<long>(), k.value("length", 0L));
  } else if (step.contains("drag")) {
    // {"control": "imgSplitter", "by": [dx, dy]}: the control dragged by so many twips.
    const json& d = step["drag"];
    if (!d.is_object() || !d.contains("control") || !d["control"].is_string())
      throw BadFormStep{"a drag names its \"control\""};
    const json& by = d.contains("by") ? d["by"] : json();
    if (!by.is_array() || by.size() != 2 || !by[0].is_number_integer() || !by[1].is_number_integer())
      throw BadFormStep{"a drag moves \"by\": [dx, dy] in twips"};
    ui::UserInput::Drag(controlOf(d["control"]), by[0].get<long>(), by[1].get<long>());
  } else if (step.contains("node") || step.contains("expand") || step.contains("collapse")) {
    // "node" clicks the node; "expand" and "collapse" press its button.
    const char* action = step.contains("node") ? "node" : step.contains("expand") ? "expand" : "collapse";
    for (const auto& [name, key] : step[action].items()) {
      auto* tree = dynamic_cast<ui::TreeView*>(&controlOf(json(name)));
      if (!tree) throw BadFormStep{name + " is no tree view"};
      if (std::string_view(action) == "node") ui::UserInput::ClickNode(*tree, W(key));
      else ui::UserInput::ExpandNode(*tree, W(key), std::string_view(action) == "expand");
    }
  } else if (step.contains("item")) {
    for (const auto& [name, key] : step["item"].items()) ui::UserInput::ClickItem(controlOf(json(name)), W(key));
  } else if (step.contains("label")) {
    for (const auto& [name, text] : step["label"].items()) {
      auto* view = dynamic_cast<ui::ListView*>(&controlOf(json(name)));
      if (!view) throw BadFormStep{name + " is no list view"};
      ui::UserInput::EditLabel(*view, W(text));
    }
  } else if (step.contains("tab")) {
    for (const auto& [name, index] : step["tab"].items()) {
      auto* strip = dynamic_cast<ui::TabStrip*>(&controlOf(json(name)));
      if (!strip) throw BadFormStep{name + " is no tab strip"};
      ui::UserInput::ChooseTab(*strip, index.get<int>());
    }
  } else {
    throw BadFormStep{
        "a form action sets, clicks, dblclicks, clicks outside, closes, leaves, focuses, keys, carets, drags, nodes, "
        "expands, collapses, items, labels or tabs"};
  }
}

}  // namespace quillet::frontends
