#pragma once
// A small bench harness: each benchmark runs a few times and the best time is printed with
// its target, so that a regression shows as a figure, never as a failing unit test.
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace quillet::bench {

struct Benchmark {
  std::string name{};
  std::string target{};  // what the figure must stay under, as text
  std::function<void()> setup{};
  std::function<void()> run{};
  int repeats = 5;
  // A figure of its own printed beside the time (a ratio, a size), given the best time.
  std::function<std::string(double ms)> remark{};
  // When set, the figure printed instead of the best time: a median, a size.
  std::function<std::string()> report{};
};

std::vector<Benchmark>& Registry();

struct Register {
  explicit Register(Benchmark b) { Registry().push_back(std::move(b)); }
};

// The exported file of a module "Module<n>" of about kLinesPerModule lines: declarations,
// then procedures of 20 lines with a comment above each header and a blank line between.
inline constexpr int kLinesPerModule = 500;
std::string ModuleText(int n);

// Milliseconds of the fastest of `repeats` runs.
double BestMilliseconds(const Benchmark& b);

}  // namespace quillet::bench
