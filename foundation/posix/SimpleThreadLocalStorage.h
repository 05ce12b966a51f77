#pragma once

#include "foundation/Object.h"
#include "foundation/SimpleThreadLocalStorage.h"

#include <pthread.h>

namespace orlo::posix {

class CSimpleThreadLocalStorage : public CObject, public ISimpleThreadLocalStorage {
public:
  /// Throws CError if the process has no slot left.
  explicit CSimpleThreadLocalStorage(ISimpleThreadLocalStorageFactory::ThreadEnd threadEnd);
  ~CSimpleThreadLocalStorage() override;
  CSimpleThreadLocalStorage(const CSimpleThreadLocalStorage&) = delete;
  CSimpleThreadLocalStorage& operator=(const CSimpleThreadLocalStorage&) = delete;

  void* get() const override;
  void set(void* value) override;

private:
  pthread_key_t key_{};
};

class CSimpleThreadLocalStorageFactory : public CObject, public ISimpleThreadLocalStorageFactory {
public:
  P<ISimpleThreadLocalStorage> createSimpleThreadLocalStorage(ThreadEnd threadEnd) override;
};

}  // namespace orlo::posix
