#include "run_quillet.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace quillet::test {

ScriptResult RunScript(const std::string& scenarioPath, const std::string& input) {
  ScriptResult r;
  std::string path = scenarioPath;
  std::string tmp;
  if (scenarioPath == "-") {
    tmp = (std::filesystem::temp_directory_path() / ("quillet-stdin-" + std::to_string(::getpid()) + ".json")).string();
    std::ofstream(tmp, std::ios::binary) << input;
  }
  std::string cmd = std::string("'") + QUILLET_BINARY + "' script " + (tmp.empty() ? "'" + path + "'" : "- < '" + tmp + "'") +
                    " 2>/dev/null";
  FILE* p = ::popen(cmd.c_str(), "r");
  if (!p) return r;
  char buf[65536];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  int status = ::pclose(p);
  r.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (!tmp.empty()) std::filesystem::remove(tmp);
  try {
    r.json = nlohmann::json::parse(r.out);
  } catch (const nlohmann::json::exception&) {
  }
  return r;
}

}  // namespace quillet::test
