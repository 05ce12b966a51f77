#include "filter/LayerBuild.h"

#include "authed/data/GraphicActionButton.h"
#include "filter/DocumentLayer.h"
#include "filter/ExclusiveLayer.h"
#include "filter/InfoStore.h"
#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/model/GraphicLayers.h"

namespace authfilter {

namespace {

using authed::data::CGraphicActionButton;
using authed::data::CGraphicMovieImage;

constexpr std::int32_t kStatic = graphics::CGraphicLayer::kStatic;
constexpr std::int32_t kExclusive = graphics::CGraphicLayer::kExclusive;

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
