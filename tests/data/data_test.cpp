// The shipped defaults: every file the program's folder is seeded with must be
// readable by the program and, where it holds VBA, give code that compiles once the
// engine has filled in its tokens.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "io/module_file.h"
#include "shipped_files.h"
#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"
#include "vba_check.h"

namespace quillet::datacheck {
namespace {

const fs::path kCode = DataDir() / "vbcode";
const fs::path kFragments = kCode / "Fragments";

const std::set<std::wstring> kHeaderTokens = {L"AUTHOR",    L"INITIALS", L"COMPANYNAME", L"COPYRIGHT",  L"MODULENAME",
                                              L"PROCEDURENAME", L"DATE", L"TIME",        L"DESCRIPTION"};

std::set<std::wstring> SubstituteTokens() {
  std::set<std::wstring> t = kHeaderTokens;
  t.insert({L"HANDLEEXITLABEL", L"HANDLEERRORLABEL", L"ERRORHANDLEPROCEDURE", L"PROCEDURETYPE"});
  return t;
}

std::wstring Name(const fs::path& file) { return vba::FromUtf8(fs::relative(file, SourceDir()).string()); }

void Append(std::vector<std::wstring>& to, const fs::path& file, const std::vector<std::wstring>& what) {
  for (const std::wstring& w : what) to.push_back(Name(file) + L": " + w);
}

// The types of the naming standard: a fragment variable of any other type would be
// declared without a prefix, or with a misspelt type that does not compile.
std::set<std::wstring> PrefixTypes() {
  std::vector<std::wstring> ignored;
  std::set<std::wstring> types;
  std::vector<IniSection> ini = ReadIni(DataDir() / "qlttp.ini", ignored);
  if (const IniSection* prefix = FindSection(ini, L"Prefix"))
    for (const auto& [type, prefixes] : prefix->items) types.insert(vba::UCase(type));
  return types;
}

// A fragment: ASCII with CR LF, known tokens and marks, the indent of the templates,
// and balanced blocks in each zone that the marks send to its own place.
std::vector<std::wstring> FragmentProblems(const fs::path& file, const TokenRules& rules) {
  std::vector<std::wstring> problems, found;
  std::vector<std::wstring> lines = TextLines(file, found);
  Append(problems, file, found);
  Append(problems, file, TokenProblems(lines, rules));
  Append(problems, file, LayoutProblems(lines));
  for (const auto& zone : FilledZones(lines)) Append(problems, file, StructureProblems(zone));
  return problems;
}

// A module file: it loads as an exported module, and its code passes the checks.
std::vector<std::wstring> ModuleProblems(const fs::path& file, const TokenRules& rules, io::ModuleFile& module) {
  std::vector<std::wstring> problems, found;
  std::vector<std::wstring> lines = TextLines(file, found);
  Append(problems, file, found);
  Append(problems, file, TokenProblems(lines, rules));
  try {
    module = io::ParseModuleFile(ReadBytes(file), Name(file));
  } catch (const vba::Error& e) {
    problems.push_back(e.Description());
    return problems;
  }
  Append(problems, file, LayoutProblems(module.code));
  for (const auto& zone : FilledZones(module.code)) Append(problems, file, StructureProblems(zone));
  return problems;
}

bool HasLine(const std::vector<std::wstring>& lines, std::wstring_view text) {
  return std::any_of(lines.begin(), lines.end(), [&](const std::wstring& l) { return vba::EqualsText(l, text); });
}

TEST(ShippedData, EveryFileIsAsciiWithCrLfLines) {
  std::vector<std::wstring> problems;
  std::size_t count = 0;
  for (const fs::path& file : FilesUnder(DataDir())) {
    TextLines(file, problems);
    ++count;
  }
  EXPECT_GT(count, 50u);
  EXPECT_TRUE(problems.empty()) << Listed(problems);
}

TEST(ShippedData, IniFilesHoldTheSectionsAndValuesTheReadersExpect) {
  std::vector<std::wstring> problems;
  std::vector<IniSection> tp = ReadIni(DataDir() / "qlttp.ini", problems);
  std::vector<IniSection> refra = ReadIni(DataDir() / "qltrefra.ini", problems);
  std::vector<IniSection> vars = ReadIni(DataDir() / "qltvars.ini", problems);
  EXPECT_TRUE(problems.empty()) << Listed(problems);

  // The naming standard: scope and argument prefixes at their defaults, and a type
  // table of at most five prefixes a type. A prefix is read back from a name as its run
  // of lower-case letters, so anything else in a prefix would never be recognised.
  const IniSection* scope = FindSection(tp, L"Scope Prefix");
  const IniSection* argument = FindSection(tp, L"Argument Prefix");
  const IniSection* prefix = FindSection(tp, L"Prefix");
  ASSERT_TRUE(scope && argument && prefix);
  EXPECT_EQ(*scope->Find(L"Prefix Module"), L"m");
  EXPECT_EQ(*scope->Find(L"Prefix Global"), L"g");
  EXPECT_EQ(*argument->Find(L"Prefix ByRef"), L"r");
  EXPECT_EQ(*argument->Find(L"Prefix ByVal"), L"v");
  for (const wchar_t* basic : {L"String", L"Long", L"Integer", L"Boolean", L"Byte", L"Single", L"Double", L"Currency",
                               L"Date", L"Variant", L"Object", L"Collection", L"Range", L"Worksheet", L"Workbook",
                               L"Document", L"Recordset", L"Database", L"Form", L"Control"})
    EXPECT_TRUE(prefix->Find(basic)) << vba::ToUtf8(basic) << " has no prefix";
  for (const auto& [type, value] : prefix->items) {
    std::vector<std::wstring> prefixes = SplitTrimmed(value, L',');
    EXPECT_LE(prefixes.size(), 5u) << vba::ToUtf8(type);
    for (const std::wstring& p : prefixes)
      EXPECT_TRUE(!p.empty() && std::all_of(p.begin(), p.end(), [](wchar_t c) { return c >= L'a' && c <= L'z'; }))
          << vba::ToUtf8(type) << " has the prefix \"" << vba::ToUtf8(p) << "\"";
  }

  // Fragment folders tied to references: each key names a folder of the tree.
  const IniSection* folders = FindSection(refra, L"fragments/reference");
  ASSERT_TRUE(folders);
  std::set<std::wstring> folderNames;
  for (const auto& e : fs::recursive_directory_iterator(kFragments))
    if (e.is_directory()) folderNames.insert(vba::UCase(vba::FromUtf8(e.path().filename().string())));
  for (const auto& [folder, reference] : folders->items) {
    EXPECT_TRUE(folderNames.count(vba::UCase(folder))) << "no fragment folder " << vba::ToUtf8(folder);
    EXPECT_FALSE(reference.empty());
  }

  // Known expressions: the values are split at commas, and an expression of the form
  // or report turns "Form.X" into "Me.X", so it needs its second piece.
  for (const wchar_t* library : {L"VBA", L"Excel", L"Word", L"Access"}) EXPECT_TRUE(FindSection(vars, library));
  for (const IniSection& section : vars)
    for (const auto& [type, value] : section.items)
      for (const std::wstring& expression : SplitTrimmed(value, L',')) {
        EXPECT_FALSE(expression.empty()) << vba::ToUtf8(section.name + L"." + type);
        for (const wchar_t* me : {L"Form", L"Report"}) {
          if (vba::EqualsText(SplitTrimmed(expression, L'.')[0], me)) {
            EXPECT_GT(SplitTrimmed(expression, L'.').size(), 1u) << vba::ToUtf8(expression);
          }
        }
      }
}

TEST(ShippedData, FilesNamedByTheSettingsDefaultsExist) {
  for (const char* file : {"qlttp.ini", "vbcode/ErrorHandlers/basErrorHandle.bas",
                           "vbcode/Templates/CollectionClass/CollectionClass.cls",
                           "vbcode/Fragments/Headers And Comments/ProcedureHeader.bas",
                           "vbcode/Fragments/Headers And Comments/ModuleHeader.bas",
                           // the default error schemes of procedures, methods and properties
                           "vbcode/Fragments/ErrorHandlers/On Error GoTo HandleError.bas",
                           "vbcode/Fragments/ErrorHandlers/On Error GoTo ExitLabel.bas", "DirectAccess.txt",
                           "vb2htmltemplate.htm", "qltrefra.ini", "qltvars.ini"})
    EXPECT_TRUE(fs::is_regular_file(DataDir() / file)) << file;
  EXPECT_TRUE(fs::is_directory(kCode / "Library"));
  EXPECT_FALSE(fs::exists(DataDir() / "qltusr.ini")) << "the user's settings are written on first use";
}

TEST(ShippedData, ErrorHandlersPlaceTheirPartsAroundTheBody) {
  std::size_t handlers = 0, central = 0, withErrorLabel = 0;
  for (const fs::path& file : FilesUnder(kFragments / "ErrorHandlers", ".bas")) {
    ++handlers;
    std::vector<std::wstring> problems;
    std::vector<std::wstring> lines = TextLines(file, problems);
    std::string name = file.filename().string();
    // Three zones: the On Error line goes under the declarations, nothing to the caret,
    // and the bottom to the exit: the exit label, with the Exit statement right below it
    // so that later bottom parts land above the label.
    std::vector<std::vector<std::wstring>> zones = FilledZones(lines);
    ASSERT_EQ(zones.size(), 3u) << name;
    ASSERT_FALSE(zones[0].empty()) << name;
    EXPECT_TRUE(vba::StartsWithText(zones[0][0], L"    On Error GoTo ")) << name;
    auto label = std::find(lines.begin(), lines.end(), L"{HANDLEEXITLABEL}:");
    ASSERT_NE(label, lines.end()) << name;
    ASSERT_NE(label + 1, lines.end()) << name;
    EXPECT_EQ(*(label + 1), L"    Exit {PROCEDURETYPE}") << name;
    if (std::find(lines.begin(), lines.end(), L"{HANDLEERRORLABEL}:") != lines.end()) ++withErrorLabel;
    if (std::any_of(lines.begin(), lines.end(),
                    [](const std::wstring& l) { return l.find(L"{ERRORHANDLEPROCEDURE}") != std::wstring::npos; }))
      ++central;
  }
  EXPECT_GE(handlers, 3u);
  EXPECT_GE(withErrorLabel, 2u);
  EXPECT_GE(central, 1u);
}

TEST(ShippedData, FragmentsAreBalancedAndUseOnlyKnownTokens) {
  TokenRules rules{SubstituteTokens(), true, true, PrefixTypes()};
  std::vector<std::wstring> problems;
  std::set<std::wstring> topics;
  std::size_t count = 0;
  for (const fs::path& file : FilesUnder(kFragments, ".bas")) {
    std::vector<std::wstring> p = FragmentProblems(file, rules);
    problems.insert(problems.end(), p.begin(), p.end());
    // An included file is found beside the program; a missing one would go in as nothing.
    for (const std::wstring& line : TextLines(file, p)) {
      std::size_t at = line.find(L"{INCLUDE ");
      if (at == std::wstring::npos) continue;
      std::wstring path = line.substr(at + 9, line.find(L'}', at) - at - 9);
      std::replace(path.begin(), path.end(), L'\\', L'/');
      if (!fs::is_regular_file(DataDir() / vba::ToUtf8(path))) problems.push_back(Name(file) + L": no file " + path);
    }
    topics.insert(vba::FromUtf8(fs::relative(file, kFragments).begin()->string()));
    ++count;
  }
  EXPECT_TRUE(problems.empty()) << Listed(problems);
  EXPECT_GE(count, 60u);
  for (const wchar_t* topic : {L"Loops", L"Files and Folders", L"Strings", L"Dates", L"Excel Ranges and Sheets",
                               L"Excel Workbooks", L"ADO", L"DAO", L"Word", L"Access", L"Error Handling",
                               L"Headers And Comments", L"ErrorHandlers"})
    EXPECT_TRUE(topics.count(topic)) << vba::ToUtf8(topic);
}

TEST(ShippedData, HeaderFilesAreCommentsWithHeaderTokensOnly) {
  // The header reader knows fewer tokens than the fragment filler: a procedure token
  // such as {HANDLEEXITLABEL} would stay in the generated code.
  TokenRules rules{kHeaderTokens, false, false, {}};
  for (const char* header : {"ProcedureHeader.bas", "ModuleHeader.bas"}) {
    fs::path file = kFragments / "Headers And Comments" / header;
    std::vector<std::wstring> problems;
    std::vector<std::wstring> lines = TextLines(file, problems);
    Append(problems, file, TokenProblems(lines, rules));
    EXPECT_TRUE(problems.empty()) << Listed(problems);
    for (const std::wstring& line : lines) EXPECT_EQ(line.substr(0, 1), L"'") << header;
  }
}

TEST(ShippedData, TemplatesAndLibraryLoadAsExportedModules) {
  std::vector<std::wstring> problems;
  io::ModuleFile module;

  problems = ModuleProblems(kCode / "ErrorHandlers" / "basErrorHandle.bas",
                            {{L"MODULENAME", L"PROCEDURENAME", L"PROJECTNAME", L"MODULEHEADER"}, false, false, {}}, module);
  EXPECT_TRUE(problems.empty()) << Listed(problems);
  EXPECT_EQ(module.name, L"{MODULENAME}");
  EXPECT_EQ(module.type, 1);
  // The central procedure takes what the handler fragment passes: Err, Erl and a text.
  EXPECT_TRUE(std::any_of(module.code.begin(), module.code.end(), [](const std::wstring& l) {
    return vba::StartsWithText(l, L"Public Sub {PROCEDURENAME}(ByVal ErrorObject As ErrObject, ByVal LineNumber As Long");
  }));

  problems = ModuleProblems(kCode / "Templates" / "CollectionClass" / "CollectionClass.cls",
                            {{L"MODULENAME", L"BASECLASSNAME", L"MODULEHEADER"}, false, false, {}}, module);
  EXPECT_TRUE(problems.empty()) << Listed(problems);
  EXPECT_EQ(module.name, L"{MODULENAME}");
  EXPECT_EQ(module.type, 2);
  EXPECT_EQ(module.memberAttributes.size(), 2u) << "the default member and the enumerator";

  // The library: modules of public procedures that the library scan offers ("Public
  // Sub ..." or "Public Function ..." at the start of a line), each module named.
  std::size_t offered = 0;
  std::set<std::wstring> names;
  for (const fs::path& file : FilesUnder(kCode / "Library", ".bas")) {
    problems = ModuleProblems(file, {}, module);
    EXPECT_TRUE(problems.empty()) << Listed(problems);
    EXPECT_TRUE(names.insert(vba::UCase(module.name)).second) << vba::ToUtf8(module.name);
    EXPECT_TRUE(HasLine(module.code, L"Option Explicit")) << file.filename();
    for (const std::wstring& line : module.code)
      if (vba::StartsWithText(line, L"Public Function ") || vba::StartsWithText(line, L"Public Sub ")) ++offered;
  }
  EXPECT_GE(names.size(), 5u);
  EXPECT_GE(offered, 40u);
}

TEST(ShippedData, DirectAccessShortcutsNameRealTargets) {
  const std::set<std::wstring> builders = {L"Variable", L"Constant", L"Property", L"Procedure", L"Class"};
  const std::set<std::wstring> commands = {
      L"Dim", L"Const", L"Property", L"Enum", L"Type", L"On Error GoTo", L"GoTo", L"Resume", L"With",
      L"Insert Variable", L"Select Case", L"Select Case Else", L"Select Case UCase", L"Select From Enum",
      L"On Error Resume Next", L"On Error GoTo 0", L"ErrorHandling", L"Exit", L"If Then", L"If Then Else",
      L"If Then Else If", L"If Then ElseIf Else", L"IfDoLoopWhile", L"IfDoLoopUntil", L"ForEachNext", L"ForNext",
      L"While", L"Explicit Argument", L"Filename", L"Folder", L"Insert Objectname", L"Comment Lines Add",
      L"Comment Lines Remove"};
  std::vector<std::wstring> problems;
  std::vector<std::wstring> lines = TextLines(DataDir() / "DirectAccess.txt", problems);
  std::size_t entries = 0;
  for (const std::wstring& line : lines) {
    if (line.empty() || line[0] == L';') continue;
    std::vector<std::wstring> f = SplitTrimmed(line, L',');
    if (f.size() > 3) problems.push_back(L"a comma inside a field: " + line);
    std::wstring procedure = f.size() > 1 ? f[1] : L"", argument = f.size() > 2 ? f[2] : L"";
    if (procedure.empty()) continue;
    ++entries;
    bool ok = (procedure == L"procOpenBuilder" && builders.count(argument)) ||
              (procedure == L"procQuillet" && commands.count(argument)) ||
              (procedure == L"procFragmentBuilder" && fs::is_directory(kFragments / vba::ToUtf8(argument))) ||
              (procedure == L"procCodeLine" && !argument.empty()) ||
              (procedure == L"procObjectName" && !argument.empty());
    if (!ok) problems.push_back(L"no target: " + line);
  }
  EXPECT_TRUE(problems.empty()) << Listed(problems);
  EXPECT_GE(entries, 30u);
}

TEST(ShippedData, HtmlTemplateHoldsItsPlaceholders) {
  std::string page = ReadBytes(DataDir() / "vb2htmltemplate.htm");
  for (const char* placeholder : {"[code]", "[title]", "[charset]", "[modulename]", "[procedurename]"})
    EXPECT_NE(page.find(placeholder), std::string::npos) << placeholder;
}

}  // namespace
}  // namespace quillet::datacheck
