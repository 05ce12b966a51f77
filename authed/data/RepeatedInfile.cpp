#include "authed/data/RepeatedInfile.h"

#include "authed/data/InfileTracks.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Filter.h"
#include "backend/infilexml/InfileText.h"
#include "backend/infilexml/Theme.h"
#include "backend/infilexml/Video.h"
#include "foundation/Error.h"

#include <algorithm>

namespace authed::data {

using namespace vantra::infilexml;

namespace {

constexpr int kMostPasses = 10'000;

/// What the track holds may be shorter than the track, and stays so.
void Cut(CTrack& track, double duration) {
  const auto cutItem = [&](auto* item) {
    if (item) item->duration = std::min(item->duration, duration);
  };
  track.duration = duration;
  cutItem(dynamic_cast<CVideo*>(track.item.get()));
  cutItem(dynamic_cast<CAudio*>(track.item.get()));
  cutItem(dynamic_cast<CTheme*>(track.item.get()));
  cutItem(dynamic_cast<CFilter*>(track.item.get()));
  if (auto* const list = dynamic_cast<CTracklist*>(track.item.get()))
    list->SetDuration(std::min(list->GetDuration(), duration));
}

/// Moves the tracks of a pass behind those that are there, and gives the end of the last one.
double MoveTracks(const CTracklist& pass, CTracklist& target, double offset, double length, double end) {
  for (std::size_t index = 0; index < pass.GetTrackCount(); ++index) {
    const orlo::P<CTrack>& track = pass.GetTrack(index);
    const double start = track->start + offset;
    if (!(start < length)) continue;
    if (start + track->duration > length) Cut(*track, length - start);
    if (target.GetTrackCount() >= kMostElements) throw orlo::CError("An infile may have at most 200000 elements");
    track->start = start;
    end = std::max(end, start + track->duration);
    target.AddTrack(track);
  }
  return end;
}

}  // namespace

orlo::P<CInfile> RepeatInfile(const std::function<orlo::P<CInfile>()>& makePass, double length) {
  auto result = orlo::makeObject<CInfile>();
  double videoEnd = 0;
  double audioEnd = 0;
  for (int passes = 0; videoEnd < length; ++passes) {
    if (passes == kMostPasses) throw orlo::CError("A movie may be repeated at most 10000 times");
    const orlo::P<CInfile> pass = makePass();
    if (!pass) return nullptr;
    const double offset = videoEnd;
    videoEnd = MoveTracks(*pass->GetVideoTracklist(), *result->GetVideoTracklist(), offset, length, videoEnd);
    audioEnd = MoveTracks(*pass->GetAudioTracklist(), *result->GetAudioTracklist(), offset, length, audioEnd);
    // A movie without a length would never come to the end.
    if (!(videoEnd > offset)) break;
  }
  result->GetVideoTracklist()->SetDuration(videoEnd);
  result->GetAudioTracklist()->SetDuration(audioEnd);
  if (result->GetAudioTracklist()->GetTrackCount() == 0) AddSilence(*result, std::max(0.0, length));
  return result;
}

}  // namespace authed::data
