#include "graphics/skin/ButtonSkin.h"

namespace graphics::skin {

CButtonSkin::CButtonSkin(const wxString& id) : CSkin(id) {
  for (const char* const name : {"hover", "hover_low", "down", "disabled", "normal", "selected"})
    AddState(orlo::makeObject<CState>(name));
}

}  // namespace graphics::skin
