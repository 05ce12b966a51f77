#include "foundation/Signal.h"
#include "foundation/Singleton.h"
#include "foundation/posix/SignalImpl.h"

namespace orlo {

namespace posix {

class CSignalFactory : public CObject, public ISignalFactory {
public:
  P<ISignal> createSignal() override { return makeObject<CSignalImpl>(); }
};

}  // namespace posix

P<ISignalFactory>& getSignalFactory() {
  static TSingleton<ISignalFactory> singleton;
  return singleton.get([] { return makeObject<posix::CSignalFactory>(); });
}

}  // namespace orlo
