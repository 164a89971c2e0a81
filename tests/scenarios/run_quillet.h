#pragma once
// Runs the real `quillet script` on a scenario and reads its outcome.
#include <nlohmann/json.hpp>

#include <string>

namespace quillet::test {

struct ScriptResult {
  int exitStatus = -1;
  std::string out;   // standard output
  nlohmann::json json;  // the outcome, null when the output is no JSON
};

// `scenarioPath` "-" feeds `input` on standard input.
ScriptResult RunScript(const std::string& scenarioPath, const std::string& input = "");

}  // namespace quillet::test
