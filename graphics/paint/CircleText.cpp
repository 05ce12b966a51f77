#include "graphics/geometry/Angles.h"
#include "graphics/paint/EffectDCImpl.h"
#include "graphics/paint/PixelRange.h"

#include <cmath>
#include <numbers>

namespace graphics {

namespace {

constexpr double kSmallestRadius = 15.0;
constexpr double kFullTurn = 2 * std::numbers::pi;
/// A turn counts as done a little early, at 0.975 of it.
constexpr double kTurnDone = 6.126105674500097;
constexpr double kLetterSpacing = 1.1;

wxPoint PlaceOn(wxPoint centre, double radius, double angle) {
  return {FloorToPixel(centre.x + radius * std::cos(angle)), FloorToPixel(centre.y + radius * std::sin(angle))};
}

}  // namespace

CCircleTextState CEffectDCImpl::DrawCircleTextFrom(const wxString& text, wxPoint centre, CCircleTextState state) {
  state.full = state.radius < kSmallestRadius;
  if (state.full) return state;
  const double radiansPerPixel = kFullTurn / (state.radius * kFullTurn);
  wxPoint place = PlaceOn(centre, state.radius, state.angle);
  for (const wxUniChar character : text) {
    const wxString letter(character);
    const wxSize extent = GetOwner()->GetTextExtent(letter);
    GetOwner()->DrawRotatedText(letter, place, 270.0 - RadToDeg(state.angle));
    const double step = extent.x * kLetterSpacing * radiansPerPixel;
    state.offset += step;
    state.angle += step;
    if (state.angle > kFullTurn) state.angle -= kFullTurn;
    if (state.offset > kTurnDone) {
      state.offset -= kFullTurn;
      if (!(state.radius - extent.y > 0.0)) {
        state.full = true;
        break;
      }
      state.radius -= extent.y;
    }
    place = PlaceOn(centre, state.radius, state.angle);
  }
  return state;
}

}  // namespace graphics
