#include <cstring>

#include "bench.h"

namespace quillet::bench {

std::vector<Benchmark>& Registry() {
  static std::vector<Benchmark> all;
  return all;
}

double BestMilliseconds(const Benchmark& b) {
  double best = 1e300;
  for (int i = 0; i < b.repeats; ++i) {
    if (b.setup) b.setup();
    auto start = std::chrono::steady_clock::now();
    b.run();
    double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    if (ms < best) best = ms;
  }
  return best;
}

}  // namespace quillet::bench

int main(int argc, char** argv) {
  using namespace quillet::bench;
  // An argument picks the benchmarks whose names hold one of its "|"-separated pieces.
  std::vector<std::string> only;
  if (argc > 1)
    for (std::string rest = argv[1];;) {
      const std::size_t bar = rest.find('|');
      only.push_back(rest.substr(0, bar));
      if (bar == std::string::npos) break;
      rest.erase(0, bar + 1);
    }
  auto picked = [&](const std::string& name) {
    if (only.empty()) return true;
    for (const std::string& piece : only)
      if (name.find(piece) != std::string::npos) return true;
    return false;
  };
  std::printf("%-58s %12s   %s\n", "benchmark", "best (ms)", "target");
  for (const Benchmark& b : Registry()) {
    if (!picked(b.name)) continue;
    if (b.report) {
      std::printf("%-58s %12s   %s\n", b.name.c_str(), b.report().c_str(), b.target.c_str());
      continue;
    }
    double ms = BestMilliseconds(b);
    std::string remark = b.remark ? b.remark(ms) : std::string();
    std::printf("%-58s %12.3f   %s%s%s\n", b.name.c_str(), ms, b.target.c_str(), remark.empty() ? "" : "   ",
                remark.c_str());
  }
  return 0;
}
