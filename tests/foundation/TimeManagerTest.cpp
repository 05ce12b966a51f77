#include "foundation/posix/TimeManager.h"
#include "tests/foundation/TextOf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <limits>

namespace orlo {
namespace {

constexpr std::int64_t kHour = 3600000;
/// 2009-07-01 12:34:56.789, a Wednesday.
constexpr std::int64_t kSummer = 1246451696789;
/// 2009-01-01 00:00:00.000, a Thursday.
constexpr std::int64_t kWinter = 1230768000000;

/// A time zone for a scope: an hour ahead of UTC, two in summer.
class CMiddleEurope {
public:
  CMiddleEurope() { setTo("CET-1CEST,M3.5.0,M10.5.0/3"); }
  ~CMiddleEurope() { setTo("UTC"); }
  CMiddleEurope(const CMiddleEurope&) = delete;
  CMiddleEurope& operator=(const CMiddleEurope&) = delete;

private:
  static void setTo(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
};

TEST(TimeManager, HasATimeThatIsAThousandthOfItsMicroseconds) {
  const P<ITimeManager>& manager = getTimeManager();
  const std::int64_t before = manager->getMicroseconds();
  const std::int64_t time = manager->getTime();
  const std::int64_t after = manager->getMicroseconds();
  EXPECT_LE(before / 1000, time);
  EXPECT_LE(time, after / 1000);
  EXPECT_NEAR(static_cast<double>(time), static_cast<double>(std::time(nullptr)) * 1000, 2000);
}

TEST(TimeManager, SplitsATimeIntoItsFields) {
  const CDateFields fields = getTimeManager()->split(kSummer);
  EXPECT_EQ(fields.year, 2009);
  EXPECT_EQ(fields.month, 7);
  EXPECT_EQ(fields.day, 1);
  EXPECT_EQ(fields.dayOfWeek, 3);
  EXPECT_EQ(fields.hour, 12);
  EXPECT_EQ(fields.minute, 34);
  EXPECT_EQ(fields.second, 56);
  EXPECT_EQ(fields.millisecond, 789);
}

TEST(TimeManager, SplitsATimeBeforeTheFirst) {
  const CDateFields fields = getTimeManager()->split(-1);
  EXPECT_EQ(fields.year, 1969);
  EXPECT_EQ(fields.month, 12);
  EXPECT_EQ(fields.day, 31);
  EXPECT_EQ(fields.hour, 23);
  EXPECT_EQ(fields.millisecond, 999);
}

TEST(TimeManager, PutsFieldsTogetherAgain) {
  for (const std::int64_t time : {kSummer, kWinter, std::int64_t{0}, std::int64_t{-1}, std::int64_t{951782400000}})
    EXPECT_EQ(getTimeManager()->join(getTimeManager()->split(time)), time);
  EXPECT_EQ(getTimeManager()->join(CDateFields()), 0);
}

TEST(TimeManager, KeepsTimesBeyondItsYearsAtTheirEnds) {
  EXPECT_EQ(getTimeManager()->split(std::numeric_limits<std::int64_t>::max()).year, 32767);
  EXPECT_EQ(getTimeManager()->split(std::numeric_limits<std::int64_t>::min()).year, -32767);
  const CMiddleEurope zone;
  EXPECT_GT(getTimeManager()->toLocal(std::numeric_limits<std::int64_t>::max()), kSummer);
  EXPECT_LT(getTimeManager()->toUTC(std::numeric_limits<std::int64_t>::min()), -kSummer);
}

TEST(TimeManager, ConvertsBetweenUTCAndLocalTimeByTheRulesOfThatDay) {
  const CMiddleEurope zone;
  posix::CTimeManager manager;
  EXPECT_EQ(manager.toLocal(kSummer), kSummer + 2 * kHour);
  EXPECT_EQ(manager.toLocal(kWinter), kWinter + kHour);
  EXPECT_EQ(manager.toUTC(kSummer + 2 * kHour), kSummer);
  EXPECT_EQ(manager.toUTC(kWinter + kHour), kWinter);
}

TEST(TimeManager, ConvertsFieldsAsItDoesTimes) {
  const CMiddleEurope zone;
  posix::CTimeManager manager;
  const CDateFields local = manager.toLocal(manager.split(kSummer));
  EXPECT_EQ(local.hour, 14);
  EXPECT_EQ(local.millisecond, 789);
  EXPECT_EQ(manager.join(manager.toUTC(local)), kSummer);
}

TEST(TimeManager, TellsTheBiasOfStandardTimeInMinutes) {
  const CMiddleEurope zone;
  EXPECT_EQ(posix::CTimeManager().getTimeZoneBias(), -60);
}

TEST(TimeManager, WritesTimeAndDateInTheFormOfTheUsersLocale) {
  setenv("LC_ALL", "C.UTF-8", 1);
  posix::CTimeManager manager;
  EXPECT_EQ(textOf(manager.formatTime(kSummer)), "12:34:56");
  EXPECT_EQ(textOf(manager.formatDate(kSummer)), "07/01/09");
  unsetenv("LC_ALL");
}

TEST(TimeManager, WritesInPlainFormIfTheUsersLocaleIsNotThere) {
  setenv("LC_ALL", "xx_XX.UTF-8", 1);
  EXPECT_EQ(textOf(posix::CTimeManager().formatTime(kSummer)), "12:34:56");
  unsetenv("LC_ALL");
}

}  // namespace
}  // namespace orlo
