#include "filter/StartUp.h"

#include "graphics/animation/GraphicElementAnimationFactory.h"
#include "graphics/elements/Elements.h"
#include "graphics/model/ElementFactory.h"
#include "graphics/paint/Toolkit.h"

#include <wx/image.h>

namespace authfilter {

namespace {

struct CStartUp {
  CStartUp() {
    graphics::StartToolkit();
    wxInitAllImageHandlers();
    graphics::RegisterElements();
    graphics::RegisterFactory(orlo::makeObject<graphics::animation::CGraphicElementAnimationFactory>());
  }
};

}  // namespace

void StartUp() {
  static const CStartUp startUp;
}

}  // namespace authfilter
