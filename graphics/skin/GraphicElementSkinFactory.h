#pragma once

#include "foundation/Object.h"
#include "graphics/model/ElementFactory.h"

namespace graphics::skin {

/// Makes skin buttons from their type name, exactly as it is written.
class CGraphicElementSkinFactory : public orlo::CObject, public virtual IGraphicElementFactory {
public:
  orlo::P<CGraphicElement> CreateElement(const wxString& typeName) override;
};

}  // namespace graphics::skin
