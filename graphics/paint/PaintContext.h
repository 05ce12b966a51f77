#pragma once

#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/geometry/Matrix.h"

#include <wx/dc.h>

#include <cstdint>

namespace graphics {

class TEffectGraphicsContext;

/// What every Paint receives: where to draw and how the page lies on it. Nothing here is owned.
struct CPaintContext {
  CPaintContext(wxDC* target, std::int32_t key) : dc(target), cacheKey(key) {}
  /// The same context onto another target.
  CPaintContext(const CPaintContext& other, wxDC* target, std::int32_t key) : CPaintContext(other) {
    dc = target;
    cacheKey = key;
  }

  /// What a clone of this context has asked for while painters had it.
  void TakeRepaintOf(const CPaintContext& clone) {
    if (clone.nextRepaint != 0 && nextRepaint >= 0) nextRepaint = clone.nextRepaint;
  }

  /// Pixels per page unit along both axes, for kinds that lay out in pixels.
  CDoubleSize GetDeviceScale() const;
  /// True for the views of an author, which show frames and hints that the final output doesn't have.
  bool ShowsFrames() const { return viewMode == 1 || viewMode == 2; }

  wxDC* dc;
  /// Page units to device pixels.
  CMatrix matrix;
  /// The painted area in device pixels.
  CDoubleRect rect;
  CDoubleRect clip;
  CDoubleRect extra;
  bool highQuality = false;
  /// 0 final output, 1 and 2 with authoring frames and hints, 2 also with inner guide lines, 5 tables with all their
  /// grid lines.
  std::int32_t viewMode = 0;
  /// Part of the key under which scaled images are kept.
  std::int32_t cacheKey;
  /// Where pixels per page unit come from: 0 the resolution of dc per millimetre, 1 outputScale.
  std::int32_t outputMode = 0;
  double outputScale = 1.0;
  /// Milliseconds after which a painter wants to be painted again, 0 for never.
  std::int32_t nextRepaint = 0;
  /// If set, kinds draw on it instead of making a context of their own.
  TEffectGraphicsContext* effectContext = nullptr;
};

}  // namespace graphics
