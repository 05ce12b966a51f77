#pragma once

#include "foundation/Base.h"

namespace graphics {
struct CDoubleRect;
struct CPaintContext;
class TEffectGraphicsContext;
}  // namespace graphics

namespace graphics::skin {

class CCustomLayer;
class IAnimationSource;
class ITextSource;

/// Paints what the custom layers of a skin stand for.
class ICustomLayerPainter : public virtual orlo::IBase {
public:
  /// The rectangle is in pixels of the target, which the context's device context draws on too. Both sources may be
  /// null.
  virtual void PaintCustom(CCustomLayer& layer, CPaintContext& context, TEffectGraphicsContext& target,
                           const CDoubleRect& rect, ITextSource* texts, IAnimationSource* animations) = 0;
};

}  // namespace graphics::skin
