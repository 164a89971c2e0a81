#include "frontends/cli/cli.h"

#include <cstdio>
#include <cstring>

#include "frontends/cli/scenario_runner.h"
#include "version.h"

namespace quillet::cli {

int Main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("quillet %d.%d.%d\n", kVersionMajor, kVersionMinor, kVersionRevision);
    return 0;
  }
  if (argc == 3 && std::strcmp(argv[1], "script") == 0) return RunScriptCommand(argv[2]);
  std::fprintf(stderr, "usage: quillet script FILE|-\n       quillet html FILE.bas|FILE.cls|FOLDER [-o OUT]\n       quillet --version\n");
  return 2;
}

}  // namespace quillet::cli
