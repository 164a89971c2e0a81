// What `quillet script` does with input that is no scenario: a clear one-line reason and
// exit status 2 or 1, never a crash.
#include <gtest/gtest.h>

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
  EXPECT_EQ(RunScript("/nonexistent/scenario.json").exitStatus, 2);
}

}  // namespace
