#pragma once
// The list view: column headers and list items with sub-items, sorted by a column when
// asked, with ItemClick, ColumnClick and label editing.
#include <string>
#include <string_view>
#include <vector>

#include "ui/constants.h"
#include "ui/control.h"
#include "ui/keyed_items.h"

namespace quillet::ui {

class ListView;

class ColumnHeader {
 public:
  ColumnHeader(ListView& view, std::wstring key, std::wstring text, long width, int alignment)
      : view_(view), key_(std::move(key)), text_(std::move(text)), width_(width), alignment_(alignment) {}
  const std::wstring& Key() const { return key_; }
  const std::wstring& Text() const { return text_; }
  void SetText(std::wstring text) { text_ = std::move(text); }
  long Width() const { return width_; }
  void SetWidth(long width) { width_ = width; }
  int Alignment() const { return alignment_; }
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }
  int Index() const;  // 1-based

 private:
  ListView& view_;
  std::wstring key_;
  std::wstring text_;
  long width_;
  int alignment_;
  std::wstring tag_;
};

class ListItem {
 public:
  ListItem(ListView& view, std::wstring key, std::wstring text, std::wstring icon, std::wstring smallIcon)
      : view_(view), key_(std::move(key)), text_(std::move(text)), icon_(std::move(icon)),
        smallIcon_(std::move(smallIcon)) {}
  ListItem(const ListItem&) = delete;
  ListItem& operator=(const ListItem&) = delete;

  ListView& Owner() const { return view_; }
  const std::wstring& Key() const { return key_; }
  const std::wstring& Text() const { return text_; }
  void SetText(std::wstring text);
  // Sub-items count from 1 (the second column); an unset one is empty.
  std::wstring SubItem(int index) const;
  void SetSubItem(int index, std::wstring text);
  const std::vector<std::wstring>& SubItems() const { return subItems_; }
  const std::wstring& Tag() const { return tag_; }
  void SetTag(std::wstring tag) { tag_ = std::move(tag); }
  const std::wstring& Icon() const { return icon_; }
  void SetIcon(std::wstring icon) { icon_ = std::move(icon); }
  const std::wstring& SmallIcon() const { return smallIcon_; }
  void SetSmallIcon(std::wstring icon) { smallIcon_ = std::move(icon); }
  bool Bold() const { return bold_; }
  void SetBold(bool bold) { bold_ = bold; }
  long ForeColor() const { return foreColor_; }
  void SetForeColor(long color) { foreColor_ = color; }

  // Selecting from code raises no ItemClick; without MultiSelect it clears the others.
  bool Selected() const { return selected_; }
  void SetSelected(bool selected);
  int Index() const;  // 1-based, in display order

 private:
  friend class ListView;
  ListView& view_;
  std::wstring key_;
  std::wstring text_;
  std::vector<std::wstring> subItems_;
  std::wstring tag_;
  std::wstring icon_;
  std::wstring smallIcon_;
  bool bold_ = false;
  long foreColor_ = vbWindowText;
  bool selected_ = false;
};

class ColumnHeaders {
 public:
  explicit ColumnHeaders(ListView& view) : view_(view), items_(L"ColumnHeaders") {}
  // At `index` (1-based) or at the end; width in twips.
  ColumnHeader& Add(std::wstring key, std::wstring text, long width = 1440, int alignment = 0, int index = -1);
  int Count() const { return items_.Count(); }
  ColumnHeader& Item(int index) const { return items_.Item(index); }
  ColumnHeader& Item(std::wstring_view key) const { return items_.Item(key); }
  ColumnHeader* Find(std::wstring_view key) const { return items_.Find(key); }
  int IndexOf(const ColumnHeader* c) const { return items_.IndexOf(c); }
  const std::vector<std::unique_ptr<ColumnHeader>>& All() const { return items_.All(); }
  void Remove(int index) { items_.Take(&Item(index)); }
  void Clear() { items_.Clear(); }

 private:
  ListView& view_;
  KeyedItems<ColumnHeader> items_;
};

class ListItems {
 public:
  explicit ListItems(ListView& view) : view_(view), items_(L"ListItems") {}
  // At `index` (1-based) or at the end; in order when the view is Sorted. The first item
  // of an empty view becomes its SelectedItem, as the platform's control does.
  ListItem& Add(std::wstring key, std::wstring text, std::wstring icon = {}, std::wstring smallIcon = {},
                int index = -1);
  int Count() const { return items_.Count(); }
  ListItem& Item(int index) const { return items_.Item(index); }
  ListItem& Item(std::wstring_view key) const { return items_.Item(key); }
  ListItem* Find(std::wstring_view key) const { return items_.Find(key); }
  int IndexOf(const ListItem* item) const { return items_.IndexOf(item); }
  const std::vector<std::unique_ptr<ListItem>>& All() const { return items_.All(); }
  void Remove(int index) { Remove(Item(index)); }
  void Remove(std::wstring_view key) { Remove(Item(key)); }
  void Remove(ListItem& item);
  void Clear();

 private:
  friend class ListView;
  ListView& view_;
  KeyedItems<ListItem> items_;
};

class ListView : public Control {
 public:
  ListView(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "ListView"; }

  ColumnHeaders& Columns() { return columns_; }
  const ColumnHeaders& Columns() const { return columns_; }
  ListItems& Items() { return items_; }
  const ListItems& Items() const { return items_; }

  // The focused and selected item; setting it raises no ItemClick.
  ListItem* SelectedItem() const { return selected_; }
  void SetSelectedItem(ListItem* item);

  int View() const { return view_; }
  void SetView(int view) { view_ = view; }
  bool MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(bool multi) { multiSelect_ = multi; }
  // Sorting by the text (SortKey 0) or a sub-item (SortKey n), without regard to case.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);
  int SortKey() const { return sortKey_; }
  void SetSortKey(int key);
  int SortOrder() const { return sortOrder_; }
  void SetSortOrder(int order);

  // Label editing: StartLabelEdit opens the selected item's text for the user (after
  // BeforeLabelEdit, which may cancel); the user's new text comes through
  // AfterLabelEdit, which may cancel it or change it.
  void StartLabelEdit();
  ListItem* EditingItem() const { return editing_; }

  Event<ListItem&> OnItemClick;
  Event<ColumnHeader&> OnColumnClick;
  Event<int&> OnBeforeLabelEdit;                // (cancel)
  Event<int&, std::wstring&> OnAfterLabelEdit;  // (cancel, newString)

 protected:
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;  // the design columns come back, the items go
  void KeyDownDefault(int keyCode, int shift) override;

 private:
  friend class ListItem;
  friend class ListItems;
  friend class UserInput;
  void Resort();
  void UserSelect(ListItem& item);
  // Ends label editing with the user's text; false when no edit was open.
  bool FinishLabelEdit(std::wstring text);

  struct Settings {
    int view = lvwIcon;
    bool multiSelect = false;
    bool sorted = false;
    int sortKey = 0;
    int sortOrder = lvwAscending;
  };
  ColumnHeaders columns_{*this};
  ListItems items_{*this};
  ListItem* selected_ = nullptr;
  ListItem* editing_ = nullptr;
  int view_ = lvwIcon;
  bool multiSelect_ = false;
  bool sorted_ = false;
  int sortKey_ = 0;
  int sortOrder_ = lvwAscending;
  Settings design_;
  struct DesignColumn {
    std::wstring key, text;
    long width;
    int alignment;
  };
  std::vector<DesignColumn> designColumns_;
};

}  // namespace quillet::ui
