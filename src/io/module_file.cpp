#include "io/module_file.h"

#include <optional>

#include "io/member_attributes.h"
#include "io/module_text.h"
#include "io/paths.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::io {
namespace {

std::wstring_view Trim(std::wstring_view s) {
  std::size_t first = s.find_first_not_of(L" \t");
  if (first == std::wstring_view::npos) return {};
  return s.substr(first, s.find_last_not_of(L" \t") + 1 - first);
}

std::wstring LineNo(std::size_t index) { return L"line " + std::to_wstring(index + 1); }

// The designer blocks of a header: "BEGIN" or "Begin {...} Name" and "BeginProperty"
// open one, "END"/"End" and "EndProperty" close it.
bool OpensBlock(std::wstring_view t) {
  return vba::EqualsText(t, L"BEGIN") || vba::StartsWithText(t, L"Begin ") || vba::StartsWithText(t, L"Begin\t") ||
         vba::StartsWithText(t, L"BeginProperty");
}

bool ClosesBlock(std::wstring_view t) { return vba::EqualsText(t, L"END") || vba::EqualsText(t, L"EndProperty"); }

std::wstring Unquote(std::wstring_view value) {
  if (value.size() >= 2 && value.front() == L'"' && value.back() == L'"') value = value.substr(1, value.size() - 2);
  return std::wstring(value);
}

// Where the header ends (the index of the first code line) and the component type it
// shows. Refuses a designer block that does not end.
std::size_t ReadHeader(const std::vector<std::wstring>& lines, std::wstring_view fileName, int& type) {
  std::size_t i = 0;
  type = 1;
  if (!lines.empty() && vba::StartsWithText(Trim(lines[0]), L"VERSION ")) {
    type = vba::EndsWithText(Trim(lines[0]), L"CLASS") ? 2 : 3;
    std::size_t depth = 0, openedAt = 0;
    for (i = 1; i < lines.size(); ++i) {
      std::wstring_view t = Trim(lines[i]);
      if (OpensBlock(t)) {
        if (depth++ == 0) openedAt = i;
      } else if (depth > 0 && ClosesBlock(t)) {
        if (--depth == 0) {
          ++i;
          break;
        }
      } else if (depth == 0 && ParseAttributeLine(t)) {
        break;  // a header without a designer block
      }
    }
    if (depth > 0)
      RefuseModule(fileName, LineNo(openedAt),
                   L"the block that begins here has no matching END, so the header never ends");
  }
  // The attribute lines that follow the block (or start the file); blank lines between
  // them belong to the header.
  std::size_t end = i;
  for (std::size_t k = i; k < lines.size(); ++k) {
    if (ParseAttributeLine(lines[k]))
      end = k + 1;
    else if (!Trim(lines[k]).empty())
      break;
  }
  return end;
}

// Index of the header's "Attribute VB_Name" line.
std::optional<std::size_t> FindNameLine(const std::vector<std::wstring>& lines, std::size_t from, std::size_t to) {
  for (std::size_t k = from; k < to; ++k)
    if (auto a = ParseAttributeLine(lines[k]); a && vba::EqualsText(a->name, L"VB_Name")) return k;
  return std::nullopt;
}

std::wstring NameLine(std::wstring_view name) { return L"Attribute VB_Name = \"" + std::wstring(name) + L"\""; }

// The header with its VB_Name line naming `name`, so that a renamed module keeps its name.
std::vector<std::wstring> HeaderNaming(std::vector<std::wstring> header, std::wstring_view name) {
  if (name.empty()) return header;
  if (auto k = FindNameLine(header, 0, header.size())) {
    if (Unquote(ParseAttributeLine(header[*k])->value) != name) header[*k] = NameLine(name);
    return header;
  }
  std::size_t at = 0;
  while (at < header.size() && !ParseAttributeLine(header[at])) ++at;
  if (at == header.size() && !header.empty() && !vba::StartsWithText(Trim(header[0]), L"VERSION ")) at = 0;
  header.insert(header.begin() + static_cast<std::ptrdiff_t>(at), NameLine(name));
  return header;
}

// The module as its original bytes say, read again when it is saved (so that loading
// keeps no second copy of the code); nothing for a new module.
std::optional<ModuleFile> AsLoaded(const ModuleFile& m) {
  if (m.original.empty()) return std::nullopt;
  try {
    return ParseModuleFile(m.original, m.name);
  } catch (const vba::Error&) {
    return std::nullopt;
  }
}

// Whether the module still holds exactly what its original bytes say.
bool SameAsLoaded(const ModuleFile& m, const ModuleFile& o) {
  return o.name == m.name && o.header == m.header && o.code == m.code && o.memberAttributes == m.memberAttributes &&
         o.encoding == m.encoding && o.lineEnd == m.lineEnd && o.finalLineEnd == m.finalLineEnd;
}

// The document classes a new document module derives from, by the host's usual names.
std::wstring DocumentBase(std::wstring_view name) {
  if (vba::EqualsText(name, L"ThisWorkbook")) return L"0{00020819-0000-0000-C000-000000000046}";
  if (vba::EqualsText(name, L"ThisDocument")) return L"0{00020906-0000-0000-C000-000000000046}";
  return L"0{00020820-0000-0000-C000-000000000046}";
}

}  // namespace

ModuleFile ParseModuleFile(std::string_view bytes, std::wstring_view fileName) {
  ModuleText text = DecodeModuleText(bytes, fileName);
  std::vector<std::wstring>& lines = text.lines;
  ModuleFile m;
  std::size_t end = ReadHeader(lines, fileName, m.type);

  auto nameLine = FindNameLine(lines, 0, end);
  if (!nameLine) {
    if (auto later = FindNameLine(lines, end, lines.size()))
      RefuseModule(fileName, LineNo(*later),
                   L"Attribute VB_Name stands after the code has begun; it belongs at the top of the file");
    RefuseModule(fileName, {}, L"no \"Attribute VB_Name\" line names the module, so it is not an exported module");
  }
  m.name = Unquote(ParseAttributeLine(lines[*nameLine])->value);
  if (m.name.empty()) RefuseModule(fileName, LineNo(*nameLine), L"Attribute VB_Name gives no module name");
  if (m.type == 2)
    for (std::size_t k = 0; k < end; ++k)
      if (auto a = ParseAttributeLine(lines[k]); a && vba::EqualsText(a->name, L"VB_Base")) m.type = 100;

  m.header.assign(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(end));
  ExtractMemberAttributes(std::vector<std::wstring>(std::make_move_iterator(lines.begin() + static_cast<std::ptrdiff_t>(end)),
                                                    std::make_move_iterator(lines.end())),
                          m.code, m.memberAttributes);
  m.encoding = text.encoding;
  m.lineEnd = text.lineEnd;
  m.finalLineEnd = text.finalLineEnd;
  m.original = std::string(bytes);
  return m;
}

std::string SerializeModuleFile(const ModuleFile& module) {
  std::optional<ModuleFile> loaded = AsLoaded(module);
  if (loaded && SameAsLoaded(module, *loaded)) return module.original;
  std::vector<std::wstring> lines = HeaderNaming(module.header, module.name);
  PlacedCode placed = PlaceMemberAttributes(module.code, module.memberAttributes, loaded && loaded->code == module.code);
  // Attributes whose procedure or declaration is gone stay with the module's own
  // attributes, where the file still loads and nothing is lost.
  lines.insert(lines.end(), placed.orphans.begin(), placed.orphans.end());
  lines.insert(lines.end(), placed.lines.begin(), placed.lines.end());
  return EncodeModuleText(lines, module.encoding, module.lineEnd, module.finalLineEnd);
}

ModuleFile NewModuleFile(std::wstring_view name, int type) {
  ModuleFile m;
  m.name = std::wstring(name);
  m.type = type;
  auto flags = [&](bool predeclared, bool exposed) {
    m.header.push_back(L"Attribute VB_GlobalNameSpace = False");
    m.header.push_back(L"Attribute VB_Creatable = False");
    m.header.push_back(std::wstring(L"Attribute VB_PredeclaredId = ") + (predeclared ? L"True" : L"False"));
    m.header.push_back(std::wstring(L"Attribute VB_Exposed = ") + (exposed ? L"True" : L"False"));
  };
  switch (type) {
    case 2:
    case 100:
      m.header = {L"VERSION 1.0 CLASS", L"BEGIN", L"  MultiUse = -1  'True", L"END", NameLine(name)};
      if (type == 100) m.header.push_back(L"Attribute VB_Base = \"" + DocumentBase(name) + L"\"");
      flags(type == 100, type == 100);
      if (type == 100) {
        m.header.push_back(L"Attribute VB_TemplateDerived = False");
        m.header.push_back(L"Attribute VB_Customizable = True");
      }
      break;
    case 3:
      m.header = {L"VERSION 5.00",
                  L"Begin {C62A69F0-16DC-11CE-9E98-00AA00608C0F} " + std::wstring(name),
                  L"   Caption         =   \"" + std::wstring(name) + L"\"",
                  L"   ClientHeight    =   3015",
                  L"   ClientLeft      =   120",
                  L"   ClientTop       =   465",
                  L"   ClientWidth     =   4560",
                  L"   StartUpPosition =   1  'CenterOwner",
                  L"End",
                  NameLine(name)};
      flags(true, false);
      break;
    default:
      m.header = {NameLine(name)};
      break;
  }
  return m;
}

std::wstring ModuleExtension(int type) {
  switch (type) {
    case 2:
    case 100: return L".cls";
    case 3: return L".frm";
    default: return L".bas";
  }
}

std::wstring DesignerFileName(const ModuleFile& module, std::wstring_view moduleFileName) {
  for (const std::wstring& line : module.header) {
    for (std::size_t open = line.find(L'"'); open != std::wstring::npos;) {
      std::size_t close = line.find(L'"', open + 1);
      if (close == std::wstring::npos) break;
      std::wstring_view quoted = std::wstring_view(line).substr(open + 1, close - open - 1);
      if (vba::EndsWithText(quoted, L".frx")) return FileNameOf(quoted);
      open = line.find(L'"', close + 1);
    }
  }
  std::wstring file = FileNameOf(moduleFileName);
  std::wstring ext = ExtensionOf(file);
  return file.substr(0, file.size() - ext.size()) + L".frx";
}

}  // namespace quillet::io
