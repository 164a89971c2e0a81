// The command table: what each control of the command bar runs. Statements go to the
// dispatcher, builders through FormOpen, the rest to plain procedures.
#include <map>

#include "shell/commands.h"

#include "codetools/code_window.h"
#include "codetools/numbering.h"
#include "fragments/frm_fragments.h"
#include "generators/dispatcher_commands.h"
#include "generators/frm_class.h"
#include "generators/frm_const.h"
#include "generators/frm_procedure.h"
#include "generators/frm_property.h"
#include "generators/frm_var.h"
#include "generators/quillet.h"
#include "kernel/strings.h"
#include "shell/menu_tree.h"
#include "hostmodel/commandbars.h"
#include "io/paths.h"
#include "settings/frm_settings.h"
#include "shell/connect.h"
#include "kernel/errors.h"
#include "kernel/form_open.h"
#include "shell/frm_about.h"
#include "kernel/position.h"
#include "shell/tips.h"
#include "vba/strings.h"

namespace quillet::shell {
namespace {

// Handlers that write a statement: the dispatcher's command and detail.
const std::map<std::wstring, std::pair<std::wstring, std::wstring>, vba::TextLess>& Statements() {
  static const std::map<std::wstring, std::pair<std::wstring, std::wstring>, vba::TextLess> table = {
      {L"mnuhType", {L"Type", L""}},
      {L"mnuhEnum", {L"Enum", L""}},
      {L"mnuhEnumItem", {L"Enum", L"Item"}},
      {L"mnuhFilename", {L"Filename", L""}},
      {L"mnuhFolder", {L"Folder", L""}},
      {L"mnuhWith", {L"With", L""}},
      {L"mnuhErrorGotoLabel", {L"On Error GoTo", L""}},
      {L"mnuhErrorResumeNext", {L"On Error Resume Next", L""}},
      {L"mnuhErrorGoto0", {L"On Error GoTo 0", L""}},
      {L"mnuhErrorResume", {L"Resume", L""}},
      {L"mnuhExit", {L"Exit", L""}},
      {L"mnuhGoto", {L"GoTo", L""}},
      {L"mnuhIfThen", {L"If Then", L""}},
      {L"mnuhIfThenElse", {L"If Then Else", L""}},
      {L"mnuhIfThenElseIf", {L"If Then Else If", L""}},
      {L"mnuhIfThenElseIfElse", {L"If Then ElseIf Else", L""}},
      {L"mnuhSelectCase", {L"Select Case", L""}},
      {L"mnuhSelectCaseElse", {L"Select Case Else", L""}},
      {L"mnuhSelectCaseUcase", {L"Select Case UCase", L""}},
      {L"mnuhSelectFromCustomEnum", {L"Select From Enum", L""}},
      {L"mnuhInsertVariable", {L"Insert Variable", L""}},
      {L"mnuhQLTInsertVariable", {L"Insert Variable", L""}},
      {L"mnuhInsertObjectname", {L"Insert Objectname", L""}},
      {L"mnuhQLTExplicitArgument", {L"Explicit Argument", L""}},
      {L"mnuhDoLoopWhile", {L"IfDoLoopWhile", L""}},
      {L"mnuhDoLoopUntil", {L"IfDoLoopUntil", L""}},
      {L"mnuhForEachNext", {L"ForEachNext", L""}},
      {L"mnuhForNext", {L"ForNext", L""}},
      {L"mnuhWhile", {L"While", L""}},
      {L"mnuhDebugPrint", {L"Debug.Print ", L""}},
  };
  return table;
}

// Handlers that open a builder, with their forwarding twins of the menu. A builder of a
// later version has no opener and says so.
struct Builder {
  const wchar_t* form;
  void (*open)(kernel::Session& s);
};
const std::map<std::wstring, Builder, vba::TextLess>& Builders() {
  static const Builder procedure{L"frmProcedure", generators::ProcedureBuilderOpen};
  static const Builder constant{L"frmConst", generators::ConstBuilderOpen};
  static const Builder variable{L"frmVar", generators::VarBuilderOpen};
  static const Builder klass{L"frmClass", generators::ClassBuilderOpen};
  static const Builder property{L"frmProperty", generators::PropertyBuilderOpen};
  static const Builder codeLine{L"frmCodeLineTLI", nullptr};
  static const Builder fragment{L"frmFragments", [](kernel::Session& s) { fragments::FragmentBuilderOpen(s); }};
  static const std::map<std::wstring, Builder, vba::TextLess> table = {
      {L"mnuhAddProcedure", procedure}, {L"mnuhQLTAddProcedure", procedure},
      {L"mnuhAddConstant", constant},   {L"mnuhConstAdd", constant},
      {L"mnuhAddVariable", variable},   {L"mnuhDimAdd", variable},
      {L"mnuhAddClass", klass},         {L"mnuhQLTAddClass", klass},
      {L"mnuhAddProperty", property},   {L"mnuhPropAdd", property},
      {L"mnuhCodeLines", codeLine},     {L"mnuhQLTCodeLines", codeLine},
      {L"mnuhFragmentAdd", fragment},   {L"mnuhQLTAddFragment", fragment},
  };
  return table;
}

// Handlers that go to plain procedures of later versions, with what the user asked for.
const std::map<std::wstring, std::wstring, vba::TextLess>& Tools() {
  static const std::map<std::wstring, std::wstring, vba::TextLess> table = {
      {L"mnuhObjectInventory", L"Object Inventory"},
      {L"mnuhAddControl", L"Add Control"},
      {L"mnuhControlAdd", L"Add Control"},
      {L"mnuhQLTAddControl", L"Add Control"},
  };
  return table;
}

// The families of type handlers: "mnuhDimString" is "Dim" with "String".
bool TypeFamily(const std::wstring& handler, std::wstring& command, std::wstring& type) {
  static const std::pair<const wchar_t*, const wchar_t*> families[] = {
      {L"mnuhDim", L"Dim"}, {L"mnuhConst", L"Const"}, {L"mnuhProp", L"Property"}};
  for (const auto& [prefix, cmd] : families) {
    std::wstring p = prefix;
    if (handler.size() > p.size() && vba::StartsWithText(handler, p) && handler != p + L"Add") {
      command = cmd;
      type = handler.substr(p.size());
      return true;
    }
  }
  return false;
}

}  // namespace

void Connect::Handle(const std::wstring& handler, const host::Ptr<host::CommandBarControl>& control) {
  kernel::Session& s = s_;
  if (auto it = Statements().find(handler); it != Statements().end()) {
    std::wstring detail = it->second.second;
    return generators::QuilletHandle(s, it->second.first, detail);
  }
  std::wstring command, type;
  if (TypeFamily(handler, command, type)) return generators::QuilletHandle(s, command, type);
  if (vba::EqualsText(handler, L"mnuhErrorHandling")) {
    std::wstring text = control ? control->Text() : std::wstring();
    return generators::QuilletHandle(s, L"ErrorHandling", text);
  }
  if (vba::EqualsText(handler, L"mnuhAbout")) {
    kernel::FormOpenOptions o;
    o.needCodeWindow = false;
    o.callInit = false;
    return kernel::FormOpen(s, std::make_unique<FrmAbout>(s), o);
  }
  if (vba::EqualsText(handler, L"mnuhSetting")) {
    kernel::FormOpenOptions o;
    o.needCodeWindow = false;
    o.callInit = false;
    return kernel::FormOpen(s, std::make_unique<settings::FrmSettings>(s), o);
  }
  if (auto it = Builders().find(handler); it != Builders().end()) {
    if (it->second.open) return it->second.open(s);
    if (!kernel::CodeWindowActive(s)) return;
    return kernel::NotAvailable(s, L"the builder " + std::wstring(it->second.form));
  }
  if (vba::EqualsText(handler, L"mnuhDirectAccess") || vba::EqualsText(handler, L"mnuhShortcutsAndSearch")) {
    if (s.directAccessWindow) s.directAccessWindow->SetVisible(true);
    return;
  }
  if (vba::EqualsText(handler, L"mnuhQLTCodeExplorer") || vba::EqualsText(handler, L"mnuhCodeExplorer")) {
    if (s.codeExplorerWindow) s.codeExplorerWindow->SetVisible(true);
    return;
  }
  if (vba::EqualsText(handler, L"mnuhHelpContents")) {
    return s.platform.ShellOpen(io::JoinPath(s.platform.ProgramFolder(), L"Quillet.chm"));
  }
  static const std::pair<const wchar_t*, TipTopic> tips[] = {
      {L"mnuhTipOfTheDayQuilletStartup", kTipStartup},
      {L"mnuhTipOfTheDayVarBuilder", kTipVarBuilder},
      {L"mnuhTipOfTheDayCodelineBuilder", kTipCodeLineBuilder},
      {L"mnuhTipOfTheDayFragmentBuilder", kTipFragmentBuilder},
      {L"mnuhTipOfTheDayProcBuilder", kTipProcBuilder}};
  for (const auto& [name, topic] : tips)
    if (vba::EqualsText(handler, name)) return ShowTip(s, topic, true);  // forced: even when switched off
  if (vba::StartsWithText(handler, L"mnuhWebSite")) {
    if (control) s.platform.ShellOpen(control->TooltipText());
    return;
  }
  if (vba::EqualsText(handler, L"mnuhCommentLinesAdd")) return codetools::CommentLinesAdd(s);
  if (vba::EqualsText(handler, L"mnuhCommentLinesRemove")) return codetools::CommentLinesRemove(s);
  if (vba::EqualsText(handler, L"mnuhQLTImportFile")) return (void)codetools::ImportFile(s);
  if (vba::EqualsText(handler, L"mnuhQLTExportFile")) return (void)codetools::ExportFile(s);
  if (vba::EqualsText(handler, L"mnuhLineNumbersAdd")) return codetools::LineNumbers(s, codetools::kAddNumbers);
  if (vba::EqualsText(handler, L"mnuhLineNumbersRemove")) return codetools::LineNumbers(s, codetools::kRemoveNumbers);
  if (auto it = Tools().find(handler); it != Tools().end()) return kernel::NotAvailable(s, L"the command " + it->second);
  // mnuhTypeItem has a variable but no handler: its item does nothing when clicked.
}

namespace {

void CollectHandlers(const std::vector<MenuNode>& nodes, std::vector<HandlerEntry>& out) {
  for (const MenuNode& node : nodes) {
    if (!node.handler.empty()) {
      HandlerEntry e{node.handler, vba::Replace(kernel::ResString(node.captionId), L"&", L""), {}};
      std::wstring command, type;
      if (auto it = Statements().find(node.handler); it != Statements().end()) e.command = it->second.first;
      else if (TypeFamily(node.handler, command, type)) e.command = command;
      else if (vba::EqualsText(node.handler, L"mnuhErrorHandling")) e.command = L"ErrorHandling";
      out.push_back(std::move(e));
    }
    CollectHandlers(node.children, out);
  }
}

}  // namespace

std::vector<HandlerEntry> CommandBarHandlers() {
  std::vector<HandlerEntry> out;
  CollectHandlers(CommandBarTree(), out);
  return out;
}

namespace {

// The dispatcher's commands whose work a feature above the dispatcher does.
struct FeatureCommand {
  const wchar_t* name;
  void (*run)(kernel::Session& s);
};
const FeatureCommand kFeatureCommands[] = {
    {L"Comment Lines Add", codetools::CommentLinesAdd},
    {L"Comment Lines Remove", codetools::CommentLinesRemove},
};

bool DoneByFeature(const std::wstring& name) {
  for (const FeatureCommand& c : kFeatureCommands)
    if (name == c.name) return true;
  return false;
}

}  // namespace

void DispatcherBodiesGive(kernel::Session& s) {
  for (const FeatureCommand& c : kFeatureCommands) generators::DispatcherBodySet(s, c.name, c.run);
}

std::wstring CommandsListing() {
  std::wstring text = L"Dispatcher commands ({\"command\": NAME}):\n";
  for (const generators::DispatcherCommand& c : generators::DispatcherCommands())
    text += L"  \"" + c.name + L"\"" + (c.Built() || DoneByFeature(c.name) ? L"" : L"  (a later version)") + L"\n";
  text += L"Command bar handlers ({\"click\": HANDLER}), with their captions:\n";
  for (const HandlerEntry& e : CommandBarHandlers()) {
    text += L"  " + e.handler + std::wstring(e.handler.size() < 34 ? 34 - e.handler.size() : 1, L' ') + e.caption;
    if (!e.command.empty()) text += L"  -> \"" + e.command + L"\"";
    text += L"\n";
  }
  return text;
}

}  // namespace quillet::shell
