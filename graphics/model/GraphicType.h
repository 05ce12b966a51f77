#pragma once

#include <wx/string.h>

#include <cstdint>

namespace graphics {

/// The numbers of the element kinds.
namespace GraphicType {
constexpr std::int32_t kBase = 0;
constexpr std::int32_t kPaper = 1;
constexpr std::int32_t kImage = 2;
constexpr std::int32_t kText = 3;
constexpr std::int32_t kTextCircle = 4;
constexpr std::int32_t kTable = 5;
constexpr std::int32_t kLine = 6;
constexpr std::int32_t kPoint = 7;
constexpr std::int32_t kCircle = 8;
constexpr std::int32_t kRectangle = 9;
constexpr std::int32_t kShape = 10;
constexpr std::int32_t kArrow = 11;
constexpr std::int32_t kDimension = 12;
constexpr std::int32_t kCustom = 13;
constexpr std::int32_t kDummy = 14;
constexpr std::int32_t kStateButton = 15;
constexpr std::int32_t kAnimation = 16;
constexpr std::int32_t kMirror = 17;
constexpr std::int32_t kLabel = 18;
constexpr std::int32_t kCount = 19;
}  // namespace GraphicType

/// The node name of a kind. Throws wxutil::CWXError for a number that is none.
wxString GraphicTypeToXml(std::int32_t type);
/// The kind of a node name, without regard to case. Throws wxutil::CWXError for any other name.
std::int32_t GraphicTypeFromXml(const wxString& name);
bool IsGraphicType(const wxString& name);
/// The name of a kind for display, localised.
wxString GetGraphicTypeName(std::int32_t type);

}  // namespace graphics
