#include "filter/LayerBuild.h"

#include "authed/data/GraphicActionButton.h"
#include "filter/DocumentLayer.h"
#include "filter/ExclusiveLayer.h"
#include "filter/InfoStore.h"
#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/geometry/Truncate.h"
#include "graphics/model/GraphicLayers.h"

#include <algorithm>
#include <cmath>

namespace authfilter {

namespace {

using authed::data::CGraphicActionButton;
using authed::data::CGraphicMovieImage;

constexpr std::int32_t kStatic = graphics::CGraphicLayer::kStatic;
constexpr std::int32_t kExclusive = graphics::CGraphicLayer::kExclusive;

/// Of an element in the frame; what is much larger than the frame is not shown in all its pixels.
wxSize pixelSizeOf(const graphics::CGraphicElement& element, const CInfoStore& store) {
  const graphics::CDoubleRect box = store.pageTransform.GetCurrent().MapRect(graphics::FrameOf(element));
  const auto pixels = [](double size, std::int32_t frame) {
    return std::clamp(graphics::TruncateToInt(std::abs(size) + 0.5), 1, 2 * frame);
  };
  return {pixels(box.width, store.width), pixels(box.height, store.height)};
}

std::int32_t kindOf(graphics::CGraphicElement& element, CInfoStore& store) {
  // A mirror shows what lies under it, and that changes with the layers below.
  if (orlo::tryCast<graphics::CGraphicMirror>(&element)) {
    store.movieImages.emplace_back();
    return kExclusive;
  }
  const auto* const button = orlo::tryCast<CGraphicActionButton>(&element);
  auto* const movie =
      button ? orlo::tryCast<CGraphicMovieImage>(button->GetElement()) : orlo::tryCast<CGraphicMovieImage>(&element);
  if (movie && !store.noMovies) {
    store.movieImages.emplace_back(movie);
    movie->SetShownSize(pixelSizeOf(element, store));
    return kExclusive;
  }
  if (movie || button) return kStatic;
  return orlo::tryCast<graphics::animation::IAnimationElement>(&element) ? kExclusive : kStatic;
}

}  // namespace

void BuildLayers(CInfoStore& store, graphics::CGraphicDocument& page) {
  graphics::CGraphicLayers sorted;
  for (std::size_t index = 0; index < page.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = page.GetElement(index);
    sorted.GetLayerFor(kindOf(*element, store))->Add(element);
  }

  for (std::size_t index = 0; index < sorted.GetCount(); ++index) {
    const orlo::P<graphics::CGraphicLayer> layer = sorted.GetItem(index);
    const auto document = orlo::makeObject<graphics::CGraphicDocument>();
    document->AddLayer(*layer);
    document->SetContentBox(page.GetPageRect());
    if (layer->GetKind() == kStatic)
      store.layers.push_back(orlo::makeObject<CDocumentLayer>(document));
    else
      store.layers.push_back(orlo::makeObject<CExclusiveLayer>(document, store.frameRateNum, store.frameRateDen));
  }
}

}  // namespace authfilter
