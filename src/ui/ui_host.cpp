#include "ui/ui_host.h"

#include "vba/text.h"

namespace quillet::ui {

std::vector<MsgBoxResult> MsgBoxButtons(int style) {
  switch (style & 7) {
    case vbOKCancel: return {vbOK, vbCancel};
    case vbAbortRetryIgnore: return {vbAbort, vbRetry, vbIgnore};
    case vbYesNoCancel: return {vbYes, vbNo, vbCancel};
    case vbYesNo: return {vbYes, vbNo};
    case vbRetryCancel: return {vbRetry, vbCancel};
    default: return {vbOK};
  }
}

namespace {
constexpr std::wstring_view kResultNames[] = {L"", L"OK", L"Cancel", L"Abort", L"Retry", L"Ignore", L"Yes", L"No"};
}

std::wstring_view MsgBoxResultName(int result) {
  return result >= vbOK && result <= vbNo ? kResultNames[result] : std::wstring_view();
}

int MsgBoxResultOf(std::wstring_view name) {
  for (int r = vbOK; r <= vbNo; ++r)
    if (vba::EqualsText(kResultNames[r], name)) return r;
  return 0;
}

}  // namespace quillet::ui
