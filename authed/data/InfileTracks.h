#pragma once

#include "backend/infilexml/Infile.h"

namespace authed::data {

/// A track that holds the item from the beginning on. It lasts for the length in seconds, and so does the list.
void AddTrack(vantra::infilexml::CTracklist& list, const orlo::P<vantra::infilexml::CTrackItem>& item, double length);

/// An audio track of silence, "audio0".
void AddSilence(vantra::infilexml::CInfile& infile, double length);

}  // namespace authed::data
