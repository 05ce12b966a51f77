#include "filter/ExclusiveLayer.h"

#include "filter/ElementArea.h"
#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"

namespace authfilter {

CExclusiveLayer::CExclusiveLayer(const orlo::P<graphics::CGraphicDocument>& document, std::int64_t frameRateNum,
                                 std::int64_t frameRateDen)
    : CLayer(document), shown_(*document) {
  for (std::size_t index = 0; index < document->GetCount(); ++index) {
    const auto* const element = orlo::tryCast<graphics::animation::IAnimationElement>(document->GetElement(index));
    if (element && element->HasAnimation())
      animations_.push_back(orlo::makeObject<CFPSAnimation>(element->GetAnimation(), frameRateNum, frameRateDen));
  }
}

void CExclusiveLayer::Paint(CFrame& frame) {
  const wxRect area = GetArea(frame.Geometry());
  if (!frame.Touches(area)) return;
  CLayerPicture passing;
  CLayerPicture* const kept = KeptPicture(frame.Canvas(), area);
  CLayerPicture& picture = kept ? *kept : passing;
  if (!MayChange() && !picture.IsDrawn())
    picture.DrawToStay(frame.Canvas(), *GetDocument(), area);
  else if (!picture.IsDrawn() || (HasChanged() && !shown_.IsOne()))
    picture.Draw(frame.Canvas(), *GetDocument(), area);
  shown_.Remember();
  frame.Blend(picture);
}

bool CExclusiveLayer::Hides(const wxRect& rect) const {
  if (!shown_.IsOne()) return false;
  const auto found = pictures_.find(shown_.GetFirst());
  return found != pictures_.end() && found->second.IsOpaque() && found->second.GetArea().Contains(rect);
}

/// What changes while nobody sees it needs no repaint until somebody does, and then the layer that hid it asks for it.
void CExclusiveLayer::PassOver(const wxRect& hidden, const CPageGeometry& geometry) {
  if (!HasChanged() || !hidden.Contains(GetArea(geometry))) return;
  shown_.Remember();
  if (shown_.IsOne()) return;
  for (auto& [frame, picture] : pictures_) picture.Forget();
}

/// The picture of what is shown now, empty if it has to be drawn; null if there is no room for it.
CLayerPicture* CExclusiveLayer::KeptPicture(CCanvas& canvas, const wxRect& area) {
  const wxObjectRefData* const frame = shown_.IsOne() ? shown_.GetFirst() : nullptr;
  const auto found = pictures_.find(frame);
  if (found != pictures_.end()) return &found->second;
  // Without room for one more, the one painted last makes room.
  if (!canvas.MayKeep(area.GetSize()) && pictures_.erase(painted_) == 0) return nullptr;
  painted_ = frame;
  return &pictures_[frame];
}

wxRect CExclusiveLayer::GetArea(const CPageGeometry& geometry) const {
  wxRect area;
  for (std::size_t index = 0; index < GetDocument()->GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = GetDocument()->GetElement(index);
    if (element->IsVisible()) area.Union(AreaOf(*element, geometry));
  }
  return area;
}

bool CExclusiveLayer::NextFrame() {
  bool runs = false;
  for (const auto& animation : animations_)
    if (animation->Next()) runs = true;
  return runs;
}

void CExclusiveLayer::Open(const wxString&, const wxString&, const wxString&) {
  for (const auto& animation : animations_) animation->Start();
}

void CExclusiveLayer::Close() {
  for (const auto& animation : animations_) animation->Stop();
}

}  // namespace authfilter
