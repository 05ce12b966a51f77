#include "filter/ElementArea.h"

#include "authed/data/GraphicMovieImage.h"
#include "filter/SkinnedElement.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/paint/PixelRange.h"

#include <algorithm>
#include <cmath>

namespace authfilter {

namespace {

/// All pixels that the rectangle has a part in.
wxRect pixelsAround(graphics::CDoublePoint centre, double width, double height) {
  const int left = graphics::FloorToPixel(centre.x - width / 2);
  const int top = graphics::FloorToPixel(centre.y - height / 2);
  const int right = graphics::FloorToPixel(std::ceil(centre.x + width / 2));
  const int bottom = graphics::FloorToPixel(std::ceil(centre.y + height / 2));
  return {left, top, right - left, bottom - top};
}

/// A picture as high as the frame may be wider than that.
double PaintedWidthOf(const authed::data::CGraphicMovieImage& movie, double width, double height) {
  if (movie.GetScaleMode() != authed::data::EScaleMode::height) return width;
  const auto widen = [&](const wxBitmap* picture) {
    if (picture && picture->IsOk()) width = std::max(width, height * picture->GetWidth() / picture->GetHeight());
  };
  if (movie.GetMovie()) widen(movie.GetMovie()->thumbnail.Get());
  if (const auto animation = movie.GetAnimation()) {
    widen(animation->GetFirstFrame());
    widen(animation->GetCurrentFrame());
  }
  return width;
}

}  // namespace

wxRect AreaOf(const graphics::CGraphicElement& element, const CPageGeometry& geometry) {
  const bool turns = dynamic_cast<const graphics::animation::CGraphicAnimationImage*>(&element);
  if (!turns && !dynamic_cast<const graphics::CGraphicMirror*>(&element)) return geometry.frame;
  const auto* const movie = dynamic_cast<const authed::data::CGraphicMovieImage*>(&element);
  if (movie && HasSkin(element)) return geometry.frame;

  const graphics::CDoubleRect box = geometry.matrix.MapRect(graphics::FrameOf(element));
  const double angle = turns ? graphics::PaintedRotationOf(element) : 0.0;
  const double cosine = std::abs(std::cos(angle)), sine = std::abs(std::sin(angle));
  const double height = std::abs(box.height);
  const double width = movie ? PaintedWidthOf(*movie, std::abs(box.width), height) : std::abs(box.width);
  wxRect area = pixelsAround(box.GetCenter(), width * cosine + height * sine, width * sine + height * cosine);
  // The corners of a turned frame come out as numbers that are not quite whole, and a mirror rounds towards zero.
  if (sine != 0 || !turns) area.Inflate(1);
  return area.Intersect(geometry.frame);
}

}  // namespace authfilter
