#include "authed/data/GraphicElementFactory.h"

#include "authed/data/GraphicActionButton.h"
#include "graphics/geometry/XmlNode.h"

namespace authed::data {

using namespace graphics;

orlo::P<CGraphicElement> CGraphicElementFactory::CreateElement(const wxString& typeName) {
  if (typeName.empty() || xml::IsSameName(typeName, CGraphicActionButton::kTypeName))
    return orlo::makeObject<CGraphicActionButton>(orlo::P<skin::CSkin>());
  return nullptr;
}

}  // namespace authed::data
