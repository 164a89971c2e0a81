// The quillet command: the front-ends of the engine.
#include <cstdio>
#include <cstring>

#include "frontends/cli/cli.h"
#include "shell/commands.h"
#include "vba/encoding.h"

int main(int argc, char** argv) {
  // `quillet commands`: every name a scenario's "command" and "click" steps take.
  if (argc == 2 && std::strcmp(argv[1], "commands") == 0) {
    std::fputs(quillet::vba::ToUtf8(quillet::shell::CommandsListing()).c_str(), stdout);
    return 0;
  }
  return quillet::cli::Main(argc, argv);
}
