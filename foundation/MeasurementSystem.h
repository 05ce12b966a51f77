#pragma once

namespace orlo {

enum class MeasurementSystem { none, metric, imperial };

/// What the user's locale measures lengths in; none if that cannot be found out.
MeasurementSystem getMeasurementSystem();

}  // namespace orlo
