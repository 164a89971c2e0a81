#pragma once
// The form of a scenario, checked whole before a session starts: every key known, every
// value of its type and within its bounds. What fails here is unreadable input (exit 2)
// and nothing has run; what is left for the run is whether the steps fit what happens.
//
//   json s = ParseScenario(text);   // throws UnreadableInput: not JSON, too deep
//   CheckScenario(s);               // throws UnreadableInput naming the step or field
//   std::string kind = ActionOf(s["steps"][0]);   // "click", "form", ...
#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>

namespace quillet::cli {

using json = nlohmann::ordered_json;

// Bounds of values that would otherwise make a run take unreasonable time or memory.
inline constexpr std::int64_t kMaxTickMilliseconds = 24LL * 60 * 60 * 1000;  // one day
inline constexpr std::size_t kMaxTypedBytes = 4u << 20;                      // 4 MiB
inline constexpr int kMaxTabWidth = 32;                                      // as the editor's options
inline constexpr std::int64_t kMaxLine = 10'000'000;
inline constexpr std::int64_t kMaxColumn = 65'535;
inline constexpr int kMaxNesting = 64;

// Parses scenario text, keeping the order of keys as written.
json ParseScenario(const std::string& text);
// Checks the whole scenario against the format.
void CheckScenario(const json& scenario);
// The kind of a checked step: its one action key ("form" for a form step).
std::string ActionOf(const json& step);
// "step 3 {"click":"cmdOK"}" for messages, shortened.
std::string StepLabel(const json& step, std::size_t index);

}  // namespace quillet::cli
