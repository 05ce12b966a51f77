#include "filter/SkinnedElement.h"

#include "authed/data/GraphicActionButton.h"
#include "authed/data/GraphicMovieImage.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PixelRange.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/paint/native/BitmapPixels.h"
#include "graphics/skin/StatePainter.h"

#include <algorithm>

namespace authfilter {

namespace {

using authed::data::CGraphicActionButton;
using authed::data::CGraphicMovieImage;
using graphics::skin::CState;
using graphics::skin::CStatePainter;

/// What an element is painted as; null for one that paints itself.
orlo::P<CState> StateOf(const graphics::CGraphicElement& element) {
  if (const auto* const button = dynamic_cast<const CGraphicActionButton*>(&element)) return button->GetCurrentState(0);
  const auto* const movie = dynamic_cast<const CGraphicMovieImage*>(&element);
  return movie && movie->GetSkin() ? movie->GetSkin()->FindState("normal") : nullptr;
}

bool HasCustomLayer(const CState& state) {
  return std::any_of(state.GetLayers().begin(), state.GetLayers().end(),
                     [](const auto& layer) { return layer->GetKindMask() == graphics::skin::LayerKind::kCustom; });
}

}  // namespace

bool ShowsAnimation(const graphics::CGraphicElement& element) {
  if (const orlo::P<CState> state = StateOf(element)) return HasCustomLayer(*state);
  return !dynamic_cast<const CGraphicActionButton*>(&element);
}

bool HasSkin(const graphics::CGraphicElement& element) {
  return StateOf(element).get() != nullptr;
}

wxRect SkinAreaOf(graphics::CGraphicElement& element, const CPageGeometry& geometry) {
  const graphics::CToolkitLock lock;
  const graphics::CDoubleRect rect = graphics::FrameOf(element);
  wxBitmap bitmap = graphics::MakeAlphaBitmap(1, 1);
  graphics::TEffectDC<wxGCDC, wxBitmap&> dc(bitmap);
  const auto target = dc.CreateEffectContext();
  if (!CStatePainter::UsesOffscreen(*StateOf(element), *target, rect,
                                    dynamic_cast<graphics::skin::ITextSource*>(&element),
                                    dynamic_cast<graphics::skin::IAnimationSource*>(&element)))
    return geometry.frame;
  return graphics::ToPixelRect(geometry.matrix.MapRect(rect).Inflated()).Inflate(1).Intersect(geometry.frame);
}

}  // namespace authfilter
