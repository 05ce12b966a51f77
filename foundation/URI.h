#pragma once

#include "foundation/Base.h"

namespace orlo {

/// The location of a file or resource.
class IURI : public virtual IBase {
public:
  virtual String toString() const = 0;
};

}  // namespace orlo
