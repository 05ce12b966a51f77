#pragma once

#include "foundation/Base.h"
#include "foundation/Pointer.h"

namespace orlo {

/// One pointer per thread, null in each until it is set there.
class ISimpleThreadLocalStorage : public virtual IBase {
public:
  virtual void* get() const = 0;
  virtual void set(void* value) = 0;
};

class ISimpleThreadLocalStorageFactory : public virtual IBase {
public:
  /// Called on a thread that ends, with the value it leaves if that is not null.
  using ThreadEnd = void (*)(void* value);

  virtual P<ISimpleThreadLocalStorage> createSimpleThreadLocalStorage(ThreadEnd threadEnd) = 0;
};

P<ISimpleThreadLocalStorageFactory>& getSimpleThreadLocalStorageFactory();

}  // namespace orlo
