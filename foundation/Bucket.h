#pragma once

#include "foundation/Enum.h"

namespace orlo {

/// A collection of objects, in no order. An object may be in it several times; what it is told by is its identity.
class IConstBucket : public virtual IBase {
public:
  virtual int getCount() const = 0;
  virtual bool isEmpty() const = 0;
  virtual bool contains(const PC<IBase>& object) const = 0;
  /// Walks do not notice when the collection changes under them; they never leave it, though.
  virtual P<IConstEnum> getConstEnum() const = 0;
};

class IBucket : public virtual IConstBucket {
public:
  virtual void add(P<IBase> object) = 0;
  /// Takes the object out once, and tells whether it was there.
  virtual bool remove(const PC<IBase>& object) = 0;
  virtual void removeAll() = 0;
  virtual P<IEnum> getEnum() = 0;
};

}  // namespace orlo
