#pragma once
// VBA source as a coloured web page: VB2HTML makes the HTML of the code, HtmlPage puts it
// into the page template, ViewHTML writes the page to the temporary folder and opens it.
//   std::wstring page = HtmlPage(DefaultHtmlTemplate(), VB2HTML(code), L"Module1", L"", L"utf-8");
#include <string>
#include <string_view>

#include "hostmodel/vbe.h"
#include "shell/session.h"

namespace quillet::codetools {

// The HTML of VBA text: keywords and comments in coloured font tags, line breaks as
// "<br>", blanks outside strings and comments as "&nbsp;", "<" and ">" escaped.
std::wstring VB2HTML(std::wstring_view code);

// The page used when the template file beside the program is missing or empty.
const std::wstring& DefaultHtmlTemplate();
// The template with "[modulename]", "[procedurename]", "[title]", "[charset]" and "[code]"
// replaced, in that order, everywhere and with regard to case. The title is the procedure's
// name, or the module's when there is none.
std::wstring HtmlPage(std::wstring_view templateText, std::wstring_view html, std::wstring_view moduleName,
                      std::wstring_view procedureName, std::wstring_view charset);

// The template file beside the program.
inline constexpr const wchar_t* kHtmlTemplateFile = L"vb2htmltemplate.htm";
// The page written into the temporary folder.
inline constexpr const wchar_t* kHtmlPageFile = L"vb2html.htm";

// Puts `html` into the template beside the program (or the default), writes it to the
// temporary folder as "vb2html.htm" and opens it with the shell.
void ViewHTML(shell::Session& s, std::wstring_view html, std::wstring_view moduleName,
              std::wstring_view procedureName);
// The code of one procedure of a component, or its declarations for "(Declaration)".
std::wstring ProcedureCode(shell::Session& s, const host::Ptr<host::VBComponent>& component,
                           std::wstring_view procedureName, host::ProcKind kind);
// Shows a component (no procedure name) or one of its procedures as a page: what the Code
// Explorer's "Convert to HTML" does for the selected node.
void Convert2HTML(shell::Session& s, const host::Ptr<host::VBComponent>& component,
                  std::wstring_view procedureName = {}, host::ProcKind kind = host::kProcKind);

}  // namespace quillet::codetools
