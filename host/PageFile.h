#pragma once

#include <cstddef>
#include <string>

namespace host {

// A page's XML as it stands in its file.
struct PageFile {
  static constexpr std::size_t maxBytes = 256 * 1024 * 1024;

  std::string path;
  std::string xml;
};

// Throws InputError if the file cannot be read or is too large.
PageFile readPage(const std::string& path);

}  // namespace host
