#pragma once
// The collections of the common controls (tree nodes, list items, column headers, tabs,
// toolbar buttons): items by 1-based index or by a key that is unique without regard to
// case, with the classic errors of those controls.
#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "vba/text.h"

namespace quillet::ui {

// The errors of the common controls' collections.
[[noreturn]] void RaiseIndexOutOfBounds(std::wstring_view source);   // 35600
[[noreturn]] void RaiseElementNotFound(std::wstring_view source);    // 35601
[[noreturn]] void RaiseKeyNotUnique(std::wstring_view source);       // 35602

// T has `const std::wstring& Key() const`.
template <class T>
class KeyedItems {
 public:
  explicit KeyedItems(std::wstring source) : source_(std::move(source)) {}

  int Count() const { return static_cast<int>(items_.size()); }
  // 1-based; error 35600 out of range.
  T& Item(int index) const {
    if (index < 1 || index > Count()) RaiseIndexOutOfBounds(source_);
    return *items_[index - 1];
  }
  // Error 35601 when no item has the key.
  T& Item(std::wstring_view key) const {
    T* item = Find(key);
    if (!item) RaiseElementNotFound(source_);
    return *item;
  }
  // nullptr when absent: the lookup whose failure means absence.
  T* Find(std::wstring_view key) const {
    if (key.empty()) return nullptr;
    auto it = keys_.find(key);
    return it == keys_.end() ? nullptr : it->second;
  }
  // 1-based position; 0 when the item is not in the collection.
  int IndexOf(const T* item) const {
    for (std::size_t i = 0; i < items_.size(); ++i)
      if (items_[i].get() == item) return static_cast<int>(i) + 1;
    return 0;
  }
  const std::vector<std::unique_ptr<T>>& All() const { return items_; }

  // Inserts at a 0-based position (clamped); error 35602 when the key is taken.
  T& Insert(std::size_t position, std::unique_ptr<T> item) {
    const std::wstring& key = item->Key();
    if (!key.empty() && keys_.count(key)) RaiseKeyNotUnique(source_);
    if (!key.empty()) keys_[key] = item.get();
    position = std::min(position, items_.size());
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(position), std::move(item));
    return *items_[position];
  }
  // Takes an item out; the caller may let it go.
  std::unique_ptr<T> Take(const T* item) {
    auto it = std::find_if(items_.begin(), items_.end(), [&](const auto& p) { return p.get() == item; });
    if (it == items_.end()) return nullptr;
    std::unique_ptr<T> taken = std::move(*it);
    items_.erase(it);
    if (!taken->Key().empty()) keys_.erase(taken->Key());
    return taken;
  }
  void Clear() {
    items_.clear();
    keys_.clear();
  }
  // Reorders the items (a stable sort).
  template <class Less>
  void Sort(Less less) {
    std::stable_sort(items_.begin(), items_.end(), [&](const auto& a, const auto& b) { return less(*a, *b); });
  }

 private:
  std::wstring source_;
  std::vector<std::unique_ptr<T>> items_;
  std::map<std::wstring, T*, vba::TextLess> keys_;
};

}  // namespace quillet::ui
