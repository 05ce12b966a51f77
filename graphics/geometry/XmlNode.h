#pragma once

#include <wx/string.h>
#include <wx/xml/xml.h>

/// Nodes and properties of page files. Names compare without regard to case.
namespace graphics::xml {

/// Equal without regard to case.
inline bool IsSameName(const wxString& a, const wxString& b) {
  return a.length() == b.length() && a.IsSameAs(b, false);
}

/// The first child element of that name, or null.
const wxXmlNode* FindChild(const wxXmlNode& parent, const wxString& name);

/// A new child element, behind all other children. Walks the children: use CChildAppender for many.
wxXmlNode& AppendChild(wxXmlNode& parent, const wxString& name);

/// False, and the value stays, if there is no such property.
bool FindProperty(const wxXmlNode& node, const wxString& name, wxString& value);

/// Replaces a property of that name.
void SetProperty(wxXmlNode& node, const wxString& name, const wxString& value);

/// Appends children without walking those that are there each time. While it is in use nobody else may append to the
/// node or take children away.
class CChildAppender {
public:
  explicit CChildAppender(wxXmlNode& parent) : parent_(parent) {}
  wxXmlNode& Append(const wxString& name);

private:
  wxXmlNode& parent_;
  wxXmlNode* last_ = nullptr;
};

}  // namespace graphics::xml
