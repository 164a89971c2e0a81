#pragma once
// Filling the templates the user may customise: fragment files, header files, the error
// handling text, class templates. Tokens in braces ("{AUTHOR}", "{MODULENAME}") are
// replaced by values; marks in angle brackets ("<cursor>") stay for the insertion.
//
//   std::wstring text = L"' {PROCEDURENAME} by {AUTHOR}";
//   std::wstring module, proc = L"Main", type;
//   Substitute(s, text, module, proc, type);   // "' Main by Ada"
#include <string>
#include <string_view>

#include "kernel/session.h"

namespace quillet::generators {

// What HeaderGet makes a header for.
enum HeaderKind : long { kProcedureHeader = 10005, kModuleHeader = 10008 };

// Replaces the tokens of `text`. The three names may come in empty and go out filled:
// the module's name from the active code pane, the procedure's from the caret, its type
// from its definition line, each looked up only when its token occurs. Four-blank runs
// become the editor's indent before any name enters. Always true; a failure is reported
// as "basGlobal.Substitute" and leaves the text as far as it got.
bool Substitute(kernel::Session& s, std::wstring& text, std::wstring& moduleName, std::wstring& procedureName,
                std::wstring& procedureType, std::wstring_view rest = {});

// Resolves every "{INCLUDE path}" of `text` with the file at `path` (relative to the
// program's folder), itself substituted. A missing or empty file replaces the tag by
// nothing; a tag without "}" stays.
bool FileSubstitute(kernel::Session& s, std::wstring& text, std::wstring& moduleName, std::wstring& procedureName,
                    std::wstring& procedureType);

// The procedure or module header from its template file, with `name` for both names and
// `description`; ends with one indent and CR LF. "" when there is no template.
std::wstring HeaderGet(kernel::Session& s, long kind, std::wstring_view name, std::wstring_view description);

// A comment block of `text` for a header: each line behind "'   ", lines over 50
// characters cut at the first blank from column 50 on.
std::wstring WrapText(std::wstring_view text);

// Prefixes every line of `text` with `indent` blanks (the caret's indent for -1).
void IndentAddToFragment(kernel::Session& s, std::wstring& text, int indent);

}  // namespace quillet::generators
