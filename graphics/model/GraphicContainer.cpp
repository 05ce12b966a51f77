#include "graphics/model/GraphicContainer.h"

#include "foundation/Error.h"
#include "graphics/model/GraphicLayers.h"

#include <algorithm>

namespace graphics {

CGraphicContainer::CGraphicContainer() : xdatas_(orlo::makeObject<CXDatas>()) {}

CGraphicContainer::~CGraphicContainer() {
  StopListening();
}

void CGraphicContainer::StopListening() {
  for (const auto& element : elements_) element->RemoveListener(this);
  for (const auto& element : formerElements_) element->RemoveListener(this);
}

orlo::P<CGraphicElement> CGraphicContainer::GetElement(std::size_t index) const {
  if (index >= elements_.size()) throw orlo::CError("CGraphicContainer.GetElement: there is no such element");
  return elements_[index];
}

void CGraphicContainer::Add(const orlo::P<CGraphicElement>& element) {
  if (!element) return;
  elements_.push_back(element);
  element->AddListener(this);
  OnGraphicChanged(*element);
}

void CGraphicContainer::AddLayer(const CGraphicLayer& layer) {
  BeginUpdate();
  for (std::size_t i = 0; i < layer.GetCount(); ++i) Add(layer.GetItem(i));
  EndUpdate();
}

CDoubleRect CGraphicContainer::GetBoundingBox() {
  if (!boundsValid_) RecalcBounds();
  return bounds_;
}

CDoubleRect CGraphicContainer::GetPageRect() {
  return hasContentBox_ ? contentBox_ : GetBoundingBox();
}

void CGraphicContainer::SetContentBox(const CDoubleRect& rect) {
  contentBox_ = rect;
  hasContentBox_ = true;
}

void CGraphicContainer::Transform(const CMatrix& matrix) {
  BeginUpdate();
  for (const auto& element : elements_) element->Transform(matrix);
  EndUpdate();
}

void CGraphicContainer::Assign(const CGraphicContainer& other) {
  if (&other == this) return;
  StopListening();
  formerElements_.clear();
  elements_ = other.elements_;
  boundsValid_ = other.boundsValid_;
  bounds_ = other.bounds_;
  hasContentBox_ = other.hasContentBox_;
  contentBox_ = other.contentBox_;
  label_ = other.label_;
  xdatas_ = other.xdatas_;
}

void CGraphicContainer::OnGraphicChanged(CGraphicBase&) {
  boundsValid_ = false;
}

void CGraphicContainer::BeginUpdate() {
  ++updateCount_;
}

void CGraphicContainer::EndUpdate() {
  if (--updateCount_ > 0) return;
  updateCount_ = 0;
  boundsValid_ = false;
}

void CGraphicContainer::RecalcBounds() {
  bounds_ = {};
  boundsValid_ = true;
  if (elements_.empty()) return;
  const CDoubleRect first = elements_.front()->GetBoundingRect();
  CDoublePoint topLeft = first.GetPoint(0);
  CDoublePoint bottomRight = first.GetPoint(1);
  for (const auto& element : elements_) {
    const CDoubleRect rect = element->GetBoundingRect();
    topLeft = {std::min(topLeft.x, rect.left), std::min(topLeft.y, rect.top)};
    const CDoublePoint corner = rect.GetPoint(1);
    bottomRight = {std::max(bottomRight.x, corner.x), std::max(bottomRight.y, corner.y)};
  }
  bounds_ = CDoubleRect::FromCorners(topLeft, bottomRight);
}

void CGraphicContainer::Clear() {
  for (const auto& element : elements_) element->RemoveListener(this);
  elements_.clear();
  boundsValid_ = false;
  hasContentBox_ = false;
}

void CGraphicContainer::Paint(CPaintContext& context) {
  for (const auto& element : elements_)
    if (element->IsVisible()) element->Paint(context);
}

}  // namespace graphics
