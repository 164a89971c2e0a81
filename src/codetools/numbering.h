#pragma once
// Numeric line labels in front of the executable lines of the selection, so that Erl can
// report where an error happened, and their removal. Numbers come from the editor's line
// position: (first line of the selection + line) followed by a 0, so they rise by ten.
//   LineNumbers(s, kAddNumbers);     // "    x = 1" on line 5 of a selection from 5: "100     x = 1"
//   LineNumbers(s, kRemoveNumbers);  // and back
// The text rules are pure functions on lines; the commands read the active pane, apply
// the lines that change and put the selection back.
#include <string>
#include <string_view>
#include <vector>

#include "kernel/session.h"

namespace quillet::codetools {

enum LineNumbersAction : int { kAddNumbers = 0, kRemoveNumbers = 1 };

// The command of the menu: does nothing without an active code pane.
void LineNumbers(kernel::Session& s, int action);
// Numbers the selection of the active pane; `base` 0 takes the selection's first line.
void ReplaceLines(kernel::Session& s, long& base);
// Takes the numbers from the selection of the active pane.
void UnReplaceLines(kernel::Session& s);

// A line without the number at its very start, with one ":" and one blank behind it.
std::wstring GetLineWithoutNumber(std::wstring_view line);
// Position of the apostrophe that opens a comment outside a string; 0 when there is none.
long BeginComment(std::wstring_view line);
// One piece without blanks that ends in ":", tested on the untrimmed line.
bool IsLabel(std::wstring_view line);
// A Sub, Function or Property header, plain or with Private, Public or Global in front; a
// prefix test, so "SubTotal = 1" counts and "Friend Sub" does not.
bool IsProcedureHeader(std::wstring_view text);
// The header test for one access word: kind 0 none, 1 and 4 "PRIVATE ", 2 "PUBLIC ",
// 3 "GLOBAL "; another kind raises the error "NEVER HERE !!".
bool FindISFunction(std::wstring_view text, int kind);
bool IsHeaderOrComment(std::wstring_view line);

// The lines of a selection without their numbers; a line left empty becomes one blank.
std::vector<std::wstring> WithoutNumbers(std::vector<std::wstring> lines);
// The lines of a selection that starts at `firstLine`, numbered after their old numbers
// went; `lineAfter` is the module line behind the selection ("" at the end of the module)
// and `base` is as ReplaceLines takes it.
std::vector<std::wstring> WithNumbers(std::vector<std::wstring> lines, long firstLine, long base,
                                      std::wstring_view lineAfter);

}  // namespace quillet::codetools
