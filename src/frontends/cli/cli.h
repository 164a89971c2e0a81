#pragma once

namespace quillet::cli {

// Dispatches the command line: "quillet script FILE|-", "quillet --version".
int Main(int argc, char** argv);

}  // namespace quillet::cli
