#pragma once
// Shows VBA source as a coloured page in the user's browser: the page is made from the
// template beside the program, written to the temporary folder and opened with the shell.
//   Convert2HTML(s, component);           // the whole module
//   Convert2HTML(s, component, L"Main");  // one procedure
#include <string>
#include <string_view>

#include "codetools/vb2html.h"
#include "hostmodel/vbe.h"
#include "kernel/session.h"

namespace quillet::codetools {

// Puts `html` into the template beside the program (or the default), writes it to the
// temporary folder as "vb2html.htm" and opens it with the shell.
void ViewHTML(kernel::Session& s, std::wstring_view html, std::wstring_view moduleName,
              std::wstring_view procedureName);
// The code of one procedure of a component, or its declarations for "(Declaration)".
std::wstring ProcedureCode(kernel::Session& s, const host::Ptr<host::VBComponent>& component,
                           std::wstring_view procedureName, host::ProcKind kind);
// Shows a component (no procedure name) or one of its procedures as a page: what the Code
// Explorer's "Convert to HTML" does for the selected node.
void Convert2HTML(kernel::Session& s, const host::Ptr<host::VBComponent>& component,
                  std::wstring_view procedureName = {}, host::ProcKind kind = host::kProcKind);

}  // namespace quillet::codetools
