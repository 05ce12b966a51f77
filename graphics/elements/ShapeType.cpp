#include "graphics/elements/ShapeType.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXError.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlNode.h"

#include <array>
#include <cstddef>

namespace graphics {

namespace {

struct CShapeKind {
  const char* xmlName;
  const char* displayKey;
  const char* displayName;
};

constexpr std::array<CShapeKind, 4> kKinds{{
    {"rectangle", "CGraphicShape.ShapeType.Rectangle", "Rectangle"},
    {"rounded-rectangle", "CGraphicShape.ShapeType.RoundedRectangle", "Rounded Rectangle"},
    {"ellipse", "CGraphicShape.ShapeType.Ellipse", "Ellipse"},
    {"free-form", nullptr, nullptr},
}};

const CShapeKind* FindShapeKind(std::int32_t type) {
  const auto index = static_cast<std::size_t>(type);
  return type >= 0 && index < kKinds.size() ? &kKinds[index] : nullptr;
}

}  // namespace

wxString ShapeTypeToXml(std::int32_t type) {
  const CShapeKind* const kind = FindShapeKind(type);
  if (!kind) throw wxutil::CWXError("ShapeTypeToXml. Unknwown type");
  return kind->xmlName;
}

std::int32_t ShapeTypeFromXml(const wxString& text) {
  for (std::size_t i = 0; i < kKinds.size(); ++i)
    if (xml::IsSameName(text, kKinds[i].xmlName)) return static_cast<std::int32_t>(i);
  throw wxutil::CWXError("ShapeTypeFromXml. Unknwown type:" + text);
}

wxString GetShapeTypeName(std::int32_t type) {
  const CShapeKind* const kind = FindShapeKind(type);
  if (!kind || !kind->displayKey) return {};
  return wxutil::toWxString(orlo::localize(kind->displayKey, kind->displayName));
}

}  // namespace graphics
