#include "backend/infilexml/Tracklist.h"

#include "backend/infilexml/Element.h"

namespace vantra::infilexml {

namespace {

constexpr const char* kTrack = "track";

}  // namespace

void CTracklist::Read(const TiXmlElement& element) {
  ReadAttribute(element, "duration", duration_);
  orlo::String id = GetId();
  ReadAttribute(element, "id", id);
  SetId(id);
  ForEachElement(element, [&](const TiXmlElement& child) {
    if (NameOf(child) != kTrack) return;
    const auto track = orlo::makeObject<CTrack>(static_cast<std::int32_t>(tracks_.size()));
    track->Read(child);
    AddTrack(track);
  });
}

void CTracklist::Write(TiXmlElement& element) const {
  WriteAttribute(element, "duration", duration_);
  for (const auto& track : tracks_) track->Write(AppendElement(element, kTrack));
}

}  // namespace vantra::infilexml
