#include "foundation/PlatformNumber.h"

#include <cstdlib>
#include <langinfo.h>
#include <locale.h>

namespace orlo {

double readDouble(const char* text) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, cLocale);
}

// Unlike localeconv, it may be called by several threads at once.
const char* getDecimalPoint() {
  return nl_langinfo(RADIXCHAR);
}

}  // namespace orlo
