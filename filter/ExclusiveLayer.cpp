#include "filter/ExclusiveLayer.h"

#include "authed/data/GraphicActionButton.h"
#include "filter/ElementArea.h"
#include "filter/SkinnedElement.h"
#include "foundation/Cast.h"
#include "graphics/animation/AnimationElement.h"
#include "graphics/elements/GraphicMirror.h"
#include "graphics/paint/Toolkit.h"

namespace authfilter {

using authed::data::CGraphicActionButton;
using authed::data::CGraphicMovieImage;
using authed::data::CMovieAnimation;

CExclusiveLayer::CExclusiveLayer(const orlo::P<graphics::CGraphicDocument>& document, std::int64_t frameRateNum,
                                 std::int64_t frameRateDen)
    : CLayer(document), frameRateNum_(frameRateNum), frameRateDen_(frameRateDen), shown_(*document) {
  for (std::size_t index = 0; index < document->GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = document->GetElement(index);
    if (orlo::tryCast<graphics::CGraphicMirror>(element)) continue;
    if (const auto* const button = orlo::tryCast<CGraphicActionButton>(element)) {
      if (auto* const thumbnail = orlo::cast<CGraphicMovieImage>(button->GetElement())) AddMovie(*thumbnail);
    } else if (auto* const movie = orlo::tryCast<CGraphicMovieImage>(element)) {
      AddMovie(*movie);
    } else if (const auto* const image = orlo::tryCast<graphics::animation::IAnimationElement>(element)) {
      if (image->HasAnimation())
        animations_.push_back(orlo::makeObject<CFPSAnimation>(image->GetAnimation(), frameRateNum, frameRateDen));
    }
  }
}

void CExclusiveLayer::AddMovie(CGraphicMovieImage& image) {
  const orlo::P<CMovieAnimation> animation = image.GetMovieAnimation(-1, -1);
  if (!animation) orlo::throwCastError(&image, typeid(CMovieAnimation));
  movieAnimations_.push_back(animation);
}

void CExclusiveLayer::Paint(CFrame& frame) {
  MeasureSkin(frame.Canvas());
  const wxRect area = GetArea(frame.Geometry());
  if (!frame.Touches(area)) return;
  CLayerPicture passing;
  CLayerPicture* const kept = KeptPicture(frame.Canvas(), area);
  CLayerPicture& picture = kept ? *kept : passing;
  if (!MayChange() && !picture.IsDrawn())
    picture.DrawToStay(frame.Canvas(), *GetDocument(), area);
  else if (!picture.IsDrawn() || (HasChanged() && !shown_.GetLasting()))
    picture.Draw(frame.Canvas(), *GetDocument(), area);
  shown_.Remember();
  frame.Blend(picture);
}

/// Where the texts of a skin lie is seen from what is painted.
void CExclusiveLayer::MeasureSkin(CCanvas& canvas) {
  if (skinArea_ || GetDocument()->GetCount() == 0) return;
  const orlo::P<graphics::CGraphicElement> element = GetDocument()->GetElement(0);
  if (!element->IsVisible() || !HasSkin(*element)) return;
  const wxRect& frame = canvas.Geometry().frame;
  CLayerPicture all;
  all.DrawToStay(canvas, *GetDocument(), frame);
  skinArea_ = SkinAreaOf(*element, canvas.Geometry()).Union(all.GetArea());
}

bool CExclusiveLayer::Hides(const wxRect& rect) const {
  const CLayerPicture* const picture = UpToDatePicture();
  return picture && picture->IsOpaque() && picture->GetArea().Contains(rect);
}

/// What changes while nobody sees it needs no repaint until somebody does, and then the layer that hid it asks for it.
void CExclusiveLayer::PassOver(const wxRect& hidden, const CPageGeometry& geometry) {
  if (!HasChanged() || !hidden.Contains(GetArea(geometry))) return;
  shown_.Remember();
  if (shown_.GetLasting()) return;
  for (auto& [frame, picture] : pictures_) picture.Forget();
}

/// The picture of what is shown now, empty if it has to be drawn; null if there is no room for it.
CLayerPicture* CExclusiveLayer::KeptPicture(CCanvas& canvas, const wxRect& area) {
  const wxObjectRefData* const frame = shown_.GetLasting();
  const auto found = pictures_.find(frame);
  if (found != pictures_.end()) return &found->second;
  // Without room for one more, the one painted last makes room.
  if (!canvas.MayKeep(area.GetSize()) && pictures_.erase(painted_) == 0) return nullptr;
  painted_ = frame;
  return &pictures_[frame];
}

/// Null if what is shown now has to be drawn.
const CLayerPicture* CExclusiveLayer::UpToDatePicture() const {
  const wxObjectRefData* const frame = shown_.GetLasting();
  if (!frame && HasChanged()) return nullptr;
  const auto found = pictures_.find(frame);
  return found != pictures_.end() && found->second.IsDrawn() ? &found->second : nullptr;
}

wxRect CExclusiveLayer::GetArea(const CPageGeometry& geometry) const {
  wxRect area;
  for (std::size_t index = 0; index < GetDocument()->GetCount(); ++index) {
    const orlo::P<graphics::CGraphicElement> element = GetDocument()->GetElement(index);
    if (element->IsVisible()) area.Union(skinArea_ ? *skinArea_ : AreaOf(*element, geometry));
  }
  return area;
}

bool CExclusiveLayer::NextFrame() {
  bool changed = false;
  for (const auto& movie : movieAnimations_)
    if (movie->Next()) changed = true;
  for (const auto& animation : animations_)
    if (animation->Next()) changed = true;
  return changed;
}

void CExclusiveLayer::Open(const wxString& filterDir, const wxString& animationDir, const wxString& themeDir) {
  for (const auto& movie : movieAnimations_)
    movie->StartExtraction(frameRateNum_, frameRateDen_, 0, 1, filterDir, animationDir, themeDir);
  const graphics::CToolkitLock lock;
  for (const auto& animation : animations_) animation->Start();
}

void CExclusiveLayer::Close() {
  for (const auto& movie : movieAnimations_) movie->Stop();
  const graphics::CToolkitLock lock;
  for (const auto& animation : animations_) animation->Stop();
}

void CExclusiveLayer::NewThread() {
  for (const auto& movie : movieAnimations_) movie->NewThread();
}

}  // namespace authfilter
