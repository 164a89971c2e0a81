#include "generators/templates.h"

#include "analysis/line_scan.h"
#include "generators/error_module.h"
#include "settings/file_objects.h"
#include "settings/folders.h"
#include "settings/items.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "vba/dates.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kIncludeTag = L"{INCLUDE ";

void ReplaceToken(std::wstring& text, std::wstring_view token, std::wstring_view value) {
  text = vba::Replace(text, token, value, 1, -1, vba::Compare::Text);
}

bool Has(std::wstring_view text, std::wstring_view token) {
  return vba::InStr(text, token, vba::Compare::Text) > 0;
}

std::wstring Item(kernel::Session& s, int item) { return s.settings[item].ToString(); }

// The four tokens of the developer's identity, in the order both fillers use.
void IdentityReplace(kernel::Session& s, std::wstring& text) {
  ReplaceToken(text, L"{AUTHOR}", Item(s, settings::kDeveloper));
  ReplaceToken(text, L"{INITIALS}", Item(s, settings::kInitials));
  ReplaceToken(text, L"{COMPANYNAME}", Item(s, settings::kOrganization));
  ReplaceToken(text, L"{COPYRIGHT}", Item(s, settings::kCopyright));
}

void DateTimeReplace(kernel::Session& s, std::wstring& text) {
  const vba::DateTime now = s.clock.Now();
  ReplaceToken(text, L"{DATE}", vba::ShortDate(now));
  ReplaceToken(text, L"{TIME}", vba::ShortTime(now));
}

// The procedure at the caret, as the strict test of the position layer sees it.
std::wstring CaretProcedure(kernel::Session& s, long& bodyLine) {
  std::wstring name;
  bodyLine = 0;
  if (!kernel::CurrentProcGet(s, true, name, bodyLine)) return {};
  return name;
}

// The definition line of the named procedure of the active module: the caret's own when
// the caret gave the name, otherwise the first kind of procedure under that name.
std::wstring DefinitionLine(kernel::Session& s, const std::wstring& name, long bodyLine) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return {};
  host::Ptr<host::CodeModule> module = pane->CodeModule();
  for (host::ProcKind kind : {host::kProcKind, host::kGetKind, host::kLetKind, host::kSetKind}) {
    if (bodyLine > 0) break;
    try {
      bodyLine = module->ProcBodyLine(name, kind);
    } catch (const vba::Error&) {
    }
  }
  return bodyLine > 0 ? module->Lines(bodyLine, 1) : std::wstring{};
}

std::wstring ReadTemplate(kernel::Session& s, const std::wstring& path) {
  settings::File file(s, path);
  file.silent = true;
  return file.ReadFile();
}

}  // namespace

bool Substitute(kernel::Session& s, std::wstring& text, std::wstring& moduleName, std::wstring& procedureName,
                std::wstring& procedureType, std::wstring_view rest) {
  kernel::Trap(s, L"basGlobal.Substitute", [&] {
    IdentityReplace(s, text);
    DateTimeReplace(s, text);
    ReplaceToken(text, L"{DESCRIPTION}", L"");
    // Templates are written with an indent of four; they take the editor's own before
    // any name enters the text.
    text = vba::Replace(text, L"    ", kernel::TabSpacesGet(s));
    ReplaceToken(text, L"{HANDLEEXITLABEL}", Item(s, settings::kExitHandler));
    ReplaceToken(text, L"{HANDLEERRORLABEL}", Item(s, settings::kErrorHandler));
    if (Has(text, L"{ERRORHANDLEPROCEDURE}")) {
      // A block that calls the central reporting procedure needs the module that holds it.
      ErrorHandlerEnsure(s);
      ReplaceToken(text, L"{ERRORHANDLEPROCEDURE}", Item(s, settings::kErrorHandleProcedure));
    }
    if (Has(text, L"{MODULENAME}")) {
      if (moduleName.empty() && s.vbe)
        if (host::Ptr<host::CodePane> pane = s.vbe->ActiveCodePane()) moduleName = pane->CodeModule()->Parent()->Name();
      ReplaceToken(text, L"{MODULENAME}", moduleName);
    }
    long bodyLine = 0;
    const bool needName = Has(text, L"{PROCEDURENAME}") || (Has(text, L"{PROCEDURETYPE}") && procedureType.empty());
    if (needName && procedureName.empty()) procedureName = CaretProcedure(s, bodyLine);
    if (Has(text, L"{PROCEDURENAME}")) ReplaceToken(text, L"{PROCEDURENAME}", procedureName);
    if (Has(text, L"{PROCEDURETYPE}")) {
      if (procedureType.empty() && !procedureName.empty())
        procedureType = analysis::ProcedureTypeGet(procedureName, DefinitionLine(s, procedureName, bodyLine));
      ReplaceToken(text, L"{PROCEDURETYPE}", procedureType);
    }
    if (Has(text, kIncludeTag)) FileSubstitute(s, text, moduleName, procedureName, procedureType);
  });
  return true;
}

bool FileSubstitute(kernel::Session& s, std::wstring& text, std::wstring& moduleName, std::wstring& procedureName,
                    std::wstring& procedureType) {
  kernel::Trap(s, L"basGlobal.FileSubstitute", [&] {
    long found = vba::InStr(text, kIncludeTag, vba::Compare::Text);
    while (found > 0) {
      const long pathStart = found + static_cast<long>(kIncludeTag.size());
      const long close = vba::InStr(pathStart, text, L"}");
      if (close > 0) {
        const std::wstring written = text.substr(pathStart - 1, close - pathStart);
        std::wstring content = ReadTemplate(s, settings::PathCombine({kernel::AppPathGet(s), written}));
        if (!content.empty()) Substitute(s, content, moduleName, procedureName, procedureType);
        ReplaceToken(text, std::wstring(kIncludeTag) + written + L"}", content);
      }
      // The text may have changed under the hit: search on from behind where it stood.
      found = found + 1 <= static_cast<long>(text.size()) ? vba::InStr(found + 1, text, kIncludeTag, vba::Compare::Text) : 0;
    }
  });
  return true;
}

std::wstring HeaderGet(kernel::Session& s, long kind, std::wstring_view name, std::wstring_view description) {
  std::wstring result;
  kernel::Trap(s, L"basGlobal.HeaderGet", [&] {
    std::wstring path;
    if (kind == kProcedureHeader) path = settings::ProcedureHeaderFileGet(s);
    else if (kind == kModuleHeader) path = settings::ModuleHeaderFileGet(s);
    if (path.empty() || !s.platform.Files().FileExists(path)) return;
    std::wstring text = ReadTemplate(s, path);
    if (text.empty()) return;
    IdentityReplace(s, text);
    ReplaceToken(text, L"{MODULENAME}", name);
    ReplaceToken(text, L"{PROCEDURENAME}", name);
    DateTimeReplace(s, text);
    ReplaceToken(text, L"{DESCRIPTION}", description);
    result = text + kernel::TabSpacesGet(s) + L"\r\n";
  });
  return result;
}

std::wstring WrapText(std::wstring_view text) {
  constexpr size_t kWidth = 50;
  std::wstring out;
  if (text.empty()) return out;
  for (const std::wstring& line : vba::Split(text, L"\r\n")) {
    std::wstring_view rest = line;
    do {
      size_t cut = rest.size() > kWidth ? rest.find(L' ', kWidth - 1) : std::wstring_view::npos;
      std::wstring_view piece = cut == std::wstring_view::npos ? rest : rest.substr(0, cut);
      out += L"'   ";
      out += piece;
      out += L"\r\n";
      rest = cut == std::wstring_view::npos ? std::wstring_view{} : rest.substr(cut + 1);
    } while (!rest.empty());
  }
  return out;
}

void IndentAddToFragment(kernel::Session& s, std::wstring& text, int indent) {
  kernel::Trap(s, L"basGlobal.IndentAddToFragment", [&] {
    if (indent == -1) indent = kernel::CurrentIndentGet(s);
    const std::wstring blanks(static_cast<size_t>(std::max(indent, 0)), L' ');
    std::wstring out;
    for (const std::wstring& line : vba::Split(text, L"\r\n")) out += blanks + line + L"\r\n";
    text = analysis::StringTrimChars(out, L"\r\n", analysis::kTrimRight);
  });
}

}  // namespace quillet::generators
