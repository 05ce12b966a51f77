#pragma once

#include "foundation/Object.h"
#include "foundation/Pointer.h"
#include "graphics/animation/IAnimation.h"

#include <cstdint>

namespace authfilter {

/// Runs an animation by a host's frames instead of by time: it counts frames until the time of the present picture is
/// passed. All else goes to the animation inside.
class CFPSAnimation : public orlo::CObject, public virtual graphics::animation::IAnimation {
public:
  /// The rate is frames a second, as a fraction. The animation must not be null.
  CFPSAnimation(const orlo::P<IAnimation>& inner, std::int64_t frameRateNum, std::int64_t frameRateDen)
      : inner_(inner), frameRateNum_(frameRateNum), frameRateDen_(frameRateDen) {}

  void Rewind() override { inner_->Rewind(); }
  /// Once a frame. False once the last picture of an animation without a loop has had its time, and ever after.
  bool Next() override;
  const wxBitmap* GetFirstFrame() const override { return inner_->GetFirstFrame(); }
  const wxBitmap* GetCurrentFrame() const override { return inner_->GetCurrentFrame(); }
  void SetLoop(bool loop) override { inner_->SetLoop(loop); }
  bool GetLoop() const override { return inner_->GetLoop(); }
  std::int32_t GetDelay() const override { return inner_->GetDelay(); }
  void Clear() override { inner_->Clear(); }
  bool IsEmpty() const override { return inner_->IsEmpty(); }
  std::int32_t GetWidth() const override { return inner_->GetWidth(); }
  std::int32_t GetHeight() const override { return inner_->GetHeight(); }
  void WriteToXml(wxXmlNode&, graphics::IResourceOutputStore&) const override {}
  void ReadFromXml(const wxXmlNode&, graphics::IResourceInputStore&) override {}
  void Start() override { inner_->Start(); }
  bool IsStarted() const override { return inner_->IsStarted(); }
  void Stop() override { inner_->Stop(); }
  void Paint(graphics::TEffectGraphicsContext& context, const graphics::CDoubleRect& rect) const override {
    inner_->Paint(context, rect);
  }
  /// On the same animation.
  orlo::P<IAnimation> CreateNew() const override;
  /// Empty: it is never stored.
  wxString GetTypeName() const override { return {}; }

private:
  bool IsPictureOver() const;

  orlo::P<IAnimation> inner_;
  std::int64_t frameRateNum_;
  std::int64_t frameRateDen_;
  std::int64_t frameCounter_ = 0;
  bool finished_ = false;
};

}  // namespace authfilter
