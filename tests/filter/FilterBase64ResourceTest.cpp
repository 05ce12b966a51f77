#include "filter/FilterBase64Resource.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/model/Base64.h"
#include "graphics/paint/Toolkit.h"

#include <gtest/gtest.h>
#include <wx/filename.h>
#include <wx/image.h>
#include <wx/mstream.h>

namespace authfilter {
namespace {

class FilterResources : public testing::Test {
protected:
  FilterResources() {
    graphics::StartToolkit();
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxInitAllImageHandlers();
    folder_ = wxFileName::CreateTempFileName("mfilter");
    wxRemoveFile(folder_);
    wxFileName::Mkdir(folder_);
    store_ = orlo::makeObject<CFilterBase64Resource>(folder_);
    store_->SetUseFiles(true);
  }
  ~FilterResources() override { wxFileName::Rmdir(folder_, wxPATH_RMDIR_RECURSIVE); }

  wxFileName Save(const wxString& name, int width) {
    const wxFileName file(folder_, name);
    wxImage(width, 3).SaveFile(file.GetFullPath(), wxBITMAP_TYPE_PNG);
    return file;
  }

  wxString folder_;
  orlo::P<CFilterBase64Resource> store_;
  wxXmlNode node_{wxXML_ELEMENT_NODE, "image"};
};

TEST_F(FilterResources, ShowTheSubstituteForAPictureThatIsGone) {
  Save("filenotfound.png", 11);
  wxFileName gone(folder_, "gone.png");
  EXPECT_EQ(store_->ReadBitmap(node_, "picture", gone)->GetWidth(), 11);
  EXPECT_EQ(store_->ReadBitmapOfType(node_, "picture", wxBITMAP_TYPE_JPEG, gone)->GetWidth(), 11);
}

TEST_F(FilterResources, GiveAnInvalidBitmapIfTheSubstituteIsGoneToo) {
  wxFileName gone(folder_, "gone.png");
  const auto bitmap = store_->ReadBitmap(node_, "picture", gone);
  ASSERT_NE(bitmap, nullptr);
  EXPECT_FALSE(bitmap->IsOk());
}

TEST_F(FilterResources, TakeAPictureFromItsFile) {
  Save("filenotfound.png", 11);
  wxFileName file = Save("picture.png", 5);
  EXPECT_EQ(store_->ReadBitmap(node_, "picture", file)->GetWidth(), 5);
}

TEST_F(FilterResources, TakeAPictureWithoutAFileFromTheXml) {
  Save("filenotfound.png", 11);
  wxMemoryOutputStream stream;
  wxImage(4, 3).SaveFile(stream, wxBITMAP_TYPE_PNG);
  const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  wxXmlNode& child = graphics::xml::AppendChild(node_, "picture");
  graphics::xml::SetProperty(child, "extension", "png");
  child.AddChild(new wxXmlNode(wxXML_CDATA_SECTION_NODE, "base64",
                               graphics::EncodeBase64({start, static_cast<std::size_t>(stream.GetLength())})));
  wxFileName none;
  EXPECT_EQ(store_->ReadBitmap(node_, "picture", none)->GetWidth(), 4);
  EXPECT_EQ(store_->ReadBitmap(node_, "missing", none), nullptr);
}

}  // namespace
}  // namespace authfilter
