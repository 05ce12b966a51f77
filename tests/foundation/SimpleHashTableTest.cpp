#include "foundation/SimpleHashTable.h"
#include "foundation/String.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <unordered_map>

namespace orlo {
namespace {

using CNumbers = TSimpleHashTable<String, int>;

TEST(SimpleHashTable, FindsNothingWithoutBuckets) {
  CNumbers table(0, 0.8, 2.0);
  EXPECT_EQ(table.getBucketCount(), 0);
  EXPECT_EQ(table.find("a"), nullptr);
  std::uint32_t hash = 0;
  EXPECT_EQ(table.find("a", &hash), nullptr);
  EXPECT_EQ(hash, static_cast<std::uint32_t>(String("a").getHash()));
  EXPECT_FALSE(table.remove("a"));
  table.clear();
  EXPECT_EQ(table.getCount(), 0);
}

TEST(SimpleHashTable, MakesTenBucketsFirstAndTwentyForTheNinthEntry) {
  CNumbers table(0, 0.8, 2.0);
  for (int i = 0; i < 8; ++i) {
    table.insert(fromUTF8(std::to_string(i)), i);
    EXPECT_EQ(table.getBucketCount(), 10);
  }
  table.insert("8", 8);
  EXPECT_EQ(table.getBucketCount(), 20);
  EXPECT_EQ(table.getCount(), 9);
  for (int i = 0; i < 9; ++i) EXPECT_EQ(*table.find(fromUTF8(std::to_string(i))), i);
}

TEST(SimpleHashTable, GrowsByABucketAtLeast) {
  CNumbers table(3, 1.0, 1.0);
  for (int i = 0; i < 5; ++i) table.insert(fromUTF8(std::to_string(i)), i);
  EXPECT_EQ(table.getBucketCount(), 5);
}

TEST(SimpleHashTable, KeepsItsBucketsWhenEntriesGo) {
  CNumbers table;
  for (int i = 0; i < 9; ++i) table.insert(fromUTF8(std::to_string(i)), i);
  for (int i = 0; i < 9; ++i) EXPECT_TRUE(table.remove(fromUTF8(std::to_string(i))));
  EXPECT_EQ(table.getBucketCount(), 20);
  EXPECT_EQ(table.getCount(), 0);
  EXPECT_FALSE(table.remove("1"));
}

TEST(SimpleHashTable, ReplacesTheValueOfAKeyThatIsThere) {
  CNumbers table;
  EXPECT_TRUE(table.insert("a", 1));
  EXPECT_FALSE(table.insert("a", 2));
  EXPECT_EQ(table.getCount(), 1);
  EXPECT_EQ(*table.find("a"), 2);
}

TEST(SimpleHashTable, TakesKeysOfAllEncodingsAsOne) {
  CNumbers table;
  table.insert("a\xE9", 1);
  EXPECT_FALSE(table.insert(u"a\u00E9", 2));
  EXPECT_FALSE(table.insert(u8"a\u00E9", 3));
  EXPECT_FALSE(table.insert(U"a\u00E9", 4));
  EXPECT_EQ(table.getCount(), 1);
  EXPECT_EQ(*table.find("a\xE9"), 4);
}

TEST(SimpleHashTable, LetsItsEntriesUseItWhenTheyGo) {
  TSimpleHashTable<String, P<CCounted>> table;
  const auto nameOf = [](int i) { return fromUTF8(std::to_string(i)); };
  for (int i = 0; i < 10; ++i) {
    table.insert(nameOf(i), makeObject<CCounted>([&table, i, nameOf] {
                   table.remove(nameOf(i + 1));
                   table.insert(nameOf(i + 100), nullptr);
                 }));
  }
  table.remove(nameOf(5));
  EXPECT_EQ(table.find(nameOf(9)), nullptr);
  EXPECT_NE(table.find(nameOf(105)), nullptr);
  table.clear();
  EXPECT_NE(table.find(nameOf(100)), nullptr);
  EXPECT_EQ(table.find(nameOf(105)), nullptr);
}

/// A key whose hash says little, so that chains become long.
struct CPoorKey {
  int number;
  std::int32_t getHash() const { return number % 7 - 3; }
  friend bool operator==(const CPoorKey&, const CPoorKey&) = default;
};

TEST(SimpleHashTable, WalksOverAllEntriesOnce) {
  TSimpleHashTable<CPoorKey, int> table;
  for (int i = 0; i < 100; ++i) table.insert({i}, i);
  std::vector<bool> seen(100);
  for (int bucket = 0; const auto* entry = table.firstEntryFrom(bucket); ++bucket) {
    for (; entry; entry = entry->nextInBucket()) {
      EXPECT_EQ(entry->key.number, entry->value);
      EXPECT_FALSE(seen[static_cast<std::size_t>(entry->value)]);
      seen[static_cast<std::size_t>(entry->value)] = true;
    }
  }
  EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 100);
}

template <class Key, class MakeKey>
void doWhatAMapDoes(MakeKey makeKey) {
  std::mt19937 random(7);
  const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  for (int round = 0; round < 20; ++round) {
    TSimpleHashTable<Key, int> table(below(3), 0.5 + below(4) * 0.5, 1.0 + below(3) * 0.7);
    std::unordered_map<int, int> peer;
    const int keys = 1 + below(300);
    for (int step = 0; step < 2000; ++step) {
      const int number = below(keys);
      const Key key = makeKey(number, below(4));
      switch (below(8)) {
        case 0:
        case 1:
        case 2:
          ASSERT_EQ(table.insert(key, step), peer.insert_or_assign(number, step).second);
          break;
        case 3:
        case 4:
          ASSERT_EQ(table.remove(key), peer.erase(number) == 1);
          break;
        case 5:
          if (below(200) == 0) {
            table.clear();
            peer.clear();
          }
          break;
        default: {
          const int* value = table.find(key);
          const auto found = peer.find(number);
          ASSERT_EQ(value != nullptr, found != peer.end());
          if (value) {
            ASSERT_EQ(*value, found->second);
          }
        }
      }
      ASSERT_EQ(table.getCount(), static_cast<int>(peer.size()));
    }
    int entries = 0;
    for (int bucket = 0; const auto* entry = table.firstEntryFrom(bucket); ++bucket)
      for (; entry; entry = entry->nextInBucket()) ++entries;
    ASSERT_EQ(entries, table.getCount());
  }
}

TEST(SimpleHashTable, DoesWhatAMapOfTextsDoes) {
  doWhatAMapDoes<String>([](int number, int encoding) {
    const String text = fromUTF8("key \xC3\xA9 " + std::to_string(number));
    switch (encoding) {
      case 0:
        return text;
      case 1:
        return toWide(text);
      case 2:
        return toLatin1(text);
      default:
        return toUTF32(text);
    }
  });
}

TEST(SimpleHashTable, DoesWhatAMapDoesWithPoorHashes) {
  doWhatAMapDoes<CPoorKey>([](int number, int) { return CPoorKey{number}; });
}

}  // namespace
}  // namespace orlo
