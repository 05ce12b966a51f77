#include "foundation/SimpleHashTable.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace orlo {

namespace {

constexpr std::uint32_t kFirstBucketCount = 10;
constexpr std::uint32_t kMostEntries = std::numeric_limits<std::int32_t>::max();

}  // namespace

CSimpleHashTableTemplateBase::CSimpleHashTableTemplateBase(int bucketCount, double maxLoad, double growFactor)
    : maxLoad_(maxLoad),
      growFactor_(growFactor),
      buckets_(bucketCount > 0 ? new CLink* [static_cast<std::size_t>(bucketCount)] {} : nullptr),
      bucketCount_(static_cast<std::uint32_t>(std::max(bucketCount, 0))) {}

CSimpleHashTableTemplateBase::CLink* CSimpleHashTableTemplateBase::firstFrom(int& bucket) const {
  for (; bucket < getBucketCount(); ++bucket)
    if (buckets_[bucket]) return buckets_[bucket];
  return nullptr;
}

void CSimpleHashTableTemplateBase::makeRoom() {
  if (count_ == kMostEntries) throw std::length_error("hash table of 2^31 entries or more");
  if (count_ + 1 > bucketCount_ * maxLoad_) rehash();
}

void CSimpleHashTableTemplateBase::rehash() {
  const double grown = std::min(std::max(bucketCount_ * growFactor_, bucketCount_ + 1.0), double{kMostEntries});
  const std::uint32_t bucketCount = bucketCount_ == 0 ? kFirstBucketCount : static_cast<std::uint32_t>(grown);
  CLink** const oldBuckets = std::exchange(
      buckets_, new CLink* [bucketCount] {});
  const std::uint32_t oldBucketCount = std::exchange(bucketCount_, bucketCount);
  for (std::uint32_t i = 0; i < oldBucketCount; ++i) {
    for (CLink* entry = oldBuckets[i]; entry;) {
      CLink* const next = entry->next;
      CLink*& head = bucketOf(entry->hash);
      entry->next = std::exchange(head, entry);
      entry = next;
    }
  }
  delete[] oldBuckets;
  ++revision_;
}

void CSimpleHashTableTemplateBase::link(CLink* entry) {
  CLink*& head = bucketOf(entry->hash);
  entry->next = std::exchange(head, entry);
  ++count_;
}

void CSimpleHashTableTemplateBase::unlink(CLink** place) {
  *place = (*place)->next;
  --count_;
  ++revision_;
}

CSimpleHashTableTemplateBase::CLink* CSimpleHashTableTemplateBase::takeAll() {
  CLink* all = nullptr;
  for (std::uint32_t i = 0; i < bucketCount_; ++i) {
    while (CLink* entry = buckets_[i]) {
      buckets_[i] = entry->next;
      entry->next = std::exchange(all, entry);
    }
  }
  delete[] std::exchange(buckets_, nullptr);
  bucketCount_ = 0;
  count_ = 0;
  ++revision_;
  return all;
}

}  // namespace orlo
