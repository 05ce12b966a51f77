#include "authed/data/Encodable.h"

#include "graphics/geometry/XmlNode.h"

namespace authed::data {

/// The files of the encoding stand there; a page has none.
void CEncodable::WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& /*store*/) const {
  graphics::xml::AppendChild(node, "finished-files");
}

void CEncodable::ReadFromXml(const wxXmlNode& /*node*/, graphics::IResourceInputStore& /*store*/) {}

}  // namespace authed::data
