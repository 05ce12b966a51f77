#include "graphics/model/Picture.h"
#include "graphics/model/PictureHeader.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/filename.h>
#include <wx/mstream.h>

namespace graphics {
namespace {

using CBytes = std::vector<unsigned char>;

class Picture : public testing::Test {
protected:
  Picture() { StartForTests(); }

  static CBytes Save(const wxImage& image, wxBitmapType type) {
    wxMemoryOutputStream stream;
    image.SaveFile(stream, type);
    const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
    return {start, start + stream.GetLength()};
  }
  static CBytes PngOf(std::uint32_t width, std::uint32_t height) {
    CBytes bytes = Save(wxImage(2, 2), wxBITMAP_TYPE_PNG);
    for (std::size_t i = 0; i < 4; ++i) {
      bytes[16 + i] = static_cast<unsigned char>(width >> (24 - 8 * i));
      bytes[20 + i] = static_cast<unsigned char>(height >> (24 - 8 * i));
    }
    return bytes;
  }
};

TEST_F(Picture, HasTheTypeAndSizeThatItsHeaderClaims) {
  for (const wxBitmapType type : {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_TIFF}) {
    const auto header = FindPictureHeader(Save(wxImage(300, 20), type));
    ASSERT_TRUE(header.has_value()) << type;
    EXPECT_EQ(header->type, type);
    EXPECT_EQ(header->width, 300);
    EXPECT_EQ(header->height, 20);
  }
}

TEST_F(Picture, HasASizeOfTopDownBitmapsToo) {
  CBytes bytes = Save(wxImage(300, 20), wxBITMAP_TYPE_BMP);
  for (std::size_t i = 0; i < 4; ++i) bytes[22 + i] = i == 0 ? 0xEC : 0xFF;
  EXPECT_EQ(FindPictureHeader(bytes)->height, 20);
}

TEST_F(Picture, HasNoSizeWhereItsHeaderIsCutShort) {
  for (const wxBitmapType type : {wxBITMAP_TYPE_PNG, wxBITMAP_TYPE_JPEG, wxBITMAP_TYPE_BMP, wxBITMAP_TYPE_TIFF}) {
    const CBytes whole = Save(wxImage(300, 20), type);
    for (std::size_t n = 0; n < 20; ++n)
      EXPECT_FALSE(FindPictureHeader({whole.data(), n}).has_value()) << "type " << type << ", " << n << " bytes";
  }
  EXPECT_FALSE(FindPictureHeader(CBytes(100, 'x')).has_value());
}

TEST_F(Picture, ThatIsDamagedWritesNothingToStandardError) {
  CBytes bytes = Save(wxImage(300, 20), wxBITMAP_TYPE_JPEG);
  bytes.resize(bytes.size() - 20);
  testing::internal::CaptureStderr();
  LoadPicture(bytes, wxBITMAP_TYPE_JPEG);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(Picture, IsNotDecodedIfItClaimsMorePixelsThanAllowed) {
  EXPECT_FALSE(LoadPicture(PngOf(100'000, 100'000), wxBITMAP_TYPE_PNG).IsOk());
  EXPECT_FALSE(LoadPicture(PngOf(0xFFFFFFFF, 0xFFFFFFFF), wxBITMAP_TYPE_PNG).IsOk());
  CBytes bmp = Save(wxImage(2, 2), wxBITMAP_TYPE_BMP);
  for (std::size_t i = 0; i < 4; ++i) bmp[18 + i] = bmp[22 + i] = i == 3 ? 0x7F : 0xFF;
  EXPECT_FALSE(LoadPicture(bmp, wxBITMAP_TYPE_BMP).IsOk());
}

TEST_F(Picture, IsDecodedOtherwise) {
  const wxImage image = LoadPicture(Save(wxImage(300, 20), wxBITMAP_TYPE_PNG), wxBITMAP_TYPE_ANY);
  ASSERT_TRUE(image.IsOk());
  EXPECT_EQ(image.GetSize(), wxSize(300, 20));
  EXPECT_FALSE(LoadPicture({}, wxBITMAP_TYPE_ANY).IsOk());
}

TEST_F(Picture, OfAFileThatIsGoneIsNotOk) {
  EXPECT_FALSE(LoadPictureFile(wxFileName("/nowhere/picture.png")).IsOk());
  EXPECT_FALSE(LoadPictureFile(wxFileName::DirName("/tmp")).IsOk());
}

TEST_F(Picture, HasATypeByItsExtension) {
  EXPECT_EQ(PictureTypeOf("PNG"), wxBITMAP_TYPE_PNG);
  EXPECT_EQ(PictureTypeOf("bmp"), wxBITMAP_TYPE_BMP);
  EXPECT_EQ(PictureTypeOf("jpg"), wxBITMAP_TYPE_JPEG);
  EXPECT_EQ(PictureTypeOf("ico"), wxBITMAP_TYPE_ICO);
  EXPECT_EQ(PictureTypeOf("jpeg"), wxBITMAP_TYPE_INVALID);
  EXPECT_EQ(PictureTypeOf(""), wxBITMAP_TYPE_INVALID);
}

TEST(ReadBytes, StopsAtTheLimitOrAtTheEnd) {
  const CBytes content(200'000, 5);
  for (const std::size_t limit : {std::size_t{0}, std::size_t{10}, std::size_t{65536}, std::size_t{199'999}}) {
    wxMemoryInputStream stream(content.data(), content.size());
    EXPECT_EQ(ReadBytes(stream, limit).size(), limit);
  }
  wxMemoryInputStream stream(content.data(), content.size());
  EXPECT_EQ(ReadBytes(stream, kMaxResourceBytes), content);
}

}  // namespace
}  // namespace graphics
