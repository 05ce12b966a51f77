#include "foundation/PlatformNumber.h"

#include <cstdlib>
#include <locale.h>

namespace orlo {

double readDouble(const char* text) {
  static const locale_t cLocale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text, nullptr, cLocale);
}

}  // namespace orlo
