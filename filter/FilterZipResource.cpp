#include "filter/FilterZipResource.h"

#include "graphics/geometry/XmlNode.h"

namespace authfilter {

std::unique_ptr<wxBitmap> CFilterZipResource::ReadBitmap(const wxXmlNode& node, const wxString& name,
                                                         wxFileName& file) {
  return OrSubstitute(CZipCatalogue::ReadBitmap(node, name, file), node, name);
}

std::unique_ptr<wxBitmap> CFilterZipResource::ReadBitmapOfType(const wxXmlNode& node, const wxString& name,
                                                               wxBitmapType type, wxFileName& file) {
  return OrSubstitute(CZipCatalogue::ReadBitmapOfType(node, name, type, file), node, name);
}

std::unique_ptr<wxBitmap> CFilterZipResource::OrSubstitute(std::unique_ptr<wxBitmap> bitmap, const wxXmlNode& node,
                                                           const wxString& name) {
  if (bitmap || !graphics::xml::FindChild(node, name) || !substitute_.Get().IsOk()) return bitmap;
  return std::make_unique<wxBitmap>(substitute_.Get());
}

}  // namespace authfilter
