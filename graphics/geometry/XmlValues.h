#pragma once

#include <wx/filename.h>
#include <wx/string.h>
#include <wx/xml/xml.h>

#include <cstdint>

/// Values as properties of a node. A reader gives false and leaves its target alone if the property is missing; a
/// writer replaces a property of the name.
namespace graphics::xml {

/// True only for "true" in any case.
bool ReadBool(const wxXmlNode& node, const wxString& name, bool& target);
void WriteBool(wxXmlNode& node, const wxString& name, bool value);

/// Decimal. False, and the target stays, for a text that is no number or a number out of range.
bool ReadInt(const wxXmlNode& node, const wxString& name, std::int32_t& target);
void WriteInt(wxXmlNode& node, const wxString& name, std::int32_t value);
bool ReadInt64(const wxXmlNode& node, const wxString& name, std::int64_t& target);
void WriteInt64(wxXmlNode& node, const wxString& name, std::int64_t value);

/// Reads "." and "," as decimal point, in every locale. An empty text leaves the target alone; one that is no number
/// sets it to 0 and gives false. A result beyond a bound becomes the bound; -1 stands for no bound.
bool ReadDouble(const wxXmlNode& node, const wxString& name, double& target, double lower = -1, double upper = -1);
/// Six significant digits, which is the precision of page files, with "." as decimal point.
void WriteDouble(wxXmlNode& node, const wxString& name, double value);

bool ReadText(const wxXmlNode& node, const wxString& name, wxString& target);
void WriteText(wxXmlNode& node, const wxString& name, const wxString& value);

/// A child node with the properties "path" and "name".
bool ReadFileName(const wxXmlNode& parent, const wxString& name, wxFileName& target);
void WriteFileName(wxXmlNode& parent, const wxString& name, const wxFileName& file);

}  // namespace graphics::xml
