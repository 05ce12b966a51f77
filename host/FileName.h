#pragma once

#include <string>

namespace host {

// Whether the name ends in the extension, ".png" say, in any case.
bool hasExtension(const std::string& path, const std::string& extension);

// The URI of a file or folder, which need not be there.
std::string fileUri(const std::string& path);

}  // namespace host
