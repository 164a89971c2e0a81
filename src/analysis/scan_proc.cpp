#include "analysis/scan_proc.h"

#include <span>
#include <vector>

#include "analysis/keyed.h"
#include "analysis/line_scan.h"
#include "analysis/proc_def.h"
#include "analysis/text_find.h"
#include "kernel/errors.h"
#include "vba/like.h"
#include "vba/strings.h"
#include "vba/text.h"

namespace quillet::analysis {
namespace {

// The declaration list behind a keyword: the statement from the keyword's first position
// (any case) plus its length and a blank, trimmed.
std::wstring TextBehind(const std::wstring& statement, std::wstring_view keyword) {
  long p = FindText(statement, keyword);
  return vba::Trim(vba::Mid(statement, p + static_cast<long>(keyword.size()) + 1));
}

}  // namespace

void clsScanProc::Reset() {
  ProcVars.Clear();
  ProcConsts.Clear();
  ProcLabels.Clear();
  ProcStartLine = ProcRealStartLine = ProcEndLine = ProcRealEndLine = 0;
  ProcType = host::kProcKind;
  ProcTypeStr.clear();
  ProcName.clear();
  ProcExitLine = ProcDeclAreaLineCount = ProcDeclAreaStartLine = ProcDeclAreaEndLine = ProcDefLineCount = 0;
}

void clsScanProc::init(kernel::Session& s, bool fArgToVar) {
  Reset();
  TrapPassingDuplicates(s, L"clsScanProc.Init", [&] {
    if (!s.vbe || s.vbe->VBProjects()->Count() == 0) return;
    host::Ptr<host::VBProject> project = s.vbe->ActiveVBProject();
    if (!project || project->Protection() == host::kLocked) return;
    host::Ptr<host::CodePane> pane = s.vbe->ActiveCodePane();
    if (!pane) return;

    auto [sl, sc, el, ec] = pane->GetSelection();
    host::Ptr<host::CodeModule> module = pane->CodeModule();
    if (sl < 1 || sl > module->CountOfLines()) return;  // an empty module holds no procedure
    ProcName = module->ProcOfLine(sl, ProcType);
    if (ProcName.empty()) return;

    // The editor must show the scanned module, whatever the project tree has selected.
    host::Ptr<host::VBComponent> selected = s.vbe->SelectedVBComponent();
    if (!selected || !vba::EqualsText(selected->Name(), module->Name())) {
      try {
        pane->Show();
      } catch (const vba::Error&) {
      } catch (const std::exception&) {
      }
    }

    ProcStartLine = module->ProcStartLine(ProcName, ProcType);
    ProcRealStartLine = module->ProcBodyLine(ProcName, ProcType);
    ProcEndLine = ProcStartLine + module->ProcCountLines(ProcName, ProcType) - 1;
    // A comment under the End statement that holds "End " stops this walk as well.
    long i = ProcEndLine;
    while (!vba::Like(module->Lines(i, 1), L"*End *") && i > ProcStartLine) --i;
    ProcRealEndLine = i;

    // The procedure is read once, from its definition to its last line; the statement
    // walk, the Exit walk and the declaration area all work on these lines.
    std::vector<std::wstring> lines;
    lines.reserve(static_cast<std::size_t>(ProcEndLine - ProcRealStartLine + 1));
    for (long line = ProcRealStartLine; line <= ProcEndLine; ++line) lines.push_back(module->Lines(line, 1));
    std::vector<std::wstring> statements;
    StatementJoiner joiner(statements);
    for (const std::wstring& line : lines) joiner.Line(line, false);

    if (!statements.empty()) {
      ProcTypeStr = ProcedureTypeGet(ProcName, statements.front());
      StatementsRead(statements);
    }
    // A definition that repeats an argument name ends the reading of its arguments only.
    if (fArgToVar) PassOverDuplicates([&] { ArgsToVarsAdd(s, lines); });

    ExitLineRead(s, lines);
    kernel::Trap(s, L"basGlobal.ProcDeclAreaGet", [&] {
      ProcDeclAreaOf(lines, ProcRealStartLine, true, ProcDeclAreaStartLine, ProcDeclAreaEndLine, ProcDefLineCount);
    });
    ProcDeclAreaLineCount = ProcDeclAreaEndLine - ProcDeclAreaStartLine + 1;
    if (ProcDeclAreaLineCount < 0) ProcDeclAreaLineCount = 0;
  });
}

void clsScanProc::ExitLineRead(kernel::Session& s, const std::vector<std::wstring>& lines) {
  // The lines up to the End statement, unless the text would need its line ends trimmed
  // (an empty first or last line) or the End was not found below the definition: then
  // the editor is asked again, as ProcExitLineGet does on its own.
  const long count = ProcRealEndLine - ProcRealStartLine + 1;
  if (count >= 1 && count <= static_cast<long>(lines.size()) && !lines.front().empty() &&
      !lines[static_cast<std::size_t>(count - 1)].empty()) {
    kernel::Trap(s, L"basGlobal.ProcExitLineGet", [&] {
      ProcExitLine = ProcExitLineOf(std::span(lines).first(static_cast<std::size_t>(count)), ProcRealStartLine,
                                    ProcTypeStr, true);
    });
    return;
  }
  std::wstring text;
  ProcExitLine = ProcExitLineGet(s, ProcRealStartLine, ProcRealEndLine, ProcTypeStr, text, true);
}

void clsScanProc::StatementsRead(const std::vector<std::wstring>& statements) {
  std::shared_ptr<clsLabel> current;
  std::wstring declText, labelCandidate;  // both live across statements
  std::vector<std::wstring> pieces;
  for (const std::wstring& raw : statements) {
    bool constMode = false;
    std::wstring withoutEvents;
    const std::wstring* text = &raw;
    if (FindText(raw, L"WithEvents ")) {
      withoutEvents = vba::Replace(raw, L"WithEvents ", L"", 1, -1, vba::Compare::Text);
      text = &withoutEvents;
    }
    const std::wstring& statement = *text;
    // The word W of the statement split at single blanks: W is 1 behind a line number
    // (the statement is Like "#*"), else 0. A statement without that word is skipped.
    const std::size_t w = !statement.empty() && vba::IsDigit(statement[0]) ? 1 : 0;
    std::size_t begin = 0;
    for (std::size_t k = 0; k < w && begin != std::wstring::npos; ++k) {
      begin = statement.find(L' ', begin);
      if (begin != std::wstring::npos) ++begin;
    }
    if (begin == std::wstring::npos) continue;
    std::wstring_view word = std::wstring_view(statement).substr(begin, statement.find(L' ', begin) - begin);

    if (vba::EqualsText(word, L"DIM")) {
      declText = TextBehind(statement, L"Dim");
    } else if (vba::EqualsText(word, L"STATIC")) {
      declText = TextBehind(statement, L"Static");
    } else if (vba::EqualsText(word, L"CONST")) {
      constMode = true;
      declText = TextBehind(statement, L"Const");
    } else if (vba::EqualsText(word, L"RETURN")) {
      if (current) current->HasReturn = true;
    } else {
      declText.clear();
      // A label: the word is Like "[!']*:".
      bool label = word.size() >= 2 && word.front() != L'\'' && word.back() == L':';
      labelCandidate = label ? std::wstring(word) : std::wstring();
    }

    if (!declText.empty()) {
      DeclListSplit(declText, pieces);
      for (const std::wstring& piece : pieces) {
        if (constMode) {
          auto c = std::make_shared<clsConstant>();
          c->init(piece);
          std::wstring key = c->Name;
          AddKeepingFirst(ProcConsts, std::move(c), key);
        } else {
          auto v = std::make_shared<clsVariable>();
          v->init(piece);
          std::wstring key = v->Name;
          AddKeepingFirst(ProcVars, std::move(v), key);
        }
      }
    }

    if (!labelCandidate.empty()) {
      if (current) AddKeepingFirst(ProcLabels, current, current->Name);
      labelCandidate.pop_back();  // the colon, or one more character of a kept candidate
      current = std::make_shared<clsLabel>();
      current->Name = labelCandidate;
    }
  }
  if (current) AddKeepingFirst(ProcLabels, current, current->Name);
}

void clsScanProc::ArgsToVarsAdd(kernel::Session& s, const std::vector<std::wstring>& lines) {
  // The arguments of the procedure at the caret, read from the definition lines the scan
  // holds already: the definition ends at the first line that is not blank and not
  // continued with "_".
  Rv_ProcDef definition;
  definition.Name = ProcName;
  definition.ProcKind = ProcType;
  definition.ProcBodyLine = ProcRealStartLine;
  std::wstring& code = definition.ProcCode;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (i > 0) code += L"\r\n";
    code += lines[i];
    std::wstring t = vba::Trim(lines[i]);
    if (!t.empty() && t.back() != L'_') break;
  }
  definition.DefinitionRead(s);
  for (const std::shared_ptr<Rv_ProcArgument>& argument : definition.ProcArguments->Items()) {
    auto v = std::make_shared<clsVariable>();
    v->Name = argument->Name;
    v->Type_ = argument->Type_;
    v->IsArray = argument->IsArray;
    AddKeepingFirst(ProcVars, std::move(v), argument->Name);
  }
}

}  // namespace quillet::analysis
