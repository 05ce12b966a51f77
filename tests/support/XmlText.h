#pragma once

#include "graphics/geometry/XmlParse.h"

#include <wx/sstream.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

#include <memory>
#include <string>

namespace graphics {

inline std::unique_ptr<wxXmlDocument> ParseXml(const wxString& text) {
  const std::string utf8 = text.utf8_string();
  return xml::Parse({reinterpret_cast<const unsigned char*>(utf8.data()), utf8.size()}, {256, 1'000'000}).document;
}

inline wxString ToText(const wxXmlNode& node) {
  wxXmlDocument document;
  document.SetRoot(new wxXmlNode(node));
  wxStringOutputStream stream;
  document.Save(stream, wxXML_NO_INDENTATION);
  const wxString text = stream.GetString();
  return text.Mid(text.find("?>") + 2).Trim().Trim(false);
}

}  // namespace graphics
