#include "graphics/model/Base64.h"

#include <gtest/gtest.h>

#include <numeric>

namespace graphics {
namespace {

using CBytes = std::vector<unsigned char>;

CBytes BytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

TEST(Base64, EncodesWithoutPadding) {
  EXPECT_EQ(EncodeBase64(BytesOf("")), "");
  EXPECT_EQ(EncodeBase64(BytesOf("f")), "Zg");
  EXPECT_EQ(EncodeBase64(BytesOf("fo")), "Zm8");
  EXPECT_EQ(EncodeBase64(BytesOf("foo")), "Zm9v");
  EXPECT_EQ(EncodeBase64(BytesOf("foobar")), "Zm9vYmFy");
  EXPECT_EQ(EncodeBase64(CBytes{0xFB, 0xFF}), "+/8");
}

TEST(Base64, GivesEightBitsASixthOfACharacterEach) {
  for (std::size_t n = 0; n < 20; ++n) EXPECT_EQ(EncodeBase64(CBytes(n, 0xA5)).size(), (8 * n + 5) / 6);
}

TEST(Base64, ComesBackAsItWasEncoded) {
  CBytes bytes(1000);
  std::iota(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  for (std::size_t n = 0; n < bytes.size(); ++n) {
    const CBytes start(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(n));
    EXPECT_EQ(DecodeBase64(EncodeBase64(start)), start) << n;
  }
}

TEST(Base64, FillsTheBytesOfATailBitByBit) {
  EXPECT_EQ(DecodeBase64("Z"), BytesOf(""));
  EXPECT_EQ(DecodeBase64("Zg"), BytesOf("f"));
  EXPECT_EQ(DecodeBase64("Zm8"), BytesOf("fo"));
  EXPECT_EQ(DecodeBase64("Zm9vY"), BytesOf("foo"));
}

TEST(Base64, CountsPaddingAsOutput) {
  EXPECT_EQ(DecodeBase64("Zm8=").size(), 3U);
  EXPECT_EQ(DecodeBase64("Zg==").size(), 3U);
  const CBytes padded = DecodeBase64("Zg==");
  EXPECT_EQ(padded, (CBytes{'f', 0x20, 0x80}));
}

TEST(Base64, IsNotStoppedByForeignCharacters) {
  EXPECT_EQ(DecodeBase64("Zm9v\nYmFy").size(), 6U);
  EXPECT_EQ(DecodeBase64("Zm9v!!!!YmFy").size(), 9U);
  EXPECT_EQ(DecodeBase64("!!!!"), (CBytes{0x08, 0x20, 0x80}));
  EXPECT_EQ(DecodeBase64("\xFF\x80\x7F\x01"), (CBytes{0x08, 0x20, 0x80}));
}

TEST(Base64, DropsWhiteSpaceAtTheEndOnly) {
  EXPECT_EQ(DecodeBase64("Zm9v \t\r\n"), BytesOf("foo"));
  EXPECT_NE(DecodeBase64(" Zm9v"), BytesOf("foo"));
  EXPECT_EQ(DecodeBase64(" \n"), BytesOf(""));
}

TEST(Base64, DecodesTextOfTheToolkit) {
  EXPECT_EQ(DecodeBase64Text("Zm9v "), BytesOf("foo"));
  EXPECT_EQ(DecodeBase64Text(""), BytesOf(""));
}

}  // namespace
}  // namespace graphics
