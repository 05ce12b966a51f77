#include "graphics/skin/GraphicElementSkinFactory.h"

#include "graphics/skin/GraphicSkinButton.h"

namespace graphics::skin {

orlo::P<CGraphicElement> CGraphicElementSkinFactory::CreateElement(const wxString& typeName) {
  if (typeName != CGraphicSkinButton::kTypeName) return nullptr;
  return orlo::makeObject<CGraphicSkinButton>();
}

}  // namespace graphics::skin
