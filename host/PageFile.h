#pragma once

#include <cstddef>
#include <string>

namespace host {

// A page's XML as it stands in its file.
struct PageFile {
  static constexpr std::size_t maxBytes = std::size_t{256} << 20;

  std::string path;
  std::string xml;
};

// Throws InputError if the file cannot be read or is too large.
PageFile readPage(const std::string& path);

}  // namespace host
