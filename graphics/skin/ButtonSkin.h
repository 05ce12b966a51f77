#pragma once

#include "graphics/skin/Skin.h"

namespace graphics::skin {

/// How a button looks: hover, hover_low, down, disabled, normal and selected.
class CButtonSkin : public CSkin {
public:
  static constexpr const char* kTypeName = "buttonskin";

  explicit CButtonSkin(const wxString& id);

  wxString GetSkinTypeName() const override { return kTypeName; }
};

}  // namespace graphics::skin
