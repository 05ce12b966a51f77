#include "host/PageFile.h"

#include "host/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace host {

PageFile readPage(const std::string& path) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
  if (!file) throw InputError(located(path, std::strerror(errno)));

  PageFile page{path, {}};
  char block[65536];
  while (const std::size_t count = std::fread(block, 1, sizeof block, file.get())) {
    page.xml.append(block, count);
    if (page.xml.size() > PageFile::maxBytes) {
      throw InputError(located(path, "larger than " + std::to_string(PageFile::maxBytes >> 20) + " MB"));
    }
  }
  if (std::ferror(file.get())) throw InputError(located(path, std::strerror(errno)));
  return page;
}

}  // namespace host
