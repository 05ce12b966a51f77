#pragma once

#include "foundation/Object.h"
#include "graphics/animation/FrameList.h"
#include "graphics/animation/IAnimation.h"

namespace graphics::animation {

/// What the kinds have that keep all their frames as bitmaps.
class CPictureAnimation : public orlo::CObject, public virtual IAnimation {
public:
  void Rewind() override { position_ = 0; }
  bool Next() override;
  const wxBitmap* GetFirstFrame() const override { return frames_.Get(0); }
  const wxBitmap* GetCurrentFrame() const override { return frames_.Get(position_); }
  void SetLoop(bool loop) override { loop_ = loop; }
  bool GetLoop() const override { return loop_; }
  bool IsEmpty() const override { return frames_.GetCount() == 0; }
  void Start() override { started_ = true; }
  bool IsStarted() const override { return started_; }
  void Stop() override { started_ = false; }
  void Paint(TEffectGraphicsContext& context, const CDoubleRect& rect) const override;

protected:
  CPictureAnimation() = default;

  CFrameList& Frames() { return frames_; }
  const CFrameList& Frames() const { return frames_; }
  std::size_t GetPosition() const { return position_; }

private:
  CFrameList frames_;
  std::size_t position_ = 0;
  bool loop_ = false;
  bool started_ = false;
};

}  // namespace graphics::animation
