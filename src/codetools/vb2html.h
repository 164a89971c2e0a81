#pragma once
// VBA source as a coloured web page: VB2HTML makes the HTML of the code, HtmlPage puts it
// into the page template (ViewHTML, in view_html.h, shows it).
//   std::wstring page = HtmlPage(DefaultHtmlTemplate(), VB2HTML(code), L"Module1", L"", L"utf-8");
#include <string>
#include <string_view>

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

}  // namespace quillet::codetools
