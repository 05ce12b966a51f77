#include "host/FrameSource.h"

#include "host/ClipSource.h"
#include "host/ColourSource.h"

namespace host {

std::unique_ptr<FrameSource> openSource(const std::string& input) {
  if (input.front() == '#') return std::make_unique<ColourSource>(input);
  return std::make_unique<ClipSource>(input);
}

}  // namespace host
