#pragma once

#include "foundation/Base.h"

namespace orlo {

/// Told at the start of an object's destructor, by objects that offer it.
class IObjectDestructListener : public virtual IBase {
public:
  virtual void onObjectDestruct(IBase* object) = 0;
};

}  // namespace orlo
