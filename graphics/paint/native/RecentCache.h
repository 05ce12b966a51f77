#pragma once

#include <cstddef>
#include <list>
#include <unordered_map>
#include <utility>

namespace graphics {

/// Keeps what was asked for last, as long as the costs of all together stay within the budget.
template <class Key, class Value, class Hash>
class TRecentCache {
public:
  explicit TRecentCache(std::size_t budget) : budget_(budget) {}

  /// Null if the key is not there. Valid until the next call of Put.
  const Value* Find(const Key& key) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) return nullptr;
    entries_.splice(entries_.begin(), entries_, found->second);
    return &found->second->value;
  }

  /// The key must not be there. What costs more than the budget is not kept.
  void Put(Key key, Value value, std::size_t cost) {
    if (cost > budget_) return;
    while (spent_ + cost > budget_) Drop();
    entries_.push_front({key, std::move(value), cost});
    byKey_.emplace(std::move(key), entries_.begin());
    spent_ += cost;
  }

  std::size_t GetSpent() const { return spent_; }

private:
  struct CEntry {
    Key key;
    Value value;
    std::size_t cost;
  };

  void Drop() {
    spent_ -= entries_.back().cost;
    byKey_.erase(entries_.back().key);
    entries_.pop_back();
  }

  std::size_t budget_;
  std::size_t spent_ = 0;
  std::list<CEntry> entries_;
  std::unordered_map<Key, typename std::list<CEntry>::iterator, Hash> byKey_;
};

}  // namespace graphics
