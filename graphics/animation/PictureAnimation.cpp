#include "graphics/animation/PictureAnimation.h"

#include "graphics/paint/EffectGraphicsContext.h"
#include "graphics/paint/native/NativeState.h"

namespace graphics::animation {

bool CPictureAnimation::Next() {
  if (position_ + 1 >= frames_.GetCount()) return false;
  ++position_;
  return true;
}

void CPictureAnimation::Paint(TEffectGraphicsContext& context, const CDoubleRect& rect) const {
  const wxBitmap* const frame = started_ ? GetCurrentFrame() : GetFirstFrame();
  if (!frame) return;
  CNativeState state(context.GetNativeContext());
  state.SetInterpolation(EInterpolation::bicubic);
  context.DrawBitmap(*frame, rect.left, rect.top, rect.width, rect.height);
}

}  // namespace graphics::animation
