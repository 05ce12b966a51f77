#pragma once

#include "filter/Canvas.h"
#include "filter/DirtyRegion.h"
#include "filter/LayerPicture.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <cstddef>
#include <cstdint>

namespace authfilter {

/// What lies below a page: rows of the page's width, premultiplied BGRA. Without rows the page's own pixels stay.
struct CBackground {
  const std::uint8_t* rows = nullptr;
  std::ptrdiff_t stride = 0;
};

/// One repaint of a region of the frame in progress. The background gets there together with the first picture that is
/// laid over it, in one pass. No pixel outside of the region is written.
class CFrame {
public:
  /// All that is passed in must outlive the frame.
  CFrame(const graphics::CPixels& pixels, CBackground background, const CDirtyRegion& region, CCanvas& canvas)
      : pixels_(pixels), background_(background), region_(region), canvas_(canvas) {}
  ~CFrame();
  CFrame(const CFrame&) = delete;
  CFrame& operator=(const CFrame&) = delete;

  const CPageGeometry& Geometry() const { return canvas_.Geometry(); }
  /// Where layers draw the pictures that they blend.
  CCanvas& Canvas() { return canvas_; }
  /// True if something in the area is to be painted.
  bool Touches(const wxRect& area) const { return region_.Touches(area); }

  /// Lays a picture over what is there.
  void Blend(const CLayerPicture& picture);

private:
  void BlendRow(int y, const wxRect& part, const CLayerPicture& picture);

  const graphics::CPixels& pixels_;
  CBackground background_;
  const CDirtyRegion& region_;
  CCanvas& canvas_;
};

}  // namespace authfilter
