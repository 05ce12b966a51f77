#include "graphics/geometry/XmlStyles.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"

#include <algorithm>
#include <cstdint>

namespace graphics::xml {

namespace {

constexpr std::int32_t kLightInFiles = 91;
constexpr std::int32_t kBoldInFiles = 92;
constexpr std::int32_t kNormalInFiles = 90;

unsigned char ReadChannel(const wxXmlNode& node, const wxString& name) {
  std::int32_t value = 0;
  ReadInt(node, name, value);
  return static_cast<unsigned char>(std::clamp(value, 0, 255));
}

bool IsHatch(std::int32_t style) {
  return style >= wxHATCHSTYLE_FIRST && style <= wxHATCHSTYLE_LAST;
}

bool IsBrushStyle(std::int32_t style) {
  return style == wxBRUSHSTYLE_SOLID || style == wxBRUSHSTYLE_TRANSPARENT || IsHatch(style);
}

bool IsPenStyle(std::int32_t style) {
  return (style >= wxPENSTYLE_SOLID && style <= wxPENSTYLE_TRANSPARENT) || IsHatch(style);
}

bool IsFontStyle(std::int32_t style) {
  return style == wxFONTSTYLE_NORMAL || style == wxFONTSTYLE_ITALIC || style == wxFONTSTYLE_SLANT;
}

wxFontWeight WeightFromFile(std::int32_t weight) {
  switch (weight) {
    case kLightInFiles:
      return wxFONTWEIGHT_LIGHT;
    case kBoldInFiles:
      return wxFONTWEIGHT_BOLD;
    default:
      return wxFONTWEIGHT_NORMAL;
  }
}

std::int32_t WeightToFile(int weight) {
  if (weight < wxFONTWEIGHT_NORMAL) return kLightInFiles;
  return weight >= wxFONTWEIGHT_SEMIBOLD ? kBoldInFiles : kNormalInFiles;
}

}  // namespace

bool ReadColour(const wxXmlNode& parent, const wxString& name, wxColour& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  target.Set(ReadChannel(*node, "red"), ReadChannel(*node, "green"), ReadChannel(*node, "blue"),
             ReadChannel(*node, "alpha"));
  return true;
}

void WriteColour(wxXmlNode& parent, const wxString& name, const wxColour& colour) {
  wxXmlNode& node = AppendChild(parent, name);
  const bool ok = colour.IsOk();
  WriteInt(node, "red", ok ? colour.Red() : 0);
  WriteInt(node, "green", ok ? colour.Green() : 0);
  WriteInt(node, "blue", ok ? colour.Blue() : 0);
  WriteInt(node, "alpha", ok ? colour.Alpha() : 0);
}

bool ReadBrush(const wxXmlNode& parent, const wxString& name, wxBrush& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  wxColour colour = target.IsOk() ? target.GetColour() : *wxBLACK;
  std::int32_t style = target.IsOk() ? target.GetStyle() : wxBRUSHSTYLE_SOLID;
  ReadColour(*node, "color", colour);
  if (std::int32_t read = 0; ReadInt(*node, "style", read) && IsBrushStyle(read)) style = read;
  target = wxBrush(colour, static_cast<wxBrushStyle>(style));
  return true;
}

void WriteBrush(wxXmlNode& parent, const wxString& name, const wxBrush& brush) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteColour(node, "color", brush.IsOk() ? brush.GetColour() : wxNullColour);
  WriteInt(node, "style", brush.IsOk() ? brush.GetStyle() : wxBRUSHSTYLE_TRANSPARENT);
}

bool ReadPen(const wxXmlNode& parent, const wxString& name, wxPen& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  wxColour colour = target.IsOk() ? target.GetColour() : *wxBLACK;
  std::int32_t style = target.IsOk() ? target.GetStyle() : wxPENSTYLE_SOLID;
  std::int32_t width = target.IsOk() ? target.GetWidth() : 1;
  ReadColour(*node, "color", colour);
  if (std::int32_t read = 0; ReadInt(*node, "style", read) && IsPenStyle(read)) style = read;
  ReadInt(*node, "width", width);
  target = wxPen(colour, std::clamp(width, 0, 65535), static_cast<wxPenStyle>(style));
  return true;
}

void WritePen(wxXmlNode& parent, const wxString& name, const wxPen& pen) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteColour(node, "color", pen.IsOk() ? pen.GetColour() : wxNullColour);
  WriteInt(node, "style", pen.IsOk() ? pen.GetStyle() : wxPENSTYLE_TRANSPARENT);
  WriteInt(node, "width", pen.IsOk() ? pen.GetWidth() : 1);
}

bool ReadFont(const wxXmlNode& parent, const wxString& name, wxFont& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  if (!target.IsOk()) target = wxFont(wxFontInfo(10));
  wxString face = target.GetFaceName();
  std::int32_t size = target.GetPointSize();
  std::int32_t style = target.GetStyle();
  std::int32_t weight = WeightToFile(target.GetNumericWeight());
  bool underlined = target.GetUnderlined();
  ReadText(*node, "name", face);
  ReadInt(*node, "pointsize", size);
  if (std::int32_t read = 0; ReadInt(*node, "style", read) && IsFontStyle(read)) style = read;
  ReadInt(*node, "weight", weight);
  ReadBool(*node, "underlined", underlined);
  // The font's own setter of the face forgets all else if the face is not installed.
  target = wxFont(wxFontInfo(std::clamp(size, 1, 2000))
                      .Family(target.GetFamily())
                      .FaceName(face)
                      .Style(static_cast<wxFontStyle>(style))
                      .Weight(WeightFromFile(weight))
                      .Underlined(underlined));
  return true;
}

void WriteFont(wxXmlNode& parent, const wxString& name, const wxFont& font) {
  wxXmlNode& node = AppendChild(parent, name);
  if (!font.IsOk()) return;
  WriteText(node, "name", font.GetFaceName());
  WriteInt(node, "pointsize", font.GetPointSize());
  WriteInt(node, "style", font.GetStyle());
  WriteInt(node, "weight", WeightToFile(font.GetNumericWeight()));
  WriteBool(node, "underlined", font.GetUnderlined());
}

bool ReadGradient(const wxXmlNode& parent, const wxString& name, CGradient& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  ReadColour(*node, "start", target.start);
  ReadColour(*node, "end", target.end);
  ReadBool(*node, "ok", target.ok);
  return true;
}

void WriteGradient(wxXmlNode& parent, const wxString& name, const CGradient& gradient) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteColour(node, "start", gradient.start);
  WriteColour(node, "end", gradient.end);
  WriteBool(node, "ok", gradient.ok);
}

}  // namespace graphics::xml
