#pragma once
// Code with its caret or selection written inside it, as a reader pictures it:
//
//   {L"Sub A()", L"    x = 1: |", L"End Sub"}       a caret on line 2, column 12
//   {L"Sub A()", L"[[", L"    x = 1", L"]]End Sub"}  a selection from line 2 to line 4
//
// `Unmark` takes the markers out and gives the selection; `Mark` puts a caret or a
// selection back into lines, so a test compares whole modules as text.
#include <string>
#include <vector>

#include "hostmodel/selection.h"

namespace quillet::test {

struct MarkedCode {
  std::vector<std::wstring> lines;
  host::Selection selection;  // line 1, column 1 when the code has no marker
};

MarkedCode Unmark(const std::vector<std::wstring>& marked);
std::vector<std::wstring> Mark(std::vector<std::wstring> lines, const host::Selection& selection);

}  // namespace quillet::test
