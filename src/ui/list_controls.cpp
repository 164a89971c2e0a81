#include "ui/list_controls.h"

#include <algorithm>

#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::ui {

namespace {
constexpr long kErrInvalidPropertyValue = 380;
constexpr long kErrInvalidArrayIndex = 381;
constexpr long kErrTextReadOnly = 383;
}  // namespace

// --- the list part ---

template <class Base>
void ListControl<Base>::CheckIndex(int index, const wchar_t* property) const {
  if (index < 0 || index >= ListCount())
    vba::Raise(kErrInvalidArrayIndex, L"Invalid property array index", this->FullName() + L"." + property);
}

template <class Base>
std::wstring ListControl<Base>::List(int index) const {
  if (index < 0 || index >= ListCount()) return {};
  return entries_[index].text;
}

template <class Base>
void ListControl<Base>::SetList(int index, std::wstring text) {
  CheckIndex(index, L"List");
  entries_[index].text = std::move(text);
  if (index == listIndex_) ListIndexChanged(false);
}

template <class Base>
long ListControl<Base>::ItemData(int index) const {
  CheckIndex(index, L"ItemData");
  return entries_[index].itemData;
}

template <class Base>
void ListControl<Base>::SetItemData(int index, long data) {
  CheckIndex(index, L"ItemData");
  entries_[index].itemData = data;
}

template <class Base>
int ListControl<Base>::SortedPosition(std::wstring_view text) const {
  int i = 0;
  while (i < ListCount() && vba::CompareText(entries_[i].text, text) <= 0) ++i;
  return i;
}

template <class Base>
void ListControl<Base>::AddItem(std::wstring text, int index) {
  if (index > ListCount() || index < -1)
    vba::Raise(vba::kErrInvalidCall, L"Invalid procedure call or argument", this->FullName() + L".AddItem");
  int at = index >= 0 ? index : sorted_ ? SortedPosition(text) : ListCount();
  entries_.insert(entries_.begin() + at, ListEntry{std::move(text)});
  if (listIndex_ >= at) ++listIndex_;
  newIndex_ = at;
}

template <class Base>
void ListControl<Base>::RemoveItem(int index) {
  if (index < 0 || index >= ListCount())
    vba::Raise(vba::kErrInvalidCall, L"Invalid procedure call or argument", this->FullName() + L".RemoveItem");
  entries_.erase(entries_.begin() + index);
  if (listIndex_ == index) SelectEntry(-1, false, false);
  else if (listIndex_ > index) --listIndex_;
}

template <class Base>
void ListControl<Base>::Clear() {
  entries_.clear();
  newIndex_ = -1;
  listIndex_ = -1;
  ListIndexChanged(true);
}

template <class Base>
void ListControl<Base>::SetSorted(bool sorted) {
  sorted_ = sorted;
  if (!sorted) return;
  std::wstring current = List(listIndex_);
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const ListEntry& a, const ListEntry& b) { return vba::CompareText(a.text, b.text) < 0; });
  if (listIndex_ >= 0) listIndex_ = FindStringExact(current);
}

template <class Base>
void ListControl<Base>::SetListIndex(int index) {
  if (index < -1 || index >= ListCount())
    vba::Raise(kErrInvalidPropertyValue, L"Invalid property value", this->FullName() + L".ListIndex");
  SelectEntry(index, true, true);
}

template <class Base>
void ListControl<Base>::SelectEntry(int index, bool raiseClick, bool explicitSet) {
  bool changed = index != listIndex_;
  listIndex_ = index;
  ListIndexChanged(explicitSet);
  if (changed && raiseClick) this->Raise(this->OnClick);
}

template <class Base>
int ListControl<Base>::FindString(std::wstring_view prefix, int start) const {
  int n = ListCount();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k + n) % n;
    if (vba::StartsWithText(entries_[i].text, prefix)) return i;
  }
  return -1;
}

template <class Base>
int ListControl<Base>::FindStringExact(std::wstring_view text, int start) const {
  int n = ListCount();
  for (int k = 1; k <= n; ++k) {
    int i = (start + k + n) % n;
    if (vba::EqualsText(entries_[i].text, text)) return i;
  }
  return -1;
}

template <class Base>
void ListControl<Base>::KeyDownDefault(int keyCode, int shift) {
  if (ListCount() == 0) return;
  if (keyCode == vbKeyDown) SelectEntry(std::min(listIndex_ + 1, ListCount() - 1), true, true);
  else if (keyCode == vbKeyUp) SelectEntry(std::max(listIndex_ - 1, 0), true, true);
  else if (keyCode == vbKeyHome) SelectEntry(0, true, true);
  else if (keyCode == vbKeyEnd) SelectEntry(ListCount() - 1, true, true);
}

template <class Base>
void ListControl<Base>::JumpToCharacter(wchar_t c) {
  int i = FindString(std::wstring_view(&c, 1), listIndex_);
  if (i >= 0) SelectEntry(i, true, true);
}

template <class Base>
void ListControl<Base>::DescribeList(nlohmann::json& out) const {
  nlohmann::json list = nlohmann::json::array();
  for (const ListEntry& e : entries_) list.push_back({{"text", vba::ToUtf8(e.text)}, {"itemData", e.itemData}});
  out["list"] = std::move(list);
  out["listIndex"] = listIndex_;
}

template <class Base>
void ListControl<Base>::SaveDesign() {
  Base::SaveDesign();
  design_ = Design{entries_, listIndex_, sorted_};
}

template <class Base>
void ListControl<Base>::RestoreDesign() {
  Base::RestoreDesign();
  entries_ = design_.entries;
  listIndex_ = design_.listIndex;
  sorted_ = design_.sorted;
  newIndex_ = -1;
}

template class ListControl<Control>;
template class ListControl<EditControl>;

// --- ListBox ---

ListBox::ListBox(Form& form, std::wstring name, Control* container, int index)
    : ListControl<Control>(form, std::move(name), container, index) {
  Move(0, 0, 1215, 1035);
}

bool ListBox::Selected(int index) const {
  if (index < 0 || index >= ListCount())
    vba::Raise(kErrInvalidArrayIndex, L"Invalid property array index", FullName() + L".Selected");
  return multiSelect_ == vbMultiSelectNone ? index == listIndex_ : entries_[index].selected;
}

void ListBox::SetSelected(int index, bool selected) {
  if (index < 0 || index >= ListCount())
    vba::Raise(kErrInvalidArrayIndex, L"Invalid property array index", FullName() + L".Selected");
  if (multiSelect_ == vbMultiSelectNone) {
    if (selected) SelectEntry(index, true, true);
    else if (index == listIndex_) SelectEntry(-1, true, true);
    return;
  }
  if (entries_[index].selected == selected) return;
  entries_[index].selected = selected;
  listIndex_ = index;
  Raise(OnClick);
}

int ListBox::SelCount() const {
  if (multiSelect_ == vbMultiSelectNone) return listIndex_ >= 0 ? 1 : 0;
  int n = 0;
  for (const ListEntry& e : entries_) n += e.selected ? 1 : 0;
  return n;
}

void ListBox::ListIndexChanged(bool explicitSet) {
  // In a multi-select list the user's choice of an entry selects it alone.
  if (multiSelect_ != vbMultiSelectNone && explicitSet)
    for (int i = 0; i < ListCount(); ++i) entries_[i].selected = i == listIndex_;
}

void ListBox::KeyPressDefault(int keyAscii) {
  if (keyAscii == vbKeySpace && multiSelect_ != vbMultiSelectNone && listIndex_ >= 0)
    SetSelected(listIndex_, !entries_[listIndex_].selected);
  else if (keyAscii > 32)
    JumpToCharacter(static_cast<wchar_t>(keyAscii));
}

void ListBox::DescribeInto(nlohmann::json& out) const {
  out["text"] = vba::ToUtf8(Text());
  DescribeList(out);
  if (multiSelect_ != vbMultiSelectNone) {
    nlohmann::json selected = nlohmann::json::array();
    for (int i = 0; i < ListCount(); ++i)
      if (entries_[i].selected) selected.push_back(i);
    out["selected"] = std::move(selected);
  }
}

void ListBox::SaveDesign() {
  ListControl<Control>::SaveDesign();
  designMultiSelect_ = multiSelect_;
}

void ListBox::RestoreDesign() {
  ListControl<Control>::RestoreDesign();
  multiSelect_ = designMultiSelect_;
}

// --- ComboBox ---

ComboBox::ComboBox(Form& form, std::wstring name, Control* container, int index)
    : ListControl<EditControl>(form, std::move(name), container, index) {
  Move(0, 0, 1215, 315);
}

void ComboBox::SetText(std::wstring text) {
  if (style_ == vbComboDropdownList) {
    if (text.empty()) {
      SelectEntry(-1, true, true);
      return;
    }
    int i = FindStringExact(text);
    if (i < 0) vba::Raise(kErrTextReadOnly, L"'Text' property is read-only", FullName() + L".Text");
    SelectEntry(i, true, true);
    return;
  }
  EditControl::SetText(std::move(text));
}

void ComboBox::TextChanged() {
  // The field's text now decides which entry counts as selected, quietly.
  listIndex_ = FindStringExact(Text());
  EditControl::TextChanged();
}

void ComboBox::SetCurSel(int index) {
  if (index < -1 || index >= ListCount()) index = -1;
  SelectEntry(index, false, false);
}

void ComboBox::ListIndexChanged(bool explicitSet) {
  if (listIndex_ >= 0) ReplaceTextQuietly(entries_[listIndex_].text);
  else if (style_ == vbComboDropdownList || explicitSet) ReplaceTextQuietly(L"");
}

void ComboBox::KeyPressDefault(int keyAscii) {
  if (style_ == vbComboDropdownList) {
    if (keyAscii >= 32) JumpToCharacter(static_cast<wchar_t>(keyAscii));
    return;
  }
  EditControl::KeyPressDefault(keyAscii);
}

void ComboBox::KeyDownDefault(int keyCode, int shift) {
  if (keyCode == vbKeyUp || keyCode == vbKeyDown) ListControl<EditControl>::KeyDownDefault(keyCode, shift);
  else EditControl::KeyDownDefault(keyCode, shift);
}

Event<>* ComboBox::FindEvent(std::wstring_view name) {
  if (vba::EqualsText(name, L"DropDown")) return &OnDropDown;
  return EditControl::FindEvent(name);
}

void ComboBox::DescribeInto(nlohmann::json& out) const {
  EditControl::DescribeInto(out);
  DescribeList(out);
  out["style"] = style_;
}

void ComboBox::SaveDesign() {
  ListControl<EditControl>::SaveDesign();
  designStyle_ = style_;
}

void ComboBox::RestoreDesign() {
  ListControl<EditControl>::RestoreDesign();
  style_ = designStyle_;
}

}  // namespace quillet::ui
