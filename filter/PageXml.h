#pragma once

#include <wx/xml/xml.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace authfilter {

/// A page's XML: a document, or none and, where a limit was reached, which.
struct CPageXml {
  std::unique_ptr<wxXmlDocument> document;
  std::string limit;
};

/// Parses XML that nobody has looked at before. Limits: elements nest at most 256 deep, and there are at most 4,000,000
/// of them.
CPageXml ParsePageXml(std::span<const std::uint8_t> bytes);

}  // namespace authfilter
