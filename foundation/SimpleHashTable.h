#pragma once

#include "foundation/Object.h"

#include <cstdint>
#include <utility>

namespace orlo {

/// The chains of a hash table, whatever its entries hold.
class CSimpleHashTableTemplateBase : public CObject {
public:
  CSimpleHashTableTemplateBase(const CSimpleHashTableTemplateBase&) = delete;
  CSimpleHashTableTemplateBase& operator=(const CSimpleHashTableTemplateBase&) = delete;

  int getCount() const { return static_cast<int>(count_); }
  int getBucketCount() const { return static_cast<int>(bucketCount_); }
  /// Another number whenever the place of an entry has changed, or an entry has gone.
  std::uint32_t getRevision() const { return revision_; }

protected:
  struct CLink {
    std::uint32_t hash;
    CLink* next;
  };

  CSimpleHashTableTemplateBase(int bucketCount, double maxLoad, double growFactor);
  ~CSimpleHashTableTemplateBase() override { delete[] buckets_; }

  /// Only for a table that has buckets.
  CLink*& bucketOf(std::uint32_t hash) const { return buckets_[hash % bucketCount_]; }
  CLink* firstFrom(int& bucket) const;
  /// Makes the table larger if one entry more would be too many.
  void makeRoom();
  void link(CLink* entry);
  void unlink(CLink** place);
  /// All entries as one chain; the table has no buckets afterwards.
  CLink* takeAll();

private:
  void rehash();

  double maxLoad_;
  double growFactor_;
  CLink** buckets_ = nullptr;
  std::uint32_t bucketCount_ = 0;
  std::uint32_t count_ = 0;
  std::uint32_t revision_ = 0;
};

/// A table from keys, which have getHash() and ==, to values. Entries stay where they are in memory until they are
/// removed. No locks.
template <class K, class V>
class TSimpleHashTable : public CSimpleHashTableTemplateBase {
public:
  struct CEntry : CLink {
    const K key;
    V value;

    /// The next entry of the same bucket, null at the end.
    const CEntry* nextInBucket() const { return static_cast<const CEntry*>(this->next); }
  };

  /// A bucket count of 0 makes 10 buckets when they are needed. maxLoad: entries a bucket; growFactor: new buckets for
  /// each old one.
  explicit TSimpleHashTable(int bucketCount = 0, double maxLoad = 0.8, double growFactor = 2.0)
      : CSimpleHashTableTemplateBase(bucketCount, maxLoad, growFactor) {}
  ~TSimpleHashTable() override { clear(); }

  /// Null if the key is not there. *hash becomes the key's hash.
  V* find(const K& key, std::uint32_t* hash = nullptr) {
    CLink** const place = placeOf(key, hash);
    return place ? &entryAt(place)->value : nullptr;
  }
  const V* find(const K& key, std::uint32_t* hash = nullptr) const {
    CLink** const place = placeOf(key, hash);
    return place ? &entryAt(place)->value : nullptr;
  }

  /// Replaces the value of a key that is there; returns true if it was not.
  bool insert(const K& key, V value) {
    std::uint32_t hash = 0;
    if (V* old = find(key, &hash)) {
      *old = std::move(value);
      return false;
    }
    makeRoom();
    link(new CEntry{{hash, nullptr}, key, std::move(value)});
    return true;
  }

  /// Returns true if the key was there.
  bool remove(const K& key) {
    CLink** const place = placeOf(key, nullptr);
    if (!place) return false;
    CEntry* const entry = entryAt(place);
    unlink(place);
    delete entry;
    return true;
  }

  void clear() {
    for (CLink* link = takeAll(); link;) delete static_cast<CEntry*>(std::exchange(link, link->next));
  }

  /// The first entry of the first bucket from this one on that has any, and which bucket that is; null if there is
  /// none.
  const CEntry* firstEntryFrom(int& bucket) const { return static_cast<const CEntry*>(firstFrom(bucket)); }

private:
  static CEntry* entryAt(CLink** place) { return static_cast<CEntry*>(*place); }

  CLink** placeOf(const K& key, std::uint32_t* hashOut) const {
    if (getBucketCount() == 0 && !hashOut) return nullptr;
    const auto hash = static_cast<std::uint32_t>(key.getHash());
    if (hashOut) *hashOut = hash;
    if (getBucketCount() == 0) return nullptr;
    for (CLink** place = &bucketOf(hash); *place; place = &(*place)->next)
      if ((*place)->hash == hash && entryAt(place)->key == key) return place;
    return nullptr;
  }
};

}  // namespace orlo
