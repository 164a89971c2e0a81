#pragma once
// How a scenario ends early. Neither derives from std::exception, so that no error trap of
// the engine takes one for a failure of its own: they pass through to the runner.
#include <string>

namespace quillet::cli {

// The scenario does not fit what the engine asked or has: exit status 1.
struct ScenarioError {
  std::string message;
};

// The input cannot be read as a scenario: exit status 2.
struct UnreadableInput {
  std::string message;
};

}  // namespace quillet::cli
