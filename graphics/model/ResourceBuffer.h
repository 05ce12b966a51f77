#pragma once

#include "foundation/Object.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace graphics {

/// Owned objects by a number and a K: the scaled copies that a painter keeps, say, by device and quality.
template <class T, class K>
class TResourceBuffer : public orlo::CObject {
public:
  /// Null if there is none.
  T* Get(std::int32_t number, const K& key) const {
    const auto entry = entries_.find({number, key});
    return entry == entries_.end() ? nullptr : entry->second.get();
  }
  /// Replaces the object of that key, and gives it back for use.
  T* Set(std::int32_t number, const K& key, std::unique_ptr<T> object) {
    auto& place = entries_[{number, key}];
    place = std::move(object);
    return place.get();
  }
  std::size_t GetCount() const { return entries_.size(); }
  void Clear() { entries_.clear(); }

private:
  std::map<std::pair<std::int32_t, K>, std::unique_ptr<T>> entries_;
};

}  // namespace graphics
