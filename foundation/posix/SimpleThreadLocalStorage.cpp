#include "foundation/posix/SimpleThreadLocalStorage.h"

#include "foundation/Singleton.h"
#include "foundation/posix/SystemError.h"

namespace orlo {

namespace posix {

CSimpleThreadLocalStorage::CSimpleThreadLocalStorage(ISimpleThreadLocalStorageFactory::ThreadEnd threadEnd) {
  const int result = pthread_key_create(&key_, threadEnd);
  if (result != 0) throwSystemError(result, "Error creating thread-local slot (%ERRORDESC%).");
}

CSimpleThreadLocalStorage::~CSimpleThreadLocalStorage() {
  pthread_key_delete(key_);
}

void* CSimpleThreadLocalStorage::get() const {
  return pthread_getspecific(key_);
}

void CSimpleThreadLocalStorage::set(void* value) {
  const int result = pthread_setspecific(key_, value);
  if (result != 0) throwSystemError(result, "Error setting thread-local slot (%ERRORDESC%).");
}

P<ISimpleThreadLocalStorage> CSimpleThreadLocalStorageFactory::createSimpleThreadLocalStorage(ThreadEnd threadEnd) {
  return makeObject<CSimpleThreadLocalStorage>(threadEnd);
}

}  // namespace posix

P<ISimpleThreadLocalStorageFactory>& getSimpleThreadLocalStorageFactory() {
  static TSingleton<ISimpleThreadLocalStorageFactory> singleton;
  return singleton.get([] { return makeObject<posix::CSimpleThreadLocalStorageFactory>(); });
}

}  // namespace orlo
