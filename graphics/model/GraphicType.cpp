#include "graphics/model/GraphicType.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXError.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlNode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

namespace graphics {

namespace {

struct CKind {
  const char* xmlName;
  const char* displayName;
  const char* displayKey;  // null where nothing is localised
};

constexpr std::array<CKind, GraphicType::kCount> kKinds{{
    {"base", "Unknown", nullptr},
    {"paper", "Paper", "graphics.GraphicElementType.Paper"},
    {"image", "Image", "graphics.GraphicElementType.Image"},
    {"text", "Text", "graphics.GraphicElementType.Text"},
    {"text-circle", "Circular Text", "graphics.GraphicElementType.TextCircle"},
    {"table", "Table", "graphics.GraphicElementType.Table"},
    {"line", "Line", "graphics.GraphicElementType.Line"},
    {"point", "Point", "graphics.GraphicElementType.Point"},
    {"circle", "Circle", "graphics.GraphicElementType.Circle"},
    {"rectangle", "Unknown", nullptr},
    {"shape", "Shape", "graphics.GraphicElementType.Shape"},
    {"arrow", "Unknown", nullptr},
    {"dimension", "Dimension", "graphics.GraphicElementType.Dimension"},
    {"custom", "Unknown", nullptr},
    {"dummy", "Unknown", nullptr},
    {"state-button", "Button", "graphics.GraphicElementType.StateButton"},
    {"animation", "Unknown", nullptr},
    {"mirror", "Mirror", "graphics.GraphicElementType.Mirror"},
    {"label", "Unknown", nullptr},
}};

const CKind* FindKind(std::int32_t type) {
  return type >= 0 && type < GraphicType::kCount ? &kKinds[static_cast<std::size_t>(type)] : nullptr;
}

constexpr std::int32_t kNoType = -1;

std::int32_t FindType(const wxString& name) {
  static const std::vector<wxString> names = [] {
    std::vector<wxString> result;
    result.reserve(kKinds.size());
    for (const CKind& kind : kKinds) result.emplace_back(kind.xmlName);
    return result;
  }();
  const auto found =
      std::find_if(names.begin(), names.end(), [&](const wxString& known) { return xml::IsSameName(name, known); });
  return found == names.end() ? kNoType : static_cast<std::int32_t>(found - names.begin());
}

}  // namespace

wxString GraphicTypeToXml(std::int32_t type) {
  const CKind* kind = FindKind(type);
  if (!kind) throw wxutil::CWXError(wxString("GraphicTypeToXml. Unknown type: ") << type);
  return kind->xmlName;
}

std::int32_t GraphicTypeFromXml(const wxString& name) {
  const std::int32_t type = FindType(name);
  if (type == kNoType) throw wxutil::CWXError("GraphicTypeFromXml. Unknwown type:" + name);
  return type;
}

bool IsGraphicType(const wxString& name) {
  return FindType(name) != kNoType;
}

wxString GetGraphicTypeName(std::int32_t type) {
  const CKind* kind = FindKind(type);
  if (!kind) return "Unknown";
  return kind->displayKey ? wxutil::toWxString(orlo::localize(kind->displayKey, kind->displayName))
                          : wxString(kind->displayName);
}

}  // namespace graphics
