#include "graphics/model/Base64.h"
#include "graphics/model/Picture.h"
#include "graphics/model/PictureHeader.h"
#include "graphics/paint/native/ImageConversion.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/mstream.h>

#include <string>

namespace graphics {
namespace {

using CBytes = std::vector<unsigned char>;

// Two by two pixels: red and green above blue and white.

const char* const kInterlacedPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACCAIAAAGK06rlAAAAD0lEQVR42mP4zwAEEAIIACDuBftMUFWNAAAAAElFTkSuQmCC";
const char* const kSixteenBitPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACEAIAAACtREYwAAAAEklEQVR42mP4/58BDGA0kAEBAHWkC/WX9DahAAAAAElFTkSuQmCC";
/// The alphas of the palette: 255, 128, 0 and, not given, 255.
const char* const kTransparentPalettePng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACAgMAAAAP2OW3AAAADFBMVEX/AAAA/wAAAP/////7AGD2AAAAA3RSTlP/gAB/bWh4AAAA"
    "DElEQVR42mMQYNgAAADkAMEZVTv7AAAAAElFTkSuQmCC";
const char* const kAlphaPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACCAYAAABytg0kAAAAFElEQVR42mP4z8DwHwgbGMA0EAAAP9cIeV/HbbEAAAAASUVORK5C"
    "YII=";
/// Black, white, white, black.
const char* const kOneBitPng =
    "iVBORw0KGgoAAAANSUhEUgAAAAIAAAACAQAAAABazTCJAAAADElEQVR42mNwYGgAAAFEAMEEh8/6AAAAAElFTkSuQmCC";

/// Eight by eight pixels of red, kept as inverted CMYK.
const char* const kCmykJpeg =
    "/9j/7gAOQWRvYmUAZAAAAAAA/9sAQwADAgIDAgIDAwMDBAMDBAUIBQUEBAUKBwcGCAwKDAwLCgsLDQ4SEA0OEQ4LCxAWEBETFBUV"
    "FQwPFxgWFBgSFBUU/8AAFAgACAAIBEMRAE0RAFkRAEsRAP/EAB8AAAEFAQEBAQEBAAAAAAAAAAABAgMEBQYHCAkKC//EALUQAAIB"
    "AwMCBAMFBQQEAAABfQECAwAEEQUSITFBBhNRYQcicRQygZGhCCNCscEVUtHwJDNicoIJChYXGBkaJSYnKCkqNDU2Nzg5OkNERUZH"
    "SElKU1RVVldYWVpjZGVmZ2hpanN0dXZ3eHl6g4SFhoeIiYqSk5SVlpeYmZqio6Slpqeoqaqys7S1tre4ubrCw8TFxsfIycrS09TV"
    "1tfY2drh4uPk5ebn6Onq8fLz9PX29/j5+v/aAA4EQwBNAFkASwAAPwD9U6/Kqvyqr9U6/9k=";

void Append(CBytes& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<unsigned char>(value >> 8 * i));
}

/// A file of a header and whatever follows it.
CBytes BmpOf(std::int32_t width, std::int32_t height, int bits, std::uint32_t compression, const CBytes& colours,
             const CBytes& pixels) {
  CBytes bytes{'B', 'M'};
  const auto offset = static_cast<std::uint32_t>(54 + colours.size());
  Append(bytes, offset + static_cast<std::uint32_t>(pixels.size()), 4);
  Append(bytes, 0, 4);
  Append(bytes, offset, 4);
  Append(bytes, 40, 4);
  Append(bytes, static_cast<std::uint32_t>(width), 4);
  Append(bytes, static_cast<std::uint32_t>(height), 4);
  Append(bytes, 1, 2);
  Append(bytes, static_cast<std::uint32_t>(bits), 2);
  Append(bytes, compression, 4);
  Append(bytes, static_cast<std::uint32_t>(pixels.size()), 4);
  Append(bytes, 0, 4);
  Append(bytes, 0, 4);
  Append(bytes, static_cast<std::uint32_t>(colours.size() / 4), 4);
  Append(bytes, 0, 4);
  bytes.insert(bytes.end(), colours.begin(), colours.end());
  bytes.insert(bytes.end(), pixels.begin(), pixels.end());
  return bytes;
}

/// Sound frames of one pixel: red, then blue.
CBytes AnimatedGif() {
  CBytes bytes{'G', 'I', 'F', '8', '9', 'a', 1, 0, 1, 0, 0x80, 0, 0, 255, 0, 0, 0, 0, 255};
  for (const unsigned char code : CBytes{0x44, 0x4C}) {
    const CBytes frame{0x21, 0xF9, 4, 0, 5, 0, 0, 0, 0x2C, 0, 0, 0, 0, 1, 0, 1, 0, 0, 2, 2, code, 1, 0};
    bytes.insert(bytes.end(), frame.begin(), frame.end());
  }
  bytes.push_back(0x3B);
  return bytes;
}

/// Red, in 24 bits, with a mask of whole rows below it that hides every second pixel.
CBytes MaskedIcon() {
  CBytes bytes{0, 0, 1, 0, 1, 0, 2, 2, 0, 0, 1, 0, 24, 0};
  Append(bytes, 40 + 16 + 8, 4);
  Append(bytes, 22, 4);
  CBytes picture = BmpOf(2, 4, 24, 0, {}, {0, 0, 255, 0, 0, 255, 0, 0, 0, 0, 255, 0, 0, 255, 0, 0});
  bytes.insert(bytes.end(), picture.begin() + 14, picture.end());
  for (int row = 0; row < 2; ++row) Append(bytes, 0x40, 4);
  return bytes;
}

std::string Describe(const wxImage& image) {
  if (!image.IsOk()) return "none";
  std::string text;
  for (int y = 0; y < image.GetHeight(); ++y) {
    for (int x = 0; x < image.GetWidth(); ++x) {
      text += wxString::Format("%s%02x%02x%02x", x > 0 ? " " : "", image.GetRed(x, y), image.GetGreen(x, y),
                               image.GetBlue(x, y))
                  .utf8_string();
      if (image.HasAlpha()) text += wxString::Format("/%02x", image.GetAlpha(x, y)).utf8_string();
    }
    text += ';';
  }
  return text;
}

class PictureFormats : public testing::Test {
protected:
  PictureFormats() { StartForTests(); }

  static CBytes Saved(const wxImage& image, wxBitmapType type) {
    wxMemoryOutputStream stream;
    image.SaveFile(stream, type);
    const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
    return {start, start + stream.GetLength()};
  }
  static std::string Loaded(const CBytes& bytes, wxBitmapType type = wxBITMAP_TYPE_ANY) {
    return Describe(LoadPicture(bytes, type));
  }
  static std::string Loaded(const char* base64) { return Loaded(DecodeBase64(base64)); }
};

const char* const kFourColours = "ff0000 00ff00;0000ff ffffff;";

TEST_F(PictureFormats, ReadPngsOfEveryCoding) {
  EXPECT_EQ(Loaded(kInterlacedPng), kFourColours);
  EXPECT_EQ(Loaded(kSixteenBitPng), kFourColours);
  EXPECT_EQ(Loaded(kTransparentPalettePng), "ff0000/ff 00ff00/80;0000ff/00 ffffff/ff;");
  EXPECT_EQ(Loaded(kAlphaPng), "ff0000/ff 00ff00/80;0000ff/00 ffffff/ff;");
  EXPECT_EQ(Loaded(kOneBitPng), "000000 ffffff;ffffff 000000;");
}

TEST_F(PictureFormats, ReadJpegsOfPrintersColours) {
  const wxImage image = LoadPicture(DecodeBase64(kCmykJpeg), wxBITMAP_TYPE_JPEG);
  ASSERT_TRUE(image.IsOk());
  EXPECT_GT(image.GetRed(4, 4), 230);
  EXPECT_LT(image.GetGreen(4, 4), 25);
  EXPECT_LT(image.GetBlue(4, 4), 25);
}

TEST_F(PictureFormats, ReadBmpsOfEveryCoding) {
  const CBytes blackAndWhite{0, 0, 0, 0, 255, 255, 255, 0};
  EXPECT_EQ(Loaded(BmpOf(2, 2, 1, 0, blackAndWhite, {0x40, 0, 0, 0, 0x80, 0, 0, 0})), "ffffff 000000;000000 ffffff;");
  const CBytes rows{0, 0, 255, 0, 255, 0, 0, 0, 255, 0, 0, 255, 255, 255, 0, 0};
  EXPECT_EQ(Loaded(BmpOf(2, -2, 24, 0, {}, rows)), kFourColours);
  EXPECT_EQ(Loaded(BmpOf(2, 2, 24, 0, {}, rows)), "0000ff ffffff;ff0000 00ff00;");
}

TEST_F(PictureFormats, ReadIconsWithTheirMask) {
  const wxImage image = LoadPicture(MaskedIcon(), wxBITMAP_TYPE_ICO);
  ASSERT_TRUE(image.IsOk());
  EXPECT_EQ(Describe(ImageOf(BitmapOf(image))).substr(0, 9), "ff0000/ff");
  EXPECT_EQ(ImageOf(BitmapOf(image)).GetAlpha(1, 0), 0);
}

TEST_F(PictureFormats, ReadIconsThatHoldAPng) {
  const CBytes png = DecodeBase64(kAlphaPng);
  CBytes icon{0, 0, 1, 0, 1, 0, 2, 2, 0, 0, 1, 0, 32, 0};
  Append(icon, static_cast<std::uint32_t>(png.size()), 4);
  Append(icon, 22, 4);
  icon.insert(icon.end(), png.begin(), png.end());
  EXPECT_EQ(Loaded(icon, wxBITMAP_TYPE_ICO), "ff0000/ff 00ff00/80;0000ff/00 ffffff/ff;");
}

TEST_F(PictureFormats, ReadTiffs) {
  EXPECT_EQ(Loaded(Saved(LoadPicture(DecodeBase64(kInterlacedPng), wxBITMAP_TYPE_ANY), wxBITMAP_TYPE_TIFF)),
            kFourColours);
}

TEST_F(PictureFormats, RefuseTheTypesThatCannotBeReadSafely) {
  EXPECT_EQ(Loaded(AnimatedGif()), "none");
  EXPECT_EQ(Loaded(AnimatedGif(), wxBITMAP_TYPE_GIF), "none");
  const CBytes redAndBlue{0, 0, 255, 0, 255, 0, 0, 0};
  const CBytes runs{4, 1, 0, 0, 3, 0, 1, 1, 0, 0, 0, 1};
  EXPECT_EQ(Loaded(BmpOf(4, 2, 8, 1, redAndBlue, runs)), "none");
  EXPECT_EQ(Loaded(BmpOf(4, 2, 4, 2, redAndBlue, runs)), "none");
  wxImage image(2, 2);
  for (const wxBitmapType type : {wxBITMAP_TYPE_PCX, wxBITMAP_TYPE_PNM, wxBITMAP_TYPE_TGA, wxBITMAP_TYPE_XPM}) {
    const CBytes bytes = Saved(image, type);
    ASSERT_FALSE(bytes.empty()) << type;
    EXPECT_EQ(Loaded(bytes), "none") << type;
    EXPECT_EQ(Loaded(bytes, type), "none") << type;
  }
}

TEST_F(PictureFormats, TakeNoOtherTypeThanTheOneAskedFor) {
  const CBytes png = DecodeBase64(kAlphaPng);
  for (const wxBitmapType type : {wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_ICO, wxBITMAP_TYPE_GIF})
    EXPECT_EQ(Loaded(png, type), "none");
}

TEST_F(PictureFormats, AreMissingWhereTheirHeaderClaimsTooMuch) {
  EXPECT_EQ(Loaded(BmpOf(100'000, 100'000, 1, 0, {}, CBytes(100))), "none");
  EXPECT_EQ(Loaded(BmpOf(2'000'000'000, -2'000'000'000, 8, 1, {}, CBytes(100))), "none");
  EXPECT_EQ(Loaded(BmpOf(40'000, 2, 1, 0, {}, CBytes(20'000))), "none") << "wider than a bitmap can be";
  CBytes icon = MaskedIcon();
  for (std::size_t i = 26; i < 34; ++i) icon[i] = i % 4 == 1 ? 0x7F : 0xFF;
  EXPECT_EQ(Loaded(icon), "none");
  CBytes tiff{'I', 'I', '*', 0, 8, 0, 0, 0, 2, 0};
  for (const std::uint32_t tag : {256U, 257U}) {
    Append(tiff, tag, 2);
    Append(tiff, 4, 2);
    Append(tiff, 1, 4);
    Append(tiff, 100'000, 4);
  }
  Append(tiff, 0, 4);
  EXPECT_EQ(FindPictureHeader(tiff)->width, 100'000);
  EXPECT_EQ(Loaded(tiff), "none");
}

TEST_F(PictureFormats, AreMissingWhereTheirBytesEndEarly) {
  const wxImage image = LoadPicture(DecodeBase64(kInterlacedPng), wxBITMAP_TYPE_ANY);
  for (const CBytes& whole : {DecodeBase64(kInterlacedPng), Saved(image, wxBITMAP_TYPE_BMP), MaskedIcon()}) {
    for (std::size_t n = 0; n + 16 < whole.size(); ++n) {
      const wxImage cut = LoadPicture({whole.data(), n}, wxBITMAP_TYPE_ANY);
      EXPECT_TRUE(!cut.IsOk() || cut.GetWidth() == 2) << n;
    }
    EXPECT_EQ(Loaded(CBytes(whole.begin(), whole.begin() + 20)), "none");
  }
  for (const CBytes& whole : {Saved(image, wxBITMAP_TYPE_JPEG), Saved(image, wxBITMAP_TYPE_TIFF)}) {
    for (std::size_t n = 0; n < whole.size(); ++n) LoadPicture({whole.data(), n}, wxBITMAP_TYPE_ANY);
    EXPECT_EQ(Loaded(CBytes(whole.begin(), whole.begin() + 12)), "none");
  }
}

TEST_F(PictureFormats, OfOneStoreAreBoundedTogether) {
  // Black, 8192 pixels wide and high, in one bit each: the largest picture that there may be.
  const CBytes pixels(1024U * 8192U, 0);
  const CBytes largest = BmpOf(8192, 8192, 1, 0, {0, 0, 0, 0, 255, 255, 255, 0}, pixels);
  CPictureReader reader;
  int read = 0;
  while (read < 20 && reader.Read(largest, wxBITMAP_TYPE_BMP)) ++read;
  EXPECT_EQ(read, kMaxStorePixels / kMaxPicturePixels);
  EXPECT_FALSE(reader.Read(DecodeBase64(kAlphaPng), wxBITMAP_TYPE_PNG));
}

}  // namespace
}  // namespace graphics
