#pragma once
// Exported component files (.bas, .cls, .frm): the editor shows only the code; the header
// (VERSION/BEGIN...END block, Attribute lines) is kept aside and comes back on save.
#include <string>
#include <string_view>
#include <vector>

namespace quillet::io {

enum class TextEncoding { Windows1252, Utf8Bom };
enum class LineEnd { CrLf, Lf };

// The error number of a module file that cannot be loaded ("Invalid file format").
inline constexpr long kErrInvalidFileFormat = 321;

// Attribute lines that stood inside the code, with what they followed: a procedure header
// (`procedure`, `kind`) or, in the declarations and elsewhere, the line `after`.
struct MemberAttribute {
  std::wstring procedure;   // name of the procedure whose header the lines followed
  int kind = 0;             // 0 Sub/Function, 1 Let, 2 Set, 3 Get
  std::vector<std::wstring> lines;
  std::wstring after;       // the code line they followed when no procedure header
  int line = 0;             // how many code lines stood before them when loaded

  bool operator==(const MemberAttribute&) const = default;
};

struct ModuleFile {
  std::wstring name;                 // from Attribute VB_Name
  int type = 1;                      // 1 standard module, 2 class, 3 user form, 100 document
  std::vector<std::wstring> header;  // every line before the code, attributes included
  std::vector<std::wstring> code;    // the lines the editor shows
  std::vector<MemberAttribute> memberAttributes;
  std::string designer;              // the binary designer part (.frx) of a form, as bytes
  TextEncoding encoding = TextEncoding::Windows1252;
  LineEnd lineEnd = LineEnd::CrLf;
  bool finalLineEnd = true;          // the file ended with a line end
  std::string original;              // the bytes as loaded; empty for a new module
};

// Parses a module file. `fileName` names the file in every error. Raises vba::Error with a
// description that names the file and the line and says why (binary content, no
// Attribute VB_Name, a lone CR, a header that does not end).
ModuleFile ParseModuleFile(std::string_view bytes, std::wstring_view fileName);
// The bytes to write: the original bytes when header and code are unchanged, else the
// header, the code with member attributes back behind their procedure headers, in the
// file's own encoding and line ends.
std::string SerializeModuleFile(const ModuleFile& module);
// A new module of the given type and name, ready for code.
ModuleFile NewModuleFile(std::wstring_view name, int type);
// The file extension of a component type: ".bas", ".cls", ".frm".
std::wstring ModuleExtension(int type);
// The file name of a form's designer part: the ".frx" its header refers to, else the
// module's file name with ".frx".
std::wstring DesignerFileName(const ModuleFile& module, std::wstring_view moduleFileName);

}  // namespace quillet::io
