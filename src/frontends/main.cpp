// The quillet command: the front-ends of the engine.
#include "frontends/cli/cli.h"

int main(int argc, char** argv) { return quillet::cli::Main(argc, argv); }
