#pragma once

#include "filter/InfoStore.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <sstream>
#include <string>

namespace authfilter {

/// Says where two frames differ first by more than the tolerance; empty if they don't.
inline std::string DifferenceOf(const graphics::CPixels& a, const graphics::CPixels& b, int tolerance = 0) {
  const auto near = [tolerance](std::uint8_t p, std::uint8_t q) { return std::abs(p - q) <= tolerance; };
  for (int y = 0; y < a.height; ++y)
    for (int x = 0; x < a.width; ++x)
      if (const std::uint8_t* p = a.Row(y) + x * 4, *q = b.Row(y) + x * 4; !std::equal(p, p + 4, q, near)) {
        std::ostringstream text;
        text << x << ", " << y << ':';
        for (const std::uint8_t* pixel : {p, q})
          for (int channel = 0; channel < 4; ++channel) text << ' ' << int{pixel[channel]};
        return text.str();
      }
  return {};
}

/// Paints what an instance should show in the plainest way: each time all of it, through one device context on the
/// whole frame, animated elements drawn straight onto what is below them.
class CPlainPainter {
public:
  explicit CPlainPainter(CInfoStore& store) : store_(store) {}
  ~CPlainPainter() {
    const graphics::CToolkitLock lock;
    pictures_.clear();
    surface_ = {};
    bitmap_ = {};
  }
  CPlainPainter(const CPlainPainter&) = delete;
  CPlainPainter& operator=(const CPlainPainter&) = delete;

  const graphics::CPixels& Paint() {
    const graphics::CToolkitLock lock;
    const int width = store_.width, height = store_.height;
    if (!bitmap_.IsOk()) {
      bitmap_ = graphics::MakeAlphaBitmap(width, height);
      surface_ = graphics::CBitmapSurface(bitmap_);
    }
    for (int y = 0; store_.inputPixels && y < height; ++y)
      std::memcpy(surface_.Pixels().Row(y), store_.inputPixels + y * store_.inputStride,
                  static_cast<std::size_t>(width) * 4);
    surface_.MarkDirty();
    graphics::CBitmapEffectDC dc(bitmap_);
    if (store_.noAlpha) {
      dc.SetBackground(*wxBLACK_BRUSH);
      dc.Clear();
    }
    for (const auto& layer : store_.layers) {
      if (layer->IsExclusive() == 0)
        dc.DrawBitmap(PictureOf(*layer), 0, 0, false);
      else
        PaintOn(dc, *layer);
    }
    dc.Flush();
    surface_.Flush();
    return surface_.Pixels();
  }

private:
  const wxBitmap& PictureOf(const CLayer& layer) {
    wxBitmap& picture = pictures_[&layer];
    if (picture.IsOk()) return picture;
    picture = graphics::MakeAlphaBitmap(store_.width, store_.height);
    graphics::CBitmapEffectDC dc(picture);
    PaintOn(dc, layer);
    dc.Flush();
    return picture;
  }

  void PaintOn(wxDC& dc, const CLayer& layer) {
    graphics::CPaintContext context(&dc, 0);
    context.rect = {0, 0, static_cast<double>(store_.width), static_cast<double>(store_.height)};
    context.clip = context.rect;
    context.matrix = store_.pageTransform.GetCurrent();
    layer.GetDocument()->Paint(context);
  }

  CInfoStore& store_;
  wxBitmap bitmap_;
  graphics::CBitmapSurface surface_;
  std::map<const CLayer*, wxBitmap> pictures_;
};

}  // namespace authfilter
