#pragma once

#include "foundation/MersenneTwisterRandomNumberGenerator.h"
#include "foundation/String.h"

#include <string>

namespace orlo::posix {

/// Makes a file or folder that was not there before, with a random number between prefix and suffix. Answers 0 or the
/// errno value of the failure; that a name exists is none.
int createUniqueFile(const std::string& folder, const String& prefix, const String& suffix,
                     CMersenneTwisterRandomNumberGenerator& random, std::string& path);
int createUniqueFolder(const std::string& folder, const String& prefix, const String& suffix,
                       CMersenneTwisterRandomNumberGenerator& random, std::string& path);

}  // namespace orlo::posix
