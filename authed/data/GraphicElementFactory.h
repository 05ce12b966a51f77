#pragma once

#include "foundation/Object.h"
#include "graphics/model/ElementFactory.h"

namespace authed::data {

/// Makes action buttons, by "authed-state-button-action" or the empty name, and movie images, by "movie-image". The
/// case of the letters doesn't matter.
class CGraphicElementFactory : public orlo::CObject, public virtual graphics::IGraphicElementFactory {
public:
  orlo::P<graphics::CGraphicElement> CreateElement(const wxString& typeName) override;
};

}  // namespace authed::data
