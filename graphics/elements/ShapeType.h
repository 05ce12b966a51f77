#pragma once

#include <wx/string.h>

#include <cstdint>

namespace graphics {

/// The outlines that a shape can have.
namespace ShapeType {
constexpr std::int32_t kRectangle = 0;
constexpr std::int32_t kRoundedRectangle = 1;
constexpr std::int32_t kEllipse = 2;
constexpr std::int32_t kFreeForm = 3;
}  // namespace ShapeType

/// Throws wxutil::CWXError for a number that is no shape.
wxString ShapeTypeToXml(std::int32_t type);
/// Without regard to case. Throws wxutil::CWXError for a text that names no shape.
std::int32_t ShapeTypeFromXml(const wxString& text);
/// Localised. Empty for free forms, which have names of their own.
wxString GetShapeTypeName(std::int32_t type);

}  // namespace graphics
