#include "graphics/animation/GraphicAnimationImage.h"

#include "foundation/StringLocalizer.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/animation/AnimationTypes.h"
#include "graphics/elements/CloneOf.h"
#include "graphics/elements/ElementBox.h"
#include "graphics/elements/ElementTransform.h"
#include "graphics/elements/PictureHint.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/paint/SharedEffectContext.h"
#include "graphics/paint/native/NativeState.h"

#include <chrono>

namespace graphics::animation {

namespace {

constexpr unsigned kActive = 2;
constexpr unsigned kFrameIfEmpty = 4;
constexpr unsigned kHintsAllowed = 5;

/// How often an element looks that plays and has nothing to show yet.
constexpr std::int32_t kPollingDelay = 100;
constexpr std::int32_t kShortestDelay = 10;

void RequestRepaint(CPaintContext& context, std::int32_t delay) {
  if (context.nextRepaint == 0 || context.nextRepaint > delay) context.nextRepaint = delay;
}

}  // namespace

CGraphicAnimationImage::CGraphicAnimationImage() {
  SetFlags(GetFlags() | 1U << kFrameIfEmpty | 1U << kHintsAllowed);
}

void CGraphicAnimationImage::StopAnimation() {
  playing_ = false;
  if (animation_) animation_->Stop();
}

void CGraphicAnimationImage::StartAnimation() {
  lastTick_ = 0;
  playing_ = HasAnimation();
  if (!playing_) return;
  animation_->Start();
  animation_->Rewind();
}

bool CGraphicAnimationImage::IsElementActive() const {
  return HasFlag(kActive);
}

void CGraphicAnimationImage::Paint(CPaintContext& context) {
  {
    const CDoubleRect rect = context.matrix.MapRect(FrameOf(*this));
    const CSharedEffectContext target(context);
    CNativeState state(target->GetNativeContext());
    state.SetInterpolation(EInterpolation::lowQuality);
    target->SetTransform(TurnedAbout(*target, rect.GetCenter(), *this));
    PaintByClock(context, *target, rect);
  }
  if (context.ShowsFrames() && IsContentEmpty()) DrawPictureHint(context, *this);
}

void CGraphicAnimationImage::PaintByClock(CPaintContext& context, TEffectGraphicsContext& graphics,
                                          const CDoubleRect& rect) {
  if (!animation_ || !playing_ || animation_->IsEmpty() || !animation_->IsStarted()) {
    PaintStill(graphics, rect);
    if (animation_ && playing_) RequestRepaint(context, kPollingDelay);
    return;
  }
  const std::int64_t wait = Step();
  animation_->Paint(graphics, rect);
  if (playing_) RequestRepaint(context, wait > 0 ? static_cast<std::int32_t>(wait) : kShortestDelay);
}

/// Steps the animation if it is time, and gives the time that is left after that.
std::int64_t CGraphicAnimationImage::Step() {
  const std::uint32_t now = GetTickCount();
  std::int64_t elapsed = now - lastTick_;
  if (lastTick_ == 0) {
    elapsed = animation_->GetDelay();
    lastTick_ = now;
  }
  if (elapsed > animation_->GetDelay()) {
    if (!animation_->Next()) {
      if (animation_->GetLoop())
        animation_->Rewind();
      else
        StopAnimation();
    }
    if (animation_->GetDelay() > 0) elapsed %= animation_->GetDelay();
    lastTick_ = now;
  }
  return animation_->GetDelay() - elapsed;
}

void CGraphicAnimationImage::PaintStill(TEffectGraphicsContext& context, const CDoubleRect& rect) {
  if (animation_) animation_->Paint(context, rect);
}

std::uint32_t CGraphicAnimationImage::GetTickCount() const {
  using std::chrono::milliseconds;
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<milliseconds>(sinceStart).count());
}

wxString CGraphicAnimationImage::GetText() const {
  if (GetPlainText().empty() && HasFlag(kHintsAllowed) && IsContentEmpty())
    return wxutil::toWxString(
        orlo::localize("graphics.CGraphicAnimationImage.DoubleClickToLoadImage", "Double click to load an animation"));
  return CGraphicElement::GetText();
}

orlo::P<CGraphicElement> CGraphicAnimationImage::Clone() const {
  return CloneOf(*this);
}

void CGraphicAnimationImage::Assign(const CGraphicBase& other) {
  CGraphicElement::Assign(other);
  if (const auto* const image = dynamic_cast<const CGraphicAnimationImage*>(&other)) SetAnimation(image->animation_);
}

void CGraphicAnimationImage::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CGraphicElement::WriteToXml(node, store);
  if (animation_) WriteAnimation(node, store);
}

void CGraphicAnimationImage::WriteAnimation(wxXmlNode& node, IResourceOutputStore& store) const {
  wxXmlNode& child = xml::AppendChild(node, "animation");
  xml::WriteText(child, "type", animation_->GetTypeName());
  animation_->WriteToXml(child, store);
}

void CGraphicAnimationImage::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CGraphicElement::ReadFromXml(node, store);
  const wxXmlNode* const child = xml::FindChild(node, "animation");
  wxString type;
  if (!child || !xml::ReadText(*child, "type", type) || type.empty()) return;
  SetAnimation(CreateAnimation(type));
  if (animation_) animation_->ReadFromXml(*child, store);
}

}  // namespace graphics::animation
