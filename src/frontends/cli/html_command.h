#pragma once
// "quillet html FILE.bas|FILE.cls|FOLDER [-o OUT]": exported modules as coloured web pages
// with the shipped template, for people who publish VBA. A file gives one page (beside it,
// or OUT); a folder gives one page per module (into the folder, or the folder OUT).
namespace quillet::cli {

// `args` are the words behind "html". Exit status 0 when every page was written, 1 when a
// module could not be read or a page not written, 2 for a wrong command line.
int RunHtmlCommand(int argc, char** argv);

}  // namespace quillet::cli
