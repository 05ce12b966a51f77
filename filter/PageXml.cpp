#include "filter/PageXml.h"

#include "graphics/geometry/XmlParse.h"

#include <utility>

namespace authfilter {

namespace {

constexpr graphics::xml::CParseLimits kLimits{.depth = 256, .elements = 4'000'000};

}  // namespace

CPageXml ParsePageXml(std::span<const std::uint8_t> bytes) {
  graphics::xml::CParsed parsed = graphics::xml::Parse(bytes, kLimits);
  CPageXml result;
  if (parsed.beyondLimit) result.limit = parsed.problem;
  result.document = std::move(parsed.document);
  return result;
}

}  // namespace authfilter
