#include "foundation/Mutex.h"
#include "foundation/posix/GlobalMutexImpl.h"
#include "foundation/posix/MutexImpl.h"

namespace orlo {

namespace posix {

class CMutexFactory : public CObject, public IMutexFactory {
public:
  P<IMutex> createMutex() override { return makeObject<CMutexImpl>(); }
  P<IMutex> createGlobalMutex(const String& name) override { return makeObject<CGlobalMutexImpl>(name); }
};

}  // namespace posix

P<IMutexFactory>& getMutexFactory() {
  static P<IMutexFactory>& factory = *new P<IMutexFactory>(makeObject<posix::CMutexFactory>());
  return factory;
}

}  // namespace orlo
