#include "settings/name_checks.h"

#include "settings/naming.h"
#include "kernel/errors.h"
#include "kernel/product.h"
#include "ui/ui_host.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::settings {

namespace {

constexpr long kMaxNameLength = 255;

}  // namespace

std::wstring NameCheckText(int id) {
  switch (id) {
    case 1001: return L"Name is invalid.";
    case 1002: return L"Name is already used.";
    case 1003: return L"Name coincides with VB keyword.";
    case 1004: return L"Using it again will give a compile error.";
    case 1005: return L"To use this name choose Yes, to change name select No.";
    default: return {};
  }
}

void NameCharactersCheck(std::wstring_view name) {
  if (name.empty()) vba::Raise(kErrNameMissing);
  bool valid = static_cast<long>(name.size()) <= kMaxNameLength && vba::IsLetter(name[0]);
  for (std::size_t i = 1; valid && i < name.size(); ++i) valid = vba::IsIdentifierChar(name[i]);
  if (!valid) vba::Raise(kErrNameInvalid, NameCheckText(1001));
}

void NameKeywordCheck(kernel::Session& s, std::wstring_view name) {
  for (const auto& word : Naming(s).keywords)
    if (vba::EqualsText(word, name)) vba::Raise(kErrNameKeyword, NameCheckText(1003));
}

void NameUsedCheck(kernel::Session& s, std::wstring_view name, bool checkProject, bool checkComponents,
                   const std::vector<NameLookup>& lookups) {
  bool used = false;
  // Looking is done with errors passed over: a lookup that fails has not found the name.
  host::Ptr<host::VBProject> project;
  try {
    if (s.vbe && (checkProject || checkComponents)) project = s.vbe->ActiveVBProject();
    if (checkProject && project && project->Name() == name) used = true;
  } catch (const std::exception&) {
  }
  for (const auto& lookup : lookups) {
    if (used) break;
    try {
      used = lookup && lookup(name);
    } catch (const std::exception&) {
    }
  }
  if (!used && checkComponents && project) {
    try {
      host::Ptr<host::VBComponents> components = project->VBComponents();
      for (long i = 1; i <= components->Count() && !used; ++i) used = components->Item(i)->Name() == name;
    } catch (const std::exception&) {
    }
  }
  if (used) vba::Raise(kErrNameUsed, NameCheckText(1002));
}

long CheckNewNameIsOK(kernel::Session& s, std::wstring_view name, bool checkProject, bool checkComponents,
                      const std::vector<NameLookup>& lookups) {
  const std::function<void()> checks[] = {
      [&] { NameCharactersCheck(name); },
      [&] { NameKeywordCheck(s, name); },
      [&] { NameUsedCheck(s, name, checkProject, checkComponents, lookups); },
  };
  long result = 0;
  for (const auto& check : checks) {
    try {
      check();
    } catch (const vba::Error& e) {
      switch (e.Number()) {
        case kErrNameInvalid:
        case kErrNameUsed:
        case kErrNameKeyword: {
          std::wstring text = e.Description() + L" " + NameCheckText(1004) + L"\r\n" + NameCheckText(1005);
          int answer = s.uiHost.MsgBox(text, ui::vbExclamation | ui::vbYesNoCancel, kernel::kAppName);
          if (answer == ui::vbNo || answer == ui::vbCancel) return answer;
          result = ui::vbYes;
          break;
        }
        case kErrNameMissing:
          s.uiHost.MsgBox(L"Name is missing.", ui::vbExclamation, kernel::kAppName);
          return kErrNameMissing;
        default:
          kernel::HandleError(s, e, 0, L"basGlobal.CheckNewNameIsOK");
          return result;
      }
    } catch (const std::exception& e) {
      kernel::HandleError(s, kernel::InternalError(e), 0, L"basGlobal.CheckNewNameIsOK");
      return result;
    }
  }
  return result;
}

void ValidateVarName(kernel::Session& s, std::wstring& name, bool checkLibrary, const std::vector<NameLookup>& lookups,
                     const std::vector<NameLookup>& libraryLookups) {
  const std::wstring base = name;
  for (long number = 1;; ++number) {
    try {
      NameKeywordCheck(s, name);
      if (checkLibrary) NameUsedCheck(s, L"VBA." + name, false, false, libraryLookups);
      NameUsedCheck(s, name, false, false, lookups);
      return;
    } catch (const vba::Error&) {
      name = base + std::to_wstring(number);
    }
  }
}

std::wstring KindNameGet(std::wstring_view kind, std::wstring_view line) {
  bool known = false;
  for (const wchar_t* k : {L"Dim", L"Const", L"Property", L"Enum", L"Type", L"Sub", L"Function"})
    known = known || vba::EqualsText(k, kind);
  if (!known) return {};
  long at = vba::InStr(line, std::wstring(kind) + L" ", vba::Compare::Text);
  if (at == 0) return {};
  std::size_t start = static_cast<std::size_t>(at) + kind.size();  // behind the blank (at is 1-based)
  std::size_t end = start;
  while (end < line.size() && vba::IsIdentifierChar(line[end])) ++end;
  return std::wstring(line.substr(start, end - start));
}

}  // namespace quillet::settings
