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
  const char* only = argc > 1 ? argv[1] : nullptr;
  std::printf("%-58s %12s   %s\n", "benchmark", "best (ms)", "target");
  for (const Benchmark& b : Registry()) {
    if (only && b.name.find(only) == std::string::npos) continue;
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
