#include "graphics/model/GraphicBase.h"

#include "graphics/geometry/Angles.h"
#include "graphics/geometry/RectPoints.h"
#include "graphics/geometry/Transform.h"
#include "graphics/model/GraphicListener.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace graphics {

void CGraphicBase::AddListener(IGraphicListener* listener) {
  listeners_.push_back(listener);
}

void CGraphicBase::RemoveListener(IGraphicListener* listener) {
  std::erase(listeners_, listener);
}

void CGraphicBase::NotifyChanged() {
  for (std::size_t i = 0; i < listeners_.size(); ++i) listeners_[i]->OnGraphicChanged(*this);
}

CDoublePoint CGraphicBase::GetTopLeft() const {
  const auto [width, height] = GetSize();
  return GetCenter() - CDoublePoint(width * 0.5, height * 0.5);
}

void CGraphicBase::SetTopLeft(double x, double y) {
  const auto [width, height] = GetSize();
  SetCenter({x + width * 0.5, y + height * 0.5});
}

void CGraphicBase::SetCenter(CDoublePoint center) {
  center_ = center;
  NotifyChanged();
}

void CGraphicBase::SetSize(CDoubleSize size) {
  size_ = size;
  NotifyChanged();
}

void CGraphicBase::SetBoundingSize(CDoubleSize size) {
  const double radians = DegToRad(GetRotation());
  if (IsRightAngle(GetRotation())) {
    const auto [x, y] = CMatrix::Rotation(-radians).MapPoint({size.width, size.height});
    SetSize({std::abs(x), std::abs(y)});
    return;
  }
  const CDoubleSize present = GetBoundingSize();
  CTransform transform;
  transform.Apply(CMatrix::Scale(size.width / present.width, size.height / present.height));
  transform.Apply(CMatrix::Rotation(radians));
  const CRectPoints corners = transform.GetCurrent().MapPoints(CRectPoints::FromCenter({}, GetSize()));
  const double width = (corners.GetPoint(2) - corners.GetPoint(3)).Length();
  const double height = (corners.GetPoint(3) - corners.GetPoint(0)).Length();
  SetSize({std::max(1.0, width), std::max(1.0, height)});
}

CDoubleSize CGraphicBase::GetBoundingSize() const {
  const auto [width, height] = GetSize();
  const double radians = DegToRad(GetRotation());
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  return {std::abs(width * cosine) + std::abs(height * sine), std::abs(width * sine) + std::abs(height * cosine)};
}

void CGraphicBase::SetRotation(double degrees) {
  int whole = TruncateToInt(degrees);
  if (whole > 360) whole = (whole - 1) % 360 + 1;
  if (whole < 0) whole = (whole % 360 + 360) % 360;
  rotation_ = whole;
  NotifyChanged();
}

void CGraphicBase::SetMirror(int axis, bool mirrored) {
  mirror_.at(static_cast<std::size_t>(axis)) = mirrored;
}

bool CGraphicBase::GetMirror(int axis) const {
  return mirror_.at(static_cast<std::size_t>(axis));
}

CDoubleRect CGraphicBase::GetBoundingRect() const {
  return CDoubleRect::FromCenter(GetCenter(), GetBoundingSize());
}

CMatrix CGraphicBase::GetBoundingMatrix() const {
  const CDoubleRect rect = GetBoundingRect();
  return CMatrix::Scale(rect.width, rect.height) * CMatrix::Translation(rect.left, rect.top);
}

CMatrix CGraphicBase::GetElementMatrix() const {
  return CMatrix::Rotation(DegToRad(GetRotation())) * CMatrix::Translation(GetCenter());
}

void CGraphicBase::SetFlag1(bool on) {
  constexpr std::uint32_t kBit = 1U << 1;
  SetFlags(on ? GetFlags() | kBit : GetFlags() & ~kBit);
}

void CGraphicBase::Transform(const CMatrix& matrix) {
  const CDoubleRect mapped = matrix.MapRect(GetBoundingRect());
  SetCenter(mapped.GetCenter());
  SetBoundingSize(mapped.GetSize());
}

void CGraphicBase::RestorePlace(CDoublePoint center, CDoubleSize size, double rotation) {
  center_ = center;
  size_ = size;
  rotation_ = rotation;
}

}  // namespace graphics
