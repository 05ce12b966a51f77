#include "authed/data/Chapter.h"

#include "graphics/geometry/XmlValues.h"

namespace authed::data {

using namespace graphics;

void CChapter::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  xml::WriteDouble(node, "timestamp", timestamp_);
  xml::WriteText(node, "name", name_);
  thumbnail_.WriteToXml(node, "attachment-thumbnail", store);
}

void CChapter::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  xml::ReadDouble(node, "timestamp", timestamp_);
  xml::ReadText(node, "name", name_);
  thumbnail_.ReadFromXml(node, "attachment-thumbnail", store);
}

}  // namespace authed::data
