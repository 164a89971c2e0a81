#include "generators/fragment_zones.h"

#include "kernel/code_edit.h"
#include "vba/strings.h"

namespace quillet::generators {
namespace {

constexpr std::wstring_view kEndOfTop = L"<end_of_top>";
constexpr std::wstring_view kBeginOfBottom = L"<begin_of_bottom>";

long LineCount(const std::wstring& text) {
  long n = 1;
  for (std::size_t at = text.find(L"\r\n"); at != std::wstring::npos; at = text.find(L"\r\n", at + 2)) ++n;
  return n;
}

}  // namespace

// A zone without the line ends at its end, nor a last line of blanks there: indenting a
// fragment that ends in a line end, or whose mark is indented, leaves one.
std::wstring TrailingLineEndsRemoved(std::wstring zone) {
  for (;;) {
    while (!zone.empty() && (zone.back() == L'\r' || zone.back() == L'\n')) zone.pop_back();
    const std::size_t lineEnd = zone.find_last_of(L'\n');
    if (lineEnd == std::wstring::npos || zone.find_first_not_of(L" \t", lineEnd + 1) != std::wstring::npos) return zone;
    zone.erase(lineEnd + 1);
  }
}

FragmentZones FragmentZonesSplit(const std::wstring& text) {
  FragmentZones z;
  std::wstring rest = text;
  if (long top = vba::InStr(rest, kEndOfTop, vba::Compare::Text); top > 0) {
    z.hasTop = true;
    z.top = TrailingLineEndsRemoved(rest.substr(0, top - 1));
    rest = rest.substr(top - 1 + kEndOfTop.size());
  }
  if (long bottom = vba::InStr(rest, kBeginOfBottom, vba::Compare::Text); bottom > 0) {
    z.hasBottom = true;
    z.bottom = TrailingLineEndsRemoved(rest.substr(bottom - 1 + kBeginOfBottom.size()));
    rest = rest.substr(0, bottom - 1);
  }
  // The line end of the top mark's own line does not belong to the middle.
  if (z.hasTop && rest.starts_with(L"\r\n")) rest.erase(0, 2);
  else if (z.hasTop && rest.starts_with(L"\n")) rest.erase(0, 1);
  z.middle = TrailingLineEndsRemoved(rest);
  return z;
}

bool FragmentSplitAt(const std::wstring& text, std::wstring_view mark, std::wstring& before, std::wstring& after) {
  const long at = vba::InStr(text, mark, vba::Compare::Text);
  if (at <= 0) return false;
  before = TrailingLineEndsRemoved(text.substr(0, at - 1));
  after = text.substr(at - 1 + mark.size());
  if (after.starts_with(L"\r\n")) after.erase(0, 2);
  else if (after.starts_with(L"\n")) after.erase(0, 1);
  return true;
}

void FragmentZonePlace(kernel::Session& s, host::CodePane& pane, long line, const std::wstring& zone) {
  if (line <= 0 || zone.empty()) return;
  kernel::CodeEdit edit;
  edit.line = line;
  edit.text = zone;
  host::Selection caret = pane.GetSelection();
  if (caret.startLine >= line) {
    const long shift = LineCount(zone);
    caret = host::Selection(caret.startLine + shift, caret.startColumn, caret.endLine + shift, caret.endColumn);
  }
  edit.caret = caret;
  kernel::ApplyEdit(s.platform, pane, edit);
}

std::shared_ptr<analysis::clsScanProc> ProcScanRefresh(kernel::Session& s) {
  auto scan = std::make_shared<analysis::clsScanProc>();
  scan->init(s, false);
  analysis::CurrentScan(s) = scan;
  return scan;
}

}  // namespace quillet::generators
