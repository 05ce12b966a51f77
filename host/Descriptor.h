#pragma once

#include <cstddef>

namespace host {

// Writes everything, in as many pieces as it takes. False with errno set if that fails.
bool writeAll(int descriptor, const void* bytes, std::size_t count);

}  // namespace host
