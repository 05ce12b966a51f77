#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

// Standard alphabet, no padding: the module counts padding as content.
std::string toBase64(std::string_view bytes);

// What the text stands for, up to the first character that is none of the alphabet.
struct Decoded {
  std::vector<unsigned char> bytes;
  std::size_t length = 0;  // of the text that was read
};
Decoded fromBase64(std::string_view text);

}  // namespace host
