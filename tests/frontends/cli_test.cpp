// The quillet program's command line and the scenario reader, as a user meets them.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include "frontends/cli/scenario_check.h"
#include "frontends/cli/scenario_error.h"

namespace {

using quillet::cli::json;

struct Outcome {
  int status;
  std::string out;
};

Outcome Quillet(const std::string& args) {
  std::string cmd = std::string("'") + QUILLET_BINARY + "' " + args + " 2>&1";
  Outcome r{-1, {}};
  FILE* p = ::popen(cmd.c_str(), "r");
  char buf[4096];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  int status = ::pclose(p);
  r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

TEST(CommandLine, HelpListsTheSubcommandsAndScriptHelpTheContract) {
  Outcome help = Quillet("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("script FILE|-"), std::string::npos) << help.out;

  Outcome script = Quillet("script --help");
  EXPECT_EQ(script.status, 0);
  for (const char* piece : {"\"command\": \"If Then Else\", \"argument\"", "Exit status", "  2  unreadable input",
                            "scenario-format.md", "at most 4 MiB", "\"clickOutside\": true", "\"leave\": true"})
    EXPECT_NE(script.out.find(piece), std::string::npos) << piece;

  EXPECT_EQ(Quillet("").status, 2);
  EXPECT_EQ(Quillet("frobnicate").status, 2);
  EXPECT_EQ(Quillet("script a.json b.json").status, 2);
}

TEST(ScenarioReader, KeepsTheOrderWrittenSoASetAppliesAsTheUserTyped) {
  json s = quillet::cli::ParseScenario(
      R"({"steps": [{"argument": "", "command": "If Then Else"},
                    {"form": "frmProcedure", "set": {"txtName": "Foo", "cboProcType": "Function", "chkAddHeader": 1}},
                    {"text": "Simple", "click": "mnuhErrorHandling"}]})");
  EXPECT_NO_THROW(quillet::cli::CheckScenario(s));
  const json& steps = s["steps"];
  EXPECT_EQ(quillet::cli::ActionOf(steps[0]), "command");
  EXPECT_EQ(quillet::cli::ActionOf(steps[1]), "form");
  EXPECT_EQ(quillet::cli::ActionOf(steps[2]), "click");
  std::string order;
  for (const auto& [name, _] : steps[1]["set"].items()) order += name + " ";
  EXPECT_EQ(order, "txtName cboProcType chkAddHeader ");
}

TEST(ScenarioReader, NamesTheStepOrFieldAndWhatWasExpected) {
  auto refusal = [](const std::string& text) {
    try {
      quillet::cli::CheckScenario(quillet::cli::ParseScenario(text));
    } catch (const quillet::cli::UnreadableInput& e) {
      return e.message;
    }
    return std::string("accepted");
  };
  EXPECT_EQ(refusal(R"({"steps": [{"tick": 500}, {"click": "a", "txt": "b"}]})"),
            R"(step 2 {"click":"a","txt":"b"}: unknown key "txt" in a "click" step (it may also have text))");
  EXPECT_EQ(refusal(R"({"steps": [{"connect": true}, {"dumpBar": 1}]})"), R"(step 2 {"dumpBar":1}: "dumpBar": expected true)");
  EXPECT_EQ(refusal(R"({"projects": [{"name": "P", "references": [{"name": 5}]}]})"),
            R"("projects"[0].references[0].name: expected a text)");
  EXPECT_EQ(refusal(R"({"steps": [{"form": "frmX", "key": {"control": "c"}}]})"),
            R"(step 1 {"form":"frmX","key":{"control":"c"}}: "key": expected either "keyAscii" or "keyCode")");
  EXPECT_EQ(refusal(R"({"steps": [{"tick": 86400000}, {"tick": 0}]})"), "accepted");
  // A drag names its control and moves by two whole numbers of twips.
  EXPECT_EQ(refusal(R"({"steps": [{"form": "f", "drag": {"control": "imgSplitter", "by": [600, -40]}}]})"), "accepted");
  EXPECT_EQ(refusal(R"({"steps": [{"form": "f", "drag": {"by": [1, 2]}}]})"),
            R"(step 1 {"form":"f","drag":{"by":[1,2]}}: "drag": expected "control" and "by")");
  EXPECT_EQ(refusal(R"({"steps": [{"form": "f", "drag": {"control": "c", "by": [1]}}]})"),
            R"(step 1 {"form":"f","drag":{"control":"c","by":[1]}}: "drag".by: expected [dx, dy] in twips)");
  EXPECT_EQ(refusal(R"({"steps": [{"form": "f", "drag": {"control": "c", "by": [1, 2.5]}}]})"),
            R"(step 1 {"form":"f","drag":{"control":"c","by":[1,2.5]}}: "drag".by[1]: expected a whole number from -1000000 to 1000000)");
  EXPECT_NE(refusal(R"({"steps": [{"form": "f", "drag": {"control": 3, "by": [1, 2]}}]})").find("\"drag\".control: expected a text"),
            std::string::npos);
  EXPECT_NE(refusal(R"({"steps": [{"form": "f", "drag": {"control": "c", "by": [1, 2], "x": 1}}]})").find("unknown key \"x\""),
            std::string::npos);
  EXPECT_EQ(refusal(R"({"steps": [{"tick": -1}]})").find("step 1"), 0u);
}

TEST(ScenarioRunner, DumpBarNamesEachControlsHandler) {
  std::string file = (std::filesystem::temp_directory_path() / "quillet-dumpbar-test.json").string();
  std::ofstream(file) << R"js({"projects": [{"name": "P", "components": [{"name": "M", "code": ["Sub A()", "End Sub"]}]}],
                             "steps": [{"dumpBar": true}]})js";
  Outcome run = Quillet("script '" + file + "'");
  std::filesystem::remove(file);
  ASSERT_EQ(run.status, 0) << run.out;
  nlohmann::json out = nlohmann::json::parse(run.out);
  bool aboutFound = false;
  std::function<void(const nlohmann::json&)> walk = [&](const nlohmann::json& controls) {
    for (const auto& c : controls) {
      if (c.value("handler", "") == "mnuhAbout") {
        aboutFound = true;
        EXPECT_TRUE(c.contains("id"));
        EXPECT_TRUE(c.contains("caption"));
      }
      if (c.contains("controls")) walk(c["controls"]);
    }
  };
  walk(out["transcript"][0]["bar"]);
  EXPECT_TRUE(aboutFound) << out["transcript"][0].dump().substr(0, 500);
}

}  // namespace
