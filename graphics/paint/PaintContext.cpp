#include "graphics/paint/PaintContext.h"

namespace graphics {

CDoubleSize CPaintContext::GetDeviceScale() const {
  constexpr double kMillimetresPerInch = 25.4;
  if (outputMode == 0) {
    const wxSize resolution = dc->GetPPI();
    return {resolution.x / kMillimetresPerInch, resolution.y / kMillimetresPerInch};
  }
  if (outputMode == 1) return {outputScale, outputScale};
  return {1.0, 1.0};
}

}  // namespace graphics
