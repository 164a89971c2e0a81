#include "generators/enum_type.h"

#include "generators/scope.h"
#include "kernel/position.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "kernel/product.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::generators {
namespace {

constexpr const wchar_t* kCrLf = L"\r\n";
// "End Enum" and "End Type" are both eight characters.
constexpr long kEndLength = 8;

std::wstring FirstWord(const std::wstring& text) { return vba::Split(vba::Trim(text), L" ")[0]; }

bool IsEndOf(const std::wstring& line, bool isEnum) { return vba::Like(line, L"End " + BlockWord(isEnum) + L"*"); }

// The pane of a module of the active project; the active pane for an empty name.
host::Ptr<host::CodePane> PaneOf(kernel::Session& s, const std::wstring& module) {
  if (module.empty()) return s.vbe->ActiveCodePane();
  return s.vbe->ActiveVBProject()->VBComponents()->Item(module)->CodeModule()->CodePane();
}

bool SameComponent(kernel::Session& s, const host::Ptr<host::CodePane>& pane) {
  host::Ptr<host::CodePane> active = s.vbe->ActiveCodePane();
  return active && pane && active->CodeModule().get() == pane->CodeModule().get();
}

// The block of that name: the module's first, then the project's (`project` set then).
template <class Blocks>
auto BlockNamed(const Blocks& module, const Blocks& project, const std::wstring& name, bool& fromProject) {
  fromProject = false;
  for (const auto& b : module)
    if (vba::EqualsText(b->Name, name)) return b;
  fromProject = true;
  for (const auto& b : project)
    if (vba::EqualsText(b->Name, name)) return b;
  return decltype(*module.begin())(nullptr);
}

template <class Block>
bool HasItem(const Block& block, const std::wstring& name) {
  for (const auto& item : block)
    if (vba::EqualsText(item->Name, name)) return true;
  return false;
}

// Says so and refuses the item.
bool ItemExists(kernel::Session& s) {
  s.uiHost.MsgBox(L"Item exist.", ui::vbExclamation, kernel::kAppName);
  return false;
}

}  // namespace

std::wstring BlockWord(bool isEnum) { return isEnum ? L"Enum" : L"Type"; }

std::wstring PrefixAdd(const std::wstring& name, const std::wstring& prefix) {
  if (prefix.empty() || vba::UCase(name).starts_with(vba::UCase(prefix))) return name;
  return prefix + name;
}

std::wstring TypeEnumText(const std::wstring& name, bool isEnum, const std::wstring& items,
                          const std::wstring& firstValue, const std::wstring& prefix, const std::wstring& accessibility,
                          const std::wstring& tab) {
  const std::wstring word = BlockWord(isEnum);
  std::wstring text = (accessibility.empty() ? L"" : accessibility + L" ") + word + L" " + PrefixAdd(name, prefix) + kCrLf;
  bool first = true, any = false;
  for (const std::wstring& piece : vba::Split(items, kCrLf)) {
    if (vba::Trim(piece).empty()) continue;
    text += tab + PrefixAdd(piece, prefix);
    if (first && !firstValue.empty()) text += L" = " + firstValue;
    text += kCrLf;
    first = false;
    any = true;
  }
  if (!any) text += tab + kCrLf;
  return text + L"End " + word;
}

kernel::CodeEdit NewBlockEdit(const kernel::CodeView& view, long declarationLines, bool caretHere,
                              const std::wstring& text) {
  long line = view.Place().startLine;
  if (caretHere && line > declarationLines && line <= view.count) caretHere = false;
  if (caretHere && view.Blank(line)) return kernel::BlockAtLine(view, line, text);
  kernel::CodeEdit edit;
  edit.line = declarationLines + 1;
  edit.text = text;
  return edit;
}

long BlockLineGet(const kernel::CodeView& view, long declarationLines, bool isEnum, std::wstring& blockName) {
  host::Selection at = view.selection;
  if (at.startLine > declarationLines) return 0;
  const std::wstring word = BlockWord(isEnum);
  for (long line = at.startLine; line >= 1; --line) {
    std::wstring text = view.line(line);
    if (line != at.startLine && IsEndOf(text, isEnum)) return 0;
    if (!vba::Like(text, L"Public " + word + L"*") && !vba::Like(text, L"Private " + word + L"*") &&
        !vba::Like(text, word + L"*"))
      continue;
    blockName = settings::KindNameGet(word, text);
    for (long end = line; end <= declarationLines; ++end) {
      if (!IsEndOf(view.line(end), isEnum)) continue;
      if (at.IsOneLine() && vba::Trim(view.line(at.startLine)).empty()) return at.startLine;
      return end - 1;
    }
    return 0;
  }
  return 0;
}

std::optional<kernel::CodeEdit> ItemAddEdit(const kernel::CodeView& view, const std::wstring& blockName, bool isEnum,
                                            const std::wstring& itemLine, long blockLine) {
  const std::wstring word = BlockWord(isEnum);
  const std::wstring text = view.tab + itemLine;
  if (blockLine > 0) {
    kernel::CodeEdit edit = kernel::BlockAtLine(view, blockLine, text);
    edit.caret = host::Selection(edit.line, vba::Len(text) + 1);
    return edit;
  }
  long head = 0;
  for (long line = 1; line <= view.count && !head; ++line) {
    std::wstring code = view.line(line);
    if (std::size_t quote = code.find(L'\''); quote != std::wstring::npos) code.resize(quote);
    if (vba::InStr(code, word + L" " + blockName) > 0) head = line;
  }
  if (!head) return std::nullopt;
  for (long line = head; line <= view.count; ++line) {
    if (!vba::EqualsText(vba::Left(vba::Trim(view.line(line)), kEndLength), L"End " + word)) continue;
    kernel::CodeEdit edit;
    edit.line = line;
    edit.text = text;
    return edit;
  }
  return std::nullopt;
}

long BlockLineAtCaret(kernel::Session& s, bool isEnum, std::wstring& blockName) {
  std::optional<kernel::CodeView> view = kernel::ActiveView(s);
  if (!view) return 0;
  return BlockLineGet(*view, s.vbe->ActiveCodePane()->CodeModule()->CountOfDeclarationLines(), isEnum, blockName);
}

bool TypeEnumCodeInsert(kernel::Session& s, const std::wstring& name, bool isEnum, const std::wstring& items,
                        const std::wstring& module, const std::wstring& firstValue, const std::wstring& prefix,
                        const std::wstring& accessibility) {
  host::Ptr<host::CodePane> pane = PaneOf(s, module);
  if (!pane) return false;
  const bool here = SameComponent(s, pane);
  kernel::CodeView view = kernel::ViewOf(*pane, kernel::TabSpacesGet(s));
  std::wstring proc;
  long body = 0;
  // Inside a procedure the caret line is no place for a block.
  const bool inDeclarations = here && !kernel::ProcAtCaret(*pane, false, proc, body);
  kernel::CodeEdit edit = NewBlockEdit(view, pane->CodeModule()->CountOfDeclarationLines(), inDeclarations,
                                       TypeEnumText(name, isEnum, items, firstValue, prefix, accessibility, view.tab));
  kernel::ApplyEdit(s.platform, *pane, edit);

  std::shared_ptr<analysis::ProjectModels>& models = analysis::Models(s);
  if (!models) models = std::make_shared<analysis::ProjectModels>();
  const std::wstring project = s.vbe->ActiveVBProject()->Name();
  if (isEnum) {
    auto e = std::make_shared<analysis::clsEnum>();
    e->Name = name;
    e->Project = project;
    e->Module = module;
    if (!models->ProjectEnums.Find(name)) models->ProjectEnums.Add(e, name);
  } else {
    auto t = std::make_shared<analysis::clsType>();
    t->Name = name;
    t->Project = project;
    t->Module = module;
    if (!models->ProjectTypes.Find(name)) models->ProjectTypes.Add(t, name);
  }
  return true;
}

bool EnumItemAdd(kernel::Session& s, const std::wstring& blockName, const std::wstring& itemLine, bool isEnum) {
  Scope& scope = ScopeOf(s);
  std::shared_ptr<analysis::ProjectModels>& models = analysis::Models(s);
  if (!models) models = std::make_shared<analysis::ProjectModels>();
  const std::wstring item = FirstWord(itemLine);
  bool fromProject = false;
  std::shared_ptr<analysis::clsEnum> e;
  std::shared_ptr<analysis::clsType> t;
  std::wstring module;
  if (isEnum) {
    e = BlockNamed(scope.ModuleEnums, models->ProjectEnums, blockName, fromProject);
    if (!e) return false;
    if (HasItem(*e, item)) return ItemExists(s);
    module = e->Module;
  } else {
    t = BlockNamed(scope.ModuleTypes, models->ProjectTypes, blockName, fromProject);
    if (!t) return false;
    if (HasItem(*t, item)) return ItemExists(s);
    module = t->Module;
  }
  host::Ptr<host::CodePane> pane = module.empty() ? s.vbe->ActiveCodePane() : PaneOf(s, module);
  if (!pane) return false;
  std::wstring caretBlock;
  long blockLine = 0;
  if (SameComponent(s, pane)) {
    blockLine = BlockLineAtCaret(s, isEnum, caretBlock);
    if (!vba::EqualsText(caretBlock, blockName)) blockLine = 0;
  }
  std::optional<kernel::CodeEdit> edit =
      ItemAddEdit(kernel::ViewOf(*pane, kernel::TabSpacesGet(s)), blockName, isEnum, itemLine, blockLine);
  if (!edit) return false;
  kernel::ApplyEdit(s.platform, *pane, *edit);

  // The block knows its new item at once, so that a second one of that name is refused.
  if (isEnum) {
    auto member = std::make_shared<analysis::clsConstant>();
    member->Name = item;
    member->EnumName = e->Name;
    member->Project = s.vbe->ActiveVBProject()->Name();
    member->Type_ = L"Long";
    e->Add(member);
    if (fromProject && !models->ProjectConsts.Find(e->Name + L"." + item))
      models->ProjectConsts.Add(member, e->Name + L"." + item);
  } else {
    auto field = std::make_shared<analysis::clsVariable>();
    field->Name = item;
    if (!t->Find(item)) t->Add(field, item);
  }
  std::wstring proc;
  long body = 0;
  if (!item.empty() && kernel::CurrentProcGet(s, false, proc, body)) s.platform.ClipboardSetText(item);
  return true;
}

}  // namespace quillet::generators
