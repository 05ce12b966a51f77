#pragma once

#include "foundation/Object.h"

namespace graphics {

class CGraphicBase;

/// Told of every change of the things it listens to, on the thread that makes the change.
class IGraphicListener : public orlo::CObject {
public:
  virtual void OnGraphicChanged(CGraphicBase& element) = 0;
};

}  // namespace graphics
