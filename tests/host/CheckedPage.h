#pragma once

#include "tests/host/Command.h"

#include <string>

namespace test {

/// Where an element of a tested page lies.
inline const std::string place = "<center x=\"80\" y=\"45\"/><size width=\"60\" height=\"40\"/>";

/// What `mfilter check` says of a file, or of a page with this content.
Outcome check(const Folder& folder, const std::string& name);
Outcome check(const std::string& content);

/// What is said of a page with these elements, which begin in line 4, before the count of errors and warnings: of one
/// that has errors, and of one that has none.
std::string errors(const std::string& elements);
std::string warnings(const std::string& elements);

}  // namespace test
