#include "foundation/Error.h"
#include "foundation/StringLocalizer.h"
#include "tests/foundation/Counted.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace orlo {
namespace {

TEST(StringLocalizer, GivesTheDefaultForAKeyThatNobodyKnows) {
  CStringLocalizer localizer;
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "text");
  EXPECT_EQ(textOf(localizer.localize("x.y", "")), "");
  EXPECT_EQ(textOf(localize("x.y", "text")), "text");
  EXPECT_EQ(textOf(localize("x.y", L"wide")), "wide");
}

TEST(StringLocalizer, GivesTheTextOfTheKey) {
  CStringLocalizer localizer;
  localizer.setText("x.y", u8"übersetzt");
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "übersetzt");
  EXPECT_EQ(textOf(localizer.localize(u"x.y", "text")), "übersetzt");
  EXPECT_EQ(textOf(localizer.localize("X.y", "text")), "text");
  localizer.setText("x.y", "again");
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "again");
}

TEST(StringLocalizer, GivesAnEmptyTextThatWasSet) {
  CStringLocalizer localizer;
  localizer.setText("x.y", "");
  const String text = localizer.localize("x.y", "text");
  EXPECT_TRUE(text.isEmpty());
  EXPECT_FALSE(text.isNull());
}

TEST(StringLocalizer, DoesNotKnowAKeyWhoseTextIsNull) {
  CStringLocalizer localizer;
  localizer.setText("x.y", nullptr);
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "text");
}

TEST(StringLocalizer, AsksItsFallbackForAKeyItDoesNotKnow) {
  CStringLocalizer fallback;
  CStringLocalizer localizer;
  localizer.setFallback(&fallback);
  fallback.setText("x.y", "from behind");
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "from behind");
  EXPECT_EQ(textOf(localizer.localize("x.z", "text")), "text");
  localizer.setText("x.y", "own");
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "own");
  localizer.setFallback(nullptr);
}

TEST(StringLocalizer, ForgetsItsTextsButNotItsFallback) {
  CStringLocalizer fallback;
  CStringLocalizer localizer;
  localizer.setFallback(&fallback);
  fallback.setText("x.y", "from behind");
  localizer.setText("x.y", "own");
  localizer.setText("x.z", "own");
  localizer.clear();
  EXPECT_EQ(textOf(localizer.localize("x.y", "text")), "from behind");
  EXPECT_EQ(textOf(localizer.localize("x.z", "text")), "text");
}

TEST(StringLocalizer, KeepsItsFallbackAlive) {
  class CWatched : public CStringLocalizer {
  public:
    explicit CWatched(bool& gone) : gone_(gone) {}
    ~CWatched() override { gone_ = true; }

  private:
    bool& gone_;
  };
  bool gone = false;
  CStringLocalizer localizer;
  localizer.setFallback(makeObject<CWatched>(gone).get());
  EXPECT_FALSE(gone);
  localizer.setFallback(nullptr);
  EXPECT_TRUE(gone);
}

TEST(StringLocalizer, SpeaksForTheWholeSystem) {
  getStringLocalizer()->setText("orlo.CNoSuchObjectError.desc", "Nicht da.");
  EXPECT_EQ(messageOf(CNoSuchObjectError()), "Nicht da.");
  getStringLocalizer()->clear();
  EXPECT_EQ(messageOf(CNoSuchObjectError()), "No such object.");
}

TEST(StringLocalizer, MayBeAskedAndToldByManyThreads) {
  CStringLocalizer localizer;
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([&] {
      for (int round = 0; round < 200; ++round) {
        localizer.setText("x.y", "own");
        EXPECT_EQ(textOf(localizer.localize("x.y", "own")), "own");
        localizer.clear();
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace orlo
