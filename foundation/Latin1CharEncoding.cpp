#include "foundation/Latin1CharEncoding.h"

#include "foundation/Singleton.h"

namespace orlo {

P<ICharEncoding>& getLatin1CharEncoding() {
  static TSingleton<ICharEncoding> singleton;
  return singleton.get([] { return P<ICharEncoding>(makeObject<CLatin1CharEncoding>()); });
}

}  // namespace orlo
