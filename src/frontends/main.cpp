// The quillet command: the front-ends of the engine.
#include <cstring>

#include "frontends/cli/cli.h"
#include "frontends/cli/html_command.h"

int main(int argc, char** argv) {
  if (argc >= 2 && std::strcmp(argv[1], "html") == 0) return quillet::cli::RunHtmlCommand(argc - 2, argv + 2);
  return quillet::cli::Main(argc, argv);
}
