#pragma once
// VBA's Collection: insertion order, optional key compared without regard to case,
// items by 1-based index or by key. Adding an existing key raises error 457, so the
// first entry under a key keeps it.
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "vba/error.h"
#include "vba/text.h"

namespace quillet::vba {

template <class T>
class Collection {
 public:
  // An empty key adds the item without a key.
  T& Add(T item, std::wstring_view key = {}) {
    if (!key.empty()) {
      if (index_.find(key) != index_.end()) Raise(kErrDuplicateKey);
    }
    entries_.push_back({std::move(item), std::wstring(key)});
    if (!key.empty()) index_.emplace(std::wstring(key), entries_.size() - 1);
    return entries_.back().item;
  }
  // Inserts before the item at 1-based `before`.
  T& AddBefore(T item, long before, std::wstring_view key = {}) {
    if (before < 1 || before > Count()) Raise(kErrSubscript);
    if (!key.empty() && index_.find(key) != index_.end()) Raise(kErrDuplicateKey);
    entries_.insert(entries_.begin() + (before - 1), Entry{std::move(item), std::wstring(key)});
    Reindex();
    return entries_[before - 1].item;
  }

  long Count() const { return static_cast<long>(entries_.size()); }
  bool Empty() const { return entries_.empty(); }

  // 1-based; out of range raises error 9.
  T& Item(long index) {
    if (index < 1 || index > Count()) Raise(kErrSubscript);
    return entries_[index - 1].item;
  }
  const T& Item(long index) const { return const_cast<Collection*>(this)->Item(index); }
  // A missing key raises error 5, as VBA does.
  T& Item(std::wstring_view key) {
    T* p = Find(key);
    if (!p) Raise(kErrInvalidCall);
    return *p;
  }
  const T& Item(std::wstring_view key) const { return const_cast<Collection*>(this)->Item(key); }

  // Lookup whose failure means absence.
  T* Find(std::wstring_view key) {
    auto it = index_.find(key);
    return it == index_.end() ? nullptr : &entries_[it->second].item;
  }
  const T* Find(std::wstring_view key) const { return const_cast<Collection*>(this)->Find(key); }
  bool Exists(std::wstring_view key) const { return index_.find(key) != index_.end(); }
  // The key an item was added under, empty if none.
  const std::wstring& KeyAt(long index) const {
    if (index < 1 || index > Count()) Raise(kErrSubscript);
    return entries_[index - 1].key;
  }

  void Remove(long index) {
    if (index < 1 || index > Count()) Raise(kErrSubscript);
    entries_.erase(entries_.begin() + (index - 1));
    Reindex();
  }
  // Removes every entry whose item `gone` picks, the rest staying in order; one pass
  // however many go. Returns how many went.
  template <class F>
  long RemoveIf(F&& gone) {
    const size_t before = entries_.size();
    std::erase_if(entries_, [&](const Entry& e) { return gone(e.item); });
    if (entries_.size() != before) Reindex();
    return static_cast<long>(before - entries_.size());
  }
  void Remove(std::wstring_view key) {
    auto it = index_.find(key);
    if (it == index_.end()) Raise(kErrInvalidCall);
    Remove(static_cast<long>(it->second) + 1);
  }
  void Clear() {
    entries_.clear();
    index_.clear();
  }

  // Iteration over the items in order.
  template <class E, class V>
  class Iter {
   public:
    explicit Iter(E it) : it_(it) {}
    V& operator*() const { return it_->item; }
    V* operator->() const { return &it_->item; }
    Iter& operator++() { ++it_; return *this; }
    bool operator!=(const Iter& o) const { return it_ != o.it_; }
    bool operator==(const Iter& o) const { return it_ == o.it_; }
   private:
    E it_;
  };

 private:
  struct Entry {
    T item;
    std::wstring key;
  };

 public:
  using iterator_type = Iter<typename std::vector<Entry>::iterator, T>;
  using const_iterator_type = Iter<typename std::vector<Entry>::const_iterator, const T>;
  iterator_type begin() { return iterator_type(entries_.begin()); }
  iterator_type end() { return iterator_type(entries_.end()); }
  const_iterator_type begin() const { return const_iterator_type(entries_.begin()); }
  const_iterator_type end() const { return const_iterator_type(entries_.end()); }

 private:
  void Reindex() {
    index_.clear();
    for (std::size_t i = 0; i < entries_.size(); ++i)
      if (!entries_[i].key.empty()) index_.emplace(entries_[i].key, i);
  }

  std::vector<Entry> entries_;
  std::unordered_map<std::wstring, std::size_t, TextHash, TextEqual> index_;
};

}  // namespace quillet::vba
