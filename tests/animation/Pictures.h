#pragma once

#include "graphics/animation/IAnimation.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/model/Base64Resources.h"
#include "graphics/paint/native/NativeState.h"
#include "tests/paint/Canvas.h"

#include <wx/image.h>
#include <wx/xml/xml.h>

#include <cstring>
#include <vector>

namespace graphics::animation::test {

using graphics::test::CCanvas;
using graphics::test::CPixel;
using graphics::test::kBlack;
using graphics::test::kBlue;
using graphics::test::kClear;
using graphics::test::kRed;
using graphics::test::PixelOf;

/// For tests of what is kept in files.
inline void KnowPictureFormats() {
  static const bool once = (wxInitAllImageHandlers(), true);
  static_cast<void>(once);
}

inline wxBitmap Picture(int width, int height, CPixel colour) {
  wxBitmap bitmap = MakeAlphaBitmap(width, height);
  const CBitmapSurface surface(bitmap);
  for (int y = 0; y < height; ++y) {
    std::uint8_t* out = surface.Pixels().Row(y);
    for (int x = 0; x < width; ++x)
      for (const int channel : {colour.blue, colour.green, colour.red, colour.alpha})
        *out++ = static_cast<std::uint8_t>(channel);
  }
  surface.MarkDirty();
  return bitmap;
}

/// An opaque colour for each frame number.
inline CPixel Numbered(int frame) {
  return {20 + 10 * frame, 5 * frame, 200, 255};
}

/// A picture as red, green, blue and alpha of each pixel, behind its width; empty for none.
using CPicture = std::vector<int>;

inline CPicture Unpacked(const wxBitmap* bitmap) {
  if (!bitmap) return {};
  const wxImage image = bitmap->ConvertToImage();
  CPicture picture{image.GetWidth()};
  for (int y = 0; y < image.GetHeight(); ++y)
    for (int x = 0; x < image.GetWidth(); ++x)
      picture.insert(picture.end(), {image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y),
                                     image.HasAlpha() ? image.GetAlpha(x, y) : 255});
  return picture;
}

/// All pictures, from the first to the last.
inline std::vector<CPicture> PicturesOf(IAnimation& animation) {
  std::vector<CPicture> pictures;
  if (animation.IsEmpty()) return pictures;
  animation.Rewind();
  do pictures.push_back(Unpacked(animation.GetCurrentFrame()));
  while (animation.Next());
  return pictures;
}

/// What the animation paints.
inline CPixel Painted(const IAnimation& animation) {
  CCanvas canvas(10, 10);
  CSmoothEffectDC dc(canvas.dc);
  animation.Paint(*dc.CreateEffectContext(), {0, 0, 10, 10});
  dc.Flush();
  return canvas.At(5, 5);
}

/// What comes back when an animation is written and read into another one.
template <class Kind>
orlo::P<Kind> Reread(const Kind& animation, const orlo::P<Kind>& into) {
  KnowPictureFormats();
  wxXmlNode node(wxXML_ELEMENT_NODE, "animation");
  const auto store = orlo::makeObject<CBase64Resources>();
  animation.WriteToXml(node, *store);
  into->ReadFromXml(node, *store);
  return into;
}

}  // namespace graphics::animation::test
