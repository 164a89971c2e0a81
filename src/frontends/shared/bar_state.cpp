#include "frontends/shared/bar_state.h"

#include <cstdint>
#include <functional>

#include "vba/encoding.h"

namespace quillet::frontends {

using nlohmann::json;

host::MemoryCommandBar* AddInBar(host::MemoryVBE& vbe) {
  return static_cast<host::MemoryCommandBars&>(vbe.CommandBars()).Bar(L"Quillet").get();
}

json DescribeBar(const host::MemoryCommandBar& bar) {
  std::function<json(const host::MemoryControls&, json)> dump = [&](const host::MemoryControls& controls, json path) {
    json list = json::array();
    int index = 0;
    for (const auto& c : controls.All()) {
      json entry;
      json here = path;
      here.push_back(++index);
      entry["path"] = here;
      std::wstring id = c->Parameter();
      entry["id"] = id.empty() ? json(c->Id()) : json(vba::ToUtf8(id));
      entry["caption"] = vba::ToUtf8(c->Caption());
      entry["type"] = c->Type();
      entry["style"] = c->Style();
      entry["visible"] = c->Visible();
      entry["enabled"] = c->Enabled();
      if (c->BeginGroup()) entry["beginGroup"] = true;
      if (!c->Picture().empty()) entry["picture"] = vba::ToUtf8(c->Picture());
      if (!c->TooltipText().empty()) entry["toolTip"] = vba::ToUtf8(c->TooltipText());
      if (c->Type() == host::kControlDropdown) {
        json items = json::array();
        for (long i = 1; i <= c->ListCount(); ++i) items.push_back(vba::ToUtf8(c->List(i)));
        entry["list"] = items;
        entry["text"] = vba::ToUtf8(c->Text());
      }
      if (auto* children = static_cast<host::MemoryControls*>(c->Controls()))
        entry["controls"] = dump(*children, here);
      list.push_back(entry);
    }
    return list;
  };
  auto& items = const_cast<host::MemoryCommandBar&>(bar).Items();
  return {{"controls", dump(items, json::array())}, {"enabled", bar.Enabled()}, {"visible", bar.Visible()}};
}

long long BarChanges(const host::MemoryCommandBar& bar) {
  std::hash<std::wstring> text;
  long long key = 1 + (bar.Visible() ? 2 : 0) + (bar.Enabled() ? 4 : 0);
  std::function<void(const host::MemoryControls&)> walk = [&](const host::MemoryControls& controls) {
    key = key * 7 + static_cast<long long>(controls.All().size());
    for (const auto& c : controls.All()) {
      // Visible and enabled changes are counted by the control; texts are hashed.
      key = key * 31 + c->Writes() + c->ListCount() + static_cast<long long>(reinterpret_cast<std::uintptr_t>(c.get()) % 1021);
      key = key * 31 + static_cast<long long>(text(c->Caption()) ^ (text(c->Text()) << 1) ^ (text(c->Picture()) << 2) ^
                                              (text(c->TooltipText()) << 3)) + c->BeginGroup() + c->Style() * 3;
      if (auto* children = static_cast<host::MemoryControls*>(c->Controls())) walk(*children);
    }
  };
  walk(const_cast<host::MemoryCommandBar&>(bar).Items());
  return key;
}

std::shared_ptr<host::MemoryControl> ControlAt(const host::MemoryCommandBar& bar, const std::vector<int>& path) {
  const host::MemoryControls* controls = &const_cast<host::MemoryCommandBar&>(bar).Items();
  std::shared_ptr<host::MemoryControl> found;
  for (int index : path) {
    if (!controls || index < 1 || index > static_cast<int>(controls->All().size())) return nullptr;
    found = controls->All()[index - 1];
    controls = static_cast<host::MemoryControls*>(found->Controls());
  }
  return found;
}

std::string WhyNotClickable(const host::MemoryCommandBar& bar, const host::MemoryControl& control) {
  // The path from the bar to the control: each step on it must be shown and enabled.
  std::vector<const host::MemoryControl*> path;
  std::function<bool(const host::MemoryControls&)> find = [&](const host::MemoryControls& controls) {
    for (const auto& c : controls.All()) {
      path.push_back(c.get());
      if (c.get() == &control) return true;
      if (auto* children = static_cast<host::MemoryControls*>(c->Controls()); children && find(*children)) return true;
      path.pop_back();
    }
    return false;
  };
  if (!find(const_cast<host::MemoryCommandBar&>(bar).Items())) return "";
  if (!bar.Visible() || !bar.Enabled()) return "the command bar is disabled";
  for (const auto* c : path) {
    if (!c->Visible()) return vba::ToUtf8(c->Caption()) + " is hidden";
    if (!c->Enabled()) return vba::ToUtf8(c->Caption()) + " is disabled";
  }
  return "";
}

}  // namespace quillet::frontends
