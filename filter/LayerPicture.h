#pragma once

#include "filter/Canvas.h"
#include "filter/Coverage.h"

#include <cstdint>
#include <vector>

namespace authfilter {

/// What a layer shows in a part of the frame, as pixels to lay over what is below.
class CLayerPicture {
public:
  /// Draws the document anew, which touches nothing outside of the area. The picture is as large as the area, and any
  /// pixel counts as one to blend.
  void Draw(CCanvas& canvas, graphics::CGraphicDocument& document, const wxRect& area);
  /// As Draw, and finds out which pixels are transparent, and leaves out the margins that are. That takes as long as
  /// many repaints save.
  void DrawToStay(CCanvas& canvas, graphics::CGraphicDocument& document, const wxRect& area);

  /// False as long as nothing has been drawn, and after an exception half way.
  bool IsDrawn() const { return drawn_; }
  /// What it shows is out of date.
  void Forget() { drawn_ = false; }
  /// True if it is known that no pixel of it lets anything through.
  bool IsOpaque() const { return drawn_ && opaque_; }
  /// Where in the frame it lies. Empty if nothing is to be seen of it.
  const wxRect& GetArea() const { return area_; }
  /// Counted from the area's top left corner.
  const CCoverage& Coverage() const { return coverage_; }
  const std::uint8_t* Row(int y) const {
    return pixels_.data() + static_cast<std::ptrdiff_t>(y) * area_.width * kBytesPerPixel;
  }

private:
  static constexpr std::ptrdiff_t kBytesPerPixel = 4;

  void Take(const graphics::CPixels& drawn, const wxRect& area, const wxRect& part);

  bool drawn_ = false;
  bool opaque_ = false;
  wxRect area_;
  std::vector<std::uint8_t> pixels_;
  CCoverage coverage_;
};

}  // namespace authfilter
