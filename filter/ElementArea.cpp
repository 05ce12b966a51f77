#include "filter/ElementArea.h"

#include "graphics/animation/GraphicAnimationImage.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/paint/PixelRange.h"

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

}  // namespace

wxRect AreaOf(const graphics::CGraphicElement& element, const CPageGeometry& geometry) {
  const bool turns = dynamic_cast<const graphics::animation::CGraphicAnimationImage*>(&element);
  if (!turns && !dynamic_cast<const graphics::CGraphicMirror*>(&element)) return geometry.frame;

  const graphics::CDoubleRect box = geometry.matrix.MapRect(graphics::FrameOf(element));
  const double angle = turns ? graphics::PaintedRotationOf(element) : 0.0;
  const double cosine = std::abs(std::cos(angle)), sine = std::abs(std::sin(angle));
  const double width = std::abs(box.width), height = std::abs(box.height);
  wxRect area = pixelsAround(box.GetCenter(), width * cosine + height * sine, width * sine + height * cosine);
  // The corners of a turned frame come out as numbers that are not quite whole, and a mirror rounds towards zero.
  if (sine != 0 || !turns) area.Inflate(1);
  return area.Intersect(geometry.frame);
}

}  // namespace authfilter
