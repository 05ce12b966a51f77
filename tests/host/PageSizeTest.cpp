#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::Folder;
using test::probe;
using test::render;

std::string sizeOfFrames(const std::string& page, const std::vector<std::string>& more = {}) {
  const Folder folder;
  folder.write("page.xml", page);
  std::vector<std::string> arguments = {"page.xml", "-o", "out.png"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  const test::Outcome outcome = render(folder.path(), arguments);
  if (outcome.exitCode != 0) return outcome.errors;
  return probe(folder, "out.png", "width") + " " + probe(folder, "out.png", "height");
}

TEST(PageSize, GivesTheShapeAt1080Lines) {
  EXPECT_EQ(sizeOfFrames("<p><content-box width=\"256\" height=\"144\"/></p>"), "1920 1080");
  EXPECT_EQ(sizeOfFrames("<p><content-box width=\"100\" height=\"100\"/></p>"), "1080 1080");
}

TEST(PageSize, IsWhatTheElementsCoverWithoutAContentBox) {
  EXPECT_EQ(sizeOfFrames(
                "<p><bounding-box width=\"1\" height=\"1\"/>"
                "<rectangle><center x=\"10\" y=\"5\"/><size width=\"20\" height=\"10\"/></rectangle>"
                "<circle visible=\"false\"><center x=\"30\" y=\"5\"/><size width=\"20\" height=\"10\"/></circle></p>"),
            "4096 1024");
}

TEST(PageSize, CountsTurnedElementsByTheirBounds) {
  EXPECT_EQ(sizeOfFrames("<p><line rotation=\"90\"><size width=\"10\" height=\"20\"/></line></p>"), "2160 1080");
}

TEST(PageSize, CountsASharedElementOnceAsItFirstAppears) {
  EXPECT_EQ(sizeOfFrames("<p><line unique=\"7\"><size width=\"20\" height=\"10\"/></line>"
                         "<line unique=\"7\"><size width=\"900\" height=\"10\"/></line></p>"),
            "2160 1080");
  EXPECT_EQ(sizeOfFrames("<p><line unique=\"0\"><size width=\"20\" height=\"10\"/></line>"
                         "<line unique=\"0\"><size width=\"30\" height=\"10\"/></line></p>"),
            "3240 1080");
}

TEST(PageSize, ReadsNumbersAsPagesWriteThem) {
  EXPECT_EQ(sizeOfFrames("<p><CONTENT-box Width=\"+1,5e1\" HEIGHT=\" 10.0mm\"/></p>"), "1620 1080");
}

TEST(PageSize, FollowsTheInput) {
  const Folder folder;
  folder.write("page.xml", test::page());
  test::makeMedia(folder, "-f lavfi -i color=size=320x180:duration=0.1", "clip.mp4");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "clip.mp4", "-o", "out.png"}).errors, "");
  EXPECT_EQ(probe(folder, "out.png", "width"), "320");
  EXPECT_EQ(probe(folder, "out.png", "height"), "180");
}

TEST(PageSize, MakesTheInputsPixelsSquare) {
  const Folder folder;
  folder.write("page.xml", test::page());
  test::makeMedia(folder, "-f lavfi -i color=size=720x576:duration=0.1 -vf setsar=64/45", "clip.mp4");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "clip.mp4", "-o", "out.png"}).errors, "");
  EXPECT_EQ(probe(folder, "out.png", "width"), "1024");
  EXPECT_EQ(probe(folder, "out.png", "height"), "576");
}

TEST(PageSize, GivesWayToTheWantedSize) {
  EXPECT_EQ(sizeOfFrames(test::page(), {"--size", "161x91"}), "161 91");
  EXPECT_EQ(sizeOfFrames("<p><content-box width=\"10\" height=\"10\"/></p>", {"--size", "1x1"}), "1 1");
}

TEST(PageSize, MayDifferInAspectByAFifth) {
  const std::string square = "<p><content-box width=\"10\" height=\"10\"/></p>";
  EXPECT_EQ(sizeOfFrames(square, {"--size", "119x100"}), "119 100");
  EXPECT_EQ(sizeOfFrames(square, {"--size", "81x100"}), "81 100");
  EXPECT_NE(sizeOfFrames(square, {"--size", "121x100"}).find("aspect ratio"), std::string::npos);
}

}  // namespace
