#pragma once
// VBA's Collection: insertion order, optional key compared without regard to case,
// items by 1-based index or by key. Adding an existing key raises error 457, so the
// first entry under a key keeps it.
//
// Keys are kept once, with their items. A small collection finds a key by walking its
// entries; a larger one keeps a table of positions hashed by key beside them, so that a
// project's thousands of names cost one probe each and no allocation per entry.
#include <cstdint>
#include <string>
#include <string_view>
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
    if (!key.empty() && Position(key) != kNone) Raise(kErrDuplicateKey);
    entries_.push_back({std::move(item), std::wstring(key)});
    Added(!key.empty());
    return entries_.back().item;
  }
  // Inserts before the item at 1-based `before`.
  T& AddBefore(T item, long before, std::wstring_view key = {}) {
    if (before < 1 || before > Count()) Raise(kErrSubscript);
    if (!key.empty() && Position(key) != kNone) Raise(kErrDuplicateKey);
    entries_.insert(entries_.begin() + (before - 1), Entry{std::move(item), std::wstring(key)});
    Reindex();
    return entries_[before - 1].item;
  }

  // Room for `n` entries in all, so that adding them does not move the others.
  void Reserve(std::size_t n) { entries_.reserve(n); }
  // Gives back the room kept for entries still to come.
  void ShrinkToFit() { entries_.shrink_to_fit(); }
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
    std::size_t at = Position(key);
    return at == kNone ? nullptr : &entries_[at].item;
  }
  const T* Find(std::wstring_view key) const { return const_cast<Collection*>(this)->Find(key); }
  bool Exists(std::wstring_view key) const { return Position(key) != kNone; }
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
    std::size_t at = Position(key);
    if (at == kNone) Raise(kErrInvalidCall);
    Remove(static_cast<long>(at) + 1);
  }
  void Clear() {
    entries_.clear();
    slots_.clear();
    keyed_ = 0;
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
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  // Up to this many entries a lookup walks them; beyond, the table is kept once any of
  // them has a key.
  static constexpr std::size_t kWalked = 8;

  static std::size_t Hash(std::wstring_view key) {
    std::size_t h = TextHash{}(key);
    return h ^ (h >> 29);
  }

  // The 0-based position of the entry under `key`, or kNone.
  std::size_t Position(std::wstring_view key) const {
    if (key.empty() || keyed_ == 0) return kNone;
    if (slots_.empty()) {
      for (std::size_t i = 0; i < entries_.size(); ++i)
        if (!entries_[i].key.empty() && EqualsText(entries_[i].key, key)) return i;
      return kNone;
    }
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t h = Hash(key) & mask;; h = (h + 1) & mask) {
      const std::uint32_t slot = slots_[h];
      if (slot == 0) return kNone;
      if (EqualsText(entries_[slot - 1].key, key)) return slot - 1;
    }
  }

  // An entry, keyed or not, has just been added at the end.
  void Added(bool keyed) {
    keyed_ += keyed;
    if (slots_.empty()) {
      if (keyed_ > 0 && entries_.size() > kWalked) Reindex();
    } else if (keyed) {
      if (2 * keyed_ > slots_.size()) Reindex();
      else Place(entries_.size() - 1);
    }
  }

  void Place(std::size_t position) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t h = Hash(entries_[position].key) & mask;
    while (slots_[h] != 0) h = (h + 1) & mask;
    slots_[h] = static_cast<std::uint32_t>(position + 1);
  }

  // Counts the keyed entries again and rebuilds the table when there are enough entries
  // and a key among them, at most half full.
  void Reindex() {
    keyed_ = 0;
    for (const Entry& e : entries_) keyed_ += !e.key.empty();
    slots_.clear();
    if (keyed_ == 0 || entries_.size() <= kWalked) return;
    std::size_t size = 16;
    while (size < 2 * keyed_ + 2) size *= 2;
    slots_.assign(size, 0);
    for (std::size_t i = 0; i < entries_.size(); ++i)
      if (!entries_[i].key.empty()) Place(i);
  }

  std::vector<Entry> entries_;
  std::vector<std::uint32_t> slots_;  // positions + 1 of keyed entries, 0 for a free slot
  std::size_t keyed_ = 0;
};

}  // namespace quillet::vba
