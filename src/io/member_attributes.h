#pragma once
// Attribute lines inside the code of a module file ("Attribute Item.VB_UserMemId = 0"):
// the editor hides them, so they are taken out of the code with an anchor and put back
// behind that anchor when the module is written.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "io/module_file.h"

namespace quillet::io {

struct ProcedureHeader {
  std::wstring name;
  int kind = 0;  // 0 Sub/Function, 1 Let, 2 Set, 3 Get
};

// "Attribute NAME = VALUE" (leading blanks allowed): the name and the value as written.
struct AttributeLine {
  std::wstring name;
  std::wstring value;
};
std::optional<AttributeLine> ParseAttributeLine(std::wstring_view line);

// The procedure that a logical line (continuations joined) declares, if any.
std::optional<ProcedureHeader> ParseProcedureHeader(std::wstring_view logicalLine);

// Whether a physical line continues on the next one (ends with " _").
bool ContinuesOnNextLine(std::wstring_view line);

// Splits the lines that follow a module's header into the code the editor shows and
// the attribute lines, each group anchored to the procedure header or line before it.
void ExtractMemberAttributes(std::vector<std::wstring> lines, std::vector<std::wstring>& code,
                             std::vector<MemberAttribute>& attributes);

struct PlacedCode {
  std::vector<std::wstring> lines;    // code with the attribute lines back in place
  std::vector<std::wstring> orphans;  // attribute lines whose anchor is gone
};

// Puts attribute lines back behind their anchors. With `unchanged` (the code is as it
// was loaded) each group returns to the line it came from.
PlacedCode PlaceMemberAttributes(const std::vector<std::wstring>& code,
                                 const std::vector<MemberAttribute>& attributes, bool unchanged);

}  // namespace quillet::io
