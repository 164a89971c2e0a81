#include "ui/list_view.h"

#include <algorithm>

#include "vba/encoding.h"
#include "vba/error.h"
#include "vba/text.h"

namespace quillet::ui {

// --- ColumnHeader, ListItem ---

int ColumnHeader::Index() const { return view_.Columns().IndexOf(this); }

void ListItem::SetText(std::wstring text) {
  text_ = std::move(text);
  view_.Resort();
}

std::wstring ListItem::SubItem(int index) const {
  if (index < 1) vba::Raise(35600, L"Index out of bounds", L"SubItems");
  return index <= static_cast<int>(subItems_.size()) ? subItems_[index - 1] : std::wstring();
}

void ListItem::SetSubItem(int index, std::wstring text) {
  if (index < 1) vba::Raise(35600, L"Index out of bounds", L"SubItems");
  if (static_cast<int>(subItems_.size()) < index) subItems_.resize(index);
  subItems_[index - 1] = std::move(text);
  view_.Resort();
}

void ListItem::SetSelected(bool selected) {
  if (selected) {
    if (!view_.multiSelect_)
      for (const auto& other : view_.items_.All()) other->selected_ = false;
    selected_ = true;
    view_.selected_ = this;
  } else {
    selected_ = false;
    if (view_.selected_ == this) view_.selected_ = nullptr;
  }
}

int ListItem::Index() const { return view_.Items().IndexOf(this); }

// --- collections ---

ColumnHeader& ColumnHeaders::Add(std::wstring key, std::wstring text, long width, int alignment, int index) {
  std::size_t at = index >= 1 ? static_cast<std::size_t>(index - 1) : items_.All().size();
  return items_.Insert(at, std::make_unique<ColumnHeader>(view_, std::move(key), std::move(text), width, alignment));
}

ListItem& ListItems::Add(std::wstring key, std::wstring text, std::wstring icon, std::wstring smallIcon, int index) {
  bool wasEmpty = items_.Count() == 0;
  std::size_t at = index >= 1 ? static_cast<std::size_t>(index - 1) : items_.All().size();
  ListItem& item = items_.Insert(
      at, std::make_unique<ListItem>(view_, std::move(key), std::move(text), std::move(icon), std::move(smallIcon)));
  if (wasEmpty) item.SetSelected(true);
  view_.Resort();
  return item;
}

void ListItems::Remove(ListItem& item) {
  if (view_.selected_ == &item) view_.selected_ = nullptr;
  if (view_.editing_ == &item) view_.editing_ = nullptr;
  items_.Take(&item);
}

void ListItems::Clear() {
  view_.selected_ = nullptr;
  view_.editing_ = nullptr;
  items_.Clear();
}

// --- ListView ---

ListView::ListView(Form& form, std::wstring name, Control* container, int index)
    : Control(form, std::move(name), container, index) {
  Move(0, 0, 2415, 1815);
}

void ListView::SetSelectedItem(ListItem* item) {
  if (item) item->SetSelected(true);
  else if (selected_) selected_->SetSelected(false);
}

void ListView::SetSorted(bool sorted) {
  sorted_ = sorted;
  Resort();
}

void ListView::SetSortKey(int key) {
  sortKey_ = key;
  Resort();
}

void ListView::SetSortOrder(int order) {
  sortOrder_ = order;
  Resort();
}

void ListView::Resort() {
  if (!sorted_) return;
  auto keyOf = [this](const ListItem& item) { return sortKey_ == 0 ? item.Text() : item.SubItem(sortKey_); };
  bool descending = sortOrder_ == lvwDescending;
  items_.items_.Sort([&](const ListItem& a, const ListItem& b) {
    int c = vba::CompareText(keyOf(a), keyOf(b));
    return descending ? c > 0 : c < 0;
  });
}

void ListView::UserSelect(ListItem& item) {
  item.SetSelected(true);
  Raise(OnItemClick, item);
}

void ListView::StartLabelEdit() {
  if (!selected_) return;
  int cancel = 0;
  Raise(OnBeforeLabelEdit, cancel);
  editing_ = cancel ? nullptr : selected_;
}

bool ListView::FinishLabelEdit(std::wstring text) {
  ListItem* item = editing_;
  if (!item) return false;
  editing_ = nullptr;
  int cancel = 0;
  Raise(OnAfterLabelEdit, cancel, text);
  if (!cancel) item->SetText(std::move(text));
  return true;
}

void ListView::KeyDownDefault(int keyCode, int shift) {
  int count = items_.Count();
  if (count == 0 || (keyCode != vbKeyUp && keyCode != vbKeyDown)) return;
  int i = selected_ ? selected_->Index() : 0;
  int next = keyCode == vbKeyDown ? std::min(i + 1, count) : std::max(i - 1, 1);
  UserSelect(items_.Item(next));
}

void ListView::DescribeInto(nlohmann::json& out) const {
  nlohmann::json columns = nlohmann::json::array();
  for (const auto& c : columns_.All())
    columns.push_back({{"key", vba::ToUtf8(c->Key())}, {"text", vba::ToUtf8(c->Text())}, {"width", c->Width()}});
  nlohmann::json items = nlohmann::json::array();
  for (const auto& i : items_.All()) {
    nlohmann::json subItems = nlohmann::json::array();
    for (const auto& s : i->SubItems()) subItems.push_back(vba::ToUtf8(s));
    items.push_back({{"key", vba::ToUtf8(i->Key())},
                     {"text", vba::ToUtf8(i->Text())},
                     {"subItems", std::move(subItems)},
                     {"tag", vba::ToUtf8(i->Tag())},
                     {"selected", i->Selected()}});
    // Only a colour of its own is told: the common case stays short.
    if (i->ForeColor() != vbWindowText) items.back()["foreColor"] = i->ForeColor();
  }
  // The item whose label the user is editing: a front-end opens its text for typing.
  if (editing_) out["editing"] = vba::ToUtf8(editing_->Key().empty() ? editing_->Text() : editing_->Key());
  out["columns"] = std::move(columns);
  out["items"] = std::move(items);
  out["view"] = view_;
}

void ListView::SaveDesign() {
  Control::SaveDesign();
  design_ = Settings{view_, multiSelect_, sorted_, sortKey_, sortOrder_};
  designColumns_.clear();
  for (const auto& c : columns_.All())
    designColumns_.push_back(DesignColumn{c->Key(), c->Text(), c->Width(), c->Alignment()});
}

void ListView::RestoreDesign() {
  Control::RestoreDesign();
  items_.Clear();
  columns_.Clear();
  for (const auto& c : designColumns_) columns_.Add(c.key, c.text, c.width, c.alignment);
  view_ = design_.view;
  multiSelect_ = design_.multiSelect;
  sorted_ = design_.sorted;
  sortKey_ = design_.sortKey;
  sortOrder_ = design_.sortOrder;
}

}  // namespace quillet::ui
