#pragma once

#include "graphics/animation/AnimationElement.h"
#include "graphics/model/GraphicElement.h"
#include "graphics/model/GraphicType.h"

#include <cstdint>

namespace graphics::animation {

/// Shows an animation in its frame. While it plays, each Paint looks at the clock, steps the animation if it is time,
/// and asks the paint context for the next repaint. Where frames are counted instead of timed it isn't played: somebody
/// else steps the animation, and Paint only draws.
class CGraphicAnimationImage : public CGraphicElement, public virtual IAnimationElement {
public:
  CGraphicAnimationImage();

  // Without an animation these two only change what IsAnimationPlaying says.
  void StopAnimation() override;
  void StartAnimation() override;
  bool IsAnimationPlaying() const override { return playing_; }
  bool HasAnimation() const override { return animation_.get() != nullptr; }
  bool IsElementActive() const override;
  orlo::P<IAnimation> GetAnimation() const override { return animation_; }

  void Paint(CPaintContext& context) override;
  wxString GetText() const override;
  orlo::P<CGraphicElement> Clone() const override;
  /// Shares the animation: both elements step one object.
  void Assign(const CGraphicBase& other) override;
  bool IsContentEmpty() const override { return !animation_; }
  std::int32_t GetType() const override { return GraphicType::kAnimation; }
  wxString GetTypeName() const override { return "animation-image"; }
  void ClearContent() override { animation_ = nullptr; }
  void WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const override;
  /// An animation of an unknown kind leaves the element without one.
  void ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) override;

  virtual void SetAnimation(const orlo::P<IAnimation>& animation) { animation_ = animation; }
  virtual void WriteAnimation(wxXmlNode& node, IResourceOutputStore& store) const;
  /// Paints when the clock isn't running.
  virtual void PaintStill(TEffectGraphicsContext& context, const CDoubleRect& rect);

protected:
  /// Milliseconds of a clock that goes on evenly, and wraps.
  virtual std::uint32_t GetTickCount() const;

private:
  void PaintByClock(CPaintContext& context, TEffectGraphicsContext& graphics, const CDoubleRect& rect);
  std::int64_t Step();

  orlo::P<IAnimation> animation_;
  std::uint32_t lastTick_ = 0;
  bool playing_ = false;
};

}  // namespace graphics::animation
