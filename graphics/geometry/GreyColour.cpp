#include "graphics/geometry/GreyColour.h"

#include "graphics/geometry/Truncate.h"

namespace graphics {

wxColour GreyColour(const wxColour& colour, double redWeight, double greenWeight, double blueWeight) {
  const double sum = colour.Red() * redWeight + colour.Green() * greenWeight + colour.Blue() * blueWeight + 0.5;
  const auto grey = static_cast<unsigned char>(TruncateToInt(sum) & 0xFF);
  return wxColour(grey, grey, grey, colour.Alpha());
}

wxColour GreyOfShape(const wxColour& colour) {
  return GreyColour({colour.Red(), colour.Green(), colour.Blue()}, 0.299, 0.587, 0.114);
}

}  // namespace graphics
