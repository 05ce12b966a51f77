#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orlo::posix {

/// The content from the start of the file on. Throws std::system_error; more bytes than that are EFBIG.
std::string readAll(int file, std::size_t mostBytes);

/// 0 or the errno value of the failure.
int writeAll(int file, std::string_view bytes);

}  // namespace orlo::posix
