#include "host/FileName.h"

#include <strings.h>

namespace host {

bool hasExtension(const std::string& path, const std::string& extension) {
  return path.size() > extension.size() &&
         strcasecmp(path.c_str() + path.size() - extension.size(), extension.c_str()) == 0;
}

}  // namespace host
