#include "host/FileName.h"

#include <cctype>
#include <filesystem>
#include <string_view>
#include <strings.h>

namespace host {

bool hasExtension(const std::string& path, const std::string& extension) {
  return path.size() > extension.size() &&
         strcasecmp(path.c_str() + path.size() - extension.size(), extension.c_str()) == 0;
}

std::string fileUri(const std::string& path) {
  std::string uri = "file://";
  for (const char letter : std::filesystem::absolute(path).string()) {
    constexpr std::string_view plain = "/-_.~";
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x80 && (std::isalnum(byte) || plain.find(letter) != std::string_view::npos)) {
      uri += letter;
    } else {
      constexpr std::string_view digits = "0123456789ABCDEF";
      uri.append("%").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
    }
  }
  return uri;
}

}  // namespace host
