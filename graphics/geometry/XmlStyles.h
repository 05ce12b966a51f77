#pragma once

#include "graphics/geometry/Gradient.h"

#include <wx/brush.h>
#include <wx/colour.h>
#include <wx/font.h>
#include <wx/pen.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

/// Colours, brushes, pens and fonts as child nodes. A reader gives false and leaves its target alone if the child is
/// missing. A writer appends the child to the parent.
namespace graphics::xml {

/// Decimal properties "red", "green", "blue", "alpha"; one that is missing counts 0, also alpha. Values are brought
/// into 0 to 255.
bool ReadColour(const wxXmlNode& parent, const wxString& name, wxColour& target);
void WriteColour(wxXmlNode& parent, const wxString& name, const wxColour& colour);

/// Numbers that stand for no style, or for one that needs a picture of its own, leave the style of the target.
bool ReadBrush(const wxXmlNode& parent, const wxString& name, wxBrush& target);
void WriteBrush(wxXmlNode& parent, const wxString& name, const wxBrush& brush);

/// As a brush; the width is brought into 0 to 65535.
bool ReadPen(const wxXmlNode& parent, const wxString& name, wxPen& target);
void WritePen(wxXmlNode& parent, const wxString& name, const wxPen& pen);

/// The weight is 90 normal, 91 light or 92 bold in files, whatever the toolkit's own numbers are. The size is brought
/// into 1 to 2000 points.
bool ReadFont(const wxXmlNode& parent, const wxString& name, wxFont& target);
void WriteFont(wxXmlNode& parent, const wxString& name, const wxFont& font);

bool ReadGradient(const wxXmlNode& parent, const wxString& name, CGradient& target);
void WriteGradient(wxXmlNode& parent, const wxString& name, const CGradient& gradient);

}  // namespace graphics::xml
