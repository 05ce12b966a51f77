#include "foundation/MeasurementSystem.h"

#include <langinfo.h>
#include <locale.h>

namespace orlo {

MeasurementSystem getMeasurementSystem() {
  const locale_t user = newlocale(LC_MEASUREMENT_MASK, "", nullptr);
  if (!user) return MeasurementSystem::none;
  constexpr char kMetric = 1;
  const bool metric = *nl_langinfo_l(_NL_MEASUREMENT_MEASUREMENT, user) == kMetric;
  freelocale(user);
  return metric ? MeasurementSystem::metric : MeasurementSystem::imperial;
}

}  // namespace orlo
