#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::decode;
using test::makeMedia;
using test::PageFolder;
using test::probe;
using test::render;

constexpr std::size_t frameBytes = 64 * 36 * 4;

// A clip of ten frames a second without loss; frame n is grey of value 10 n.
void makeCountingClip(const PageFolder& folder, int frames, const std::string& name = "clip.mkv") {
  makeMedia(folder,
            "-f lavfi -i color=black:size=64x36:rate=10,format=rgb24,geq=r=10*N:g=10*N:b=10*N -frames:v " +
                std::to_string(frames) + " -c:v ffv1 -pix_fmt bgr0",
            name);
}

// The numbers of the clip's pictures that come out, from the first byte of each frame.
std::vector<int> picturesOf(const PageFolder& folder, std::vector<std::string> more,
                            const std::string& clip = "clip.mkv") {
  more.insert(more.begin(), {"page.xml", "--input", clip, "-o", "-"});
  const test::Outcome outcome = render(folder.path(), more);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output.size() % frameBytes, 0u);
  std::vector<int> pictures;
  for (std::size_t at = 0; at < outcome.output.size(); at += frameBytes) {
    pictures.push_back(static_cast<unsigned char>(outcome.output[at]) / 10);
  }
  return pictures;
}

using Numbers = std::vector<int>;

TEST(Timing, AClipGivesItsOwnFrames) {
  const PageFolder folder;
  makeCountingClip(folder, 5);
  EXPECT_EQ(picturesOf(folder, {}), (Numbers{0, 1, 2, 3, 4}));
}

TEST(Timing, AnotherRateShowsTheClipByItsOwnClock) {
  const PageFolder folder;
  makeCountingClip(folder, 5);
  EXPECT_EQ(picturesOf(folder, {"--fps", "20"}), (Numbers{0, 0, 1, 1, 2, 2, 3, 3, 4, 4}));
  EXPECT_EQ(picturesOf(folder, {"--fps", "5"}), (Numbers{0, 2, 4}));
  EXPECT_EQ(picturesOf(folder, {"--fps", "10000/1001", "--frames", "0-4"}), (Numbers{0, 1, 2, 3, 4}));
}

TEST(Timing, AShortClipHoldsItsLastPicture) {
  const PageFolder folder;
  makeCountingClip(folder, 3);
  EXPECT_EQ(picturesOf(folder, {"--duration", "0.6"}), (Numbers{0, 1, 2, 2, 2, 2}));
}

TEST(Timing, FramesAreCountedFromZeroWithBothEnds) {
  const PageFolder folder;
  makeCountingClip(folder, 8);
  EXPECT_EQ(picturesOf(folder, {"--frames", "2-4"}), (Numbers{2, 3, 4}));
  EXPECT_EQ(picturesOf(folder, {"--frames", "6"}), (Numbers{6}));
  EXPECT_EQ(picturesOf(folder, {"--frames", "7-9"}), (Numbers{7, 7, 7}));
  EXPECT_EQ(picturesOf(folder, {"--frames", "20-21"}), (Numbers{7, 7}));
}

TEST(Timing, ADurationIsRoundedToWholeFramesButNeverToNone) {
  const PageFolder folder;
  makeCountingClip(folder, 5);
  EXPECT_EQ(picturesOf(folder, {"--duration", "0.26"}).size(), 3u);
  EXPECT_EQ(picturesOf(folder, {"--duration", "0.001"}).size(), 1u);
}

TEST(Timing, RoundedTimesInTheContainerDoNotShiftPictures) {
  const PageFolder folder;
  makeMedia(folder,
            "-f lavfi -i color=black:size=64x36:rate=30000/1001,format=rgb24,geq=r=10*N:g=10*N:b=10*N -frames:v 20"
            " -c:v ffv1 -pix_fmt bgr0",
            "clip.mkv");
  Numbers all;
  for (int i = 0; i < 20; ++i) all.push_back(i);
  EXPECT_EQ(picturesOf(folder, {}), all);
}

TEST(Timing, AClipThatStartsLateStartsAtItsFirstPicture) {
  const PageFolder folder;
  makeCountingClip(folder, 5);
  makeMedia(folder, "-itsoffset 7 -i clip.mkv -c copy -copyts", "late.mkv");
  EXPECT_EQ(picturesOf(folder, {}, "late.mkv"), (Numbers{0, 1, 2, 3, 4}));
}

TEST(Timing, APngHoldsTheFirstWantedFrame) {
  const PageFolder folder;
  makeCountingClip(folder, 6);
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "clip.mkv", "--frames", "3-5", "-o", "out.png"}).errors, "");
  EXPECT_EQ(decode(folder, "out.png", "gray").front(), 30);
}

TEST(Timing, WhatStandsStillGivesFiveSecondsOf25Frames) {
  const PageFolder folder;
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--input", "#203040", "--size", "16x9", "-o", "-"});
  EXPECT_EQ(outcome.output.size(), 125u * 16 * 9 * 4);
  EXPECT_EQ(render(folder.path(), {"page.xml", "--size", "16x9", "-o", "-"}).output.size(), 125u * 16 * 9 * 4);

  makeMedia(folder, "-f lavfi -i color=0x3366CC:size=64x36 -frames:v 1 -pix_fmt rgb24", "picture.png");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "picture.png", "-o", "out.mp4"}).errors, "");
  EXPECT_EQ(probe(folder, "out.mp4", "nb_read_frames"), "125");
  EXPECT_EQ(probe(folder, "out.mp4", "r_frame_rate"), "25/1");
}

}  // namespace
