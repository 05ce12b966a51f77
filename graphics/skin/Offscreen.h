#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/gdicmn.h>

#include <cstdint>

namespace graphics::skin {

/// Of a bitmap that a skin is drawn into before it goes to the page. A page may have many such bitmaps to fill.
constexpr std::int64_t kMostOffscreenPixels = std::int64_t{4} << 20;

constexpr bool HasExtent(const wxSize& size) {
  return size.x >= 1 && size.y >= 1;
}

constexpr bool FitsOffscreen(const wxSize& size) {
  return size.x <= kLargestBitmapEdge && size.y <= kLargestBitmapEdge &&
         std::int64_t{size.x} * size.y <= kMostOffscreenPixels;
}

inline CDoubleRect RectOf(const wxSize& size) {
  return {0, 0, static_cast<double>(size.x), static_cast<double>(size.y)};
}

/// A paint context on a bitmap of its own.
class COffscreenContext {
public:
  COffscreenContext(const CPaintContext& other, wxBitmap& bitmap) : dc_(bitmap), context(other, &dc_, other.cacheKey) {
    context.effectContext = nullptr;
  }
  COffscreenContext(const COffscreenContext&) = delete;
  COffscreenContext& operator=(const COffscreenContext&) = delete;
  ~COffscreenContext() { dc_.Flush(); }

private:
  TEffectDC<wxGCDC, wxBitmap&> dc_;

public:
  CPaintContext context;
  const orlo::P<TEffectGraphicsContext> target = dc_.CreateEffectContext();
};

}  // namespace graphics::skin
