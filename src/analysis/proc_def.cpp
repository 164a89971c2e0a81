#include "analysis/proc_def.h"

#include <vector>

#include "analysis/keyed.h"
#include "analysis/line_scan.h"
#include "analysis/records.h"
#include "analysis/text_find.h"
#include "kernel/errors.h"
#include "vba/error.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {
namespace {

constexpr std::wstring_view kCrLf = L"\r\n";

bool StartsWith(std::wstring_view s, std::wstring_view prefix) { return s.substr(0, prefix.size()) == prefix; }

// Position (0-based) of the first `c` outside double quotes, searching forward or from the
// end; npos when there is none.
std::size_t FindOutsideQuotes(std::wstring_view s, wchar_t c, bool fromEnd) {
  bool inString = false;
  for (std::size_t k = 0; k < s.size(); ++k) {
    std::size_t i = fromEnd ? s.size() - 1 - k : k;
    if (s[i] == L'"') inString = !inString;
    else if (s[i] == c && !inString) return i;
  }
  return std::wstring_view::npos;
}

// The return type behind the last ") As " (any case), or the type of the type character
// taken off the name.
std::wstring ReturnTypeOf(std::wstring_view definition, wchar_t typeChar) {
  std::wstring type;
  long p = FindLastText(definition, L") As ");
  if (p > 0) type = TrimView(definition.substr(static_cast<std::size_t>(p) + 4));
  if (type.empty() && typeChar) type = TypeOfTypeChar(typeChar);
  return type;
}

// Appends the decimal digits of `n`, as to_wstring writes them, without formatting.
void AppendNumber(std::wstring& to, int n) {
  if (n < 0) {
    to += L'-';
    n = -n;
  }
  wchar_t digits[12];
  int count = 0;
  do digits[count++] = static_cast<wchar_t>(L'0' + n % 10);
  while ((n /= 10) > 0);
  while (count > 0) to += digits[--count];
}

// The words every argument and procedure holds, kept once for all of them.
const SharedText& ByRefWord() {
  static const SharedText word = SharedText::Lasting(L"ByRef");
  return word;
}
const SharedText& ByValWord() {
  static const SharedText word = SharedText::Lasting(L"ByVal");
  return word;
}
const SharedText& LibraryWord() {
  static const SharedText word = SharedText::Lasting(L"Library");
  return word;
}
// ProcKindString's words, one text for each kind.
const SharedText& ProcKindWord(host::ProcKind kind) {
  static const SharedText words[] = {SharedText::Lasting(ProcKindString(host::kProcKind)),
                                     SharedText::Lasting(ProcKindString(host::kLetKind)),
                                     SharedText::Lasting(ProcKindString(host::kSetKind)),
                                     SharedText::Lasting(ProcKindString(host::kGetKind))};
  switch (kind) {
    case host::kLetKind: return words[1];
    case host::kSetKind: return words[2];
    case host::kGetKind: return words[3];
    default: return words[0];
  }
}

// Takes a type character off the end of a name; the character, or 0 when there was none.
wchar_t TakeTypeChar(std::wstring& name) {
  if (name.empty() || !IsTypeChar(name.back())) return 0;
  wchar_t c = name.back();
  name.pop_back();
  return c;
}

}  // namespace

// ---------------------------------------------------------------------------------------
// Arguments

void Rv_ProcArgument::init(std::wstring_view vstrArgDef) {
  ArgDef = vstrArgDef;
  // The text is read as a piece of ArgDef, cut from both ends as the words are taken.
  std::wstring_view s = TrimView(vstrArgDef);
  if (s.empty()) return;
  auto behind = [](std::wstring_view text, std::size_t keywordLength) { return TrimView(text.substr(keywordLength)); };
  if (s.size() > 8 && StartsWith(s, L"Optional")) {
    IsOptional = true;
    s = behind(s, 8);
  }
  PassedBy = ByRefWord();
  if (s.size() > 5) {
    if (StartsWith(s, L"ByVal")) {
      IsPassedByVal = true;
      PassedBy = ByValWord();
      s = behind(s, 5);
    } else if (StartsWith(s, L"ByRef")) {
      s = behind(s, 5);
    }
  }
  if (s.size() > 10 && StartsWith(s, L"ParamArray")) {
    IsParamArray = true;
    s = behind(s, 10);
  }

  std::size_t end = s.find_first_of(L"( \t\r\n");
  Name = TrimView(s.substr(0, end));
  s = end == std::wstring_view::npos ? std::wstring_view() : behind(s, end);

  if (!s.empty() && s.front() == L'(') {
    IsArray = true;
    std::size_t close = s.find(L')');
    if (close != std::wstring_view::npos) s = behind(s, close + 1);
  }

  std::wstring_view type;
  if (s.empty()) {
    type = L"Variant";
  } else if (s.front() == L'=') {
    type = L"Variant";
    s = behind(s, 1);
  } else {
    // The first two characters are the word "As", taken without looking at them.
    s = s.size() > 2 ? behind(s, 2) : std::wstring_view();
    std::size_t eq = s.find(L'=');
    if (eq == std::wstring_view::npos) {
      type = s;
      s = {};
    } else {
      type = s.substr(0, eq);
      // A default of one character right behind "=" counts as none.
      s = s.size() > eq + 2 ? behind(s, eq + 1) : std::wstring_view();
    }
  }
  Type_ = TrimView(type);
  if (!s.empty()) DefaultValue = s;
}

void Rv_ProcArguments::init(std::wstring_view vstrProcDef) {
  items_.Clear();
  std::wstring_view raw;
  std::size_t open = FindOutsideQuotes(vstrProcDef, L'(', false);
  std::size_t close = FindOutsideQuotes(vstrProcDef, L')', true);
  if (open != std::wstring_view::npos && close != std::wstring_view::npos) {
    // From the character behind "(" to the one before ")"; a single character between
    // them does not count as a list.
    std::size_t a = open + 1, b = close - 1;
    if (close > 0 && a < b) raw = vstrProcDef.substr(a, b - a + 1);
  }
  std::vector<std::wstring_view> pieces;
  DeclListSplit(raw, pieces);
  items_.Reserve(pieces.size());
  for (std::wstring_view piece : pieces) {
    auto argument = std::make_shared<Rv_ProcArgument>();
    argument->init(piece);
    Add(std::move(argument));
  }
  std::wstring shortString;
  for (const auto& argument : items_) {
    if (!shortString.empty()) shortString += L", ";
    if (argument->IsOptional) shortString += L'[';
    shortString += argument->Name;
    if (argument->IsOptional) shortString += L']';
  }
  ShortStringOfArguments = std::move(shortString);
  StringOfArguments = raw;
}

void Rv_ProcArguments::Add(std::shared_ptr<Rv_ProcArgument> argument) {
  const Rv_ProcArgument& added = *argument;
  items_.Add(std::move(argument), added.Name);
}

// ---------------------------------------------------------------------------------------
// One procedure

Rv_ProcDef::Rv_ProcDef() : ProcArguments(std::make_shared<Rv_ProcArguments>()) {}

std::wstring ProcKindString(host::ProcKind kind) {
  switch (kind) {
    case host::kLetKind: return L"Property Let";
    case host::kSetKind: return L"Property Set";
    case host::kGetKind: return L"Property Get";
    default: return L"Sub/Function";
  }
}

ProcModule ProcModuleOf(kernel::Session& s, std::wstring_view project, host::CodeModule& module) {
  ProcModule where;
  where.project = project;
  where.moduleName = module.Name();
  host::Ptr<host::VBProject> active = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  where.inActiveProject = active && vba::EqualsText(active->Name(), project);
  return where;
}

ProcLines ProcLinesOf(host::CodeModule& module, std::wstring_view name, host::ProcKind kind) {
  ProcLines at;
  at.startLine = module.ProcStartLine(name, kind);
  at.countLines = module.ProcCountLines(name, kind);
  at.bodyLine = module.ProcBodyLine(name, kind);
  return at;
}

void Rv_ProcDef::init(kernel::Session& s, std::wstring_view project, host::CodeModule& module,
                      std::wstring_view name, host::ProcKind kind, bool definitionOnly) {
  const ProcModule where = ProcModuleOf(s, project, module);
  init(s, where, module, name, kind, ProcLinesOf(module, name, kind), definitionOnly);
}

void Rv_ProcDef::init(kernel::Session& s, const ProcModule& where, host::CodeModule& module, std::wstring_view name,
                      host::ProcKind kind, const ProcLines& at, bool definitionOnly) {
  Project = where.project;
  ModuleName = where.moduleName;
  Name = name;
  ProcKind = kind;
  if (where.inActiveProject) GroupName = where.project;
  ProcKindStr = ProcKindWord(kind);
  ProcStartLine = at.startLine;
  ProcCountLines = at.countLines;
  ProcBodyLine = at.bodyLine;
  const long bodyLines = ProcCountLines - (ProcBodyLine - ProcStartLine);
  if (!definitionOnly) {
    ProcCode = module.Lines(ProcBodyLine, bodyLines);
    DefinitionRead(s);
    return;
  }
  // Up to the first line that is not blank and not continued, as the definition reads;
  // the text is read here and not kept.
  std::wstring definition;
  for (long n = 0; n < bodyLines; ++n) {
    std::wstring line = module.Lines(ProcBodyLine + n, 1);
    if (n > 0) definition += kCrLf;
    definition += line;
    std::wstring_view t = TrimView(line);
    if (!t.empty() && t.back() != L'_') break;
  }
  ProcCode.clear();
  ProcDefGet(s, definition);
  ProcArguments->init(OneLineProcDef);
}

void Rv_ProcDef::Init2(kernel::Session& s, std::wstring_view codeText, const SharedText& moduleName) {
  Project = LibraryWord();
  ModuleName = moduleName;
  ProcKind = host::kProcKind;
  ProcKindStr = ProcKindWord(host::kProcKind);
  GroupName = ModuleName;
  ProcStartLine = ProcBodyLine = 1;
  ProcCountLines = SubstringCount(codeText, kCrLf) + 1;
  ProcCode = codeText;
  DefinitionRead(s);
  IsLibraryProcedure = true;
}

void Rv_ProcDef::DefinitionRead(kernel::Session& s) {
  ProcDefGet(s, ProcCode);
  ProcArguments->init(OneLineProcDef);
}

void Rv_ProcDef::ProcDefGet(kernel::Session& s, std::wstring_view code) {
  kernel::Trap(s, L"Rv_ProcDef.ProcDefGet", [&] {
    if (IsDeclarationSection) return;

    // The definition runs to the first line whose last character is no "_"; the one-line
    // form joins the trimmed pieces without a blank between them. The lines are taken
    // from the code one by one: a long procedure is not split for its first lines.
    // Two walks over the lines: the first finds the lengths, so that the texts kept in
    // the models are made at their size.
    auto walk = [&code](auto&& take) {
      long n = 0;
      bool first = true;
      for (std::size_t from = code.empty() ? std::wstring_view::npos : 0; from != std::wstring_view::npos;) {
        std::size_t to = code.find(kCrLf, from);
        std::wstring_view line = code.substr(from, to == std::wstring_view::npos ? to : to - from);
        from = to == std::wstring_view::npos ? to : to + kCrLf.size();
        ++n;
        std::wstring_view t = TrimView(line);
        if (t.empty()) continue;
        bool done = t.back() != L'_';
        if (!done) t = TrimView(t.substr(0, t.size() - 1));
        take(line, t, first);
        first = false;
        if (done) break;
      }
      return n;
    };
    std::size_t multiSize = 0, oneSize = 0;
    walk([&](std::wstring_view line, std::wstring_view piece, bool first) {
      multiSize += line.size() + (first ? 0 : kCrLf.size());
      oneSize += piece.size();
    });
    std::wstring multi, one;
    multi.reserve(multiSize);
    one.reserve(oneSize);
    const long n = walk([&](std::wstring_view line, std::wstring_view piece, bool first) {
      if (!first) multi += kCrLf;
      multi += line;
      one += piece;
    });
    ProcIsFunction = one.find(L"Function ") != std::wstring::npos;
    ProcDefStartLine = ProcBodyLine;
    ProcDefCountOfLines = n;

    ProcIsPublic = true;
    if (StartsWith(one, L"Public")) {
      ProcIsPublic = true;
      ProcIsStatic = false;
    }
    if (StartsWith(one, L"Static")) {
      ProcIsStatic = true;
      ProcIsPublic = false;
    }
    if (StartsWith(one, L"Private")) {
      ProcIsPublic = false;
      ProcIsStatic = false;
    }

    // The whole text is the first statement as a rule, and is then taken over.
    auto firstOf = [](std::wstring& text, std::wstring& into) {
      std::wstring_view first = FirstStatement(text);
      if (first.size() == text.size()) into = std::move(text);
      else into = first;
    };
    firstOf(multi, ProcDef);
    firstOf(one, OneLineProcDef);

    if (Name.empty()) {
      std::vector<std::wstring> pieces = vba::Split(OneLineProcDef, L"(");
      if (pieces.size() > 1) {
        std::vector<std::wstring> words = vba::Split(vba::Trim(pieces[0]), L" ");
        if (!words.empty()) Name = words.back();
      }
    }
    wchar_t typeChar = TakeTypeChar(Name);
    if (ProcIsFunction) ProcReturnType = ReturnTypeOf(OneLineProcDef, typeChar);
  });
}

// ---------------------------------------------------------------------------------------
// The procedures of a module

void Rv_ProcDefs::init(std::wstring_view projectName, host::CodeModule& module) {
  ProjectName = projectName;
  ModuleName = module.Name();
  host::Ptr<host::VBComponent> component = module.Parent();
  ModuleType = component && component->Type() == host::kStdModule ? 0 : 1;
  ModuleTypeStr = ModuleType == 0 ? L"Standard module" : L"Class module";
}

void Rv_ProcDefs::Add(kernel::Session& s, host::CodeModule& module, long vlngLineNo, bool vblnOnlyPublic,
                      bool definitionOnly) {
  TrapPassingDuplicates(s, L"Rv_ProcDefs.AddProc", [&] {
    host::ProcKind kind = host::kProcKind;
    std::wstring name = module.ProcOfLine(vlngLineNo, kind);
    if (name.empty()) return;
    Read(s, nullptr, module, name, kind, nullptr, vblnOnlyPublic, definitionOnly);
  });
}

void Rv_ProcDefs::Add(kernel::Session& s, const ProcModule& where, host::CodeModule& module, std::wstring_view name,
                      host::ProcKind kind, const ProcLines& at, bool vblnOnlyPublic, bool definitionOnly) {
  TrapPassingDuplicates(s, L"Rv_ProcDefs.AddProc",
                        [&] { Read(s, &where, module, name, kind, &at, vblnOnlyPublic, definitionOnly); });
}

void Rv_ProcDefs::Read(kernel::Session& s, const ProcModule* where, host::CodeModule& module, std::wstring_view name,
                       host::ProcKind kind, const ProcLines* at, bool vblnOnlyPublic, bool definitionOnly) {
  std::wstring key(name);
  key += L'*';
  AppendNumber(key, static_cast<int>(kind));
  if (items_.Exists(key) || (vblnOnlyPublic && refused_.Exists(key))) return;
  auto procedure = std::make_shared<Rv_ProcDef>();
  if (where && at) procedure->init(s, *where, module, name, kind, *at, definitionOnly);
  else procedure->init(s, ProjectName, module, name, kind, definitionOnly);
  if (procedure->ProcIsPublic || !vblnOnlyPublic) items_.Add(std::move(procedure), key);
  else refused_.Add(true, key);
}

void Rv_ProcDefs::AddProc(kernel::Session& s, std::shared_ptr<Rv_ProcDef> procedure, std::wstring_view key) {
  TrapPassingDuplicates(s, L"Rv_ProcDefs.AddProc", [&] { AddKeepingFirst(items_, std::move(procedure), key); });
}

void DeclaredProcAdd(kernel::Session& s, std::wstring_view text, const SharedText& moduleName,
                     ProcDefCollection& procs, bool isPublic) {
  TrapPassingDuplicates(s, L"basGlobal.DeclaredProcAdd", [&] {
    auto procedure = std::make_shared<Rv_ProcDef>();
    std::vector<std::wstring> words = vba::Split(text, L" ");
    if (words.size() < 2) vba::Raise(vba::kErrSubscript);
    procedure->Name = words[1];
    wchar_t typeChar = TakeTypeChar(procedure->Name);
    host::Ptr<host::VBProject> active = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
    if (!active) vba::Raise(vba::kErrObjectNotSet);
    procedure->Project = procedure->GroupName = active->Name();
    procedure->ModuleName = moduleName;
    procedure->ProcIsFunction = vba::EqualsText(words[0], L"Function");
    procedure->ProcIsPublic = isPublic;
    if (procedure->ProcIsFunction) procedure->ProcReturnType = ReturnTypeOf(text, typeChar);
    procedure->ProcArguments->init(text);
    std::wstring key = procedure->Project + L"." + procedure->Name;
    AddKeepingFirst(procs, std::move(procedure), key);
  });
}

}  // namespace quillet::analysis
