#include "authed/data/MovieFile.h"

#include "authed/data/PathManager.h"
#include "authed/data/RepeatedInfile.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Video.h"
#include "graphics/geometry/XmlValues.h"

namespace authed::data {

using namespace graphics;
using namespace vantra::infilexml;

namespace {

void AddTrack(CTracklist& list, const orlo::P<CTrackItem>& item, const char* id, double duration) {
  item->SetId(id);
  auto track = orlo::makeObject<CTrack>(0);
  track->duration = duration;
  track->item = item;
  list.AddTrack(track);
  list.SetDuration(duration);
}

}  // namespace

void CMovieFile::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CMovie::WriteToXml(node, store);
  xml::WriteFileName(node, "filename", filename);
}

void CMovieFile::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CMovie::ReadFromXml(node, store);
  if (xml::ReadFileName(node, "filename", filename) && filename.HasName()) filename.MakeAbsolute();
}

void CMovieFile::Assign(const CMovie& other) {
  CMovie::Assign(other);
  if (const auto* const file = dynamic_cast<const CMovieFile*>(&other)) filename = file->filename;
}

orlo::P<CInfile> CMovieFile::CreateInfile(double /*frameRate*/) const {
  const orlo::PC<orlo::IURI> uri = UriOf(filename);
  auto infile = orlo::makeObject<CInfile>();
  auto video = orlo::makeObject<CVideo>(duration, 0.0);
  video->src = uri;
  AddTrack(*infile->GetVideoTracklist(), video, "movie0", duration);

  orlo::P<CAudio> audio;
  if (audioDuration > 0) {
    audio = orlo::makeObject<CAudio>();
    audio->duration = duration;
    audio->src = uri;
  } else {
    audio = orlo::makeObject<CSilentAudio>(duration);
  }
  AddTrack(*infile->GetAudioTracklist(), audio, "audio0", duration);
  return infile;
}

}  // namespace authed::data
