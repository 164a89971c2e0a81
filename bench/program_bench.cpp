// Whole runs of `quillet script`, as a user starts them: the program's start, the sandbox,
// the project folder read and the outcome printed, measured from outside the process.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench.h"

namespace quillet::bench {
namespace {

namespace fs = std::filesystem;

// A folder of scenarios and generated project folders, made once for every benchmark.
struct Workspace {
  fs::path root;
  Workspace() {
    root = fs::temp_directory_path() / ("quillet-program-bench-" + std::to_string(::getpid()));
    fs::create_directories(root);
    std::ofstream(root / "one_module.json")
        << R"js({"projects": [{"name": "VBAProject", "components": [{"name": "Module1", "code": ["Sub Main()", "", "End Sub"]}]}],
              "active": {"component": "Module1", "selection": [2, 1, 2, 1]}, "steps": [{"command": "ForNext"}]})js";
  }
  ~Workspace() {
    std::error_code ec;
    fs::remove_all(root, ec);
  }
  // A project folder of `modules` modules of 500 lines, and a scenario that loads it.
  std::string Project(int modules) {
    std::string name = "p" + std::to_string(modules);
    if (!fs::exists(root / name)) {
      fs::create_directories(root / name);
      for (int n = 1; n <= modules; ++n)
        std::ofstream(root / name / ("Module" + std::to_string(n) + ".bas"), std::ios::binary) << ModuleText(n);
      std::ofstream(root / (name + ".json")) << R"({"projects": [{"folder": ")" << name << R"("}]})";
    }
    return (root / (name + ".json")).string();
  }
};

Workspace& Work() {
  static Workspace w;
  return w;
}

void RunScript(const std::string& scenario) {
  std::string cmd = std::string("'") + QUILLET_BINARY + "' script '" + scenario + "' >/dev/null 2>&1";
  if (std::system(cmd.c_str()) != 0) std::fprintf(stderr, "quillet script %s failed\n", scenario.c_str());
}

std::string oneModule, lines100k, lines1m;

Register oneModuleBench({"quillet script: a scenario of one module", "under 50 ms",
                         [] { oneModule = (Work().root / "one_module.json").string(); },
                         [] { RunScript(oneModule); }, 5});
Register folder100kBench({"quillet script: a project folder of 100 000 lines", "under 300 ms",
                          [] { lines100k = Work().Project(100000 / kLinesPerModule); },
                          [] { RunScript(lines100k); }, 3});
Register folder1mBench({"quillet script: a project folder of 1 000 000 lines", "about 10x the 100 000 lines (linear)",
                        [] { lines1m = Work().Project(1000000 / kLinesPerModule); },
                        [] { RunScript(lines1m); }, 2});

}  // namespace
}  // namespace quillet::bench
