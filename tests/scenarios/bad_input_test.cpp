// What `quillet script` does with input that is no scenario: a clear one-line reason and
// exit status 2 or 1, never a crash.
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "run_quillet.h"

namespace {

using quillet::test::RunScript;

TEST(ScriptInput, UnreadableOrWrongScenariosEndWithAReason) {
  struct Case {
    const char* input;
    int exit;
    const char* reason;
  } cases[] = {
      {"{ \"steps\": [ ", 2, "not valid JSON"},
      {"[1, 2]", 2, "a scenario is a JSON object"},
      {"{\"now\": \"yesterday-ish\"}", 2, "\"now\""},
      {"{\"steps\": 5}", 2, "\"steps\" must be an array"},
      {"{\"steps\": [{\"fly\": true}]}", 2, "unknown step \"fly\""},
      {"{\"projects\": [{\"name\": \"P\", \"components\": [{\"name\": \"M\", \"code\": \"\"}]}],"
       " \"steps\": [{\"activate\": \"Missing\"}]}",
       1, "no component named \"Missing\""},
      {"{\"steps\": [{\"msgbox\": \"Yes\"}]}", 1, "not asking for one"},
      {"{\"steps\": [{\"form\": \"frmNothing\", \"click\": \"cmdOK\"}]}", 1, "frmNothing"},
      {"{\"steps\": [{\"tick\": \"soon\"}]}", 2, "milliseconds"},
      // Reading: broken text, depth, numbers the reader cannot hold.
      {"{\"clipboard\": \"\xff\xfe\"}", 2, "ill-formed UTF-8"},
      {"{\"projects\": [{\"name\": \"P\", \"components\": [{\"name\": \"M\", \"code\": \"\xc3\"}]}]}", 2, "not valid JSON"},
      {"{\"steps\": [{\"tick\": 1e400}]}", 2, "number overflow"},
      // The format: unknown keys, two actions, wrong types, each named where it stands.
      {"{\"step\": []}", 2, "unknown key \"step\""},
      {"{\"steps\": [{\"tick\": 1, \"click\": \"mnuhAbout\"}]}", 2, "step 1 {\"tick\":1,\"click\":\"mnuhAbout\"}: two actions"},
      {"{\"steps\": [{\"command\": \"ForNext\", \"arg\": \"\"}]}", 2, "unknown key \"arg\" in a \"command\" step"},
      {"{\"steps\": [{\"form\": \"frmX\", \"set\": {}, \"click\": \"cmdOK\"}]}", 2, "two actions in one step, \"set\" and \"click\""},
      {"{\"bareHome\": \"no\"}", 2, "\"bareHome\": expected true or false"},
      {"{\"firstRun\": 0}", 2, "\"firstRun\": expected true or false"},
      {"{\"testing\": null}", 2, "\"testing\": expected true or false"},
      {"{\"readOnly\": \"C:\\\\x.bas\"}", 2, "\"readOnly\": expected an array of full Windows paths"},
      {"{\"readOnly\": [\"C:\\\\Work\\\\none.bas\"]}", 2, "none.bas\" is no file of the scenario"},
      {"{\"steps\": [{\"form\": \"frmX\", \"label\": \"x\"}]}", 2, "\"label\": expected an object"},
      {"{\"steps\": [{\"form\": \"frmX\", \"expand\": \"tvFiles\"}]}", 2, "\"expand\": expected an object"},
      {"{\"steps\": [{\"form\": \"frmX\", \"collapse\": {\"tvFiles\": 3}}]}", 2, "\"collapse\".tvFiles: expected"},
      {"{\"steps\": [{\"form\": \"frmX\", \"clickOutside\": 1}]}", 2, "step 1 {\"form\":\"frmX\",\"clickOutside\":1}: \"clickOutside\": expected true"},
      {"{\"steps\": [{\"form\": \"frmX\", \"leave\": false}]}", 2, "\"leave\": expected true"},
      {"{\"steps\": [{\"form\": \"frmX\", \"leave\": true, \"close\": true}]}", 2, "two actions in one step"},
      {"{\"start\": \"later\"}", 2, "\"start\": expected one of auto, manual"},
      {"{\"hosts\": [\"Excel\", 7]}", 2, "\"hosts\"[1]: expected one of Excel, Word, Access"},
      {"{\"active\": 3}", 2, "\"active\": expected an object"},
      {"{\"active\": {\"window\": 1}}", 2, "\"active\".window: expected one of code"},
      {"{\"active\": {\"selection\": [1, 1, 1, 99999999999]}}", 2, "\"active\".selection[3]: expected a whole number from 1 to 65535"},
      {"{\"projects\": [{\"name\": \"P\", \"components\": [{\"name\": \"M\", \"type\": \"1\"}]}]}", 2, "\"projects\"[0].components[0].type: expected a component type"},
      {"{\"steps\": [{\"select\": [1, 2, 3]}]}", 2, "step 1 {\"select\":[1,2,3]}: \"select\": expected [startLine"},
      {"{\"steps\": [{\"type\": 5}]}", 2, "step 1 {\"type\":5}: \"type\": expected a text"},
      {"{\"steps\": [{\"inputbox\": 2}]}", 2, "\"inputbox\": expected a text or null"},
      // References ticked and unticked: checked like the project's own, and only one that
      // fits the project is taken.
      {"{\"steps\": [{\"addReference\": {\"name\": \"Word\", \"path\": \"x\"}}]}", 2, "\"addReference\": unknown key \"path\""},
      {"{\"steps\": [{\"addReference\": {\"fullPath\": \"x\"}}]}", 2, "a reference needs a \"name\""},
      {"{\"steps\": [{\"addReference\": {\"name\": \"Word\", \"broken\": 1}}]}", 2, "\"addReference\".broken: expected true or false"},
      {"{\"steps\": [{\"removeReference\": 3}]}", 2, "\"removeReference\": expected an object"},
      {"{\"steps\": [{\"removeReference\": {\"project\": \"P\"}}]}", 2, "expected the \"name\" of the reference"},
      {"{\"projects\": [{\"name\": \"P\"}], \"steps\": [{\"removeReference\": \"Word\"}]}", 1, "project P has no reference Word"},
      {"{\"projects\": [{\"name\": \"P\"}], \"steps\": [{\"addReference\": {\"name\": \"excel\"}}]}", 1, "project P has a reference excel already"},
      {"{\"projects\": [{\"name\": \"P\"}], \"steps\": [{\"addReference\": {\"name\": \"W\", \"project\": \"Q\"}}]}", 1, "no project named \"Q\""},
      // Bounds on what would take unreasonable time.
      {"{\"steps\": [{\"tick\": 4611686018427387904}]}", 2, "\"tick\": expected a number of milliseconds from 0 to 86400000"},
      {"{\"registry\": {\"TabWidth\": 33}}", 2, "\"registry\".TabWidth: expected a tab width from 1 to 32"},
      // The Access database under hostObjects.
      {"{\"hostObjects\": {\"Excel\": {}}}", 2, "\"hostObjects\": unknown key \"Excel\""},
      {"{\"hostObjects\": {\"Access\": {}}}", 2, "\"hostObjects\".Access: Access is not among the \"hosts\""},
      {"{\"hostObjects\": {\"Access\": {\"projectType\": \"adp\"}}}", 2,
       "\"hostObjects\".Access.projectType: expected a whole number from 0 to 2"},
      {"{\"hostObjects\": {\"Access\": {\"tables\": [{\"fields\": []}]}}}", 2,
       "\"hostObjects\".Access.tables[0]: a table needs a \"name\""},
      {"{\"hostObjects\": {\"Access\": {\"tables\": [{\"name\": \"T\", \"fields\": [{\"name\": \"F\", \"type\": \"Text\"}]}]}}}",
       2, "\"hostObjects\".Access.tables[0].fields[0].type: expected a whole number"},
      {"{\"registry\": {\"TabWidth\": \"100000\"}}", 2, "\"registry\".TabWidth"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.input);
    auto r = RunScript("-", c.input);
    EXPECT_EQ(r.exitStatus, c.exit);
    ASSERT_TRUE(r.json.is_object()) << r.out;
    EXPECT_EQ(r.json["ok"], false);
    std::string error = r.json["error"].get<std::string>();
    EXPECT_NE(error.find(c.reason), std::string::npos) << error;
    EXPECT_EQ(error.find('\n'), std::string::npos) << "one line";
  }
}

TEST(ScriptInput, FilesThatAreNoScenarioEndWithExitTwoAndNoSignal) {
  auto missing = RunScript("/nonexistent/scenario.json");
  EXPECT_EQ(missing.exitStatus, 2);
  EXPECT_NE(missing.json["error"].get<std::string>().find("/nonexistent/scenario.json"), std::string::npos);

  auto folder = RunScript(QUILLET_SOURCE_DIR "/tests/scenarios");
  EXPECT_EQ(folder.exitStatus, 2);
  EXPECT_NE(folder.json["error"].get<std::string>().find("it is a folder"), std::string::npos);

  // Nesting too deep for any reader is refused before anything reads the tree.
  auto deep = RunScript("-", std::string(100000, '[') + std::string(100000, ']'));
  EXPECT_EQ(deep.exitStatus, 2);
  EXPECT_NE(deep.json["error"].get<std::string>().find("nests deeper than 64"), std::string::npos);

  // Typed text beyond the bound is refused; a megabyte is typed in a moment, not minutes.
  std::string head = "{\"projects\": [{\"name\": \"P\", \"components\": [{\"name\": \"M\", \"code\": [\"Sub A()\", \"\", \"End Sub\"]}]}],"
                     " \"active\": {\"component\": \"M\", \"selection\": [2, 1, 2, 1]}, \"steps\": [{\"type\": \"";
  auto tooMuch = RunScript("-", head + std::string((4u << 20) + 1, 'x') + "\"}]}");
  EXPECT_EQ(tooMuch.exitStatus, 2);
  EXPECT_NE(tooMuch.json["error"].get<std::string>().find("at most 4 MiB of typed text"), std::string::npos);

  auto start = std::chrono::steady_clock::now();
  auto megabyte = RunScript("-", head + std::string(1u << 20, 'x') + "\"}]}");
  double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  ASSERT_EQ(megabyte.exitStatus, 0) << megabyte.out.substr(0, 300);
  EXPECT_EQ(megabyte.json["projects"][0]["components"][0]["code"][1].get<std::string>().size(), 1u << 20);
  EXPECT_LT(seconds, 30.0) << "typing grows faster than the text";
}

}  // namespace
