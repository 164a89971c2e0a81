#include "frontends/cli/cli.h"

#include <cstdio>
#include <cstring>

#include "frontends/cli/scenario_runner.h"
#include "frontends/studio/studio_server.h"
#include "version.h"

namespace quillet::cli {

int Main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("quillet %d.%d.%d\n", kVersionMajor, kVersionMinor, kVersionRevision);
    return 0;
  }
  if (argc == 3 && std::strcmp(argv[1], "script") == 0) return RunScriptCommand(argv[2]);
  if (argc >= 2 && std::strcmp(argv[1], "studio") == 0) return studio::RunStudioCommand(argc - 2, argv + 2);
  std::fprintf(stderr, "usage: quillet studio [FOLDER] [--port N]\n       quillet script FILE|-\n       quillet --version\n");
  return 2;
}

}  // namespace quillet::cli
