#pragma once
// Where the procedures of a module begin and end, as the editor sees them. Built once
// from the module's lines and kept until the next edit, so that asking for the procedure
// of a line is a search, not a scan from the top.
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "hostmodel/vbe.h"
#include "vba/text.h"

namespace quillet::host {

struct ProcExtent {
  std::wstring name;
  ProcKind kind = kProcKind;
  long startLine = 0;  // first line that belongs to it: comments and blanks above the header
  long bodyLine = 0;   // the header line
  long endLine = 0;    // last line that belongs to it
};

// Recognises a procedure header ("Public Static Function Foo(") in a logical line and
// gives its name and kind. Declare statements, events and blocks are not headers.
bool ParseProcHeader(std::wstring_view logicalLine, std::wstring& name, ProcKind& kind);
// "End Sub", "End Function", "End Property", with anything behind a blank, ":" or "'".
bool IsProcEnd(std::wstring_view logicalLine);
// A line that holds nothing but blanks, tabs or a comment ("'" or "Rem").
bool IsBlankOrComment(std::wstring_view line);

class ProcIndex {
 public:
  void Build(const std::vector<std::wstring>& lines);

  long DeclarationLines() const { return declarationLines_; }
  const std::vector<ProcExtent>& Procs() const { return procs_; }
  // The procedure a line belongs to, nullptr in the declarations section.
  const ProcExtent* ProcOfLine(long line) const;
  const ProcExtent* Find(std::wstring_view name, ProcKind kind) const;

 private:
  long declarationLines_ = 0;
  std::vector<ProcExtent> procs_;
  // Each procedure's position under its name, compared without regard to case; the few
  // names shared by the accessors of one property are told apart by their kinds.
  std::unordered_multimap<std::wstring, std::size_t, vba::TextHash, vba::TextEqual> byName_;
};

}  // namespace quillet::host
