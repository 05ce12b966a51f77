#include "authed/data/InfileTracks.h"

#include "backend/infilexml/Audio.h"

namespace authed::data {

using namespace vantra::infilexml;

void AddTrack(CTracklist& list, const orlo::P<CTrackItem>& item, double length) {
  auto track = orlo::makeObject<CTrack>(0);
  track->duration = length;
  track->item = item;
  list.AddTrack(track);
  list.SetDuration(length);
}

void AddSilence(CInfile& infile, double length) {
  auto silence = orlo::makeObject<CSilentAudio>(length);
  silence->SetId("audio0");
  AddTrack(*infile.GetAudioTracklist(), silence, length);
}

}  // namespace authed::data
