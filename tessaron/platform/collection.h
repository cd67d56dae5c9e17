// The platform's collection: insertion-ordered, 1-based positions, optional text keys
// compared case-insensitively. A missing key raises invalid argument (5), a position
// outside 1..Count subscript out of range (9), a duplicate key (457).
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"
#include "tessaron/platform/variant.h"

namespace tessaron {

template <class T>
class Collection {
 public:
  struct Entry {
    std::string key;  // empty when added without a key
    T value;
  };

  // Adds at the end; an empty key adds without a key.
  void Add(T value, std::string_view key = {}) {
    if (!key.empty()) {
      auto [it, inserted] = index_.try_emplace(std::string(key), entries_.size());
      if (!inserted) RaisePlatform(platform_error::kDuplicateKey);
    }
    entries_.push_back(Entry{std::string(key), std::move(value)});
  }

  long Count() const { return static_cast<long>(entries_.size()); }

  T& Item(long position) { return entries_[Slot(position)].value; }
  const T& Item(long position) const { return entries_[Slot(position)].value; }
  T& Item(std::string_view key) { return entries_[Slot(key)].value; }
  const T& Item(std::string_view key) const { return entries_[Slot(key)].value; }
  T& Item(const char* key) { return Item(std::string_view(key)); }
  // By position when the value is numeric and not text, otherwise by key.
  T& Item(const Variant& indexKey) {
    return indexKey.IsString() ? Item(std::string_view(indexKey.ToString())) : Item(static_cast<long>(indexKey.ToInteger()));
  }

  bool Exists(std::string_view key) const { return index_.find(key) != index_.end(); }
  // Position (1-based) of a key, 0 when absent.
  long PositionOf(std::string_view key) const {
    auto it = index_.find(key);
    return it == index_.end() ? 0 : static_cast<long>(it->second) + 1;
  }
  const std::string& KeyAt(long position) const { return entries_[Slot(position)].key; }

  void Remove(long position) { Erase(Slot(position)); }
  void Remove(std::string_view key) { Erase(Slot(key)); }
  void Remove(const char* key) { Remove(std::string_view(key)); }
  void Remove(const Variant& indexKey) {
    if (indexKey.IsString()) Remove(std::string_view(indexKey.ToString()));
    else Remove(static_cast<long>(indexKey.ToInteger()));
  }
  void Clear() { entries_.clear(); index_.clear(); }
  void Reserve(size_t n) { entries_.reserve(n); index_.reserve(n); }

  // Iteration over the values, in insertion order.
  class iterator {
   public:
    using Inner = typename std::vector<Entry>::iterator;
    explicit iterator(Inner it) : it_(it) {}
    T& operator*() const { return it_->value; }
    T* operator->() const { return &it_->value; }
    iterator& operator++() { ++it_; return *this; }
    bool operator==(const iterator& o) const { return it_ == o.it_; }
   private:
    Inner it_;
  };
  class const_iterator {
   public:
    using Inner = typename std::vector<Entry>::const_iterator;
    explicit const_iterator(Inner it) : it_(it) {}
    const T& operator*() const { return it_->value; }
    const T* operator->() const { return &it_->value; }
    const_iterator& operator++() { ++it_; return *this; }
    bool operator==(const const_iterator& o) const { return it_ == o.it_; }
   private:
    Inner it_;
  };
  iterator begin() { return iterator(entries_.begin()); }
  iterator end() { return iterator(entries_.end()); }
  const_iterator begin() const { return const_iterator(entries_.begin()); }
  const_iterator end() const { return const_iterator(entries_.end()); }
  const std::vector<Entry>& Entries() const { return entries_; }
  // The values in insertion order, copied: safe to walk while the collection changes.
  std::vector<T> Values() const {
    std::vector<T> all;
    all.reserve(entries_.size());
    for (const auto& e : entries_) all.push_back(e.value);
    return all;
  }

 private:
  size_t Slot(long position) const {
    if (position < 1 || position > Count()) RaisePlatform(platform_error::kSubscriptOutOfRange);
    return static_cast<size_t>(position - 1);
  }
  size_t Slot(std::string_view key) const {
    auto it = index_.find(key);
    if (it == index_.end()) RaisePlatform(platform_error::kInvalidArgument);
    return it->second;
  }
  void Erase(size_t slot) {
    if (!entries_[slot].key.empty()) index_.erase(index_.find(std::string_view(entries_[slot].key)));
    entries_.erase(entries_.begin() + static_cast<long>(slot));
    for (size_t i = slot; i < entries_.size(); ++i)
      if (!entries_[i].key.empty()) index_.find(std::string_view(entries_[i].key))->second = i;
  }

  std::vector<Entry> entries_;
  std::unordered_map<std::string, size_t, CaseInsensitiveHash, CaseInsensitiveEqual> index_;
};

}  // namespace tessaron
