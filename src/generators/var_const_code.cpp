#include "generators/var_const_code.h"

#include "generators/enum_type.h"

#include "analysis/line_scan.h"
#include "analysis/project_models.h"
#include "analysis/records.h"
#include "generators/module_create.h"
#include "generators/property.h"
#include "generators/scope.h"
#include "generators/selection.h"
#include "generators/values.h"
#include "hostmodel/proc_index.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "kernel/product.h"
#include "settings/items.h"
#include "settings/name_checks.h"
#include "ui/ui_host.h"
#include "vba/like.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

bool LikeText(const std::wstring& text, const std::wstring& pattern) {
  return vba::Like(text, pattern, vba::Compare::Text);
}
bool SameText(const std::wstring& a, const std::wstring& b) { return vba::StrComp(a, b, vba::Compare::Text) == 0; }

kernel::CodeEdit InsertAt(long line, std::wstring text) {
  kernel::CodeEdit e;
  e.line = line;
  e.text = std::move(text);
  return e;
}
kernel::CodeEdit ReplaceAt(long line, std::wstring text) {
  kernel::CodeEdit e = InsertAt(line, std::move(text));
  e.mode = kernel::CodeEdit::kReplaceLine;
  return e;
}

// The declaration area of the procedure: its first and last line (the last above the
// first when there are none yet) and the lines of its signature.
struct DeclArea {
  long first = 0, last = 0, defLines = 1;
};
DeclArea AreaOf(const DeclView& v) {
  std::vector<std::wstring> lines;
  for (long n = v.procLine; n <= v.procEnd; ++n) lines.push_back(v.code.line(n));
  DeclArea a;
  analysis::ProcDeclAreaOf(lines, v.procLine, false, a.first, a.last, a.defLines);
  return a;
}

std::wstring Indented(const DeclView& v, const std::wstring& text, bool indented) {
  return indented ? v.code.tab + text : text;
}

bool Indented(kernel::Session& s) { return s.settings[settings::kDeclarationIndented].ToBool(); }

host::Ptr<host::CodePane> ActivePane(kernel::Session& s) {
  return s.vbe ? s.vbe->ActiveCodePane() : nullptr;
}

// The pane of a module of the active project; nullptr when there is none.
host::Ptr<host::CodePane> PaneOf(kernel::Session& s, const std::wstring& module) {
  host::Ptr<host::VBProject> project = s.vbe ? s.vbe->ActiveVBProject() : nullptr;
  if (!project) return nullptr;
  host::Ptr<host::VBComponents> components = project->VBComponents();
  for (long i = 1; i <= components->Count(); ++i) {
    host::Ptr<host::VBComponent> c = components->Item(i);
    if (SameText(c->Name(), module)) return c->CodeModule()->CodePane();
  }
  return nullptr;
}

void Apply(kernel::Session& s, host::CodePane& pane, const kernel::CodeEdit& edit) {
  kernel::ApplyEdit(s.platform, pane, edit);
}

}  // namespace

DeclView DeclViewOf(const host::CodePane& pane, std::wstring tab) {
  DeclView v;
  v.code = kernel::ViewOf(pane, std::move(tab));
  host::Ptr<host::CodeModule> module = pane.CodeModule();
  v.declarationLines = module->CountOfDeclarationLines();
  std::wstring name;
  long body = 0;
  host::ProcKind kind = host::kProcKind;
  if (kernel::ProcAtCaret(pane, true, name, body, nullptr, &kind)) {
    v.procLine = body;
    v.procEnd = module->ProcStartLine(name, kind) + module->ProcCountLines(name, kind) - 1;
  }
  return v;
}

DeclView DeclViewOf(std::vector<std::wstring> lines, host::Selection selection, std::wstring tab) {
  host::ProcIndex index;
  index.Build(lines);
  DeclView v;
  v.declarationLines = index.DeclarationLines();
  if (const host::ProcExtent* p = index.ProcOfLine(selection.endLine); p && selection.endLine >= p->bodyLine) {
    v.procLine = p->bodyLine;
    v.procEnd = p->endLine;
  }
  v.code = kernel::ViewOf(std::move(lines), selection, std::move(tab));
  return v;
}

long BlockLineGet(const DeclView& v, bool isEnum, std::wstring& blockName) {
  return BlockLineGet(v.code, v.declarationLines, isEnum, blockName);
}

std::optional<kernel::CodeEdit> ProcVariableEdit(const DeclView& v, const std::wstring& text, bool indented) {
  if (v.procLine == 0) return std::nullopt;
  DeclArea a = AreaOf(v);
  if (a.last > a.first && vba::Trim(v.code.line(a.last - 1)).empty()) --a.last;
  return InsertAt(a.last + 1, Indented(v, text, indented));
}

std::optional<kernel::CodeEdit> ProcConstEdit(const DeclView& v, const std::wstring& text, bool indented) {
  if (v.procLine == 0) return std::nullopt;
  DeclArea a = AreaOf(v);
  long line = a.last < a.first ? v.procLine + a.defLines : a.first;
  return InsertAt(line, Indented(v, text, indented));
}

kernel::CodeEdit ModuleDeclEdit(const DeclView& v, const std::wstring& text, const std::wstring& name, bool atTop,
                                bool caretModule) {
  long caret = v.code.selection.startLine;
  if (caretModule && v.procLine == 0) {
    std::wstring here = vba::Trim(v.code.line(caret));
    if (here.empty() || SameText(here, name)) return ReplaceAt(caret, text);
  }
  if (atTop) {
    if (v.declarationLines == 0) return InsertAt(1, text);
    long n = 1;
    while (n <= v.declarationLines) {
      std::wstring t = vba::Trim(v.code.line(n));
      if (!LikeText(t, L"Option *") && !LikeText(t, L"'*")) break;
      ++n;
    }
    return InsertAt(n, text);
  }
  return InsertAt(v.declarationLines + 1, text);
}

kernel::CodeEdit BlockMemberEdit(const DeclView& v, long line, const std::wstring& text, const std::wstring& name) {
  std::wstring here = vba::Trim(v.code.line(line));
  kernel::CodeEdit e = here.empty() || SameText(here, name) ? ReplaceAt(line, v.code.tab + text)
                                                            : InsertAt(line + 1, v.code.tab + text);
  e.caret = host::Selection(e.line, 1);
  return e;
}

kernel::CodeEdit DeclarationSectionEdit(const DeclView& v, const std::wstring& text, const std::wstring& proposal) {
  long caret = v.code.selection.startLine;
  std::wstring here = vba::Trim(v.code.line(caret));
  if (!proposal.empty() && here == proposal) return ReplaceAt(caret, text);
  if (here.empty()) return ReplaceAt(caret, text);
  return InsertAt(v.declarationLines + 1, text);
}

kernel::CodeEdit BlockLineEdit(const DeclView& v, long blockLine, const std::wstring& text) {
  kernel::CodeEdit e = kernel::BlockAtLine(v.code, blockLine, v.code.tab + text);
  e.caret = host::Selection(blockLine, vba::Len(v.code.line(blockLine)) + 1);
  if (e.mode == kernel::CodeEdit::kReplaceLine) e.caret = host::Selection(blockLine, vba::Len(e.text) + 1);
  return e;
}

void qltProcVariableAdd(kernel::Session& s, const std::wstring& text) {
  host::Ptr<host::CodePane> pane = ActivePane(s);
  if (!pane) return;
  std::optional<kernel::CodeEdit> edit = ProcVariableEdit(DeclViewOf(*pane, kernel::TabSpacesGet(s)), text, Indented(s));
  if (edit) Apply(s, *pane, *edit);
}

bool VarConstCodeAdd(kernel::Session& s, const std::wstring& text, std::wstring& module, const VarConstPlace& place) {
  host::Ptr<host::CodePane> active = ActivePane(s);
  if (!active) return false;
  const std::wstring tab = kernel::TabSpacesGet(s);
  if (place.lineNumber > 0) {
    Apply(s, *active, BlockMemberEdit(DeclViewOf(*active, tab), place.lineNumber, text, place.name));
    return true;
  }
  if (!place.moduleLevel) {
    if (place.appendToDeclarations) {
      qltProcVariableAdd(s, text);
      return true;
    }
    std::optional<kernel::CodeEdit> edit = ProcConstEdit(DeclViewOf(*active, tab), text, Indented(s));
    if (!edit) return false;
    Apply(s, *active, *edit);
    return true;
  }
  std::wstring target = vba::Trim(module);
  host::Ptr<host::CodePane> pane;
  if (target.empty() || SameText(target, active->CodeModule()->Parent()->Name())) {
    pane = active;
  } else {
    bool isNew = target == L"<New Module>" || target == L"<New Class Module>";
    host::ComponentType kind = target == L"<New Class Module>" ? host::kClassModule : host::kStdModule;
    if (isNew) {
      std::optional<std::wstring> answer = s.uiHost.InputBox(L"Name of Module", kernel::kAppName, L"");
      target = answer ? vba::Trim(*answer) : std::wstring();
      if (target.empty()) return false;
    } else if (!(pane = PaneOf(s, target))) {
      if (s.uiHost.MsgBox(L"Create module " + target + L"?", ui::vbOKCancel, kernel::kAppName) != ui::vbOK) return false;
    }
    if (!pane) {
      target = ModuleCreate(s, target, kind);
      if (target.empty()) return false;
      module = target;
      pane = PaneOf(s, target);
      if (!pane) return false;
    }
  }
  DeclView v = DeclViewOf(*pane, tab);
  Apply(s, *pane, ModuleDeclEdit(v, text, place.name, place.atTop, pane == active));
  return true;
}

bool AddCodeLine(kernel::Session& s, const std::wstring& line, const std::wstring& name, bool keepClipboard,
                 long blockLine, const std::wstring& moduleName) {
  host::Ptr<host::CodePane> pane = moduleName.empty() ? ActivePane(s) : PaneOf(s, moduleName);
  if (!pane) return false;
  DeclView v = DeclViewOf(*pane, kernel::TabSpacesGet(s));
  if (blockLine > 0) {
    kernel::CodeEdit edit = BlockLineEdit(v, blockLine, line);
    Apply(s, *pane, edit);
    return true;
  }
  bool caretLineTaken = false;
  if (LikeText(line, L"Dim*") && v.procLine > 0) {
    qltProcVariableAdd(s, line);
  } else if (v.procLine > 0) {
    std::wstring module = pane->CodeModule()->Parent()->Name();
    VarConstCodeAdd(s, line, module, {.moduleLevel = true, .name = name});
  } else {
    kernel::CodeEdit edit = DeclarationSectionEdit(v, line, ScopeOf(s).proposedName);
    caretLineTaken = edit.mode == kernel::CodeEdit::kReplaceLine;
    Apply(s, *pane, edit);
  }
  if (!keepClipboard && !name.empty()) s.platform.ClipboardSetText(name);
  return caretLineTaken;
}

bool VarConstCodeInsert(kernel::Session& s, const std::wstring& name, const std::wstring& type, int kind,
                        const std::wstring& value) {
  host::Ptr<host::CodePane> pane = ActivePane(s);
  if (!pane) return false;
  if (kind == kKindProperty) {
    clsProperty property;
    property.Name = name;
    property.DataType = type;
    property.ModuleName = pane->CodeModule()->Parent()->Name();
    return BuildPropCodeLines(s, property, false);
  }
  DeclView v = DeclViewOf(*pane, kernel::TabSpacesGet(s));
  std::wstring blockName, line;
  long blockLine = 0;
  if (kind == kKindVariable) {
    blockLine = BlockLineGet(v, false, blockName);
    line = blockLine > 0 ? name + L" As " + type : L"Dim " + name + L" As " + type;
  } else {
    blockLine = BlockLineGet(v, true, blockName);
    if (type == L"Long" && blockLine > 0) {
      line = value.empty() ? name : name + L" = " + value;
    } else {
      blockLine = 0;
      line = name + L" As " + type + L" = " + ValueQuote(value, type);
      auto constant = std::make_shared<analysis::clsConstant>();
      constant->init(line);
      constant->ModuleName = pane->CodeModule()->Parent()->Name();
      if (auto& models = analysis::Models(s); models && !models->ProjectConsts.Exists(name))
        models->ProjectConsts.Add(constant, name);
      bool standard = pane->CodeModule()->Parent()->Type() == host::kStdModule;
      line = (standard ? L"Public " : L"") + std::wstring(L"Const ") + line;
    }
  }
  // Where the declaration took the caret's own line, the name is already there.
  if (!AddCodeLine(s, line, name, false, blockLine)) {
    std::wstring text = name;
    InstanceAdd(s, pane, text, {.allowEmptySelection = true, .sendKeys = false});
  }
  return true;
}

}  // namespace quillet::generators
