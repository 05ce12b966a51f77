#include "filter/PageXml.h"

#include "graphics/geometry/XmlScan.h"

#include <wx/log.h>
#include <wx/mstream.h>

namespace authfilter {

namespace {

constexpr graphics::xml::CScanLimits kLimits{.depth = 256, .elements = 4'000'000};

}  // namespace

CPageXml ParsePageXml(std::span<const std::uint8_t> bytes) {
  CPageXml result;
  const graphics::xml::CScanResult scan = graphics::xml::Scan(bytes, kLimits);
  if (scan.verdict == graphics::xml::EScan::beyondLimit) result.limit = scan.problem;
  if (scan.verdict != graphics::xml::EScan::good) return result;

  const wxLogNull quiet;
  wxMemoryInputStream stream(bytes.data(), bytes.size());
  auto document = std::make_unique<wxXmlDocument>();
  if (document->Load(stream, "UTF-8", 0)) result.document = std::move(document);
  return result;
}

}  // namespace authfilter
