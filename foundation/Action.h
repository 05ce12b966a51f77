#pragma once

#include "foundation/Base.h"

namespace orlo {

/// A unit of work that can be handed over, such as the body of a thread.
class IAction : public virtual IBase {
public:
  virtual void run() = 0;
};

}  // namespace orlo
