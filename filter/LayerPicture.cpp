#include "filter/LayerPicture.h"

#include <cstring>

namespace authfilter {

void CLayerPicture::Draw(CCanvas& canvas, graphics::CGraphicDocument& document, const wxRect& area) {
  drawn_ = false;
  canvas.Draw(document, area, [&](const graphics::CPixels& drawn) { Take(drawn, area, wxRect(area.GetSize())); });
  unsigned alphas = 255;
  for (std::size_t alpha = 3; alpha < pixels_.size(); alpha += 4) alphas &= pixels_[alpha];
  opaque_ = alphas == 255;
  coverage_ = CCoverage::Whole(area.width, area.height, opaque_);
  drawn_ = true;
}

void CLayerPicture::DrawToStay(CCanvas& canvas, graphics::CGraphicDocument& document, const wxRect& area) {
  drawn_ = false;
  canvas.Draw(document, area, [&](const graphics::CPixels& drawn) {
    coverage_ = CCoverage(drawn);
    const wxRect bounds = coverage_.GetBounds();
    coverage_.CutTo(bounds);
    Take(drawn, area, bounds);
  });
  drawn_ = true;
}

void CLayerPicture::Take(const graphics::CPixels& drawn, const wxRect& area, const wxRect& part) {
  area_ = {area.x + part.x, area.y + part.y, part.width, part.height};
  const std::ptrdiff_t rowBytes = part.width * kBytesPerPixel;
  pixels_.resize(static_cast<std::size_t>(part.height * rowBytes));
  for (int y = 0; y < part.height; ++y)
    std::memcpy(pixels_.data() + y * rowBytes, drawn.Row(part.y + y) + part.x * kBytesPerPixel,
                static_cast<std::size_t>(rowBytes));
}

}  // namespace authfilter
