#include "graphics/model/GraphicElement.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/Angles.h"
#include "graphics/model/GraphicType.h"

#include <utility>

namespace graphics {

bool CGraphicElement::HasTag(const wxString& tag) const {
  const auto entry = tags_.find(tag);
  return entry != tags_.end() && entry->second;
}

bool CGraphicElement::InGroup(std::int32_t number) const {
  const auto entry = groups_.find(number);
  return entry != groups_.end() && entry->second;
}

wxString CGraphicElement::GetDisplayName() const {
  const wxString name = GetName();
  return name.empty() ? GetGraphicTypeName(GetType()) : name;
}

wxString CGraphicElement::GetText() const {
  constexpr unsigned kHintsAllowed = 5;
  if (text_.empty() && HasFlag(kHintsAllowed) && IsContentEmpty())
    return wxutil::toWxString(orlo::localize("graphics.CGraphicElement.ClickToEdit", "Double click to edit"));
  return text_;
}

std::int64_t CGraphicElement::GetUniqueId() const {
  return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(this));
}

bool CGraphicElement::HitTest(double x, double y) const {
  const CDoublePoint center = GetCenter();
  const CMatrix back = CMatrix::Rotation(-DegToRad(GetRotation()));
  const CDoublePoint unrotated = center + back.MapDirection(CDoublePoint(x, y) - center);
  return CDoubleRect::FromCenter(center, GetSize()).Contains(unrotated);
}

void CGraphicElement::Assign(const CGraphicBase& other) {
  const auto* element = dynamic_cast<const CGraphicElement*>(&other);
  if (!element || element == this) return;
  SetCenter(element->GetCenter());
  SetSize(element->GetSize());
  SetRotation(element->GetRotation());
  SetFlags(element->GetFlags());
  SetMirror(0, element->GetMirror(0));
  SetMirror(1, element->GetMirror(1));
  SetName(element->GetName());
  SetColoured(element->IsColoured());
  SetVisible(element->IsVisible());
  SetContentId(element->GetContentId());
  SetContentIndex(element->GetContentIndex());
  SetTextId(element->GetTextId());
  SetModified(element->IsModified());
  tags_.clear();
  for (const auto& [tag, set] : element->tags_)
    if (set) SetTag(tag, true);
  groups_.clear();
  for (const auto& [number, member] : element->groups_)
    if (member) SetGroup(number, true);
}

namespace {

double Diameter(const CGraphicElement& circle) {
  return circle.GetSize().width;
}

bool CirclesMeet(const CGraphicElement& a, const CGraphicElement& b) {
  return (a.GetCenter() - b.GetCenter()).Length() <= (Diameter(a) + Diameter(b)) * 0.5;
}

bool CircleMeetsBox(const CGraphicElement& circle, const CGraphicElement& box) {
  const double diameter = Diameter(circle);
  CDoubleRect rect = box.GetBoundingRect();
  rect.left -= diameter * 0.5;
  rect.top -= diameter * 0.5;
  rect.width += diameter;
  rect.height += diameter;
  return rect.Contains(circle.GetCenter());
}

}  // namespace

bool CGraphicElement::Intersects(const CGraphicElement& other) const {
  const CGraphicElement* first = this;
  const CGraphicElement* second = &other;
  if (first->GetType() > second->GetType()) std::swap(first, second);
  const std::int32_t low = first->GetType();
  const std::int32_t high = second->GetType();
  if (low < GraphicType::kCircle || high > GraphicType::kShape) return false;
  if (low == GraphicType::kCircle)
    return high == GraphicType::kCircle ? CirclesMeet(*first, *second) : CircleMeetsBox(*first, *second);
  return low == high && first->GetBoundingRect().Intersects(second->GetBoundingRect());
}

}  // namespace graphics
