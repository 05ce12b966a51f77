#pragma once

#include "filter/PageGeometry.h"
#include "graphics/model/GraphicDocument.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/bitmap.h>

#include <cstdint>
#include <functional>

namespace authfilter {

/// What the layers of a page draw their pictures on. It is as large as the frame: where scaled pixels fall depends, in
/// the last bit, on the place where they are drawn.
class CCanvas {
public:
  /// What the pictures may take that the layers of one page keep from repaint to repaint.
  static constexpr std::int64_t kMaxKeptBytes = std::int64_t{512} << 20;

  explicit CCanvas(const CPageGeometry& geometry, std::int64_t maxKeptBytes = kMaxKeptBytes)
      : geometry_(geometry), bytesLeft_(maxKeptBytes) {}
  CCanvas(const CCanvas&) = delete;
  CCanvas& operator=(const CCanvas&) = delete;
  ~CCanvas() { Release(); }

  const CPageGeometry& Geometry() const { return geometry_; }

  /// Draws the document and shows the pixels of the area, which has to hold all that the document touches. They are
  /// gone afterwards. Takes the toolkit's lock. Throws orlo::CError if there is no memory.
  void Draw(graphics::CGraphicDocument& document, const wxRect& area,
            const std::function<void(const graphics::CPixels&)>& show);
  /// False if there is no room for one more picture of this size: then it is drawn again at each repaint.
  bool MayKeep(const wxSize& size);
  /// Gives its own memory back until the next drawing.
  void Release();

private:
  CPageGeometry geometry_;
  std::int64_t bytesLeft_;
  wxBitmap bitmap_;
  graphics::CBitmapSurface surface_;
};

}  // namespace authfilter
