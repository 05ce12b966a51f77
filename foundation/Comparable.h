#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

namespace orlo {

/// Root of ordered values.
class IComparable : public virtual IBase {
public:
  /// Negative, zero or positive. An object that cannot be compared with this one throws CCastError; null is less
  /// than everything.
  virtual int compare(PC<IBase> other) const = 0;
};

}  // namespace orlo
