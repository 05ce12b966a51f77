#include "graphics/model/Base64.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/filename.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>

namespace graphics {
namespace {

wxImage MakeImage(int width, int height) {
  wxImage image(width, height);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      image.SetRGB(x, y, static_cast<unsigned char>(x * 10), static_cast<unsigned char>(y * 10), 77);
  return image;
}

std::string EncodeImage(const wxImage& image, wxBitmapType type) {
  wxMemoryOutputStream stream;
  image.SaveFile(stream, type);
  const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  return EncodeBase64({start, static_cast<std::size_t>(stream.GetLength())});
}

class Base64Store : public testing::Test {
protected:
  Base64Store() { StartForTests(); }

  /// The node with a child "picture" of that extension and text.
  static std::unique_ptr<wxXmlDocument> PictureNode(const wxString& extension, const wxString& text) {
    return ParseXml("<image><picture extension='" + extension + "'><![CDATA[" + text + "]]></picture></image>");
  }

  wxFileName Save(const wxImage& image) {
    const wxFileName file(wxFileName::CreateTempFileName("mfilter"));
    image.SaveFile(file.GetFullPath(), wxBITMAP_TYPE_PNG);
    files_.push_back(file);
    return file;
  }
  void TearDown() override {
    for (const wxFileName& file : files_) wxRemoveFile(file.GetFullPath());
  }

  CBase64Resources store_;
  wxXmlNode node_{wxXML_ELEMENT_NODE, "image"};
  wxFileName noFile_;

private:
  std::vector<wxFileName> files_;
};

TEST_F(Base64Store, IsNeitherExternalNorHasToBeFinished) {
  EXPECT_FALSE(store_.IsExternal());
  store_.Finish();
}

TEST_F(Base64Store, KeepsABufferInACDataSection) {
  orlo::CMemoryBlock block(3);
  block.assign("foo", 3);
  store_.WriteBuffer(node_, "data", block);
  EXPECT_EQ(ToText(node_), "<image><data><![CDATA[Zm9v]]></data></image>");
  const auto read = store_.ReadBuffer(node_, "DATA");
  ASSERT_TRUE(read);
  EXPECT_EQ(std::string(reinterpret_cast<const char*>(read->getData()), read->getSize()), "foo");
}

TEST_F(Base64Store, GivesNullForAChildThatIsMissingOrEmpty) {
  const auto empty = ParseXml("<image><picture extension='png'/><data>  \n</data><text></text></image>");
  EXPECT_FALSE(store_.ReadBuffer(*empty->GetRoot(), "data"));
  EXPECT_FALSE(store_.ReadBuffer(*empty->GetRoot(), "none"));
  EXPECT_EQ(store_.ReadBitmap(*empty->GetRoot(), "picture", noFile_), nullptr);
  EXPECT_EQ(store_.ReadBitmap(*empty->GetRoot(), "none", noFile_), nullptr);
  EXPECT_EQ(store_.ReadBitmapOfType(*empty->GetRoot(), "picture", wxBITMAP_TYPE_PNG, noFile_), nullptr);
  EXPECT_EQ(store_.ReadRichText(*empty->GetRoot(), "text"), nullptr);
  EXPECT_EQ(store_.ReadRichText(*empty->GetRoot(), "none"), nullptr);
}

TEST_F(Base64Store, WritesAPlainPhotoAsJpeg) {
  store_.WriteBitmap(node_, "picture", wxBitmap(MakeImage(8, 6)), noFile_);
  EXPECT_EQ(xml::FindChild(node_, "picture")->GetAttribute("extension"), "jpg");
  const auto bitmap = store_.ReadBitmap(node_, "picture", noFile_);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->GetSize(), wxSize(8, 6));
}

TEST_F(Base64Store, WritesAnImageWithAlphaAsPng) {
  wxImage image = MakeImage(8, 6);
  image.InitAlpha();
  image.SetAlpha(3, 2, 128);
  store_.WriteBitmap(node_, "picture", wxBitmap(image), noFile_);
  EXPECT_EQ(xml::FindChild(node_, "picture")->GetAttribute("extension"), "png");
  const auto bitmap = store_.ReadBitmap(node_, "picture", noFile_);
  ASSERT_NE(bitmap, nullptr);
  const wxImage read = bitmap->ConvertToImage();
  EXPECT_EQ(read.GetAlpha(3, 2), 128);
  EXPECT_EQ(read.GetAlpha(4, 2), 255);
  EXPECT_EQ(read.GetRed(4, 2), 40);
}

TEST_F(Base64Store, WritesAnImageWithAMaskAsPng) {
  wxImage image = MakeImage(8, 6);
  image.SetMaskColour(10, 20, 77);
  store_.WriteBitmap(node_, "picture", wxBitmap(image), noFile_);
  EXPECT_EQ(xml::FindChild(node_, "picture")->GetAttribute("extension"), "png");
}

TEST_F(Base64Store, WritesNothingForABitmapWithoutPixels) {
  store_.WriteBitmap(node_, "picture", wxBitmap(), noFile_);
  EXPECT_EQ(node_.GetChildren(), nullptr);
}

TEST_F(Base64Store, TellsTheTypeOfABitmapByItsExtensionWithoutRegardToCase) {
  const wxImage image = MakeImage(4, 4);
  for (const auto& [extension, type] : {std::pair("PNG", wxBITMAP_TYPE_PNG), std::pair("Bmp", wxBITMAP_TYPE_BMP),
                                        std::pair("jPg", wxBITMAP_TYPE_JPEG)}) {
    const auto document = PictureNode(extension, EncodeImage(image, type));
    EXPECT_NE(store_.ReadBitmap(*document->GetRoot(), "picture", noFile_), nullptr) << extension;
  }
  for (const char* extension : {"", "gif", "ico", "jpeg"}) {
    const auto document = PictureNode(extension, EncodeImage(image, wxBITMAP_TYPE_PNG));
    EXPECT_EQ(store_.ReadBitmap(*document->GetRoot(), "picture", noFile_), nullptr) << extension;
  }
}

TEST_F(Base64Store, ReadsABitmapOfAGivenTypeWhateverItsExtension) {
  const auto document = PictureNode("", EncodeImage(MakeImage(4, 4), wxBITMAP_TYPE_PNG));
  EXPECT_NE(store_.ReadBitmapOfType(*document->GetRoot(), "picture", wxBITMAP_TYPE_PNG, noFile_), nullptr);
  EXPECT_NE(store_.ReadBitmapOfType(*document->GetRoot(), "picture", wxBITMAP_TYPE_ANY, noFile_), nullptr);
  EXPECT_EQ(store_.ReadBitmapOfType(*document->GetRoot(), "picture", wxBITMAP_TYPE_BMP, noFile_), nullptr);
}

TEST_F(Base64Store, GivesNullForADamagedPicture) {
  std::string text = EncodeImage(MakeImage(40, 40), wxBITMAP_TYPE_PNG);
  const auto cut = PictureNode("png", text.substr(0, 50));
  EXPECT_EQ(store_.ReadBitmap(*cut->GetRoot(), "picture", noFile_), nullptr);
  const auto noise = PictureNode("png", "this is no picture at all");
  EXPECT_EQ(store_.ReadBitmap(*noise->GetRoot(), "picture", noFile_), nullptr);
}

TEST_F(Base64Store, ClearsAFileNameThatItDoesNotUse) {
  const auto document = PictureNode("png", EncodeImage(MakeImage(4, 4), wxBITMAP_TYPE_PNG));
  wxFileName file("/nowhere/picture.png");
  EXPECT_NE(store_.ReadBitmap(*document->GetRoot(), "picture", file), nullptr);
  EXPECT_FALSE(file.IsOk());
}

TEST_F(Base64Store, TakesABitmapFromItsFileIfItUsesFiles) {
  store_.SetUseFiles(true);
  wxFileName file = Save(MakeImage(9, 5));
  const auto document = PictureNode("png", EncodeImage(MakeImage(4, 4), wxBITMAP_TYPE_PNG));
  const auto bitmap = store_.ReadBitmap(*document->GetRoot(), "picture", file);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_EQ(bitmap->GetSize(), wxSize(9, 5));
  EXPECT_TRUE(file.IsOk());
  EXPECT_EQ(store_.ReadBitmapOfType(node_, "none", wxBITMAP_TYPE_JPEG, file)->GetSize(), wxSize(9, 5));
}

TEST_F(Base64Store, DoesNotFallBackToItsTextWhereTheFileIsGone) {
  store_.SetUseFiles(true);
  wxFileName file("/nowhere/picture.png");
  const auto document = PictureNode("png", EncodeImage(MakeImage(4, 4), wxBITMAP_TYPE_PNG));
  EXPECT_EQ(store_.ReadBitmap(*document->GetRoot(), "picture", file), nullptr);
  EXPECT_EQ(store_.ReadBitmapOfType(*document->GetRoot(), "picture", wxBITMAP_TYPE_PNG, file), nullptr);
}

TEST_F(Base64Store, DoesNotOpenWhatIsNoPlainFile) {
  store_.SetUseFiles(true);
  wxFileName device("/dev/zero");
  EXPECT_EQ(store_.ReadBitmap(node_, "picture", device), nullptr);
}

TEST_F(Base64Store, LeavesABitmapInItsFileIfItUsesFiles) {
  const wxFileName file = Save(MakeImage(9, 5));
  store_.WriteBitmap(node_, "written", wxBitmap(MakeImage(2, 2)), file);
  EXPECT_NE(xml::FindChild(node_, "written"), nullptr);
  store_.SetUseFiles(true);
  store_.WriteBitmap(node_, "left", wxBitmap(MakeImage(2, 2)), file);
  EXPECT_EQ(xml::FindChild(node_, "left"), nullptr);
  store_.WriteBitmap(node_, "gone", wxBitmap(MakeImage(2, 2)), wxFileName("/nowhere/picture.png"));
  EXPECT_NE(xml::FindChild(node_, "gone"), nullptr);
}

TEST_F(Base64Store, KeepsRichText) {
  wxRichTextBuffer text;
  wxRichTextAttr style;
  style.SetTextColour(*wxBLACK);
  text.SetBasicStyle(style);
  text.AddParagraph("First line");
  text.AddParagraph("Zweite Zeile äöü");
  store_.WriteRichText(node_, "text", text);
  const auto read = store_.ReadRichText(node_, "text");
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->GetText(), text.GetText());
  EXPECT_TRUE(read->GetBasicStyle().HasTextColour());
}

TEST_F(Base64Store, GivesNullForDamagedRichText) {
  for (const std::string& xml : {std::string("<richtext><unclosed></richtext>"), std::string("plain")}) {
    const std::string text = EncodeBase64({reinterpret_cast<const unsigned char*>(xml.data()), xml.size()});
    const auto document = ParseXml("<a><text><![CDATA[" + text + "]]></text></a>");
    EXPECT_EQ(store_.ReadRichText(*document->GetRoot(), "text"), nullptr);
  }
}

TEST_F(Base64Store, GivesNullForRichTextThatNestsTooDeep) {
  std::string xml;
  for (int i = 0; i < 100'000; ++i) xml += "<a>";
  for (int i = 0; i < 100'000; ++i) xml += "</a>";
  const std::string text = EncodeBase64({reinterpret_cast<const unsigned char*>(xml.data()), xml.size()});
  const auto document = ParseXml("<a><text><![CDATA[" + text + "]]></text></a>");
  EXPECT_EQ(store_.ReadRichText(*document->GetRoot(), "text"), nullptr);
}

}  // namespace
}  // namespace graphics
