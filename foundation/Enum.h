#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

namespace orlo {

/// A walk over objects that the caller only reads.
class IConstEnum : public virtual IBase {
public:
  virtual bool hasNext() = 0;
  /// How many objects the whole walk has, wherever it stands.
  virtual int getCount() = 0;
  /// Behind the last object it throws CEndOfEnumError.
  virtual PC<IBase> nextConst() = 0;
  /// Back to the first object.
  virtual void reset() = 0;
};

/// A walk over objects that the caller may change.
class IEnum : public virtual IConstEnum {
public:
  /// Behind the last object it throws CEndOfEnumError.
  virtual P<IBase> next() = 0;
};

}  // namespace orlo
