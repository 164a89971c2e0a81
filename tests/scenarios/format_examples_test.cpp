// Every step written in the scenario format document, pasted as it stands, is read and
// played: each runs to its end, or ends with exit 1 when the engine's state does not fit
// it alone (an answer nobody asked for, a form not loaded), never as unreadable input.
// The placeholders of the document ("[l1, c1, l2, c2]", "{...}") are no JSON and are left out.
#include <gtest/gtest.h>

#include <string>

#include "run_quillet.h"

namespace {

using quillet::test::RunScript;

TEST(FormatDocument, EveryStepExampleIsReadAndPlayed) {
  const std::string setup =
      R"js({"start": "manual", "hosts": ["Excel"],
            "projects": [
              {"name": "VBAProject", "components": [
                {"name": "Module1", "code": ["Sub Main()", "", "End Sub"]},
                {"name": "Module2", "code": ["Sub B()", "End Sub"]},
                {"name": "Class1", "type": 2, "code": "Private mName As String\r\n"}]},
              {"name": "P2", "components": [{"name": "Module2", "code": ["Sub C()", "End Sub"]}]}],
            "active": {"project": "VBAProject", "component": "Module1", "selection": [2, 1, 2, 1]},
            "steps": [)js";
  struct Example {
    const char* before;  // steps that put the engine where the example fits
    const char* step;    // as the document writes it
    int exit;
  } examples[] = {
      {"", R"({"connect": true})", 0},
      {R"({"connect": true}, )", R"({"disconnect": true})", 0},
      {R"({"connect": true}, )", R"({"tick": 500})", 0},
      // The builder opens and waits for the user, which the scenario leaves unanswered.
      {R"({"connect": true}, {"tick": 500}, )", R"({"click": "mnuhAddProcedure"})", 1},
      {R"({"connect": true}, )", R"({"command": "If Then Else", "argument": ""})", 0},
      {"", R"({"activate": "Module2"})", 0},
      {"", R"({"activate": {"project": "P2", "component": "Module2"}})", 0},
      {"", R"({"window": "immediate"})", 0},
      {"", R"({"selectComponent": "Class1"})", 0},
      {"", R"({"type": "abc\n"})", 0},
      {"", R"({"setCode": {"component": "Module1", "code": "..."}})", 0},
      {"", R"({"removeComponent": "Class1"})", 0},
      {"", R"({"closeProject": "P2"})", 0},
      {"", R"({"protect": {"project": "P2", "locked": true}})", 0},
      {"", R"({"clipboard": "text"})", 0},
      {"", R"({"msgbox": "Yes"})", 1},
      {"", R"({"inputbox": "2"})", 1},
      {"", R"({"inputbox": null})", 1},
      {"", R"({"file": "C:\\x\\y.bas"})", 1},
      {"", R"({"file": null})", 1},
      {"", R"({"folder": "C:\\x"})", 1},
      {"", R"({"folder": null})", 1},
      {"", R"({"form": "frmProcedure", "set": {"txtName": "Foo", "cboProcType": "Function", "chkAddHeader": 1}})", 1},
      {"", R"({"form": "frmProcedure", "click": "cmdOK"})", 1},
      {"", R"({"form": "frmFragments", "key": {"control": "lstVars", "keyAscii": 13}})", 1},
      {"", R"({"form": "frmFragments", "caret": {"control": "rtxtContent", "start": 10, "length": 0}})", 1},
      {"", R"({"form": "frmObjectName", "node": {"tvObjects": "Workbooks_Book1.xlsm"}})", 1},
      {"", R"({"form": "frmSettings", "tab": {"tabOptions": 3}})", 1},
      {"", R"({"form": "frmProcedure", "dump": true})", 1},
      {R"({"connect": true}, )", R"({"dumpBar": true})", 0},
      {"", R"({"dump": "codeExplorer"})", 1},
      {"", R"({"dump": "shortcuts"})", 1},
  };
  for (const Example& e : examples) {
    SCOPED_TRACE(e.step);
    auto r = RunScript("-", setup + e.before + e.step + "]}");
    EXPECT_EQ(r.exitStatus, e.exit) << r.out.substr(0, 400);
    ASSERT_TRUE(r.json.is_object());
    if (e.exit == 1) {
      EXPECT_FALSE(r.json["error"].get<std::string>().empty());
    }
  }
}

}  // namespace
