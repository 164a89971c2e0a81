#include "frontends/cli/cli.h"

#include <cstdio>
#include <cstring>

#include "version.h"

namespace quillet::cli {

int Main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "--version") == 0) {
    std::printf("quillet %d.%d.%d\n", kVersionMajor, kVersionMinor, kVersionRevision);
    return 0;
  }
  std::fprintf(stderr, "usage: quillet script FILE|-\n");
  return 2;
}

}  // namespace quillet::cli
