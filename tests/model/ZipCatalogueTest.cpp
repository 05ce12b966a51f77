#include "foundation/Error.h"
#include "graphics/model/ZipCatalogue.h"
#include "tests/model/TestElement.h"

#include <gtest/gtest.h>
#include <wx/filename.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>
#include <wx/richtext/richtextxml.h>
#include <wx/wfstream.h>
#include <wx/zipstrm.h>

namespace graphics {
namespace {

class ZipStore : public testing::Test {
protected:
  ZipStore() { StartForTests(); }

  void AddBytes(const wxString& name, const std::string& bytes) {
    out_.PutNextEntry(name);
    out_.Write(bytes.data(), bytes.size());
  }
  void AddPicture(const wxString& name, const wxImage& image, wxBitmapType type) {
    wxMemoryOutputStream picture;
    image.SaveFile(picture, type);
    out_.PutNextEntry(name);
    wxMemoryInputStream in(picture);
    out_.Write(in);
  }
  CZipCatalogue& Open() {
    out_.Close();
    in_ = std::make_unique<wxMemoryInputStream>(memory_);
    zip_ = std::make_unique<wxZipInputStream>(*in_);
    store_ = orlo::makeObject<CZipCatalogue>(*zip_);
    return *store_;
  }
  static std::unique_ptr<wxXmlDocument> NodeFor(const wxString& name, const wxString& more = {}) {
    return ParseXml("<image><data name='" + name + "' " + more + "/></image>");
  }
  wxString ReadText(const wxString& name, const wxString& more) {
    const auto block = store_->ReadBuffer(*NodeFor(name, more)->GetRoot(), "data");
    if (!block) return "(null)";
    return wxString(reinterpret_cast<const char*>(block->getData()), block->getSize());
  }

  wxFileName noFile_;

private:
  wxMemoryOutputStream memory_;
  wxZipOutputStream out_{memory_};
  std::unique_ptr<wxMemoryInputStream> in_;
  std::unique_ptr<wxZipInputStream> zip_;
  orlo::P<CZipCatalogue> store_;
};

TEST_F(ZipStore, GivesBuffersByNameAndSize) {
  AddBytes("a.txt", "first");
  AddBytes("folder/b.txt", "second");
  Open();
  EXPECT_EQ(ReadText("folder/b.txt", "size='6'"), "second");
  EXPECT_EQ(ReadText("a.txt", "size='5'"), "first");
  EXPECT_EQ(ReadText("a.txt", "size='3'"), "fir");
}

TEST_F(ZipStore, OpensAnEntryAnewForEachRead) {
  AddBytes("a.txt", "first");
  Open();
  EXPECT_EQ(ReadText("a.txt", "size='5'"), "first");
  EXPECT_EQ(ReadText("a.txt", "size='5'"), "first");
}

TEST_F(ZipStore, GivesNoBufferWithoutASizeOrAnEntry) {
  AddBytes("a.txt", "first");
  Open();
  EXPECT_EQ(ReadText("a.txt", ""), "(null)");
  EXPECT_EQ(ReadText("a.txt", "size='0'"), "(null)");
  EXPECT_EQ(ReadText("a.txt", "size='-1'"), "(null)");
  EXPECT_EQ(ReadText("none.txt", "size='5'"), "(null)");
}

TEST_F(ZipStore, GivesNoMoreThanTheEntryHasWhateverTheSizeClaims) {
  AddBytes("a.txt", "first");
  Open();
  EXPECT_EQ(ReadText("a.txt", "size='9223372036854775807'"), "first");
  EXPECT_EQ(ReadText("a.txt", "size='2147483647'"), "first");
}

TEST_F(ZipStore, FindsNoEntryOfAnotherCase) {
  AddBytes("Name.txt", "first");
  Open();
  EXPECT_EQ(ReadText("name.txt", "size='5'"), "(null)");
  EXPECT_EQ(ReadText("Name.txt", "size='5'"), "first");
}

TEST_F(ZipStore, FindsNamesInTheirInternalForm) {
  AddBytes("folder/b.txt", "second");
  Open();
  EXPECT_EQ(ReadText("./folder/b.txt", "size='6'"), "second");
  EXPECT_EQ(ReadText("/folder/b.txt", "size='6'"), "second");
}

TEST_F(ZipStore, GivesBitmapsByTheExtensionOfTheEntry) {
  AddPicture("a.PNG", wxImage(7, 5), wxBITMAP_TYPE_PNG);
  AddPicture("b.jpg", wxImage(8, 5), wxBITMAP_TYPE_JPEG);
  AddPicture("c.bmp", wxImage(9, 5), wxBITMAP_TYPE_BMP);
  AddPicture("d.ico", wxImage(16, 16), wxBITMAP_TYPE_ICO);
  AddPicture("e.gif", wxImage(7, 5), wxBITMAP_TYPE_PNG);
  AddPicture("png", wxImage(7, 5), wxBITMAP_TYPE_PNG);
  CZipCatalogue& store = Open();
  const struct {
    const char* name;
    int width;
  } known[] = {{"c.bmp", 9}, {"a.PNG", 7}, {"d.ico", 16}, {"b.jpg", 8}};
  for (const auto& [name, width] : known) {
    wxFileName file("/nowhere/picture.png");
    const auto bitmap = store.ReadBitmap(*NodeFor(name)->GetRoot(), "data", file);
    ASSERT_NE(bitmap, nullptr) << name;
    EXPECT_EQ(bitmap->GetWidth(), width);
    EXPECT_FALSE(file.IsOk());
  }
  for (const char* name : {"e.gif", "png", "none.png", ""})
    EXPECT_EQ(store.ReadBitmap(*NodeFor(name)->GetRoot(), "data", noFile_), nullptr) << name;
}

TEST_F(ZipStore, GivesBitmapsOfAGivenType) {
  AddPicture("picture", wxImage(7, 5), wxBITMAP_TYPE_PNG);
  CZipCatalogue& store = Open();
  const auto node = NodeFor("picture");
  EXPECT_NE(store.ReadBitmapOfType(*node->GetRoot(), "data", wxBITMAP_TYPE_PNG, noFile_), nullptr);
  EXPECT_EQ(store.ReadBitmapOfType(*node->GetRoot(), "data", wxBITMAP_TYPE_JPEG, noFile_), nullptr);
  EXPECT_EQ(store.ReadBitmapOfType(*node->GetRoot(), "none", wxBITMAP_TYPE_PNG, noFile_), nullptr);
}

TEST_F(ZipStore, GivesRichText) {
  wxRichTextBuffer text;
  wxRichTextAttr style;
  style.SetTextColour(*wxBLACK);
  text.SetBasicStyle(style);
  text.AddParagraph("A line");
  wxMemoryOutputStream saved;
  wxRichTextXMLHandler("xml", "XML", wxRICHTEXT_TYPE_XML).SaveFile(&text, saved);
  std::string bytes(static_cast<std::size_t>(saved.GetLength()), '\0');
  saved.CopyTo(bytes.data(), bytes.size());
  AddBytes("text.xml", bytes);
  CZipCatalogue& store = Open();
  const auto read = store.ReadRichText(*NodeFor("text.xml")->GetRoot(), "data");
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->GetText(), text.GetText());
  EXPECT_EQ(store.ReadRichText(*NodeFor("none.xml")->GetRoot(), "data"), nullptr);
}

TEST_F(ZipStore, SharesResourcesByNumber) {
  CZipCatalogue& store = Open();
  const auto node = ParseXml("<a unique='4' type='circle'/>");
  const auto first = store.ReadResource(*node->GetRoot(), "circle", orlo::makeObject<CTestElement>());
  const auto second = store.ReadResource(*node->GetRoot(), "circle", orlo::makeObject<CTestElement>());
  EXPECT_EQ(first, second);
  EXPECT_EQ(store.GetResourceType(*node->GetRoot()), "circle");
  EXPECT_THROW(store.ReadResource(*node->GetRoot(), "other", orlo::makeObject<CTestElement>()), orlo::CException);
}

TEST_F(ZipStore, FindsNothingInWhatIsNoArchive) {
  for (const std::string& content : {std::string(), std::string("no archive"), std::string(100'000, 'P'),
                                     std::string("PK\x03\x04") + std::string(500, '\xFF')}) {
    wxMemoryInputStream in(content.data(), content.size());
    wxZipInputStream zip(in);
    CZipCatalogue store(zip);
    EXPECT_FALSE(store.ReadBuffer(*NodeFor("a.txt", "size='5'")->GetRoot(), "data"));
  }
}

TEST_F(ZipStore, FindsNothingOnAStreamOfAFileThatIsGone) {
  const wxLogNull quiet;
  wxFFileInputStream in("/nowhere/archive.zip");
  wxZipInputStream zip(in);
  CZipCatalogue store(zip);
  EXPECT_FALSE(store.ReadBuffer(*NodeFor("a.txt", "size='5'")->GetRoot(), "data"));
  EXPECT_EQ(store.ReadBitmap(*NodeFor("a.png")->GetRoot(), "data", noFile_), nullptr);
}

}  // namespace
}  // namespace graphics
