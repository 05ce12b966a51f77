#include "graphics/skin/ShapeSkin.h"

namespace graphics::skin {

CShapeSkin::CShapeSkin(const wxString& id) : CSkin(id) {
  AddState(orlo::makeObject<CState>("normal"));
}

}  // namespace graphics::skin
