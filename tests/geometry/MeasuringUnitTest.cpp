#include "graphics/geometry/MeasuringUnit.h"
#include "tests/support/DecimalComma.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace graphics {
namespace {

using orlo::MeasurementSystem;

TEST(MeasuringUnit, IsNamedByTheSystemOfTheUser) {
  EXPECT_EQ(GetUnitName(MeasurementSystem::metric, false), "cm");
  EXPECT_EQ(GetUnitName(MeasurementSystem::metric, true), "cm");
  EXPECT_EQ(GetUnitName(MeasurementSystem::imperial, false), "inches");
  EXPECT_EQ(GetUnitName(MeasurementSystem::imperial, true), "\"");
  EXPECT_EQ(GetUnitName(MeasurementSystem::none, false), "mm");
}

/// Sets LC_ALL for a scope.
class CUserLocale {
public:
  explicit CUserLocale(const char* name) {
    if (const char* former = std::getenv("LC_ALL")) former_ = former;
    setenv("LC_ALL", name, 1);
  }
  ~CUserLocale() {
    if (former_.empty())
      unsetenv("LC_ALL");
    else
      setenv("LC_ALL", former_.c_str(), 1);
  }

private:
  std::string former_;
};

TEST(MeasurementSystem, IsUnknownForALocaleThatIsNotThere) {
  const CUserLocale user("xx_XX.UTF-8");
  EXPECT_EQ(orlo::getMeasurementSystem(), MeasurementSystem::none);
}

TEST(MeasurementSystem, IsKnownForThePlainLocale) {
  const CUserLocale user("C");
  EXPECT_NE(orlo::getMeasurementSystem(), MeasurementSystem::none);
}

TEST(NumberForDisplay, HasTheWantedDecimals) {
  EXPECT_EQ(FormatForDisplay(12.3456, 2), "12.35");
  EXPECT_EQ(FormatForDisplay(12.3456, 0), "12");
  EXPECT_EQ(FormatForDisplay(-0.5, 3), "-0.500");
}

TEST(NumberForDisplay, HasTheSeparatorOfTheLocale) {
  const CDecimalComma comma;
  ASSERT_TRUE(comma.IsOk());
  EXPECT_EQ(FormatForDisplay(12.3456, 2), "12,35");
}

TEST(NumberForDisplay, SurvivesExtremes) {
  EXPECT_EQ(FormatForDisplay(1e308, 100).length(), 309U + 1 + 100);
  EXPECT_EQ(FormatForDisplay(1, -3), "1");
  EXPECT_EQ(FormatForDisplay(-1.7e308, 2'000'000'000).length(), 1U + 309 + 1 + 100);
}

}  // namespace
}  // namespace graphics
