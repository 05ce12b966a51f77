#pragma once

#include "graphics/geometry/XmlParse.h"
#include "graphics/model/Base64Resources.h"

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/sstream.h>
#include <wx/xml/xml.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace fuzz {

/// Writes opaque pictures without loss as well, so that they stay what they are however often they are read again.
class CLosslessStore : public graphics::CBase64Resources {
public:
  void WriteBitmap(wxXmlNode& node, const wxString& name, const wxBitmap& bitmap, const wxFileName& file) override {
    wxImage image = bitmap.ConvertToImage();
    if (!image.HasAlpha()) image.InitAlpha();
    CBase64Resources::WriteBitmap(node, name, wxBitmap(image), file);
  }
};

/// Null for what is no XML document.
inline std::unique_ptr<wxXmlDocument> parse(const std::uint8_t* data, std::size_t size) {
  return graphics::xml::Parse({data, size}, {256, 100'000}).document;
}

/// What was written must be a document.
inline std::unique_ptr<wxXmlDocument> parseWritten(const std::string& text) {
  auto document = parse(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
  if (!document) __builtin_trap();
  return document;
}

inline std::string textOf(const wxXmlDocument& document) {
  wxStringOutputStream stream;
  document.Save(stream, wxXML_NO_INDENTATION);
  return stream.GetString().utf8_string();
}

}  // namespace fuzz
