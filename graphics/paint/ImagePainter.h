#pragma once

#include "foundation/Object.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/Margins.h"

#include <wx/bitmap.h>
#include <wx/gdicmn.h>

#include <cstdint>

namespace graphics {

class TEffectGraphicsContext;

/// Draws a bitmap into a rectangle of any size with fixed margins at their natural size: the corners stay as they are,
/// the edges stretch along one axis, the middle along both. Rectangles are in pixels. A source rectangle is a part of
/// the bitmap, null stands for all of it.
class CImagePainter : public orlo::CObject {
public:
  /// Target and margins are truncated to whole pixels; the factors of the margins are not looked at. The factor has no
  /// effect.
  virtual void PaintInRect(const CDoubleRect& target, const wxBitmap& bitmap, const CMargins& margins, double factor);
  /// The margins are x left, y top, width right, height bottom. Parts without an extent are left out.
  virtual void PaintNinePart(const wxRect& target, const wxBitmap& bitmap, const wxRect& margins, double factor);

  virtual void DrawAt(const wxPoint& point, const wxBitmap& bitmap, const wxRect* source, bool useMask) = 0;
  virtual void DrawStretched(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask) = 0;
  /// As fillMode says. Values other than 0 and 1 draw nothing.
  virtual void DrawEdge(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask);
  /// One row of tiles from the left to the right edge of the target, the last one cut off there.
  virtual void DrawTiled(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask);

  /// How the top and bottom edges are filled: 0 stretched, 1 tiled.
  std::int32_t fillMode = 0;
  /// Pixels by which edges and middle reach into their neighbours, to hide seams.
  std::int32_t overlap = 0;
};

/// Paints on a graphics context: pixel sharp with margins, smooth without.
class CImagePainterContext : public CImagePainter {
public:
  /// Not owned. Null paints nothing.
  explicit CImagePainterContext(TEffectGraphicsContext* target) : context(target) {}

  void PaintInRect(const CDoubleRect& target, const wxBitmap& bitmap, const CMargins& margins, double factor) override;
  void DrawAt(const wxPoint& point, const wxBitmap& bitmap, const wxRect* source, bool useMask) override;
  void DrawStretched(const wxRect& target, const wxBitmap& bitmap, const wxRect* source, bool useMask) override;

  TEffectGraphicsContext* context;
};

}  // namespace graphics
