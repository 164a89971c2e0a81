#pragma once
// A small checker for the VBA that the program ships: block statements that open and
// close in pairs, the layout the templates rely on, and the {TOKENS} and <marks> that
// the engine fills in. It reads statements the way the editor does (continued lines
// joined, comments and string literals skipped); it is no compiler.
#include <set>
#include <string>
#include <vector>

namespace quillet::datacheck {

// Problems of block structure, each naming the line: a Sub without End Sub, a Next
// without For, an Else outside an If, a procedure inside a procedure, an Exit Function
// inside a Sub, an If without Then, blocks left open at the end.
std::vector<std::wstring> StructureProblems(const std::vector<std::wstring>& lines);

// Problems of layout: tab characters, an indent that is no multiple of four blanks (on
// lines that do not continue the line above), a run of four blanks inside a string
// literal (the engine turns such runs into the user's indent).
std::vector<std::wstring> LayoutProblems(const std::vector<std::wstring>& lines);

// What a file may hold in braces and angle brackets.
struct TokenRules {
  std::set<std::wstring> templateTokens;  // upper case, without braces: "AUTHOR"
  bool includes = false;                  // {INCLUDE path}
  bool marks = false;                     // <cursor>, <end_of_top>, ...
  std::set<std::wstring> variableTypes;   // upper case; empty: no fragment variables
};

// Checks every {...} and <word> of the text against the rules, and that a variable
// token stands outside string literals and names one variable with one type only.
std::vector<std::wstring> TokenProblems(const std::vector<std::wstring>& lines, const TokenRules& rules);

// The text as the editor would see it once the engine has filled it in: tokens become
// names ({PROCEDURETYPE} the word "Sub"), "<cursor>" goes, and the text is cut into the
// zones that the marks "<end_of_top>", "<begin_of_bottom>" and
// "<BeforeHandleExitLabel>" send to different places of a procedure.
std::vector<std::vector<std::wstring>> FilledZones(const std::vector<std::wstring>& lines);

}  // namespace quillet::datacheck
