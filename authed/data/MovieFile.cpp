#include "authed/data/MovieFile.h"

#include "authed/data/InfileTracks.h"
#include "authed/data/PathManager.h"
#include "backend/infilexml/Audio.h"
#include "backend/infilexml/Video.h"
#include "graphics/geometry/XmlValues.h"

namespace authed::data {

using namespace graphics;
using namespace vantra::infilexml;

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
  video->SetId("movie0");
  AddTrack(*infile->GetVideoTracklist(), video, duration);
  if (audioDuration > 0) {
    auto audio = orlo::makeObject<CAudio>();
    audio->duration = duration;
    audio->src = uri;
    audio->SetId("audio0");
    AddTrack(*infile->GetAudioTracklist(), audio, duration);
  } else {
    AddSilence(*infile, duration);
  }
  return infile;
}

}  // namespace authed::data
