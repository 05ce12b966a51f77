#pragma once

#include "graphics/geometry/DoublePoint.h"
#include "graphics/geometry/DoubleRect.h"
#include "graphics/geometry/DoubleSize.h"
#include "graphics/geometry/Margins.h"

#include <wx/gdicmn.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

/// Geometry as child nodes. A reader gives false and leaves its target alone if the child is missing; a coordinate
/// that is missing in the child stays as it is. A writer appends the child to the parent.
namespace graphics::xml {

bool ReadPoint(const wxXmlNode& parent, const wxString& name, wxPoint& target);
void WritePoint(wxXmlNode& parent, const wxString& name, const wxPoint& point);

bool ReadPoint(const wxXmlNode& parent, const wxString& name, CDoublePoint& target);
void WritePoint(wxXmlNode& parent, const wxString& name, CDoublePoint point);

bool ReadSize(const wxXmlNode& parent, const wxString& name, CDoubleSize& target);
void WriteSize(wxXmlNode& parent, const wxString& name, CDoubleSize size);

bool ReadRect(const wxXmlNode& parent, const wxString& name, CDoubleRect& target);
void WriteRect(wxXmlNode& parent, const wxString& name, const CDoubleRect& rect);

bool ReadMargins(const wxXmlNode& parent, const wxString& name, CMargins& target);
void WriteMargins(wxXmlNode& parent, const wxString& name, const CMargins& margins);

}  // namespace graphics::xml
