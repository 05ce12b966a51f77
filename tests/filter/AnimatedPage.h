#pragma once

#include "tests/filter/PageTest.h"

#include <wx/image.h>
#include <wx/mstream.h>

namespace authfilter {

/// Pages with animated images, at 25 frames a second.
class CAnimatedPage : public CPageTest {
protected:
  CAnimatedPage() {
    const graphics::CToolkitLock lock;
    if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) wxInitAllImageHandlers();
    store.frameRateNum = 25;
    store.frameRateDen = 1;
  }

  /// A picture as page files hold it.
  static std::string Encoded(const wxImage& image) {
    const graphics::CToolkitLock lock;
    wxMemoryOutputStream stream;
    image.SaveFile(stream, wxBITMAP_TYPE_PNG);
    const auto* const start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
    return graphics::EncodeBase64({start, static_cast<std::size_t>(stream.GetLength())});
  }
  static std::string Bitmap(const std::string& name, const wxImage& image) {
    return "<" + name + " extension=\"png\"><![CDATA[" + Encoded(image) + "]]></" + name + ">";
  }
  static std::string Bitmap(const std::string& name, const wxColour& colour) {
    const graphics::CToolkitLock lock;
    wxImage image(4, 4);
    image.SetRGB(wxRect(0, 0, 4, 4), colour.Red(), colour.Green(), colour.Blue());
    return Bitmap(name, image);
  }

  static std::string Image(int x, int y, int width, int height, const std::string& animation,
                           const std::string& properties = "") {
    return R"(<animation type="animation-image" )" + properties + ">" + Frame(x, y, width, height) + animation +
           "</animation>";
  }
  /// Red and blue in turn.
  static std::string TwoColours(int delay, bool loop) {
    return R"(<animation type="animation" count="2" delay=")" + std::to_string(delay) + R"(" loop=")" +
           (loop ? "true" : "false") + "\">" + Bitmap("frame0", *wxRED) + Bitmap("frame1", *wxBLUE) + "</animation>";
  }

  const Pixel kRedPixel{0, 0, 255, 255};
  const Pixel kBluePixel{255, 0, 0, 255};
};

}  // namespace authfilter
