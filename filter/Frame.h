#pragma once

#include "filter/Coverage.h"
#include "graphics/geometry/Transform.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"

#include <wx/bitmap.h>

#include <cstddef>
#include <cstdint>
#include <optional>

namespace authfilter {

/// What lies below a page: rows of the page's width, premultiplied BGRA. Without rows the page's own pixels stay.
struct CBackground {
  const std::uint8_t* rows = nullptr;
  std::ptrdiff_t stride = 0;
};

/// One repaint of a page in progress. The background reaches the page together with the first picture that is laid
/// over it, in one pass; a drawing surface is opened, and the toolkit locked, only when a layer draws.
class CFrame {
public:
  /// All that is passed in must outlive the frame.
  CFrame(wxBitmap& bitmap, graphics::CBitmapSurface& surface, CBackground background,
         const graphics::CTransform& pageTransform);
  ~CFrame();
  CFrame(const CFrame&) = delete;
  CFrame& operator=(const CFrame&) = delete;

  /// Where and at which scale layers paint. Its dc is null as long as nobody draws.
  const graphics::CPaintContext& Geometry() const { return context_; }

  /// Lays a picture of the page's size over what is there.
  void Blend(const graphics::CPixels& picture, const CCoverage& coverage);

  /// The context to draw with, on top of what is there.
  graphics::CPaintContext& Draw();

private:
  void SettleBackground();

  wxBitmap& bitmap_;
  graphics::CBitmapSurface& surface_;
  CBackground background_;
  graphics::CPaintContext context_;
  std::optional<graphics::CToolkitLock> lock_;
  std::optional<graphics::CBitmapEffectDC> dc_;
};

}  // namespace authfilter
