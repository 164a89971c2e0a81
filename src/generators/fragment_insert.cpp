#include "generators/fragment_insert.h"

#include <vector>

#include "analysis/line_scan.h"
#include "generators/fragment_vars.h"
#include "generators/fragment_zones.h"
#include "generators/selection.h"
#include "generators/templates.h"
#include "kernel/errors.h"
#include "kernel/position.h"
#include "settings/items.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kEndOfTop = L"<end_of_top>";
constexpr std::wstring_view kBeginOfBottom = L"<begin_of_bottom>";
constexpr std::wstring_view kBeforeHandleExitLabel = L"<BeforeHandleExitLabel>";

bool Has(std::wstring_view text, std::wstring_view mark) { return vba::InStr(text, mark, vba::Compare::Text) > 0; }

// The merged lines of a procedure: its own lines are copied on by number; each fragment
// part comes in trimmed of its line ends, and an empty part still gives one empty line.
struct Merge {
  const std::vector<std::wstring>& lines;
  std::vector<std::wstring> out;
  long copied = 0;  // lines of the procedure copied so far

  void Part(const std::wstring& part) {
    const std::wstring trimmed = analysis::StringTrimChars(part, L"\r\n", analysis::kTrimBoth);
    if (trimmed.empty()) {
      out.emplace_back();
      return;
    }
    for (std::wstring& l : vba::Split(trimmed, L"\r\n")) out.push_back(std::move(l));
  }
  // Copies the procedure's lines up to line `last` (1-based), those not copied yet.
  void CopyTo(long last) {
    last = std::min<long>(last, static_cast<long>(lines.size()));
    for (; copied < last; ++copied) out.push_back(lines[static_cast<std::size_t>(copied)]);
  }
};

// The 1-based line of the procedure's exit label "label:", 0 when it has none.
long ExitLabelLine(const std::vector<std::wstring>& lines, const std::wstring& label) {
  if (label.empty()) return 0;
  for (std::size_t i = 0; i < lines.size(); ++i)
    if (vba::StrComp(vba::Trim(lines[i]), label + L":", vba::Compare::Text) == 0) return static_cast<long>(i) + 1;
  return 0;
}

}  // namespace

void FragmentToTextOfProcedureAdd(kernel::Session& s, std::wstring& fragment, std::wstring& procedureText,
                                  const std::wstring& procedureType) {
  kernel::Trap(s, L"basGlobal.FragmentToTextOfProcedureAdd", [&] {
    if (fragment.empty() || procedureText.empty()) return;
    const std::vector<std::wstring> lines = vba::Split(procedureText, L"\r\n");
    long declStart = 0, declEnd = 0, defLineCount = 1;
    analysis::ProcDeclAreaOf(lines, 1, true, declStart, declEnd, defLineCount);
    const long head = std::max(declEnd, defLineCount);
    // The exit walk reads the text as it stands without its outer line ends.
    const std::vector<std::wstring> trimmed =
        vba::Split(analysis::StringTrimChars(procedureText, L"\r\n", analysis::kTrimBoth), L"\r\n");

    // The exit walk gives the 0-based index of the Exit statement (the line count without
    // one); the bottom goes above the line before it, in a handler the exit label.
    const long exitIndex = analysis::ProcExitLineOf(trimmed, 0, procedureType, true);

    Merge m{lines, {}, 0};
    m.CopyTo(head);
    // The head part joins the caret's part: both go under the declarations.
    std::wstring rest = vba::Replace(fragment, std::wstring(kEndOfTop) + L"\r\n", L"", 1, -1, vba::Compare::Text);
    rest = vba::Replace(rest, kEndOfTop, L"", 1, -1, vba::Compare::Text);
    std::wstring before, after;
    if (Has(rest, kBeforeHandleExitLabel)) {
      if (const long label = ExitLabelLine(lines, s.settings[settings::kExitHandler].ToString()); label > 0) {
        FragmentSplitAt(rest, kBeforeHandleExitLabel, before, after);
        m.Part(before);
        m.CopyTo(label - 1);
        rest = after;
      } else {
        // Without the label the mark stands where the bottom would.
        rest = vba::Replace(rest, kBeginOfBottom, L"", 1, -1, vba::Compare::Text);
        rest = vba::Replace(rest, kBeforeHandleExitLabel, kBeginOfBottom, 1, -1, vba::Compare::Text);
      }
    }
    if (FragmentSplitAt(rest, kBeginOfBottom, before, after)) {
      m.Part(before);
      m.CopyTo(exitIndex - 1);
      m.Part(after);
    } else {
      m.Part(rest);
    }
    m.CopyTo(static_cast<long>(lines.size()));
    procedureText = vba::Join(m.out, L"\r\n");
  });
}

std::optional<kernel::CodeEdit> FragmentCaretEdit(const kernel::CodeView& view, std::wstring text) {
  text = TrailingLineEndsRemoved(std::move(text));
  const long line = view.Place().startLine;
  kernel::CodeEdit edit;
  edit.text = text;
  if (view.Blank(line)) {
    edit.line = line;
    edit.mode = kernel::CodeEdit::kReplaceLine;
    return edit;
  }
  if (text.find(L'\n') != std::wstring::npos) {
    edit.line = line + 1;
    return edit;
  }
  return InstanceEdit(view, text, InstanceOptions{true, false});
}

void FragmentToProcedureAdd(kernel::Session& s, std::wstring& text, std::shared_ptr<analysis::clsScanProc> scanner) {
  kernel::Trap(s, L"basGlobal.FragmentToProcedureAdd", [&] {
    host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
    if (!scanner || !pane) return;
    FragmentUseDefaults(s, text);
    scanner = ProcScanRefresh(s);
    const FragmentZones zones = FragmentZonesSplit(text);
    if (zones.hasTop) {
      FragmentZonePlace(s, *pane, scanner->ProcDeclAreaEndLine + 1, zones.top);
      scanner = ProcScanRefresh(s);
    }
    if (zones.hasBottom) FragmentZonePlace(s, *pane, scanner->ProcExitLine, zones.bottom);
    text = zones.middle;
    if (!text.empty()) {
      if (std::optional<kernel::CodeEdit> edit = FragmentCaretEdit(kernel::ViewOf(*pane, kernel::TabSpacesGet(s)), text))
        kernel::ApplyEdit(s.platform, *pane, *edit);
    }
    long line = 1;
    kernel::SetCursor(s, line, false, pane->CodeModule()->Parent());
  });
}

bool FragmentInsert(kernel::Session& s, std::wstring text) {
  host::Ptr<host::CodePane> pane = s.vbe ? s.vbe->ActiveCodePane() : nullptr;
  if (!pane) return false;
  kernel::Trap(s, L"frmFragments.cmdOk_Click", [&] {
    kernel::CodeView view = kernel::ViewOf(*pane, kernel::TabSpacesGet(s));
    const long line = view.Place().startLine;
    const bool oneLine = TrailingLineEndsRemoved(text).find(L'\n') == std::wstring::npos;
    if (!(oneLine && !view.Blank(line))) IndentAddToFragment(s, text, -1);
    std::shared_ptr<analysis::clsScanProc> scan = ProcScanRefresh(s);
    if (!scan->ProcName.empty() && scan->ProcRealStartLine > 0) {
      FragmentToProcedureAdd(s, text, scan);
      return;
    }
    kernel::CodeEdit edit;
    edit.line = line;
    edit.text = TrailingLineEndsRemoved(text);
    if (view.Blank(line)) edit.mode = kernel::CodeEdit::kReplaceLine;
    kernel::ApplyEdit(s.platform, *pane, edit);
    long from = 1;
    kernel::SetCursor(s, from, false, pane->CodeModule()->Parent());
  });
  return true;
}

}  // namespace quillet::generators
