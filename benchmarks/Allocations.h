#pragma once

#include <cstddef>

/// Calls of operator new in this process so far, those of the module included.
std::size_t AllocationCount();
