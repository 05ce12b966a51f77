#pragma once

#include <cstdint>
#include <string>

namespace orlo::posix {

/// 65536 times the major version of a shared library, plus the minor one, as the name of its file says; 0 without one.
/// A library that isn't loaded is loaded for the question.
std::int32_t libraryVersion(const std::string& name);

/// The same of a file's name: of "libz.so.1.2.13" 0x10002.
std::int32_t versionInName(const std::string& file);

}  // namespace orlo::posix
