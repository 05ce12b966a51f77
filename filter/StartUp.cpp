#include "filter/StartUp.h"

#include "graphics/elements/Elements.h"
#include "graphics/paint/Toolkit.h"

#include <wx/image.h>

namespace authfilter {

namespace {

struct CStartUp {
  CStartUp() {
    graphics::StartToolkit();
    wxInitAllImageHandlers();
    graphics::RegisterElements();
  }
};

}  // namespace

void StartUp() {
  static const CStartUp startUp;
}

}  // namespace authfilter
