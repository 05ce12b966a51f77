#include "backend/ffmpeg/VisualBuilder.h"

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/ThemeDescription.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/Loop.h"
#include "backend/infilexml/Shader.h"
#include "foundation/URIEscape.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantra::ffmpeg {

namespace {

double Finite(double value) {
  return std::isfinite(value) ? value : 0;
}

CLook LookOf(const infilexml::CVideo& video) {
  CLook look;
  look.mirrorsHorizontally = video.mirrorHorizontal;
  look.mirrorsVertically = video.mirrorVertical;
  look.degrees = Finite(video.rotation);
  if (const auto& clip = video.clippingRect; clip && clip->width > 0 && clip->height > 0) {
    constexpr std::int32_t kFar = 1 << 20;
    const auto near = [&](std::int32_t value) { return std::clamp(value, -kFar, kFar); };
    look.clip = CPixelBox{near(clip->x), near(clip->y), near(clip->width), near(clip->height)};
  }
  return look;
}

CLook LookOf(const CThemePlace& place) {
  CLook look;
  look.mirrorsHorizontally = place.mirrorsHorizontally;
  look.mirrorsVertically = place.mirrorsVertically;
  look.degrees = place.degrees;
  return look;
}

/// The XML in a "data:" location.
std::string DataOf(const orlo::IURI& uri) {
  const std::string text = orlo::toStdString(uri.getDescription());
  const std::size_t comma = text.find(',');
  const std::string_view kind = std::string_view(text).substr(0, comma);
  if (comma == std::string::npos || kind.ends_with(";base64"))
    throw CFailure(Fault::theme, "Data of a theme's movie must be percent-encoded text");
  return orlo::toStdString(orlo::uriUnescape(orlo::fromUTF8(std::string_view(text).substr(comma + 1))));
}

orlo::P<infilexml::CMovie> MovieOf(const CThemePlace& place, const infilexml::CTheme& theme) {
  if (place.number > 0) {
    const auto index = static_cast<std::size_t>(place.number) - 1;
    return index < theme.GetMovieCount() ? theme.GetMovie(index) : nullptr;
  }
  for (std::size_t index = 0; index < theme.GetMovieCount(); ++index)
    if (theme.GetMovie(index)->infileId == place.movie) return theme.GetMovie(index);
  return nullptr;
}

/// What is left of a visual from a time on.
std::unique_ptr<IVisual> From(std::unique_ptr<IVisual> visual, double begin) {
  if (!visual || !(begin > 0)) return visual;
  auto list = std::make_unique<CComposition>();
  list->Add({std::move(visual), {}, -begin, 0});
  return list;
}

}  // namespace

std::unique_ptr<IVisual> CVisualBuilder::Build(std::string_view infileText) {
  if (depth_ >= kDeepestInfile) throw CFailure(Fault::limit, "Infiles may lie at most 8 deep in one another");
  CountText(infileText.size());
  const auto infile = infilexml::FromText(infileText);
  if (!infile) throw CFailure(Fault::infile, "Not an infile");
  ++depth_;
  auto list = BuildList(*infile->GetVideoTracklist());
  --depth_;
  return list->IsEmpty() ? nullptr : std::move(list);
}

void CVisualBuilder::Skip(const std::string& what) {
  if (skipped_.empty()) skipped_ = what;
}

void CVisualBuilder::CountItem() {
  if (++items_ > kMostItems)
    throw CFailure(Fault::limit, "An infile may have at most 100000 items, with those of the infiles in it");
}

void CVisualBuilder::CountText(std::size_t bytes) {
  bytes_ += bytes;
  if (bytes_ > kMostBytesInAll)
    throw CFailure(Fault::limit, "The infiles and themes in an infile may have at most 32 MB in all");
}

std::unique_ptr<CComposition> CVisualBuilder::BuildList(const infilexml::CTracklist& list) {
  auto result = std::make_unique<CComposition>(Finite(list.GetDuration()));
  for (std::size_t index = 0; index < list.GetTrackCount(); ++index) {
    const infilexml::CTrack& track = *list.GetTrack(index);
    if (!track.enabled || !track.item) continue;
    auto visual = BuildItem(*track.item);
    if (!visual) continue;
    result->Add({std::move(visual),
                 {Finite(track.x), Finite(track.y), Finite(track.width), Finite(track.height)},
                 Finite(track.start),
                 Finite(track.duration)});
  }
  return result;
}

std::unique_ptr<IVisual> CVisualBuilder::BuildItem(const infilexml::CTrackItem& item) {
  CountItem();
  if (const auto* const video = dynamic_cast<const infilexml::CVideo*>(&item)) return BuildVideo(*video);
  if (const auto* const theme = dynamic_cast<const infilexml::CTheme*>(&item)) return BuildTheme(*theme);
  if (const auto* const list = dynamic_cast<const infilexml::CTracklist*>(&item)) {
    auto result = BuildList(*list);
    return result->IsEmpty() ? nullptr : std::move(result);
  }
  if (const auto* const loop = dynamic_cast<const infilexml::CLoop*>(&item)) {
    auto looped = loop->item ? BuildItem(*loop->item) : nullptr;
    return looped ? std::make_unique<CRepeated>(std::move(looped)) : nullptr;
  }
  if (dynamic_cast<const infilexml::CFilter*>(&item)) Skip("A filter has been left out");
  if (dynamic_cast<const infilexml::CShader*>(&item)) Skip("A shader has been left out");
  return nullptr;
}

std::unique_ptr<IVisual> CVisualBuilder::BuildVideo(const infilexml::CVideo& video) {
  return BuildClip(LocalPath(video.src, bases_.movies), LookOf(video), Finite(video.startTime), Finite(video.duration));
}

std::unique_ptr<IVisual> CVisualBuilder::BuildClip(const std::string& path, const CLook& look, double begin,
                                                   double length) {
  if (leaves_.size() >= kMostClips) throw CFailure(Fault::limit, "An infile may show at most 10000 movies");
  auto clip = std::make_unique<CVideoClip>(store_, closed_, path, look, begin, length);
  leaves_.push_back(clip.get());
  return clip;
}

std::unique_ptr<IVisual> CVisualBuilder::BuildTheme(const infilexml::CTheme& theme) {
  const std::string path = LocalPath(theme.src, bases_.themes);
  const std::string text = ReadWhole(path, kMostThemeBytes);
  CountText(text.size());
  const CThemeDescription description = ParseTheme(text);
  const double length = Finite(theme.duration) > 0 ? theme.duration : description.length;
  auto result = std::make_unique<CComposition>(length);
  result->SetSize(description.size);
  if (description.background[3] > 0) {
    auto field = std::make_unique<CColourField>(store_, description.background);
    leaves_.push_back(field.get());
    result->Add({std::move(field), {}, 0, length, true});
  }
  if (description.picture) {
    const orlo::PC<orlo::IURI> base =
        theme.src->isAbsolute() || !bases_.themes ? theme.src : orlo::PC<orlo::IURI>(theme.src->resolve(bases_.themes));
    const CBox whole{0, 0, description.size.width, description.size.height};
    result->Add({BuildClip(LocalPath(description.picture, base), {}, 0, length), whole, 0, length, true});
  }
  for (const CThemePlace& place : description.places)
    if (auto visual = BuildPlace(place, theme))
      result->Add({std::move(visual), place.box, place.start, place.duration});
  return result;
}

/// Null for a place that no movie fills.
std::unique_ptr<IVisual> CVisualBuilder::BuildPlace(const CThemePlace& place, const infilexml::CTheme& theme) {
  CountItem();
  const auto movie = MovieOf(place, theme);
  // An edited movie that can't be read has no location.
  if (!movie || !movie->src || movie->src->getDescription().isEmpty()) return nullptr;
  const bool isData = movie->src && movie->src->hasScheme() && movie->src->getScheme().equalsIgnoreCase("data");
  auto visual = isData ? From(Build(DataOf(*movie->src)), place.movieStart)
                       : BuildClip(LocalPath(movie->src, bases_.movies), LookOf(place), place.movieStart, 0);
  if (!visual || !place.repeats) return visual;
  return std::make_unique<CRepeated>(std::move(visual));
}

}  // namespace vantra::ffmpeg
