#include "foundation/UTF32CharEncoding.h"

#include "foundation/Singleton.h"

namespace orlo {

P<ICharEncoding>& getUTF32CharEncoding() {
  static TSingleton<ICharEncoding> singleton;
  return singleton.get([] { return P<ICharEncoding>(makeObject<CUTF32CharEncoding>()); });
}

P<ICharEncoding>& getWCharEncoding() {
  if constexpr (sizeof(wchar_t) == sizeof(char16_t))
    return getUTF16CharEncoding();
  else
    return getUTF32CharEncoding();
}

}  // namespace orlo
