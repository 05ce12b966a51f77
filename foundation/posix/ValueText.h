#pragma once

#include "foundation/posix/StoredValue.h"

#include <string>
#include <string_view>

namespace orlo::posix {

/// The texts that the scanner reads as that name or value. Names and texts are in UTF-8.
std::string nameText(std::string_view name);
std::string valueText(const CStoredValue& value);

}  // namespace orlo::posix
