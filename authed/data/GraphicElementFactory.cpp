#include "authed/data/GraphicElementFactory.h"

#include "authed/data/GraphicActionButton.h"
#include "authed/data/GraphicMovieImage.h"
#include "graphics/geometry/XmlNode.h"

namespace authed::data {

using namespace graphics;

orlo::P<CGraphicElement> CGraphicElementFactory::CreateElement(const wxString& typeName) {
  if (typeName.empty() || xml::IsSameName(typeName, CGraphicActionButton::kTypeName))
    return orlo::makeObject<CGraphicActionButton>(orlo::P<skin::CSkin>());
  if (xml::IsSameName(typeName, CGraphicMovieImage::kTypeName)) return orlo::makeObject<CGraphicMovieImage>();
  return nullptr;
}

}  // namespace authed::data
