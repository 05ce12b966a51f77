#include "graphics/geometry/XmlValues.h"

#include "foundation/Error.h"
#include "foundation/NumberText.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlNode.h"

#include <array>
#include <charconv>
#include <clocale>
#include <cstddef>
#include <limits>

namespace graphics::xml {

bool ReadBool(const wxXmlNode& node, const wxString& name, bool& target) {
  wxString text;
  if (!FindProperty(node, name, text)) return false;
  target = text.IsSameAs("true", false);
  return true;
}

void WriteBool(wxXmlNode& node, const wxString& name, bool value) {
  SetProperty(node, name, value ? "true" : "false");
}

bool ReadInt(const wxXmlNode& node, const wxString& name, std::int32_t& target) {
  std::int64_t value = 0;
  if (!ReadInt64(node, name, value)) return false;
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) return false;
  target = static_cast<std::int32_t>(value);
  return true;
}

void WriteInt(wxXmlNode& node, const wxString& name, std::int32_t value) {
  WriteInt64(node, name, value);
}

bool ReadInt64(const wxXmlNode& node, const wxString& name, std::int64_t& target) {
  wxString text;
  wxLongLong_t value = 0;
  if (!FindProperty(node, name, text) || !text.ToLongLong(&value, 10)) return false;
  target = value;
  return true;
}

void WriteInt64(wxXmlNode& node, const wxString& name, std::int64_t value) {
  SetProperty(node, name, std::to_string(value));
}

bool ReadDouble(const wxXmlNode& node, const wxString& name, double& target, double lower, double upper) {
  wxString text;
  if (!FindProperty(node, name, text) || text.empty()) return false;
  text.Replace(std::localeconv()->decimal_point, ".");
  text.Replace(",", ".");
  try {
    target = orlo::parseDouble(wxutil::fromWxString(text));
  } catch (const orlo::CParseError&) {
    target = 0;
    return false;
  }
  if (lower != -1 && target < lower) target = lower;
  if (upper != -1 && target > upper) target = upper;
  return true;
}

void WriteDouble(wxXmlNode& node, const wxString& name, double value) {
  std::array<char, 32> text;
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 6).ptr;
  SetProperty(node, name, wxString::FromAscii(text.data(), static_cast<std::size_t>(end - text.data())));
}

bool ReadText(const wxXmlNode& node, const wxString& name, wxString& target) {
  return FindProperty(node, name, target);
}

void WriteText(wxXmlNode& node, const wxString& name, const wxString& value) {
  SetProperty(node, name, value);
}

bool ReadFileName(const wxXmlNode& parent, const wxString& name, wxFileName& target) {
  const wxXmlNode* node = FindChild(parent, name);
  if (!node) return false;
  wxString path;
  wxString fullName;
  ReadText(*node, "path", path);
  ReadText(*node, "name", fullName);
  target.Assign(path, fullName);
  return true;
}

void WriteFileName(wxXmlNode& parent, const wxString& name, const wxFileName& file) {
  wxXmlNode& node = AppendChild(parent, name);
  WriteText(node, "path", file.GetPath(wxPATH_GET_VOLUME));
  WriteText(node, "name", file.GetFullName());
}

}  // namespace graphics::xml
