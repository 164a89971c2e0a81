// The quillet command: one program, one subcommand per front-end.
#include <cstdio>
#include <string>

#include "frontends/cli/cli.h"
#include "frontends/cli/html_command.h"
#include "frontends/studio/studio_server.h"
#include "shell/commands.h"
#include "vba/encoding.h"
#include "version.h"

namespace {

// `quillet commands`: every name a scenario's "command" and "click" steps take.
int CommandsMain(int argc, char** argv) {
  if (argc >= 1 && quillet::cli::IsHelp(argv[0])) {
    std::printf(
        "usage: quillet commands\n\nLists every statement dispatcher command (those of a later version marked)\n"
        "and every command bar handler with its caption and the command it runs.\n");
    return 0;
  }
  std::fputs(quillet::vba::ToUtf8(quillet::shell::CommandsListing()).c_str(), stdout);
  return 0;
}

struct Subcommand {
  const char* name;
  const char* summary;
  int (*run)(int argc, char** argv);  // gets the arguments behind the subcommand's name
};

// The subcommands, in the order "quillet --help" lists them. A new front-end adds a line
// here and answers "--help" itself.
const Subcommand kSubcommands[] = {
    {"studio", "[FOLDER] [--port N]   open a folder of exported modules in the studio, a web page on 127.0.0.1",
     quillet::studio::RunStudioCommand},
    {"script", "FILE|-   play a scenario on the in-memory editor and print its outcome as JSON",
     quillet::cli::ScriptMain},
    {"html", "FILE.bas|FILE.cls|FOLDER [-o OUT]   a module or a folder of modules as coloured HTML pages",
     quillet::cli::RunHtmlCommand},
    {"commands", "  every statement dispatcher command and command bar handler, with its caption", CommandsMain},
};

void PrintUsage(std::FILE* to) {
  std::fprintf(to, "usage: quillet COMMAND [ARGS]\n\ncommands:\n");
  for (const Subcommand& c : kSubcommands) std::fprintf(to, "  %s %s\n", c.name, c.summary);
  std::fprintf(to,
               "  --version   print the version\n"
               "  --help      print this text; \"quillet COMMAND --help\" tells more of one command\n");
}

}  // namespace

int main(int argc, char** argv) {
  std::string command = argc >= 2 ? argv[1] : "";
  if (command == "--version") {
    std::printf("quillet %d.%d.%d\n", quillet::kVersionMajor, quillet::kVersionMinor, quillet::kVersionRevision);
    return 0;
  }
  if (quillet::cli::IsHelp(command)) {
    PrintUsage(stdout);
    return 0;
  }
  for (const Subcommand& c : kSubcommands)
    if (command == c.name) return c.run(argc - 2, argv + 2);
  PrintUsage(stderr);
  return 2;
}
