#include "foundation/UTF16CharEncoding.h"

#include "foundation/Singleton.h"

namespace orlo {

P<ICharEncoding>& getUTF16CharEncoding() {
  static TSingleton<ICharEncoding> singleton;
  return singleton.get([] { return P<ICharEncoding>(makeObject<CUTF16CharEncoding>()); });
}

}  // namespace orlo
