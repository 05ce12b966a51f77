#pragma once

#include <string>
#include <string_view>

namespace host {

// Standard alphabet, no padding: the module counts padding as content.
std::string toBase64(std::string_view bytes);

}  // namespace host
