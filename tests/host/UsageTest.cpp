#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::PageFolder;
using test::render;

void expectUsageError(const std::vector<std::string>& arguments, const std::string& line) {
  const PageFolder folder;
  const test::Outcome outcome = render(folder.path(), arguments);
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.errors, line + "\n");
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(folder.count(), 1u);
}

TEST(Usage, NeedsASubcommand) {
  const test::Outcome outcome = test::run({MFILTER_COMMAND});
  EXPECT_EQ(outcome.exitCode, 2);
  EXPECT_EQ(outcome.errors, "mfilter: A subcommand is required\n");
}

TEST(Usage, NeedsAPageAndAnOutput) {
  expectUsageError({"-o", "out.png"}, "mfilter: page is required");
  expectUsageError({"page.xml"}, "mfilter: --output is required");
}

TEST(Usage, RefusesWhatItDoesNotKnow) {
  expectUsageError({"page.xml", "-o", "out.png", "--colour", "red"},
                   "mfilter: The following arguments were not expected: red --colour");
}

TEST(Usage, TakesSizesOfTwoWholeNumbersWithinBounds) {
  for (const std::string size : {"0x10", "10x0", "-4x4", "10", "10x", "x10", "10x10x10", "16385x16", "16x16385",
                                 "99999999999x1", "1.5x2", "axb"}) {
    expectUsageError({"page.xml", "-o", "out.png", "--size=" + size},
                     "mfilter: --size " + size + ": expected WIDTHxHEIGHT, each from 1 to 16384");
  }
}

TEST(Usage, TakesRatesAsPositiveFractionsWithinBounds) {
  for (const std::string rate : {"0", "25/0", "-25", "25/", "/2", "1001", "1/1001", "29.97", "abc", "9999999999"}) {
    expectUsageError({"page.xml", "-o", "out.png", "--fps=" + rate},
                     "mfilter: --fps " + rate + ": expected N or N/D, from 1/1000 to 1000");
  }
}

TEST(Usage, TakesDurationsAboveZeroUpToADay) {
  for (const std::string duration : {"0", "-1", "nan", "inf", "86401", "1e9", "2s"}) {
    expectUsageError({"page.xml", "-o", "out.png", "--duration=" + duration},
                     "mfilter: --duration " + duration + ": expected seconds, above 0 and up to 86400");
  }
}

TEST(Usage, TakesFrameNumbersInOrder) {
  for (const std::string frames : {"5-4", "-1-4", "3-", "-", "a-b", "0-1000000001", "1-2-3"}) {
    expectUsageError({"page.xml", "-o", "out.png", "--frames=" + frames},
                     "mfilter: --frames " + frames + ": expected FIRST-LAST, counted from 0, up to 1000000000");
  }
}

TEST(Usage, TakesEitherADurationOrFrames) {
  expectUsageError({"page.xml", "-o", "out.png", "--duration", "1", "--frames", "0-1"},
                   "mfilter: --duration excludes --frames");
}

TEST(Usage, TakesColoursOfSixOrEightDigits) {
  for (const std::string colour : {"#", "#12345", "#1234567", "#12345g", "#123456789"}) {
    expectUsageError({"page.xml", "-o", "out.png", "--input=" + colour},
                     "mfilter: --input " + colour + ": expected a file, #rrggbb or #rrggbbaa");
  }
}

TEST(Usage, TellsTheOutputFromItsExtension) {
  for (const std::string output : {"out.jpg", "out", ".png", "png", "out.png.bak"}) {
    expectUsageError({"page.xml", "-o", output},
                     "mfilter: -o " + output + ": expected a file that ends in .png or .mp4, or -");
  }
}

TEST(Usage, RefusesParametersThatTheModuleDoesNotKnow) {
  expectUsageError({"page.xml", "-o", "out.png", "--set", "Width=3"},
                   "mfilter: --set Width: subtitlefilter unknown parameter Width");
}

TEST(Usage, RefusesParametersThatHaveAnOptionOfTheirOwn) {
  expectUsageError({"page.xml", "-o", "out.png", "--set", "width=3"}, "mfilter: --set width: use --size for it");
  expectUsageError({"page.xml", "-o", "out.png", "--set", "plugindata="}, "mfilter: --set plugindata: use PAGE for it");
}

TEST(Usage, TakesSettingsAsKeyAndValue) {
  expectUsageError({"page.xml", "-o", "out.png", "--set", "state"}, "mfilter: --set state: expected KEY=VALUE");
  expectUsageError({"page.xml", "-o", "out.png", "--set", "=x"}, "mfilter: --set =x: expected KEY=VALUE");
}

TEST(Usage, TakesSettingsAgainAndAgainBesideTheOtherParameters) {
  const PageFolder folder;
  const test::Outcome outcome =
      render(folder.path(), {"--set", "basedirs.filter.uri=file:///a=b", "--set", "basedirs.theme.uri=", "page.xml",
                             "--state", "hover", "--skins", ".", "--size", "64x36", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_TRUE(folder.has("out.png"));
}

TEST(Usage, HelpGoesToStandardOutputAndTellsTheDefaults) {
  const test::Outcome outcome = render(".", {"--help"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_NE(outcome.output.find("--input CLIP|PICTURE|#rrggbb"), std::string::npos);
  EXPECT_NE(outcome.output.find("holds its last picture"), std::string::npos);
}

TEST(Usage, TellsItsVersion) {
  const test::Outcome outcome = test::run({MFILTER_COMMAND, "--version"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_TRUE(outcome.output.starts_with("mfilter ")) << outcome.output;
}

}  // namespace
