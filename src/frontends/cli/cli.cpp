#include "frontends/cli/cli.h"

#include <cstdio>
#include <string>

#include "frontends/cli/scenario_check.h"
#include "frontends/cli/scenario_runner.h"

namespace quillet::cli {
namespace {

void PrintScriptHelp() {
  std::printf(
      "usage: quillet script FILE|-\n"
      "\n"
      "Plays a scenario (a JSON file, or standard input with -) against a fresh session on the\n"
      "in-memory editor, in a private sandbox, and prints the outcome as one JSON object.\n"
      "\n"
      "Top-level keys: now, bareHome, home, files, readOnly, settings, firstRun, registry, testing, hosts,\n"
      "hostObjects, projects, active, clipboard, start, steps (description and expect are\n"
      "notes the runner does not read).\n"
      "\n"
      "Steps, one action each (the other keys of a step may stand in any order):\n"
      "  {\"connect\": true} {\"disconnect\": true}   the host loads or unloads the add-in\n"
      "  {\"tick\": 500}                            advance the clock (at most one day)\n"
      "  {\"click\": \"mnuhAddProcedure\"}            click a bar control by its handler;\n"
      "                                           a dropdown with \"text\": \"entry\"\n"
      "  {\"command\": \"If Then Else\", \"argument\": \"\"}   call the statement dispatcher\n"
      "  {\"select\": [l1, c1, l2, c2]}  {\"activate\": \"Module2\"}  {\"window\": \"immediate\"}\n"
      "  {\"selectComponent\": \"Class1\"}  {\"type\": \"abc\\n\"} (at most %zu MiB)\n"
      "  {\"setCode\": {\"component\", \"code\"}}  {\"addComponent\": {...}}  {\"removeComponent\": \"C\"}\n"
      "  {\"addProject\": {...}}  {\"closeProject\": \"P\"}  {\"protect\": {\"project\", \"locked\"}}\n"
      "  {\"clipboard\": \"text\"}  {\"saveProject\": \"P\"} or {\"project\", \"folder\"}\n"
      "  {\"addReference\": {\"name\", \"fullPath\", \"broken\", \"project\"}}  {\"removeReference\": \"Word\"}\n"
      "                                           or {\"project\", \"name\"}: a library ticked or unticked\n"
      "  answers: {\"msgbox\": \"Yes\"} {\"inputbox\": \"2\"|null} {\"file\": path|null} {\"folder\": path|null}\n"
      "  forms: {\"form\": \"frmX\", one of \"set\" (applied in the order written), \"click\",\n"
      "         \"dblclick\", \"focus\", \"close\", \"key\", \"caret\", \"drag\", \"node\", \"item\", \"label\",\n"
      "         \"tab\", \"dump\",\n"
      "         \"expand\"/\"collapse\": {\"tvFiles\": \"KEY\"} (the node's button; refused without children),\n"
      "         \"clickOutside\": true (a mouse press outside a pop-up that holds the mouse),\n"
      "         \"leave\": true (the focus goes to a window outside the program)};\n"
      "         {\"drag\": {\"control\": \"imgSplitter\", \"by\": [dx, dy]}} in twips\n"
      "  tool windows: {\"convertToHtml\": \"Module1\"} or {\"component\", \"procedure\", \"kind\"}\n"
      "  records: {\"dumpBar\": true}  {\"dump\": \"models\"} (what the scans know of the project)\n"
      "\n"
      "Bounds: a tab width (registry TabWidth) from 1 to %d; lines up to %lld, columns up to %lld;\n"
      "nesting up to %d levels.\n"
      "\n"
      "Exit status:\n"
      "  0  the scenario ran to its end, whatever the engine did\n"
      "  1  the scenario does not fit the run: a step the engine's state does not allow (no such\n"
      "     component, form or control; an answer nobody asked for; a question left unanswered)\n"
      "  2  unreadable input: a scenario file that is missing, a folder, not UTF-8\n"
      "     JSON, too deep, or a key or value the format does not allow (an unknown key, a\n"
      "     value of the wrong type or beyond its bounds, two actions in one step), or a\n"
      "     project folder it names that cannot be read as a project\n"
      "The reason is printed on standard error and under \"error\" in the outcome.\n"
      "\n"
      "The format is a contract: see scenario-format.md of the project's shared documents, and\n"
      "the working examples under tests/scenarios/ of the source tree.\n",
      kMaxTypedBytes >> 20, kMaxTabWidth, static_cast<long long>(kMaxLine), static_cast<long long>(kMaxColumn),
      kMaxNesting);
}

}  // namespace

bool IsHelp(const std::string& a) { return a == "--help" || a == "-h" || a == "help"; }

int ScriptMain(int argc, char** argv) {
  std::string arg = argc >= 1 ? argv[0] : "";
  if (IsHelp(arg)) {
    PrintScriptHelp();
    return 0;
  }
  if (argc != 1) {
    std::fprintf(stderr, "usage: quillet script FILE|-   (quillet script --help tells more)\n");
    return 2;
  }
  return RunScriptCommand(arg);
}

}  // namespace quillet::cli
