// The main job of the README runs to its end and writes its procedure.
#include <gtest/gtest.h>

#include "run_quillet.h"

TEST(Demo, WritesItsProcedureIntoTheSampleProject) {
  auto r = quillet::test::RunScript(std::string(QUILLET_SOURCE_DIR) + "/demo/demo.json");
  ASSERT_EQ(r.exitStatus, 0) << r.out;
  bool found = false;
  for (const auto& p : r.json["projects"])
    for (const auto& c : p["components"])
      if (c["name"] == "basMain")
        for (const auto& line : c["code"]) found = found || line == "Public Sub ShowInvoiceCount()";
  EXPECT_TRUE(found);
}
