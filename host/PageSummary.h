#pragma once

#include "host/PageContent.h"
#include "host/PageResources.h"

#include <string>
#include <vector>

namespace host {

// The ratio as people know it: "16:9", "about 16:9", or "1.234:1".
std::string aspectName(double aspect);

// What a page holds, in a few lines.
std::string summarise(const PageContent& content, const std::vector<Resource>& resources);

}  // namespace host
