#pragma once

#include "graphics/paint/EffectDC.h"
#include "graphics/paint/PaintContext.h"

#include <optional>

namespace graphics {

/// The graphics context that a paint context brings along, or else one on its device context.
class CSharedEffectContext {
public:
  explicit CSharedEffectContext(CPaintContext& context) : shared_(context.effectContext) {
    if (shared_) return;
    smooth_.emplace(*context.dc);
    own_ = smooth_->CreateEffectContext();
  }
  CSharedEffectContext(const CSharedEffectContext&) = delete;
  CSharedEffectContext& operator=(const CSharedEffectContext&) = delete;
  ~CSharedEffectContext() {
    if (smooth_) smooth_->Flush();
  }

  TEffectGraphicsContext& operator*() const { return shared_ ? *shared_ : *own_; }
  TEffectGraphicsContext* operator->() const { return &**this; }

private:
  TEffectGraphicsContext* shared_;
  std::optional<CSmoothEffectDC> smooth_;
  orlo::P<TEffectGraphicsContext> own_;
};

}  // namespace graphics
