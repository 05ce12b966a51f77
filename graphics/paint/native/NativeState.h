#pragma once

namespace graphics {

enum class ESmoothing { fast = 1, none = 3 };

enum class EInterpolation { lowQuality = 1, bicubic = 4, nearest = 5, highQualityBicubic = 7 };

/// Saves the state of a native context and brings it back at its end, settings made in between included.
class CNativeState {
public:
  explicit CNativeState(void* nativeContext);
  CNativeState(const CNativeState&) = delete;
  CNativeState& operator=(const CNativeState&) = delete;
  ~CNativeState();

  /// How edges of shapes are drawn.
  void SetSmoothing(ESmoothing smoothing);
  /// How bitmaps are scaled. The high quality is slow; it is for results that are kept.
  void SetInterpolation(EInterpolation interpolation);

private:
  void* native_;
  void* interpolation_;
};

/// The native number of the filter that bitmaps are scaled with.
int FilterOf(void* nativeContext);

}  // namespace graphics
