// Every scenario under tests/scenarios/ runs through the real `quillet script`, and its
// outcome is held against the "expect" of the file:
//   "exit": the exit status (0 when not given); "errorContains": a piece of the error;
//   "code": {"Module1": [lines]} (or "Project.Module1") the module's whole text;
//   "selection": the active pane's selection; "clipboard", "immediate": exact texts;
//   "immediateContains": texts that must appear; "transcript": entries that must appear in
//   this order (each a part of the real entry); "home", "written": files with their whole
//   text, {"contains": piece}, or null for a file that must not have been written; "deleted":
//   the whole list of files of the program's folder gone by the end; "noTranscript": kinds of
//   entries that must not appear; "bars": for each "dumpBar" of the transcript in order,
//   controls by their path of caption ids ("122/149/150") that must be "visible", "hidden",
//   "enabled" or "disabled".
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "run_quillet.h"

using nlohmann::json;

namespace {

std::filesystem::path ScenarioFolder() { return std::filesystem::path(QUILLET_SOURCE_DIR) / "tests" / "scenarios"; }

std::vector<std::string> ScenarioFiles() {
  std::vector<std::string> names;
  for (const auto& e : std::filesystem::directory_iterator(ScenarioFolder()))
    if (e.path().extension() == ".json") names.push_back(e.path().stem().string());
  std::sort(names.begin(), names.end());
  return names;
}

// Whether `actual` holds everything `expected` says: objects by their keys, arrays
// element by element with the same length, anything else equal.
bool Covers(const json& expected, const json& actual) {
  if (expected.is_object()) {
    if (!actual.is_object()) return false;
    for (const auto& [k, v] : expected.items())
      if (!actual.contains(k) || !Covers(v, actual[k])) return false;
    return true;
  }
  if (expected.is_array()) {
    if (!actual.is_array() || actual.size() != expected.size()) return false;
    for (std::size_t i = 0; i < expected.size(); ++i)
      if (!Covers(expected[i], actual[i])) return false;
    return true;
  }
  return expected == actual;
}

const json* FindComponent(const json& out, const std::string& ref) {
  std::string project, name = ref;
  if (auto dot = ref.find('.'); dot != std::string::npos) {
    project = ref.substr(0, dot);
    name = ref.substr(dot + 1);
  }
  for (const auto& p : out["projects"]) {
    if (!project.empty() && p["name"] != project) continue;
    for (const auto& c : p["components"])
      if (c["name"] == name) return &c;
  }
  return nullptr;
}

// The control at a path of caption ids ("122/149/189") in a dumped bar; nullptr if none.
const json* ControlAt(const json& bar, const std::string& path) {
  const json* list = &bar;
  const json* found = nullptr;
  std::size_t start = 0;
  while (start <= path.size()) {
    std::size_t slash = path.find('/', start);
    int id = std::stoi(path.substr(start, slash == std::string::npos ? std::string::npos : slash - start));
    found = nullptr;
    for (const auto& c : *list)
      if (c["id"] == id) {
        found = &c;
        break;
      }
    if (!found || slash == std::string::npos) return found;
    if (!found->contains("controls")) return nullptr;
    list = &(*found)["controls"];
    start = slash + 1;
  }
  return found;
}

void CheckBars(const json& expected, const json& transcript) {
  std::vector<const json*> dumps;
  for (const auto& e : transcript)
    if (e.contains("bar")) dumps.push_back(&e["bar"]);
  ASSERT_EQ(dumps.size(), expected.size()) << "dumpBar steps";
  for (std::size_t i = 0; i < expected.size(); ++i) {
    for (const auto& [state, paths] : expected[i].items()) {
      const char* field = state == "visible" || state == "hidden" ? "visible" : "enabled";
      bool wanted = state == "visible" || state == "enabled";
      for (const auto& p : paths) {
        const json* c = ControlAt(*dumps[i], p.get<std::string>());
        ASSERT_NE(c, nullptr) << "dump " << i + 1 << ": no control " << p;
        EXPECT_EQ((*c)[field], wanted) << "dump " << i + 1 << ": " << p << " should be " << state;
      }
    }
  }
}

class ScenarioFile : public ::testing::TestWithParam<std::string> {};

TEST_P(ScenarioFile, PlaysAsExpected) {
  std::filesystem::path file = ScenarioFolder() / (GetParam() + ".json");
  json scenario = json::parse(std::ifstream(file));
  ASSERT_TRUE(scenario.contains("expect")) << "a scenario under tests/ says what it expects";
  const json& expect = scenario["expect"];

  quillet::test::ScriptResult r = quillet::test::RunScript(file.string());
  ASSERT_FALSE(r.json.is_null()) << "no JSON outcome:\n" << r.out;
  const json& out = r.json;
  SCOPED_TRACE(out.dump(1));
  EXPECT_EQ(r.exitStatus, expect.value("exit", 0));
  if (expect.value("exit", 0) == 0) {
    EXPECT_EQ(out["ok"], true) << out["error"];
  }
  if (expect.contains("errorContains")) {
    EXPECT_NE(out["error"].get<std::string>().find(expect["errorContains"].get<std::string>()), std::string::npos);
  }
  if (expect.contains("code")) {
    for (const auto& [ref, lines] : expect["code"].items()) {
      const json* c = FindComponent(out, ref);
      ASSERT_NE(c, nullptr) << "no component " << ref;
      EXPECT_EQ((*c)["code"], lines) << ref;
    }
  }
  if (expect.contains("selection")) { EXPECT_EQ(out["active"]["selection"], expect["selection"]); }
  if (expect.contains("active")) { EXPECT_TRUE(Covers(expect["active"], out["active"])); }
  for (const char* exact : {"clipboard", "immediate"}) {
    if (expect.contains(exact)) {
      EXPECT_EQ(out[exact], expect[exact]) << exact;
    }
  }
  if (expect.contains("immediateContains")) {
    for (const auto& piece : expect["immediateContains"]) {
      EXPECT_NE(out["immediate"].get<std::string>().find(piece.get<std::string>()), std::string::npos) << piece;
    }
  }
  if (expect.contains("transcript")) {
    std::size_t at = 0;
    const json& t = out["transcript"];
    for (const auto& wanted : expect["transcript"]) {
      while (at < t.size() && !Covers(wanted, t[at])) ++at;
      EXPECT_LT(at, t.size()) << "transcript entry not found in order: " << wanted.dump();
      if (at < t.size()) ++at;
    }
  }
  if (expect.contains("noTranscript")) {
    for (const auto& kind : expect["noTranscript"]) {
      for (const auto& entry : out["transcript"]) {
        EXPECT_FALSE(entry.contains(kind.get<std::string>())) << entry.dump();
      }
    }
  }
  if (expect.contains("deleted")) {
    EXPECT_EQ(out.value("deleted", json::array()), expect["deleted"]) << "files of the program's folder gone";
  }
  if (expect.contains("bars")) CheckBars(expect["bars"], out["transcript"]);
  for (const char* files : {"home", "written"}) {
    if (!expect.contains(files)) continue;
    for (const auto& [name, text] : expect[files].items()) {
      if (text.is_null()) {
        EXPECT_FALSE(out[files].contains(name)) << name;
      } else if (text.is_object()) {
        ASSERT_TRUE(out[files].contains(name)) << name;
        EXPECT_NE(out[files][name].get<std::string>().find(text["contains"].get<std::string>()), std::string::npos) << name;
      } else {
        EXPECT_EQ(out[files].value(name, json()), text) << name;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, ScenarioFile, ::testing::ValuesIn(ScenarioFiles()),
                         [](const ::testing::TestParamInfo<std::string>& info) {
                           std::string n = info.param;
                           for (char& c : n)
                             if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
                           return n;
                         });

}  // namespace
