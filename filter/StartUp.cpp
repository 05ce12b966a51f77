#include "filter/StartUp.h"

#include "authed/data/GraphicElementFactory.h"
#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "graphics/elements/Elements.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/paint/Toolkit.h"
#include "graphics/skin/GraphicElementSkinFactory.h"

#include <wx/image.h>

namespace authfilter {

namespace {

struct CStartUp {
  CStartUp() {
    graphics::StartToolkit();
    wxInitAllImageHandlers();
    graphics::RegisterElements();
    graphics::RegisterFactory(orlo::makeObject<graphics::animation::CGraphicElementAnimationFactory>());
    graphics::RegisterFactory(orlo::makeObject<authed::data::CGraphicElementFactory>());
    graphics::RegisterFactory(orlo::makeObject<graphics::skin::CGraphicElementSkinFactory>());
  }
};

}  // namespace

void StartUp() {
  static const CStartUp startUp;
}

}  // namespace authfilter
