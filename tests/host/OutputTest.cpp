#include "tests/host/Media.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

using test::decode;
using test::largestDifference;
using test::makeMedia;
using test::PageFolder;
using test::probe;
using test::render;
using test::shell;

TEST(Output, AnMp4HasTheWantedFramesSizeAndRate) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i testsrc2=size=320x180:rate=30000/1001 -frames:v 17", "clip.mp4");
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--input", "clip.mp4", "-o", "out.mp4"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(probe(folder, "out.mp4", "codec_name"), "h264");
  EXPECT_EQ(probe(folder, "out.mp4", "pix_fmt"), "yuv420p");
  EXPECT_EQ(probe(folder, "out.mp4", "width"), "320");
  EXPECT_EQ(probe(folder, "out.mp4", "height"), "180");
  EXPECT_EQ(probe(folder, "out.mp4", "r_frame_rate"), "30000/1001");
  EXPECT_EQ(probe(folder, "out.mp4", "nb_read_frames"), "17");
}

TEST(Output, AnMp4KeepsColoursOnBothSidesOfHighDefinition) {
  for (const std::string size : {"320x180", "1280x720"}) {
    const PageFolder folder;
    EXPECT_EQ(
        render(folder.path(), {"page.xml", "--input", "#c04020", "--size", size, "--frames", "0-2", "-o", "out.mp4"})
            .errors,
        "");
    EXPECT_EQ(probe(folder, "out.mp4", "color_space"), size == "320x180" ? "smpte170m" : "bt709");
    const std::string pixel = decode(folder, "out.mp4", "bgra").substr(0, 4);
    EXPECT_LE(largestDifference(pixel, "\x20\x40\xC0\xFF"), 4) << size;
  }
}

TEST(Output, AnMp4OfOddSizeIsMadeEvenByDoublingTheLastColumnAndRow) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i color=0x808080:size=161x91,format=rgb24 -frames:v 1", "picture.png");
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "picture.png", "--frames", "0-1", "-o", "out.mp4"});
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(probe(folder, "out.mp4", "width"), "162");
  EXPECT_EQ(probe(folder, "out.mp4", "height"), "92");
  const std::string frames = decode(folder, "out.mp4", "gray");
  ASSERT_EQ(frames.size(), 2u * 162 * 92);
  EXPECT_LE(largestDifference(frames, std::string(frames.size(), frames.front())), 1);
}

TEST(Output, AnMp4CanBeTiny) {
  const PageFolder folder;
  folder.write("page.xml", "<p><content-box width=\"1\" height=\"1\"/></p>");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "1x1", "--frames", "0-0", "-o", "out.mp4"}).errors, "");
  EXPECT_EQ(probe(folder, "out.mp4", "width"), "2");
}

TEST(Output, APngIsExact) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i testsrc2=size=65x37 -frames:v 1 -pix_fmt rgb24", "picture.png");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "picture.png", "-o", "out.PNG"}).errors, "");
  EXPECT_EQ(decode(folder, "out.PNG", "bgra"), decode(folder, "picture.png", "bgra"));
  EXPECT_EQ(probe(folder, "out.PNG", "pix_fmt"), "rgb24");
}

TEST(Output, APngHasStraightAlphaWhereTheFrameIsNotOpaque) {
  const PageFolder folder;
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "#ff804080", "--size", "16x9", "-o", "out.png"}).errors, "");
  EXPECT_EQ(probe(folder, "out.png", "pix_fmt"), "rgba");
  EXPECT_LE(largestDifference(decode(folder, "out.png", "rgba").substr(0, 4), "\xFF\x80\x40\x80"), 1);
}

TEST(Output, AFileTakesTheRightsThatNewFilesHave) {
  const PageFolder folder;
  EXPECT_EQ(shell(folder.path(), "umask 027; $mfilter render page.xml --size 16x9 -o out.png").exitCode, 0);
  struct stat found {};
  ASSERT_EQ(stat((folder.path() / "out.png").c_str(), &found), 0);
  EXPECT_EQ(found.st_mode & 0777, 0640u);
}

TEST(Output, AFileReplacesAnOlderOneOnlyWhenItIsComplete) {
  const PageFolder folder;
  folder.write("out.mp4", "the older one");
  const test::Outcome failed =
      shell(folder.path(), "ulimit -f 8; $mfilter render page.xml --input '#123456' -o out.mp4");
  EXPECT_NE(failed.exitCode, 0);
  EXPECT_EQ(folder.read("out.mp4"), "the older one");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "16x9", "--frames", "0-0", "-o", "out.mp4"}).exitCode, 0);
  EXPECT_EQ(probe(folder, "out.mp4", "nb_read_frames"), "1");
}

TEST(Output, CanBeTheInputItself) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i testsrc2=size=64x36:rate=25 -frames:v 9", "clip.mp4");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "clip.mp4", "-o", "clip.mp4"}).errors, "");
  EXPECT_EQ(probe(folder, "clip.mp4", "nb_read_frames"), "9");
}

TEST(Output, APlaceThatCannotBeWrittenToIsNamed) {
  for (const std::string output : {"gone/out.png", "gone/out.mp4"}) {
    const PageFolder folder;
    const test::Outcome outcome = render(folder.path(), {"page.xml", "-o", output});
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, output + ": No such file or directory\n");
  }
}

TEST(Output, AFolderIsNotReplaced) {
  const PageFolder folder;
  std::filesystem::create_directory(folder.path() / "out.png");
  const test::Outcome outcome = render(folder.path(), {"page.xml", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors, "out.png: Is a directory\n");
}

TEST(Output, AFullDiscIsNamedAndLeavesNothingBehind) {
  for (const std::string output : {"out.png", "out.mp4"}) {
    const PageFolder folder;
    makeMedia(folder, "-f lavfi -i nullsrc=size=640x360,geq=random\\(1\\)*255:128:128 -frames:v 1", "noise.png");
    const test::Outcome outcome =
        shell(folder.path(), "trap '' XFSZ; ulimit -f 8; $mfilter render page.xml --input noise.png -o " + output);
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, output + ": File too large\n");
    EXPECT_EQ(folder.count(), 2u);
  }
}

// The shell waits until the output is under way, then signals twice in a row, as timeout(1) does.
TEST(Output, AnInterruptedCommandLeavesNothingBehind) {
  const PageFolder folder;
  const test::Outcome outcome = shell(folder.path(),
                                      "$mfilter render page.xml --duration 3600 -o out.mp4 & "
                                      "while [ $(ls -A | wc -l) -lt 2 ]; do sleep 0.01; done; "
                                      "kill -TERM $!; kill -TERM $!; wait $!");
  EXPECT_EQ(outcome.exitCode, 128 + 15);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(folder.count(), 1u);
}

}  // namespace
