#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::PageFolder;
using test::render;
using test::shell;

TEST(Pipe, ClosedEarlyIsAQuietEnd) {
  const PageFolder folder;
  const test::Outcome outcome =
      shell(folder.path(),
            "$mfilter render page.xml --input '#123456' --duration 3600 -o - | head -c 10 | wc -c; "
            "echo ${PIPESTATUS[0]}");
  EXPECT_EQ(outcome.output, "10\n0\n");
  EXPECT_EQ(outcome.errors, "");
}

TEST(Pipe, AFullOutputIsNamed) {
  const PageFolder folder;
  const test::Outcome outcome = shell(folder.path(), "$mfilter render page.xml --size 16x9 -o - > /dev/full");
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors, "standard output: No space left on device\n");
}

TEST(Pipe, CarriesFramesOneAfterAnotherWithoutPadding) {
  const PageFolder folder;
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--size", "17x9", "--fps", "10", "--duration", "0.5", "-o", "-"});
  EXPECT_EQ(outcome.output.size(), 17u * 9 * 4 * 5);
}

TEST(Pipe, AReaderThatStopsAndGoesOnGetsEverything) {
  const PageFolder folder;
  const test::Outcome outcome =
      shell(folder.path(),
            "$mfilter render page.xml --size 640x360 --frames 0-3 -o - | (sleep 0.3; dd bs=999 status=none) | wc -c");
  EXPECT_EQ(outcome.output, std::to_string(640 * 360 * 4 * 4) + "\n");
}

TEST(Progress, IsNotPrintedIntoAPipe) {
  const PageFolder folder;
  EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "64x36", "-o", "out.mp4"}).errors, "");
}

TEST(Progress, CountsFramesOnATerminalAndCleansUp) {
  const PageFolder folder;
  const test::Outcome outcome =
      shell(folder.path(), "script -qec \"$mfilter render page.xml --size 64x36 -o out.mp4\" /dev/null");
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_NE(outcome.output.find("frame 1 of 125 (0 %)"), std::string::npos) << outcome.output;
  EXPECT_TRUE(outcome.output.ends_with("\r\033[K")) << outcome.output;
}

}  // namespace
