#pragma once
// List boxes and combo boxes: entries with ItemData, ListIndex with its Click, sorted
// insertion, and the platform's list searches.
#include <string>
#include <string_view>
#include <vector>

#include "ui/constants.h"
#include "ui/edit_control.h"

namespace quillet::ui {

struct ListEntry {
  std::wstring text;
  long itemData = 0;
  bool selected = false;  // multi-select list boxes
};

// The list part, shared by ListBox (over Control) and ComboBox (over EditControl).
template <class Base>
class ListControl : public Base {
 public:
  using Base::Base;

  int ListCount() const { return static_cast<int>(entries_.size()); }
  // The entry's text; empty out of range, as classic lists answer.
  std::wstring List(int index) const;
  void SetList(int index, std::wstring text);  // error 381 out of range
  long ItemData(int index) const;              // error 381 out of range
  void SetItemData(int index, long data);
  const std::vector<ListEntry>& Entries() const { return entries_; }

  // Adds an entry at `index` (0 to ListCount), or else at the end, or in order when the
  // list is Sorted. The selected entry stays selected.
  void AddItem(std::wstring text, int index = -1);
  // Where the last AddItem put its entry.
  int NewIndex() const { return newIndex_; }
  // Error 5 out of range. Removing the selected entry leaves none selected.
  void RemoveItem(int index);
  void Clear();

  // Sorted lists keep their entries in text order without regard to case.
  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);

  int ListIndex() const { return listIndex_; }
  // -1 for none; error 380 out of range. Raises Click when the index changes.
  void SetListIndex(int index);

  // The platform's searches, without regard to case: the first entry after `start`
  // (-1: from the top), wrapping round, whose text begins with `prefix` / equals `text`;
  // -1 when there is none.
  int FindString(std::wstring_view prefix, int start = -1) const;
  int FindStringExact(std::wstring_view text, int start = -1) const;

 protected:
  // The selected entry is now `listIndex_`. `explicitSet`: code or the user chose it (or
  // cleared the list), rather than a removal or a quiet selection.
  virtual void ListIndexChanged(bool explicitSet) {}
  // Stores the index; raises Click when asked and it changed.
  void SelectEntry(int index, bool raiseClick, bool explicitSet);
  // The entry after (before) the selected one for arrow keys, the next one starting with
  // a typed character for letters.
  void KeyDownDefault(int keyCode, int shift) override;
  void JumpToCharacter(wchar_t c);

  void DescribeList(nlohmann::json& out) const;
  void SaveDesign() override;
  void RestoreDesign() override;

  std::vector<ListEntry> entries_;
  int listIndex_ = -1;

 private:
  int SortedPosition(std::wstring_view text) const;
  void CheckIndex(int index, const wchar_t* property) const;

  int newIndex_ = -1;
  bool sorted_ = false;
  struct Design {
    std::vector<ListEntry> entries;
    int listIndex = -1;
    bool sorted = false;
  } design_;
};

class ListBox : public ListControl<Control> {
 public:
  ListBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "ListBox"; }

  // The selected entry's text; empty with none.
  std::wstring Text() const { return List(listIndex_); }

  // 0 one entry, 1 simple, 2 extended.
  int MultiSelect() const { return multiSelect_; }
  void SetMultiSelect(int mode) { multiSelect_ = mode; }
  // Whether an entry is selected. In a one-entry list, selecting one sets ListIndex.
  // A change raises Click.
  bool Selected(int index) const;
  void SetSelected(int index, bool selected);
  int SelCount() const;

 protected:
  void ListIndexChanged(bool explicitSet) override;
  void KeyPressDefault(int keyAscii) override;
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  int multiSelect_ = vbMultiSelectNone;
  int designMultiSelect_ = vbMultiSelectNone;
};

class ComboBox : public ListControl<EditControl> {
 public:
  ComboBox(Form& form, std::wstring name, Control* container, int index);
  const char* Kind() const override { return "ComboBox"; }

  // 0 drop-down combo (free text), 2 drop-down list (text only from the list).
  int Style() const { return style_; }
  void SetStyle(int style) { style_ = style; }

  // A drop-down combo takes any text (Change when it differs) and selects the entry
  // that equals it, quietly. A drop-down list selects the entry with that text (Click
  // when it changes); another text raises error 383.
  void SetText(std::wstring text) override;

  // Selects an entry without raising Click, as the platform's selection message does;
  // -1 selects none and keeps the text of a drop-down combo.
  void SetCurSel(int index);

  Event<> OnDropDown;
  Event<>* FindEvent(std::wstring_view name) override;

 protected:
  bool AcceptsTyping() const override { return style_ != vbComboDropdownList && !Locked(); }
  void ListIndexChanged(bool explicitSet) override;
  void TextChanged() override;
  void KeyPressDefault(int keyAscii) override;
  void KeyDownDefault(int keyCode, int shift) override;
  void DescribeInto(nlohmann::json& out) const override;
  void SaveDesign() override;
  void RestoreDesign() override;

 private:
  int style_ = vbComboDropdown;
  int designStyle_ = vbComboDropdown;
};

}  // namespace quillet::ui
