#include "foundation/MersenneTwisterRandomNumberGenerator.h"

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace orlo {
namespace {

TEST(RandomNumbers, BeginWithThePublishedFirstOneForThePublishedSeed) {
  EXPECT_EQ(CMersenneTwisterRandomNumberGenerator(5489).getNext(), 3499211612U);
}

TEST(RandomNumbers, AreThoseOfTheStandardGeneratorForAnySeed) {
  for (const std::uint32_t seed : {0U, 1U, 5489U, 4294967295U}) {
    CMersenneTwisterRandomNumberGenerator generator(seed);
    std::mt19937 peer(seed);
    for (int i = 0; i < 2000; ++i) ASSERT_EQ(generator.getNext(), peer()) << "seed " << seed << ", number " << i;
  }
}

TEST(RandomNumbers, AreThoseOfTheStandardGeneratorForRandomSeedsAndBehindManyRefills) {
  std::mt19937 seeds(7);
  for (int round = 0; round < 200; ++round) {
    const auto seed = static_cast<std::uint32_t>(seeds());
    CMersenneTwisterRandomNumberGenerator generator(seed);
    std::mt19937 peer(seed);
    const int count = round == 0 ? 200000 : static_cast<int>(seeds() % 1500);
    for (int i = 0; i < count; ++i) ASSERT_EQ(generator.getNext(), peer()) << "seed " << seed << ", number " << i;
  }
}

TEST(RandomNumbers, ComeFromOneSourceForAll) {
  EXPECT_EQ(&getRandomNumberGenerator(), &getRandomNumberGenerator());
  const std::uint32_t first = getRandomNumberGenerator()->getNext();
  EXPECT_NE(getRandomNumberGenerator()->getNext(), first);
}

TEST(RandomNumbers, MayBeDrawnByTwoThreadsFromOneSource) {
  CMersenneTwisterRandomNumberGenerator generator(1);
  std::uint64_t sums[2]{};
  const auto draw = [&generator](std::uint64_t& sum) {
    for (int i = 0; i < 5000; ++i) sum += generator.getNext();
  };
  std::thread other([&] { draw(sums[0]); });
  draw(sums[1]);
  other.join();
  EXPECT_GT(sums[0], 0U);
  EXPECT_GT(sums[1], 0U);
}

}  // namespace
}  // namespace orlo
