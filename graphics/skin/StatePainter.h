#pragma once

#include "foundation/Object.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/skin/State.h"

#include <wx/bitmap.h>

#include <cstdint>
#include <memory>

namespace graphics {
class CScaledCopy;
struct CPaintContext;
}  // namespace graphics

namespace graphics::skin {

class ICustomLayerPainter;

/// Paints states of skins. Pictures are drawn offscreen at 300 dots per inch, so that they look alike at every
/// resolution, and texts on the page itself, above all pictures. Keeps its last offscreen bitmap; one thread at a time.
class CStatePainter : public orlo::CObject {
public:
  CStatePainter();
  ~CStatePainter() override;

  /// The rectangle is in page units, which are millimetres here. With the output mode 1 all layers are drawn on the
  /// target in their order. Any of the sources and the custom painter may be null.
  void Paint(const CState& state, CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
             ITextSource* texts, IAnimationSource* animations, ICustomLayerPainter* painter);

  /// True if the pictures of a state are drawn into a bitmap that lies on the rectangle's pixels, and not on the
  /// target.
  static bool UsesOffscreen(const CState& state, TEffectGraphicsContext& target, const CDoubleRect& rect,
                            ITextSource* texts, IAnimationSource* animations);

  /// The bitmap that the last state was drawn into; null if it was drawn on the target.
  const wxBitmap* GetOffscreen() const;

private:
  struct CSources {
    ITextSource* texts;
    IAnimationSource* animations;
    ICustomLayerPainter* painter;
  };

  void PaintPictures(const CState& state, CPaintContext& context, TEffectGraphicsContext& target, wxSize size,
                     const CDoubleRect& pixels, const CSources& sources);
  wxBitmap TakeOffscreen(wxSize size);

  static void PaintLayers(const CState& state, std::uint32_t mask, CPaintContext& context,
                          TEffectGraphicsContext& target, const CDoubleRect& rect, const CSources& sources);
  static void PaintLayer(CLayer& layer, CPaintContext& context, TEffectGraphicsContext& target, const CDoubleRect& rect,
                         const CSources& sources);
  static void PaintScaledLayer(CLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                               const CDoubleRect& rect, const CSources& sources);

  std::unique_ptr<CScaledCopy> offscreen_;
};

}  // namespace graphics::skin
