#include "frontends/cli/scenario_check.h"

#include <algorithm>
#include <vector>

#include "frontends/cli/scenario_error.h"

namespace quillet::cli {
namespace {

using Keys = std::vector<std::string>;

// The actions of a step outside forms, and those of a form step.
const Keys kActions = {"connect",  "disconnect",      "tick",         "click",           "command",
                       "select",   "activate",        "window",       "selectComponent", "type",
                       "setCode",  "addComponent",    "removeComponent", "addProject",   "closeProject",
                       "protect",  "clipboard",       "saveProject",  "msgbox",          "inputbox",
                       "file",     "folder",          "dumpBar",      "dump",            "form",
                       "convertToHtml", "addReference", "removeReference"};
const Keys kFormActions = {"set",  "click", "dblclick", "clickOutside", "key",   "caret",    "drag",
                           "node", "expand", "collapse", "item",        "label", "tab",     "dump",
                           "focus", "close", "leave"};
// How far a drag may go in one step, in twips either way: far beyond any screen.
constexpr std::int64_t kMaxDragTwips = 1000000;
const Keys kWindows = {"code", "immediate", "designer", "projectExplorer"};

bool Has(const Keys& keys, const std::string& k) { return std::find(keys.begin(), keys.end(), k) != keys.end(); }

std::string List(const Keys& keys) {
  std::string out;
  for (const auto& k : keys) out += (out.empty() ? "" : ", ") + k;
  return out;
}

[[noreturn]] void Refuse(const std::string& where, const std::string& why) { throw UnreadableInput{where + ": " + why}; }

std::string Member(const std::string& where, const std::string& key) {
  return where.empty() ? "\"" + key + "\"" : where + "." + key;
}

std::string Entry(const std::string& where, std::size_t i) { return where + "[" + std::to_string(i) + "]"; }

void Object(const json& v, const std::string& where, const Keys& known) {
  if (!v.is_object()) Refuse(where, "expected an object with the keys " + List(known));
  for (const auto& [k, _] : v.items())
    if (!Has(known, k)) Refuse(where, "unknown key \"" + k + "\" (known keys: " + List(known) + ")");
}

void Text(const json& v, const std::string& where) {
  if (!v.is_string()) Refuse(where, "expected a text");
}

void TextOrNull(const json& v, const std::string& where) {
  if (!v.is_string() && !v.is_null()) Refuse(where, "expected a text or null");
}

void Flag(const json& v, const std::string& where) {
  if (!v.is_boolean()) Refuse(where, "expected true or false");
}

void Integer(const json& v, const std::string& where, std::int64_t min, std::int64_t max) {
  bool ok = v.is_number_integer();
  if (ok && v.is_number_unsigned()) ok = v.get<std::uint64_t>() <= static_cast<std::uint64_t>(max);
  if (ok) ok = v.get<std::int64_t>() >= min && v.get<std::int64_t>() <= max;
  if (!ok) Refuse(where, "expected a whole number from " + std::to_string(min) + " to " + std::to_string(max));
}

void OneOf(const json& v, const std::string& where, const Keys& values) {
  if (!v.is_string() || !Has(values, v.get<std::string>())) Refuse(where, "expected one of " + List(values));
}

// An object of texts by name (files, for instance).
void TextMap(const json& v, const std::string& where) {
  if (!v.is_object()) Refuse(where, "expected an object of texts");
  for (const auto& [k, x] : v.items()) Text(x, Member(where, k));
}

// A value a user could type or choose: a text, a whole number or a truth value.
void Scalar(const json& v, const std::string& where) {
  if (v.is_string() || v.is_boolean()) return;
  Integer(v, where + " (a text, a whole number or true/false)", INT32_MIN, INT32_MAX);
}

void ScalarMap(const json& v, const std::string& where) {
  if (!v.is_object()) Refuse(where, "expected an object of values");
  for (const auto& [k, x] : v.items()) Scalar(x, Member(where, k));
}

void Code(const json& v, const std::string& where) {
  if (v.is_string()) return;
  if (!v.is_array()) Refuse(where, "expected a text or an array of lines");
  for (std::size_t i = 0; i < v.size(); ++i) Text(v[i], Entry(where, i));
}

void Selection(const json& v, const std::string& where) {
  if (!v.is_array() || v.size() != 4) Refuse(where, "expected [startLine, startColumn, endLine, endColumn]");
  for (std::size_t i = 0; i < 4; ++i) Integer(v[i], Entry(where, i), 1, i % 2 == 0 ? kMaxLine : kMaxColumn);
}

// "Module1" or {"project": "P2", "component": "Module1"}.
void ComponentRef(const json& v, const std::string& where) {
  if (v.is_string()) return;
  if (!v.is_object()) Refuse(where, "expected a component's name or {\"project\", \"component\"}");
  Object(v, where, {"project", "component"});
  if (!v.contains("project") || !v.contains("component")) Refuse(where, "expected both \"project\" and \"component\"");
  Text(v["project"], Member(where, "project"));
  Text(v["component"], Member(where, "component"));
}

void ComponentType(const json& v, const std::string& where) {
  if (!v.is_number_integer() || !(v == 1 || v == 2 || v == 3 || v == 100))
    Refuse(where, "expected a component type: 1, 2, 3 or 100");
}

void Component(const json& c, const std::string& where) {
  Object(c, where, {"name", "type", "code"});
  if (!c.contains("name")) Refuse(where, "a component needs a \"name\"");
  Text(c["name"], Member(where, "name"));
  if (c.contains("type")) ComponentType(c["type"], Member(where, "type"));
  if (c.contains("code")) Code(c["code"], Member(where, "code"));
}

// A reference of a project: {"name", "fullPath", "broken"}, and whatever `more` a step adds.
void Reference(const json& r, const std::string& where, const Keys& more) {
  Keys known = {"name", "fullPath", "broken"};
  known.insert(known.end(), more.begin(), more.end());
  Object(r, where, known);
  if (!r.contains("name")) Refuse(where, "a reference needs a \"name\"");
  Text(r["name"], Member(where, "name"));
  if (r.contains("fullPath")) Text(r["fullPath"], Member(where, "fullPath"));
  if (r.contains("broken")) Flag(r["broken"], Member(where, "broken"));
  for (const auto& k : more)
    if (r.contains(k)) Text(r[k], Member(where, k));
}

void Project(const json& p, const std::string& where) {
  if (p.is_object() && p.contains("folder")) {
    Object(p, where, {"folder", "name", "fileName"});
    for (const char* k : {"folder", "name", "fileName"})
      if (p.contains(k)) Text(p[k], Member(where, k));
    return;
  }
  Object(p, where, {"name", "fileName", "protection", "references", "components", "folder"});
  if (!p.contains("name")) Refuse(where, "a project needs a \"name\" (or a \"folder\")");
  Text(p["name"], Member(where, "name"));
  if (p.contains("fileName")) Text(p["fileName"], Member(where, "fileName"));
  if (p.contains("protection")) Integer(p["protection"], Member(where, "protection"), 0, 2);
  if (p.contains("references")) {
    std::string w = Member(where, "references");
    if (!p["references"].is_array()) Refuse(w, "expected an array");
    for (std::size_t i = 0; i < p["references"].size(); ++i) Reference(p["references"][i], Entry(w, i), {});
  }
  if (p.contains("components")) {
    std::string w = Member(where, "components");
    if (!p["components"].is_array()) Refuse(w, "expected an array");
    for (std::size_t i = 0; i < p["components"].size(); ++i) Component(p["components"][i], Entry(w, i));
  }
}

void Registry(const json& v, const std::string& where) {
  ScalarMap(v, where);
  if (!v.contains("TabWidth")) return;
  const json& t = v["TabWidth"];
  std::string w = Member(where, "TabWidth");
  if (t.is_string()) {
    const std::string& s = t.get<std::string>();
    bool digits = !s.empty() && s.size() <= 4 && std::all_of(s.begin(), s.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!digits || std::stoi(s) < 1 || std::stoi(s) > kMaxTabWidth)
      Refuse(w, "expected a tab width from 1 to " + std::to_string(kMaxTabWidth) + ", as the editor accepts");
    return;
  }
  if (!t.is_number_integer() || t.get<std::int64_t>() < 1 || t.get<std::int64_t>() > kMaxTabWidth)
    Refuse(w, "expected a tab width from 1 to " + std::to_string(kMaxTabWidth) + ", as the editor accepts");
}

void Active(const json& a, const std::string& where) {
  Object(a, where, {"project", "component", "selection", "window"});
  if (a.contains("project")) Text(a["project"], Member(where, "project"));
  if (a.contains("component")) Text(a["component"], Member(where, "component"));
  if (a.contains("selection")) Selection(a["selection"], Member(where, "selection"));
  if (a.contains("window")) OneOf(a["window"], Member(where, "window"), kWindows);
}

void FormStep(const json& step, const std::string& label) {
  Text(step["form"], label + ": \"form\"");
  std::vector<std::string> actions;
  for (const auto& [k, _] : step.items()) {
    if (k == "form") continue;
    if (!Has(kFormActions, k)) Refuse(label, "unknown key \"" + k + "\" in a form step (a form step has one of " + List(kFormActions) + ")");
    actions.push_back(k);
  }
  if (actions.empty()) Refuse(label, "a form step has one of " + List(kFormActions));
  if (actions.size() > 1)
    Refuse(label, "two actions in one step, \"" + actions[0] + "\" and \"" + actions[1] + "\"; write one step for each");
  const std::string& a = actions[0];
  const json& v = step[a];
  std::string w = label + ": \"" + a + "\"";
  if (a == "set") {
    ScalarMap(v, w);
  } else if (a == "click" || a == "dblclick" || a == "focus") {
    Text(v, w);
  } else if (a == "close" || a == "clickOutside" || a == "leave") {
    if (v != true) Refuse(w, "expected true");
  } else if (a == "key") {
    Object(v, w, {"control", "keyAscii", "keyCode", "shift"});
    if (!v.contains("control")) Refuse(w, "expected the \"control\" that gets the key");
    Text(v["control"], w + ".control");
    if (v.contains("keyAscii") == v.contains("keyCode")) Refuse(w, "expected either \"keyAscii\" or \"keyCode\"");
    if (v.contains("keyAscii")) Integer(v["keyAscii"], w + ".keyAscii", 0, 65535);
    if (v.contains("keyCode")) Integer(v["keyCode"], w + ".keyCode", 0, 65535);
    if (v.contains("shift")) Integer(v["shift"], w + ".shift", 0, 7);
  } else if (a == "caret") {
    Object(v, w, {"control", "start", "length"});
    if (!v.contains("control") || !v.contains("start")) Refuse(w, "expected \"control\" and \"start\"");
    Text(v["control"], w + ".control");
    Integer(v["start"], w + ".start", 0, INT32_MAX);
    if (v.contains("length")) Integer(v["length"], w + ".length", 0, INT32_MAX);
  } else if (a == "drag") {
    Object(v, w, {"control", "by"});
    if (!v.contains("control") || !v.contains("by")) Refuse(w, "expected \"control\" and \"by\"");
    Text(v["control"], w + ".control");
    if (!v["by"].is_array() || v["by"].size() != 2) Refuse(w + ".by", "expected [dx, dy] in twips");
    for (std::size_t i = 0; i < 2; ++i) Integer(v["by"][i], Entry(w + ".by", i), -kMaxDragTwips, kMaxDragTwips);
  } else if (a == "node" || a == "expand" || a == "collapse" || a == "item" || a == "label") {
    TextMap(v, w);
  } else if (a == "tab") {
    if (!v.is_object()) Refuse(w, "expected an object of tab strips and tab numbers");
    for (const auto& [k, x] : v.items()) Integer(x, w + "." + k, 1, 1000);
  } else if (a == "dump") {
    Flag(v, w);
  }
}

void Step(const json& step, std::size_t index) {
  std::string label = StepLabel(step, index);
  if (!step.is_object() || step.empty()) Refuse(label, "a step is a JSON object with one action");
  if (step.contains("form")) return FormStep(step, label);
  std::vector<std::string> actions, others;
  for (const auto& [k, _] : step.items()) (Has(kActions, k) ? actions : others).push_back(k);
  if (actions.empty()) Refuse(label, "unknown step \"" + others.front() + "\" (steps are " + List(kActions) + ")");
  if (actions.size() > 1)
    Refuse(label, "two actions in one step, \"" + actions[0] + "\" and \"" + actions[1] + "\"; write one step for each");
  const std::string& a = actions[0];
  Keys companions = a == "click" ? Keys{"text"} : a == "command" ? Keys{"argument"} : Keys{};
  for (const auto& k : others)
    if (!Has(companions, k))
      Refuse(label, "unknown key \"" + k + "\" in a \"" + a + "\" step" +
                        (companions.empty() ? std::string() : " (it may also have " + List(companions) + ")"));
  const json& v = step[a];
  std::string w = label + ": \"" + a + "\"";
  if (a == "connect" || a == "disconnect" || a == "dumpBar") {
    if (v != true) Refuse(w, "expected true");
  } else if (a == "tick") {
    if (!v.is_number_integer() || v.get<std::int64_t>() < 0 || (v.is_number_unsigned() && v.get<std::uint64_t>() > INT64_MAX) ||
        v.get<std::int64_t>() > kMaxTickMilliseconds)
      Refuse(w, "expected a number of milliseconds from 0 to " + std::to_string(kMaxTickMilliseconds) + " (one day)");
  } else if (a == "click") {
    Text(v, w);
    if (step.contains("text")) Text(step["text"], label + ": \"text\"");
  } else if (a == "command") {
    Text(v, w);
    if (step.contains("argument")) Text(step["argument"], label + ": \"argument\"");
  } else if (a == "select") {
    Selection(v, w);
  } else if (a == "activate" || a == "selectComponent" || a == "removeComponent") {
    ComponentRef(v, w);
  } else if (a == "window") {
    OneOf(v, w, kWindows);
  } else if (a == "type") {
    Text(v, w);
    if (v.get_ref<const std::string&>().size() > kMaxTypedBytes)
      Refuse(w, "expected at most " + std::to_string(kMaxTypedBytes >> 20) + " MiB of typed text");
  } else if (a == "setCode") {
    Object(v, w, {"component", "code"});
    if (!v.contains("component") || !v.contains("code")) Refuse(w, "expected \"component\" and \"code\"");
    ComponentRef(v["component"], w + ".component");
    Code(v["code"], w + ".code");
  } else if (a == "addComponent") {
    Object(v, w, {"project", "name", "type", "code"});
    if (v.contains("project")) Text(v["project"], w + ".project");
    json c = v;
    c.erase("project");
    Component(c, w);
  } else if (a == "addProject") {
    Project(v, w);
  } else if (a == "closeProject" || a == "clipboard" || a == "msgbox" || a == "dump") {
    Text(v, w);
  } else if (a == "protect") {
    Object(v, w, {"project", "locked"});
    if (!v.contains("project")) Refuse(w, "expected the \"project\"");
    Text(v["project"], w + ".project");
    if (v.contains("locked")) Flag(v["locked"], w + ".locked");
  } else if (a == "addReference") {
    Reference(v, w, {"project"});
  } else if (a == "removeReference") {
    if (v.is_string()) return;
    Object(v, w, {"project", "name"});
    if (!v.contains("name")) Refuse(w, "expected the \"name\" of the reference");
    Text(v["name"], w + ".name");
    if (v.contains("project")) Text(v["project"], w + ".project");
  } else if (a == "saveProject") {
    if (v.is_string()) return;
    Object(v, w, {"project", "folder"});
    if (!v.contains("project")) Refuse(w, "expected the \"project\"");
    Text(v["project"], w + ".project");
    if (v.contains("folder")) Text(v["folder"], w + ".folder");
  } else if (a == "inputbox" || a == "file" || a == "folder") {
    TextOrNull(v, w);
  } else if (a == "convertToHtml") {
    if (v.is_string()) return;
    Object(v, w, {"project", "component", "procedure", "kind"});
    if (!v.contains("component")) Refuse(w, "expected the \"component\"");
    if (v.contains("project")) Text(v["project"], w + ".project");
    Text(v["component"], w + ".component");
    if (v.contains("procedure")) Text(v["procedure"], w + ".procedure");
    if (v.contains("kind")) Integer(v["kind"], w + ".kind", 0, 3);
  }
}

}  // namespace

std::string StepLabel(const json& step, std::size_t index) {
  std::string text = step.dump(-1, ' ', false, json::error_handler_t::replace);
  if (text.size() > 120) text = text.substr(0, 117) + "...";
  return "step " + std::to_string(index + 1) + " " + text;
}

json ParseScenario(const std::string& text) {
  // Nesting is bounded before anything else reads the tree, so that no reader runs out
  // of stack on a deep one.
  auto depthGuard = [](int depth, json::parse_event_t, json&) {
    if (depth > kMaxNesting)
      throw UnreadableInput{"the scenario nests deeper than " + std::to_string(kMaxNesting) + " levels"};
    return true;
  };
  try {
    return json::parse(text, depthGuard);
  } catch (const json::exception& e) {
    // The library's text may quote broken bytes; only plain characters go out.
    std::string why = e.what();
    if (auto cut = why.find("] "); cut != std::string::npos) why = why.substr(cut + 2);
    for (char& c : why)
      if (static_cast<unsigned char>(c) >= 0x80 || static_cast<unsigned char>(c) < 0x20) c = '?';
    throw UnreadableInput{"the scenario is not valid JSON: " + why};
  }
}

namespace {

// What the connected hosts hold: the Access database's project type and its tables.
void HostObjects(const json& v, const std::string& where) {
  Object(v, where, {"Access"});
  if (!v.contains("Access")) return;
  const std::string a = Member(where, "Access");
  const json& access = v["Access"];
  Object(access, a, {"projectType", "tables"});
  if (access.contains("projectType")) Integer(access["projectType"], Member(a, "projectType"), 0, 2);
  if (!access.contains("tables")) return;
  const std::string t = Member(a, "tables");
  if (!access["tables"].is_array()) Refuse(t, "expected an array of tables");
  for (std::size_t i = 0; i < access["tables"].size(); ++i) {
    const json& table = access["tables"][i];
    const std::string w = Entry(t, i);
    Object(table, w, {"name", "type", "fields"});
    if (!table.contains("name")) Refuse(w, "a table needs a \"name\"");
    Text(table["name"], Member(w, "name"));
    if (table.contains("type")) Text(table["type"], Member(w, "type"));
    if (!table.contains("fields")) continue;
    const std::string f = Member(w, "fields");
    if (!table["fields"].is_array()) Refuse(f, "expected an array of fields");
    for (std::size_t j = 0; j < table["fields"].size(); ++j) {
      const json& field = table["fields"][j];
      const std::string fw = Entry(f, j);
      Object(field, fw, {"name", "type"});
      if (!field.contains("name") || !field.contains("type")) Refuse(fw, "a field needs a \"name\" and a \"type\"");
      Text(field["name"], Member(fw, "name"));
      Integer(field["type"], Member(fw, "type"), 0, 65535);
    }
  }
}

}  // namespace

void CheckScenario(const json& s) {
  if (!s.is_object()) throw UnreadableInput{"a scenario is a JSON object"};
  Object(s, "the scenario",
         {"description", "expect", "now", "bareHome", "home", "files", "readOnly", "settings", "firstRun", "registry", "testing",
          "hosts", "hostObjects", "projects", "active", "clipboard", "start", "steps"});
  if (s.contains("description")) Text(s["description"], "\"description\"");
  if (s.contains("now")) Text(s["now"], "\"now\"");
  for (const char* k : {"bareHome", "firstRun", "testing"})
    if (s.contains(k)) Flag(s[k], Member("", k));
  if (s.contains("home")) TextMap(s["home"], "\"home\"");
  if (s.contains("files")) TextMap(s["files"], "\"files\"");
  if (s.contains("readOnly")) {
    if (!s["readOnly"].is_array()) Refuse("\"readOnly\"", "expected an array of full Windows paths");
    for (std::size_t i = 0; i < s["readOnly"].size(); ++i) Text(s["readOnly"][i], Entry("\"readOnly\"", i));
  }
  if (s.contains("settings")) ScalarMap(s["settings"], "\"settings\"");
  if (s.contains("registry")) Registry(s["registry"], "\"registry\"");
  if (s.contains("hosts")) {
    if (!s["hosts"].is_array()) Refuse("\"hosts\"", "expected an array of Excel, Word, Access");
    for (std::size_t i = 0; i < s["hosts"].size(); ++i) OneOf(s["hosts"][i], Entry("\"hosts\"", i), {"Excel", "Word", "Access"});
  }
  if (s.contains("hostObjects")) {
    HostObjects(s["hostObjects"], "\"hostObjects\"");
    // A host's content without the host would be read by nobody.
    for (const auto& [host, _] : s["hostObjects"].items()) {
      bool connected = false;
      if (s.contains("hosts"))
        for (const auto& h : s["hosts"]) connected = connected || h == host;
      if (!connected) Refuse(Member("\"hostObjects\"", host), host + " is not among the \"hosts\"");
    }
  }
  if (s.contains("projects")) {
    if (!s["projects"].is_array()) Refuse("\"projects\"", "expected an array");
    for (std::size_t i = 0; i < s["projects"].size(); ++i) Project(s["projects"][i], Entry("\"projects\"", i));
  }
  if (s.contains("active")) Active(s["active"], "\"active\"");
  if (s.contains("clipboard")) Text(s["clipboard"], "\"clipboard\"");
  if (s.contains("start")) OneOf(s["start"], "\"start\"", {"auto", "manual"});
  if (s.contains("steps")) {
    if (!s["steps"].is_array()) Refuse("\"steps\"", "\"steps\" must be an array");
    for (std::size_t i = 0; i < s["steps"].size(); ++i) Step(s["steps"][i], i);
  }
}

std::string ActionOf(const json& step) {
  if (step.contains("form")) return "form";
  for (const auto& [k, _] : step.items())
    if (Has(kActions, k)) return k;
  return {};
}

}  // namespace quillet::cli
