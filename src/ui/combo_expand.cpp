#include "ui/combo_expand.h"

#include <string>

#include "vba/text.h"

namespace quillet::ui {

namespace {
// The boxes whose Click handler the owner forms expect to be called after a completion.
constexpr std::wstring_view kNotifiedBoxes[] = {L"cboDataType", L"cboModule", L"cboReturnValueType", L"cboList"};
}  // namespace

void ComboExpand::Init(ComboBox& combo, Form& owner) {
  state_ = std::make_shared<State>(State{&combo, &owner});
  std::shared_ptr<State> state = state_;
  combo.OnKeyPress.Listen([state](int& keyAscii) {
    if (keyAscii == vbKeyReturn || keyAscii == vbKeyTab || keyAscii == 0) return;
    bool spent = keyAscii == vbKeyBack ? Expand(*state, vbKeyBack, 0)
                                       : Expand(*state, 0, static_cast<wchar_t>(keyAscii));
    if (spent) keyAscii = 0;
  });
  combo.OnKeyDown.Listen([state](int& keyCode, int shift) {
    if (keyCode == vbKeyDelete && Expand(*state, vbKeyDelete, 0)) keyCode = 0;
  });
}

bool ComboExpand::Expand(const State& state, int removeKey, wchar_t c) {
  ComboBox& combo = *state.combo;
  const std::wstring& text = combo.Text();
  long start = combo.SelStart();
  long length = combo.SelLength();
  std::wstring left = text.substr(0, start);
  std::wstring right = text.substr(start + length);
  if (removeKey == vbKeyBack && length == 0 && !left.empty()) left.pop_back();
  if (removeKey == vbKeyDelete && length == 0 && !right.empty()) right.erase(0, 1);
  if (removeKey == 0) left += c;
  std::wstring wanted = left + right;

  int before = combo.ListIndex();
  int found = removeKey == vbKeyBack ? combo.FindStringExact(wanted) : combo.FindString(wanted);
  bool spent = found >= 0;
  if (spent) {
    combo.SetCurSel(found);
    long typed = static_cast<long>(wanted.size());
    combo.Select(typed, static_cast<long>(combo.Text().size()) - typed);
  } else {
    combo.SetCurSel(-1);
  }
  if (combo.ListIndex() != before)
    for (std::wstring_view name : kNotifiedBoxes)
      if (vba::EqualsText(combo.Name(), name)) state.owner->CallHandler(std::wstring(name) + L"_Click");
  return spent;
}

}  // namespace quillet::ui
