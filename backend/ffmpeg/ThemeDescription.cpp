#include "backend/ffmpeg/ThemeDescription.h"

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/Limits.h"
#include "backend/infilexml/Element.h"
#include "backend/infilexml/InfileText.h"

#include <charconv>
#include <cmath>

namespace vantra::ffmpeg {

using infilexml::ReadAttribute;

namespace {

void ReadFinite(const TiXmlElement& element, const char* name, double& value) {
  double read = value;
  ReadAttribute(element, name, read);
  if (std::isfinite(read)) value = read;
}

/// "#RRGGBB" or "#RRGGBBAA". Throws CFailure for anything else.
std::array<std::uint8_t, 4> ParseColour(std::string_view text) {
  constexpr std::size_t kOpaqueDigits = 6;
  std::uint32_t number = 0;
  const std::string_view digits = text.substr(text.starts_with('#') ? 1 : 0);
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  if (digits.size() == text.size() || (digits.size() != kOpaqueDigits && digits.size() != kOpaqueDigits + 2) ||
      read.ptr != digits.data() + digits.size())
    throw CFailure(Fault::theme, "A theme's background must be a colour such as #204060: " + std::string(text));
  if (digits.size() == kOpaqueDigits) number = number << 8 | 255;
  const std::uint32_t alpha = number & 255;
  const auto channel = [&](int shift) {
    return static_cast<std::uint8_t>(((number >> shift & 255) * alpha + 127) / 255);
  };
  return {channel(8), channel(16), channel(24), static_cast<std::uint8_t>(alpha)};
}

CThemePlace ParsePlace(const TiXmlElement& element) {
  CThemePlace place;
  ReadAttribute(element, "movie", place.movie);
  ReadAttribute(element, "number", place.number);
  ReadFinite(element, "x", place.box.x);
  ReadFinite(element, "y", place.box.y);
  ReadFinite(element, "width", place.box.width);
  ReadFinite(element, "height", place.box.height);
  ReadFinite(element, "start", place.start);
  ReadFinite(element, "duration", place.duration);
  ReadFinite(element, "movie-start", place.movieStart);
  ReadAttribute(element, "repeat", place.repeats);
  ReadAttribute(element, "mirror-horizontal", place.mirrorsHorizontally);
  ReadAttribute(element, "mirror-vertical", place.mirrorsVertically);
  ReadFinite(element, "rotation", place.degrees);
  if (place.movie.isEmpty() && place.number < 1)
    throw CFailure(Fault::theme, "A theme's place names no movie and has no number");
  return place;
}

}  // namespace

CThemeDescription ParseTheme(std::string_view text) {
  const auto root = infilexml::ParseElement(text);
  if (!root || infilexml::NameOf(*root) != "theme") throw CFailure(Fault::theme, "Not a theme description");
  CThemeDescription theme;
  ReadFinite(*root, "length", theme.length);
  ReadFinite(*root, "width", theme.size.width);
  ReadFinite(*root, "height", theme.size.height);
  if (!(theme.size.width >= 1 && theme.size.height >= 1))
    throw CFailure(Fault::theme, "A theme must have a width and a height");
  if (const char* const colour = root->Attribute("background")) theme.background = ParseColour(colour);
  ReadAttribute(*root, "picture", theme.picture);
  infilexml::ForEachElement(*root, [&](const TiXmlElement& child) {
    if (infilexml::NameOf(child) != "place") return;
    if (theme.places.size() >= kMostPlaces) throw CFailure(Fault::limit, "A theme may have at most 1000 places");
    theme.places.push_back(ParsePlace(child));
  });
  return theme;
}

}  // namespace vantra::ffmpeg
