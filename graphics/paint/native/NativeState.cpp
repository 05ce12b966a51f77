#include "graphics/paint/native/NativeState.h"

#include <cairo.h>

#include <cstdint>

namespace graphics {

namespace {

// The native state has no place for a filter; it hangs on the context as a number under this key.
const cairo_user_data_key_t interpolationKey{};

cairo_t* Native(void* context) {
  return static_cast<cairo_t*>(context);
}

}  // namespace

CNativeState::CNativeState(void* nativeContext)
    : native_(nativeContext), interpolation_(cairo_get_user_data(Native(nativeContext), &interpolationKey)) {
  cairo_save(Native(native_));
}

CNativeState::~CNativeState() {
  cairo_set_user_data(Native(native_), &interpolationKey, interpolation_, nullptr);
  cairo_restore(Native(native_));
}

void CNativeState::SetSmoothing(ESmoothing smoothing) {
  cairo_set_antialias(Native(native_), smoothing == ESmoothing::none ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_FAST);
}

void CNativeState::SetInterpolation(EInterpolation interpolation) {
  cairo_set_user_data(Native(native_), &interpolationKey,
                      reinterpret_cast<void*>(static_cast<std::intptr_t>(interpolation)), nullptr);
}

int FilterOf(void* nativeContext) {
  const auto stored = reinterpret_cast<std::intptr_t>(cairo_get_user_data(Native(nativeContext), &interpolationKey));
  switch (static_cast<EInterpolation>(stored)) {
    case EInterpolation::nearest:
      return CAIRO_FILTER_NEAREST;
    case EInterpolation::lowQuality:
      return CAIRO_FILTER_BILINEAR;
    case EInterpolation::highQualityBicubic:
      return CAIRO_FILTER_BEST;
    case EInterpolation::bicubic:
      break;
  }
  return CAIRO_FILTER_GOOD;
}

}  // namespace graphics
