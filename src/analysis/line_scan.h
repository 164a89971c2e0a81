#pragma once
// Reading VBA source at line level, without a grammar: statements of a line, the
// declaration area of a procedure, its last Exit statement, the kind of a definition, the
// declaration statements of a module. The tests are plain string tests and "Like" patterns,
// case-sensitive unless said otherwise; lines are joined by CR LF.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::analysis {

// Splits a line into its statements. Without ": " the whole line, trimmed, is the one part,
// a comment included. Otherwise the line is cut at every colon outside double quotes and
// at the first apostrophe outside them, where the walk ends and the comment is dropped;
// every cut adds a part, even an empty one, and a non-empty rest closes the list. So
// "Foo: ' note" gives "Foo" and an empty part. `parts` is refilled; returns their number.
long LineDisjunction(std::wstring_view line, std::vector<std::wstring>& parts);
// The first of those parts, a piece of `line` itself.
std::wstring_view FirstStatement(std::wstring_view line);
// The text without the blanks at its ends (tabs stay), as a piece of it.
std::wstring_view TrimView(std::wstring_view text);

// A line that may stand in a procedure's declaration area: "Const ", "Dim " or "Static "
// at the start of the trimmed line (any case), a blank line, or a line continued from the
// previous one (whose last two characters are " _").
bool IsDeclarationLine(std::wstring_view line, std::wstring_view previous);

// Cuts a declaration list at the commas outside double quotes, each piece trimmed.
// An empty text gives no piece. `parts` is refilled; returns their number.
long DeclListSplit(std::wstring_view text, std::vector<std::wstring>& parts);
// The same pieces as parts of `text` itself.
long DeclListSplit(std::wstring_view text, std::vector<std::wstring_view>& parts);

// How StringTrimChars trims.
enum TrimMode : int { kTrimLeft = 0, kTrimBoth = 1, kTrimRight = 2 };
// Removes `delimiter` from the ends of `text`, in steps of its length. A text of nothing
// but delimiters stays as it is, and so does a leading delimiter whose removal would leave
// one character or none.
std::wstring StringTrimChars(std::wstring_view text, std::wstring_view delimiter, int mode);

// How many times `delimiter` stands in `text` (case-sensitive, without overlaps).
long SubstringCount(std::wstring_view text, std::wstring_view delimiter);

// Whether the Exit statement on `lines[index]` counts as inside an If: a one-line "If ..."
// does; otherwise only a line that itself starts with "End If" with an even, non-zero
// number of lines behind it does. An index outside the lines raises error 9.
bool ExitLineIsInsideIf(std::span<const std::wstring> lines, long index);

// "Function", "Property" or "Sub": which of the words stands in the definition line before
// the procedure's name followed by "(" (any case). Without "name(" in the line, "Sub".
std::wstring ProcedureTypeGet(std::wstring_view procName, std::wstring_view definitionLine);

// The declaration area of a procedure: the Const, Dim, Static, blank and continued lines
// under its definition and the comments right under it, with the first On Error line when
// `countOnError` is set, extended over declarations behind that line, cut back over
// trailing blanks.
//
// With `firstLine` of 1 or more it is the definition line of a procedure of the active
// code module, whose lines are read and handed back in `text`; below 1 the lines are
// `text` and the line numbers count from 1 in it. `defLineCount` is the number of physical
// lines of the definition. An area without lines ends above its start. A failure is
// reported as "basGlobal.ProcDeclAreaGet"; the out-values then keep what they held.
void ProcDeclAreaGet(kernel::Session& s, long& declStart, long& declEnd, long firstLine, long& defLineCount,
                     bool countOnError, std::wstring& text);

// The line of the procedure's last Exit statement of the kind `typeWord` ("Sub",
// "Function", "Property") that is not behind a comment, or the procedure's last line (the
// End statement) when there is none or when `checkIf` finds that last Exit inside an If.
// With `firstLine` above 0 the lines from `firstLine` to `lastLine` of the active code
// module are read and handed back in `text`; with 0 `text` is used, a hit is the 0-based
// index of its line and the default the number of lines. A failure is reported as
// "basGlobal.ProcExitLineGet" and gives 0.
long ProcExitLineGet(kernel::Session& s, long firstLine, long lastLine, std::wstring_view typeWord,
                     std::wstring& text, bool checkIf);

// The two walks above on lines already read, for a scan that reads a procedure once.
// `lines` start with the definition line `firstLine` and are, for the Exit walk, the text
// as it stands after trimming line ends (first and last line not empty). Failures raise.
void ProcDeclAreaOf(std::span<const std::wstring> lines, long firstLine, bool countOnError, long& declStart,
                    long& declEnd, long& defLineCount);
long ProcExitLineOf(std::span<const std::wstring> lines, long firstLine, std::wstring_view typeWord, bool checkIf);

// Joins physical lines into statements, as the scans read them: a line ending in "_"
// continues on the next (blank-separated), a blank line or a line that does not continue
// ends the statement, and each ended statement is split by LineDisjunction into the
// non-empty parts that are appended to `statements`. A statement still continued after
// the last line is dropped.
class StatementJoiner {
 public:
  explicit StatementJoiner(std::vector<std::wstring>& statements) : statements_(statements) {}
  // With `stripComments` the text from the first apostrophe on is cut away first.
  void Line(std::wstring_view line, bool stripComments);

 private:
  void Flush();
  void Emit(std::wstring_view text);
  std::vector<std::wstring>& statements_;
  std::wstring pending_;
};

// The statements of a module's declarations section, comments removed and continued
// lines joined, appended to `statements` in order.
void ModuleDeclLinesGet(host::CodeModule& module, std::vector<std::wstring>& statements);

}  // namespace quillet::analysis
