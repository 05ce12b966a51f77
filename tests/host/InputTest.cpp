#include "tests/host/Media.h"

#include <gtest/gtest.h>

namespace {

using test::decode;
using test::largestDifference;
using test::makeMedia;
using test::PageFolder;
using test::render;
using test::repeat;

std::string bytes(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += static_cast<char>(value);
  return text;
}

TEST(Input, AColourUnderAnEmptyPageComesOutByteForByte) {
  const PageFolder folder;
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "#102a3F", "--size", "33x19", "--frames", "0-2", "-o", "-"});
  EXPECT_EQ(outcome.exitCode, 0);
  EXPECT_EQ(outcome.output, repeat(bytes({0x3F, 0x2A, 0x10, 0xFF}), 33 * 19 * 3));
}

TEST(Input, AColourWithAlphaIsPremultiplied) {
  const PageFolder folder;
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "#ff400080", "--size", "16x9", "--frames", "0-0", "-o", "-"});
  EXPECT_EQ(outcome.output, repeat(bytes({0, 0x20, 0x80, 0x80}), 16 * 9));
}

TEST(Input, WithoutAnyThePageLiesOnBlack) {
  const PageFolder folder;
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--size", "16x9", "--frames", "0-0", "-o", "-"});
  EXPECT_EQ(outcome.output, repeat(bytes({0, 0, 0, 255}), 16 * 9));
}

TEST(Input, APictureWithoutAlphaComesOutAsItIs) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i testsrc2=size=64x36 -frames:v 1 -pix_fmt rgb24", "picture.png");
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "picture.png", "--frames", "0-1", "-o", "-"});
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output, repeat(decode(folder, "picture.png", "bgra"), 2));
}

TEST(Input, APictureWithAlphaIsPremultiplied) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i color=0xFF8020:size=64x36,format=rgba,colorchannelmixer=aa=0.5 -frames:v 1",
            "picture.png");
  const std::string straight = decode(folder, "picture.png", "bgra").substr(0, 4);
  const auto alpha = static_cast<unsigned char>(straight[3]);
  ASSERT_NEAR(alpha, 128, 1);
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "picture.png", "--frames", "0-0", "-o", "-"});
  const auto scaled = [&](std::size_t i) { return (static_cast<unsigned char>(straight[i]) * alpha + 127) / 255; };
  EXPECT_EQ(outcome.output, repeat(bytes({scaled(0), scaled(1), scaled(2), alpha}), 64 * 36));
}

TEST(Input, WhatIsTransparentDoesNotBleedWhenAPictureIsScaled) {
  const PageFolder folder;
  makeMedia(folder,
            "-f lavfi -i color=0x00FF00:size=64x36,format=rgba,geq=r=0:g=\"if(lt(X\\,32)\\,255\\,0)\":"
            "b=\"if(lt(X\\,32)\\,0\\,255)\":a=\"if(lt(X\\,32)\\,0\\,255)\" -frames:v 1",
            "picture.png");
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "picture.png", "--size", "160x90", "--frames", "0-0", "-o", "-"});
  ASSERT_EQ(outcome.output.size(), 160u * 90 * 4);
  for (std::size_t i = 0; i < outcome.output.size(); i += 4) {
    const auto green = static_cast<unsigned char>(outcome.output[i + 1]);
    const auto blue = static_cast<unsigned char>(outcome.output[i]);
    const auto alpha = static_cast<unsigned char>(outcome.output[i + 3]);
    ASSERT_LE(green, 2) << "at byte " << i;
    ASSERT_LE(blue, alpha);
  }
}

TEST(Input, PicturesAreScaledToTheWantedSize) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i color=0x3366CC:size=64x36 -frames:v 1 -pix_fmt rgb24", "picture.png");
  const test::Outcome outcome =
      render(folder.path(), {"page.xml", "--input", "picture.png", "--size", "31x17", "--frames", "0-0", "-o", "-"});
  EXPECT_LE(largestDifference(outcome.output, repeat(decode(folder, "picture.png", "bgra").substr(0, 4), 31 * 17)), 1);
}

TEST(Input, ClipsKeepTheirColours) {
  for (const std::string size : {"320x180", "1280x720"}) {
    const PageFolder folder;
    makeMedia(folder,
              "-f lavfi -i color=0xC04020:size=" + size + ":duration=0.08 -vf scale=out_color_matrix=" +
                  (size == "320x180" ? "bt601" : "bt709") + ",format=yuv420p -c:v libx264 -qp 1",
              "clip.mp4");
    const test::Outcome outcome =
        render(folder.path(), {"page.xml", "--input", "clip.mp4", "--frames", "0-0", "-o", "-"});
    EXPECT_LE(largestDifference(outcome.output.substr(0, 4), bytes({0x20, 0x40, 0xC0, 0xFF})), 3) << size;
  }
}

void expectInputError(const PageFolder& folder, const std::string& input, const std::string& line) {
  const std::size_t before = folder.count();
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--input", input, "-o", "out.mp4"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_EQ(outcome.errors, line + "\n");
  EXPECT_EQ(folder.count(), before);
}

TEST(Input, AMissingFileIsNamed) {
  expectInputError(PageFolder(), "gone.mp4", "gone.mp4: No such file or directory");
}

TEST(Input, AFileWithoutVideoIsNamed) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i sine=duration=0.2", "tone.wav");
  expectInputError(folder, "tone.wav", "tone.wav: no video stream");
}

TEST(Input, AFileThatIsNeitherClipNorPictureIsNamed) {
  const PageFolder folder;
  folder.write("noise.mp4", repeat("nothing of use ", 1000));
  expectInputError(folder, "noise.mp4", "noise.mp4: Invalid data found when processing input");
  folder.write("empty.mp4", "");
  expectInputError(folder, "empty.mp4", "empty.mp4: Invalid data found when processing input");
}

TEST(Input, AClipWithoutAnyPictureIsNamed) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i testsrc2=size=64x36 -frames:v 1", "picture.png");
  folder.write("cut.png", folder.read("picture.png").substr(0, 60));
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--input", "cut.png", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_TRUE(outcome.errors.starts_with("cut.png: ")) << outcome.errors;
}

TEST(Input, NamesAreNeverTakenForAddresses) {
  const PageFolder folder;
  makeMedia(folder, "-f lavfi -i color=0x3366CC:size=64x36 -frames:v 1 -pix_fmt rgb24", "./data:picture.png");
  EXPECT_EQ(render(folder.path(), {"page.xml", "--input", "data:picture.png", "-o", "out.png"}).errors, "");
  expectInputError(folder, "http://localhost:1/clip.mp4", "http://localhost:1/clip.mp4: No such file or directory");
}

TEST(Input, APlaylistCannotLeadToTheNetwork) {
  const PageFolder folder;
  folder.write("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\nhttp://localhost:1/x.ts\n#EXT-X-ENDLIST\n");
  const test::Outcome outcome = render(folder.path(), {"page.xml", "--input", "list.m3u8", "-o", "out.png"});
  EXPECT_EQ(outcome.exitCode, 1);
  EXPECT_TRUE(outcome.errors.starts_with("list.m3u8: ")) << outcome.errors;
}

}  // namespace
