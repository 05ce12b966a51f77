#pragma once

#include "graphics/skin/Skin.h"

namespace graphics::skin {

/// A shape that others are cut to, in the one state normal.
class CShapeSkin : public CSkin {
public:
  static constexpr const char* kTypeName = "shapeskin";

  explicit CShapeSkin(const wxString& id);

  wxString GetSkinTypeName() const override { return kTypeName; }
};

}  // namespace graphics::skin
