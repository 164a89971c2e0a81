// No line the user wrote is ever lost: random modules, random carets and selections, every
// statement command; each must leave every original line in place, in order, apart from
// the one edit it makes (a blank line replaced, or a line kept around text put into it).
//
// Every builder that writes code adds itself to Commands() below.
//
// CI runs a bounded count with a fixed seed. QUILLET_PROPERTY_CASES=100000 runs longer, with
// a random seed unless QUILLET_PROPERTY_SEED names one; a failure prints the seed and case.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <cstdlib>
#include <random>

#include "../support/fixtures.h"
#include "generators/quillet.h"
#include "generators/frm_input_box.h"
#include "generators/enum_type.h"
#include "generators/fragment_insert.h"
#include "generators/frm_procedure.h"
#include "generators/frm_property.h"
#include "generators/select_case.h"
#include "generators/statements.h"
#include "generators/var_const_code.h"
#include "kernel/form_open.h"
#include "settings/items.h"
#include "kernel/code_edit.h"
#include "vba/encoding.h"
#include "vba/strings.h"

using namespace quillet;

namespace {

using Lines = std::vector<std::wstring>;

struct Settings {
  long cases = 3000;
  unsigned seed = 20261123;
};

Settings FromEnvironment() {
  Settings s;
  if (const char* cases = std::getenv("QUILLET_PROPERTY_CASES")) {
    s.cases = std::atol(cases);
    s.seed = std::random_device{}();
  }
  if (const char* seed = std::getenv("QUILLET_PROPERTY_SEED")) s.seed = static_cast<unsigned>(std::atol(seed));
  return s;
}

// A random module: declarations, procedures of every kind with bodies of statements,
// comments, continuations, blank lines, labels and numbered lines.
class ModuleMaker {
 public:
  explicit ModuleMaker(std::mt19937& rng) : rng_(rng) {}

  Lines Make() {
    Lines lines;
    if (Chance(2)) lines.push_back(L"Option Explicit");
    for (int i = Pick(0, 3); i > 0; --i) lines.push_back(Declaration());
    // Enum and Type blocks, with a blank line and a comment inside.
    for (const wchar_t* word : {L"Enum", L"Type"}) {
      if (!Chance(3)) continue;
      lines.push_back(std::wstring(L"Private ") + word + L" B");
      lines.push_back(L"    a  ' first");
      if (Chance(2)) lines.push_back(L"");
      lines.push_back(std::wstring(L"End ") + word);
    }
    for (int p = Pick(0, 4); p > 0; --p) {
      for (int i = Pick(0, 2); i > 0; --i) lines.push_back(Chance(2) ? L"" : L"' about the next one");
      Procedure(lines);
    }
    for (int i = Pick(0, 2); i > 0; --i) lines.push_back(Chance(2) ? L"" : L"   ");
    return lines;
  }

  int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(rng_); }
  bool Chance(int oneIn) { return Pick(1, oneIn) == 1; }

 private:
  std::wstring Declaration() {
    switch (Pick(0, 4)) {
      case 0: return L"Private mlngCount As Long";
      case 1: return L"Public Const gcstrName As String = \"x\"";
      case 2: return L"Private Declare PtrSafe Function GetTickCount Lib \"kernel32\" () As Long";
      case 3: return L"Dim a As Integer, _";
      default: return L"' a comment";
    }
  }

  void Procedure(Lines& lines) {
    static const wchar_t* kinds[][2] = {{L"Sub", L"End Sub"},
                                        {L"Function", L"End Function"},
                                        {L"Property Get", L"End Property"},
                                        {L"Property Let", L"End Property"}};
    const auto& kind = kinds[Pick(0, 3)];
    std::wstring name = L"P" + std::to_wstring(Pick(1, 99));
    if (Chance(3)) {
      lines.push_back(std::wstring(L"Public ") + kind[0] + L" " + name + L"(ByVal a As Long, _");
      lines.push_back(L"        ByVal b As Long)");
    } else {
      lines.push_back(std::wstring(kind[0]) + L" " + name + L"()");
    }
    for (int i = Pick(0, 6); i > 0; --i) lines.push_back(Statement());
    lines.push_back(kind[1]);
  }

  std::wstring Statement() {
    std::wstring indent(static_cast<std::size_t>(Pick(0, 3)) * 2, L' ');
    switch (Pick(0, 9)) {
      case 0: return L"";
      case 1: return indent;
      case 2: return indent + L"x = 1: ";
      case 3: return indent + L"' note";
      case 4: return L"Again:";
      case 5: return L"10 " + indent + L"y = 2";
      case 6: return indent + L"s = \"a\" & _";
      case 7: return indent + L"Debug.Print x";
      case 8: return indent + L"If x Then y = 1 Else y = 2";
      default: return indent + L"Call Show(\"|[[x]]\")";
    }
  }

  std::mt19937& rng_;
};

// A caret or a selection anywhere in the module, up to the line below the last.
host::Selection RandomPlace(ModuleMaker& m, const Lines& lines) {
  auto place = [&] {
    long line = m.Pick(1, static_cast<int>(lines.size()) + 1);
    long length = line <= static_cast<long>(lines.size()) ? static_cast<long>(lines[line - 1].size()) : 0;
    return host::Selection(line, m.Pick(1, static_cast<int>(length) + 2));
  };
  host::Selection a = place();
  if (m.Chance(3)) return a;
  host::Selection b = m.Chance(2) ? host::Selection(a.startLine, m.Pick(1, 12)) : place();
  if (b < a) std::swap(a, b);
  return {a.startLine, a.startColumn, b.endLine, b.endColumn};
}

// Whether `now` is `old` grown around what it held: text put before, after or inside it.
bool Grown(const std::wstring& old, const std::wstring& now) {
  std::size_t a = 0;
  while (a < old.size() && a < now.size() && old[a] == now[a]) ++a;
  std::size_t b = 0;
  while (b < old.size() - a && b < now.size() - a && old[old.size() - 1 - b] == now[now.size() - 1 - b]) ++b;
  return a + b == old.size();
}

// Empty when `after` keeps every line of `before` in order apart from one edit; else what
// went wrong.
std::string LostLine(const Lines& before, const Lines& after) {
  std::size_t p = 0;
  while (p < before.size() && p < after.size() && before[p] == after[p]) ++p;
  std::size_t q = 0;
  while (q < before.size() - p && q < after.size() - p && before[before.size() - 1 - q] == after[after.size() - 1 - q])
    ++q;
  std::size_t gone = before.size() - p - q;
  if (gone == 0) return {};
  if (gone > 1) return std::to_string(gone) + " lines replaced from line " + std::to_string(p + 1);
  const std::wstring& old = before[p];
  if (vba::Trim(old).empty()) return {};
  // A line with text may only have grown around what it held.
  for (std::size_t i = p; i < after.size() - q; ++i)
    if (Grown(old, after[i])) return {};
  return "line " + std::to_string(p + 1) + " \"" + vba::ToUtf8(old) + "\" overwritten";
}

// For commands that write in two places (a declaration and the name at the caret): every
// line with text still stands, in order, as it was or grown around what it held.
std::string LostLineOfMany(const Lines& before, const Lines& after) {
  std::size_t at = 0;
  for (std::size_t i = 0; i < before.size(); ++i) {
    if (vba::Trim(before[i]).empty()) continue;
    while (at < after.size() && !Grown(before[i], after[at])) ++at;
    if (at == after.size()) return "line " + std::to_string(i + 1) + " \"" + vba::ToUtf8(before[i]) + "\" lost";
    ++at;
  }
  return {};
}

std::string Show(const Lines& lines, const host::Selection& s) {
  std::string text;
  for (const std::wstring& l : lines) text += "  \"" + vba::ToUtf8(l) + "\"\n";
  return text + "  selection " + std::to_string(s.startLine) + "," + std::to_string(s.startColumn) + "," +
         std::to_string(s.endLine) + "," + std::to_string(s.endColumn) + "\n";
}

// Every statement command as a function from view to edit.
std::vector<std::pair<std::string, std::function<kernel::CodeEdit(const kernel::CodeView&)>>> Commands() {
  using generators::InsertOptions;
  std::vector<std::pair<std::string, std::function<kernel::CodeEdit(const kernel::CodeView&)>>> c;
  for (const wchar_t* line : {L"On Error Resume Next", L"On Error GoTo 0"})
    c.push_back({vba::ToUtf8(line), [=](const kernel::CodeView& v) {
                   return generators::CodeInsertEdit(v, line, L"", {.spaceBefore = true});
                 }});
  c.push_back({"Exit", [](const kernel::CodeView& v) {
                 return generators::CodeInsertEdit(v, L"Exit Sub", L"Exit", {.allowInline = true, .spaceBefore = true});
               }});
  for (const wchar_t* cmd : {L"If Then", L"If Then Else", L"If Then Else If", L"If Then ElseIf Else"})
    c.push_back({vba::ToUtf8(cmd), [=](const kernel::CodeView& v) { return generators::IfEdit(v, cmd, 2); }});
  for (const wchar_t* cmd : {L"IfDoLoopWhile", L"IfDoLoopUntil", L"ForEachNext", L"ForNext", L"While"})
    c.push_back({vba::ToUtf8(cmd), [=](const kernel::CodeView& v) { return *generators::LoopEdit(v, cmd); }});
  c.push_back({"With", [](const kernel::CodeView& v) { return *generators::WithEdit(v, L"Sheet1"); }});
  // The placings of declarations, on the same lines read as a module.
  auto decl = [](const kernel::CodeView& v) {
    Lines lines;
    for (long n = 1; n <= v.count; ++n) lines.push_back(v.line(n));
    return generators::DeclViewOf(lines, v.selection, v.tab);
  };
  auto orNothing = [](std::optional<kernel::CodeEdit> e) { return e.value_or(kernel::CodeEdit{}); };
  c.push_back({"Dim (procedure)", [=](const kernel::CodeView& v) {
                 return orNothing(generators::ProcVariableEdit(decl(v), L"Dim x As Long", true));
               }});
  c.push_back({"Const (procedure)", [=](const kernel::CodeView& v) {
                 return orNothing(generators::ProcConstEdit(decl(v), L"Const X As Long = 1", true));
               }});
  c.push_back({"Dim (module)", [=](const kernel::CodeView& v) {
                 return generators::ModuleDeclEdit(decl(v), L"Private x As Long", L"x", true, true);
               }});
  c.push_back({"Dim (declarations)", [=](const kernel::CodeView& v) {
                 return generators::DeclarationSectionEdit(decl(v), L"Dim x As Long", L"");
               }});
  c.push_back({"Enum member", [=](const kernel::CodeView& v) {
                 generators::DeclView d = decl(v);
                 std::wstring block;
                 long line = generators::BlockLineGet(d, true, block);
                 return line > 0 ? generators::BlockLineEdit(d, line, L"X = 1") : kernel::CodeEdit{};
               }});
  for (const wchar_t* cmd : {L"GoTo", L"On Error GoTo", L"Resume"})
    c.push_back({vba::ToUtf8(cmd), [=](const kernel::CodeView& v) {
                   return generators::CodeInsertEdit(v, std::wstring(cmd) + L" ErrExit", cmd,
                                                     {.allowInline = true, .spaceBefore = true});
                 }});
  c.push_back({"Debug.Print ", [](const kernel::CodeView& v) {
                 return generators::CodeInsertEdit(v, L"Debug.Print ", L"Debug.Print ", {.allowInline = true, .spaceBefore = true});
               }});
  for (const wchar_t* cmd : {L"Select Case", L"Select Case Else", L"Select Case UCase"})
    c.push_back({vba::ToUtf8(cmd), [=](const kernel::CodeView& v) {
                   return generators::SelectCaseEdit(v, {.command = cmd, .testExpression = L"x", .values = {L"1", L"2"}});
                 }});
  for (bool isEnum : {true, false}) {
    const std::string word = isEnum ? "Enum" : "Type";
    auto block = [=](const kernel::CodeView& v) {
      return generators::NewBlockEdit(v, std::min<long>(v.count, 3), true,
                                      generators::TypeEnumText(L"B", isEnum, L"a\r\n\r\nb", L"", L"p", L"", v.tab));
    };
    c.push_back({word, block});
    c.push_back({word + " Item", [=](const kernel::CodeView& v) {
                   std::wstring name;
                   long at = generators::BlockLineGet(v, v.count, isEnum, name);
                   std::optional<kernel::CodeEdit> e = generators::ItemAddEdit(v, name, isEnum, L"item  'x", at);
                   return e ? *e : block(v);
                 }});
  }
  for (const wchar_t* fragment : {L"Now()", L"a = 1\r\nb = 2\r\n"})
    c.push_back({"Fragment " + vba::ToUtf8(fragment), [=](const kernel::CodeView& v) {
                   // A selection is the user's choice to give way to the fragment: a bare caret here.
                   kernel::CodeView at = v;
                   at.selection = v.selection.Start();
                   std::optional<kernel::CodeEdit> e = generators::FragmentCaretEdit(at, fragment);
                   return e ? *e : kernel::CodeEdit{};
                 }});
  c.push_back({"Select From Enum", [](const kernel::CodeView& v) {
                 return generators::SelectCaseEdit(v, {.command = L"Select From Enum", .testExpression = L"e",
                                                       .members = {L"xlRed", L"xlBlue"}, .addCaseElse = true});
               }});
  return c;
}

TEST(NoLostLine, EveryStatementCommandKeepsEveryUserLine) {
  Settings settings = FromEnvironment();
  std::mt19937 rng(settings.seed);
  ModuleMaker maker(rng);
  auto commands = Commands();
  auto started = std::chrono::steady_clock::now();
  long failures = 0;
  for (long n = 0; n < settings.cases && failures < 5; ++n) {
    Lines lines = maker.Make();
    host::Selection place = RandomPlace(maker, lines);
    std::wstring tab(static_cast<std::size_t>(maker.Pick(1, 8)), L' ');
    kernel::CodeView view = kernel::ViewOf(lines, place, tab);
    for (const auto& [name, command] : commands) {
      kernel::CodeEdit edit = command(view);
      std::string lost = LostLine(lines, kernel::EditedLines(lines, edit));
      if (!kernel::KeepsUserLines(view, edit) && lost.empty()) lost = "the edit replaces a line it does not keep";
      if (lost.empty()) continue;
      ++failures;
      ADD_FAILURE() << name << ": " << lost << " (seed " << settings.seed << ", case " << n << ")\n" << Show(lines, place);
    }
  }
  double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
  std::cout << settings.cases << " cases x " << commands.size() << " commands, seed " << settings.seed << ", "
            << seconds << " s\n";
}

// Random modules played in the in-memory editor: each case loads a module, puts the caret
// at a random place, lets the test act, and checks that every line of the user's is still
// there, in order. Five failures end the run; each names the seed and the case.
class EditorPlay {
 public:
  explicit EditorPlay(unsigned seedOffset)
      : settings_(FromEnvironment()), rng_(settings_.seed + seedOffset), maker(rng_),
        module_(fx.Module(L"Module1", {})->Module()) {}

  // How many cases: the run's count divided by `share`, at least one.
  long Cases(long share) const { return std::max(1L, settings_.cases / share); }
  bool Going(long n, long cases) const { return n < cases && failures_ < 5; }

  // A new case: its module and a random place, loaded with the caret there (`caretOnly`: the
  // place's start, as a bare caret).
  void Next(bool caretOnly) {
    lines = maker.Make();
    place = RandomPlace(maker, lines);
    Load(caretOnly);
  }
  // The case's module loaded again, the caret at its place.
  void Load(bool caretOnly) {
    if (module_->CountOfLines() > 0) module_->DeleteLines(1, module_->CountOfLines());
    if (!lines.empty()) module_->InsertLines(1, vba::JoinLines(lines));
    fx.Pane().SetSelection(caretOnly ? place.Start() : place);
  }
  Lines After() const {
    Lines after;
    for (long i = 1; i <= module_->CountOfLines(); ++i) after.push_back(module_->Lines(i, 1));
    return after;
  }
  // Checks the module against the case's lines: one edit (`several` false) or edits in
  // several places; `mustWrite` fails a case that added no line. Returns the lines after.
  Lines Check(const std::string& what, long n, bool several, bool mustWrite = false) {
    Lines after = After();
    std::string lost = several ? LostLineOfMany(lines, after) : LostLine(lines, after);
    if (lost.empty() && mustWrite && after.size() <= lines.size()) lost = "nothing was written";
    if (!lost.empty()) {
      ++failures_;
      ADD_FAILURE() << what << ": " << lost << " (seed " << settings_.seed << ", case " << n << ")\n"
                    << Show(lines, place) << "after:\n" << Show(after, fx.Pane().GetSelection());
    }
    return after;
  }

 private:
  Settings settings_;
  std::mt19937 rng_;

 public:
  ModuleMaker maker;
  test::SessionFixture fx;
  Lines lines;
  host::Selection place;

 private:
  std::shared_ptr<host::MemoryCodeModule> module_;
  long failures_ = 0;
};

// The settings of error handling and a plain scheme in the ErrorHandlers folder.
void PlainErrorHandlerWrite(test::SessionFixture& fx) {
  fx.session.settings[settings::kBaseFolder] = std::wstring(L"\\vbcode\\");
  fx.session.settings[settings::kExitHandler] = std::wstring(L"HandleExit");
  fx.session.settings[settings::kModuleNameConstant] = std::wstring(L"cstrModule");
  fx.session.settings[settings::kProcedureNameConstant] = std::wstring(L"cstrProcedure");
  fx.Write("vbcode/Fragments/ErrorHandlers/Plain.bas",
           "    On Error GoTo HandleError\r\n<end_of_top>\r\n<begin_of_bottom>\r\nHandleExit:\r\n    Exit {PROCEDURETYPE}\r\n"
           "HandleError:\r\n    Err.Raise Err.Number, \"{MODULENAME}.{PROCEDURENAME}\"\r\n");
}

// The same invariant through the dispatcher and the in-memory editor: what lands in the
// module, not only the edit computed for it.
TEST(NoLostLine, TheDispatcherKeepsEveryUserLineInTheEditor) {
  EditorPlay play(1);
  test::SessionFixture& fx = play.fx;
  const long cases = play.Cases(10);
  for (long n = 0; play.Going(n, cases); ++n) {
    play.Next(false);
    for (const wchar_t* command : {L"On Error GoTo 0", L"Exit", L"If Then Else If", L"ForNext", L"While"}) {
      play.Load(false);
      fx.uiHost.AnswerInputBox(L"1");
      std::wstring argument;
      generators::QuilletHandle(fx.session, command, argument);
      fx.platform.DoEvents();  // the keystrokes the command sent land
      play.Check(vba::ToUtf8(command), n, false);
    }
    // The quick boxes of Dim and Const, filled and confirmed as a user does.
    fx.session.showMode = 0;
    for (const wchar_t* command : {L"Dim", L"Const"}) {
      // A selected word is the proposed name and gives way to it: a bare caret here.
      play.Load(true);
      std::wstring argument = L"Long";
      generators::QuilletHandle(fx.session, command, argument);
      if (fx.session.openForms.empty()) continue;
      auto* box = dynamic_cast<generators::FrmInputBox*>(fx.session.openForms.back().get());
      ASSERT_NE(box, nullptr);
      box->txtName.SetText(L"qNew" + std::to_wstring(n));
      box->txtValue.SetText(L"1");
      box->cmdOK.SetValue(true);  // pressed, as a click does
      kernel::ReleaseClosedForms(fx.session);
      fx.platform.DoEvents();
      play.Check(vba::ToUtf8(command), n, true);
    }
    fx.session.showMode = 1;
  }
}

// Error handling puts its block in several places and may declare two constants: every
// line of the user's stays, in order, whichever shipped scheme is chosen.
TEST(NoLostLine, ErrorHandlingKeepsEveryUserLineInTheEditor) {
  EditorPlay play(2);
  test::SessionFixture& fx = play.fx;
  const std::filesystem::path shipped = std::filesystem::path(QUILLET_SOURCE_DIR) / "data" / "vbcode";
  const std::filesystem::path home = fx.temp.root / "c" / "Program Files" / "Quillet" / "vbcode";
  std::filesystem::create_directories(home);
  std::filesystem::copy(shipped, home, std::filesystem::copy_options::recursive);
  std::vector<std::wstring> schemes;
  for (const auto& e : std::filesystem::directory_iterator(shipped / "Fragments" / "ErrorHandlers"))
    schemes.push_back(e.path().stem().wstring());
  ASSERT_FALSE(schemes.empty());
  const std::pair<int, const wchar_t*> values[] = {
      {settings::kBaseFolder, L"\\vbcode\\"}, {settings::kErrorHandler, L"HandleError"},
      {settings::kExitHandler, L"HandleExit"}, {settings::kErrorHandleProcedure, L"ErrorHandle"},
      {settings::kErrorHandleModule, L"basErrorHandle"}, {settings::kModuleNameConstant, L"cstrModule"},
      {settings::kProcedureNameConstant, L"cstrProcedure"}};
  for (const auto& [item, value] : values) fx.session.settings[item] = std::wstring(value);
  const long cases = play.Cases(10);
  long placed = 0;
  for (long n = 0; play.Going(n, cases); ++n) {
    play.Next(false);
    fx.session.settings[settings::kMakeModuleConstantTrue] = n % 2 == 0;
    fx.session.settings[settings::kMakeProcedureConstantTrue] = n % 3 != 0;
    std::wstring scheme = schemes[static_cast<std::size_t>(n) % schemes.size()];
    generators::QuilletHandle(fx.session, L"ErrorHandling", scheme);
    if (play.Check("ErrorHandling " + vba::ToUtf8(scheme), n, true).size() > play.lines.size()) ++placed;
  }
  EXPECT_GT(placed, 0) << "no case reached a procedure";
}

// A fragment writes up to three places of the procedure at the caret and declares its
// variables: every line of the user's stays, in order, wherever the caret stands.
TEST(NoLostLine, FragmentInsertionKeepsEveryUserLineInTheEditor) {
  EditorPlay play(3);
  test::SessionFixture& fx = play.fx;
  fx.session.settings[settings::kDeclarationIndented] = true;
  const wchar_t* fragments[] = {
      L"Now()",
      L"{STRING} = \"x\"\r\nDebug.Print {STRING}<cursor>\r\n",
      L"Dim t As Single\r\n<end_of_top>\r\nt = Timer\r\n<begin_of_bottom>\r\nDebug.Print Timer - t",
      L"{LONG:n=3}<end_of_top>\r\n<begin_of_bottom>Set {OBJECT:o} = Nothing"};
  const long cases = play.Cases(10);
  long grown = 0;
  for (long n = 0; play.Going(n, cases); ++n) {
    play.Next(true);
    const std::wstring fragment = fragments[static_cast<std::size_t>(n) % std::size(fragments)];
    generators::FragmentInsert(fx.session, fragment);
    if (play.Check("Fragment " + vba::ToUtf8(fragment), n, true).size() > play.lines.size() + 1) ++grown;
  }
  EXPECT_GT(grown, 0) << "no fragment wrote several places";
}

// The Procedure Builder writes behind the module's last line and may declare the module
// constant: with any mix of its options, every line of the user's stays, in order.
TEST(NoLostLine, TheProcedureBuilderKeepsEveryUserLineInTheEditor) {
  EditorPlay play(4);
  test::SessionFixture& fx = play.fx;
  fx.session.hostName = L"Excel";
  PlainErrorHandlerWrite(fx);
  const long cases = play.Cases(30);
  for (long n = 0; play.Going(n, cases); ++n) {
    play.Next(true);
    generators::FrmProcedure form(fx.session);
    form.Init();
    form.txtName.SetText(L"qProc" + std::to_wstring(n));
    form.cboProcType.SetListIndex(play.maker.Pick(0, 1));
    form.cboAddErrorHandler.SetListIndex(play.maker.Chance(2) ? form.cboAddErrorHandler.FindStringExact(L"Plain") : 0);
    for (ui::CheckBox* box : {&form.chkAddHourglass, &form.chkAddProcedureConstant, &form.chkAddModuleConstant,
                              &form.chkAddReturnStatement})
      if (box->Enabled()) box->SetValue(play.maker.Pick(0, 1));
    form.PressOk();
    play.Check("Procedure Builder", n, true, true);
  }
}

// The Property Builder puts its declaration under the module's declarations and its
// procedures there too, behind the last line, or below a caret that stands in the comments
// above a procedure or the blanks behind one: in each case every line of the user's stays.
TEST(NoLostLine, ThePropertyBuilderKeepsEveryUserLineInTheEditor) {
  EditorPlay play(5);
  test::SessionFixture& fx = play.fx;
  fx.session.hostName = L"Access";
  PlainErrorHandlerWrite(fx);
  const wchar_t* types[] = {L"String", L"Collection", L"Variant"};
  const long cases = play.Cases(30);
  for (long n = 0; play.Going(n, cases); ++n) {
    play.Next(true);
    generators::FrmProperty form(fx.session);
    form.Init();
    form.AddProcedureToEndOfModule = play.maker.Chance(3);
    form.txtName.SetText(L"qProp" + std::to_wstring(n));
    form.cboDataType.SetText(types[play.maker.Pick(0, 2)]);
    form.chkGet.SetValue(play.maker.Pick(0, 1));
    form.cboAddErrorHandler.SetListIndex(play.maker.Chance(2) ? form.cboAddErrorHandler.FindStringExact(L"Plain") : 0);
    for (ui::CheckBox* box : {&form.chkAddHourglass, &form.chkAddProcedureConstant, &form.chkAddModuleConstant})
      box->SetValue(play.maker.Pick(0, 1));
    form.PressOK(false);
    play.Check("Property Builder", n, true, true);
  }
}

}  // namespace
