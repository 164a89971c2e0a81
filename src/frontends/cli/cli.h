#pragma once
// The subcommands of the quillet program that live in the command-line front-end.
#include <string>

namespace quillet::cli {

// "quillet script FILE|-" and "quillet script --help"; argv holds what follows "script".
int ScriptMain(int argc, char** argv);
// "--help", "-h" or "help".
bool IsHelp(const std::string& arg);

}  // namespace quillet::cli
