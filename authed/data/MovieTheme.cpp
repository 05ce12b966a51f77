#include "authed/data/MovieTheme.h"

#include "authed/data/MovieFile.h"
#include "authed/data/PathManager.h"
#include "authed/data/RepeatedInfile.h"
#include "backend/infilexml/Theme.h"
#include "foundation/Cast.h"
#include "foundation/NumberText.h"
#include "foundation/StringLocalizer.h"
#include "foundation/URIEscape.h"
#include "foundation/wxutil/WXString.h"
#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlParse.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Picture.h"
#include "graphics/model/ResourceStore.h"

#include <wx/filename.h>
#include <wx/log.h>
#include <wx/wfstream.h>

namespace authed::data {

using namespace graphics;
using vantra::infilexml::CInfile;
using vantra::infilexml::CTheme;
using vantra::infilexml::CTrack;

namespace {

constexpr const char* kMovies = "movies";

wxFileName DescriptionOf(const wxString& src) {
  wxFileName file(src);
  if (!src.empty() && !file.IsAbsolute()) file.MakeAbsolute(CPathManager::GetInstance().GetThirdPath().GetFullPath());
  return file;
}

/// In seconds, 0 for a file that says nothing.
double ReadLength(const wxFileName& description) {
  constexpr std::size_t kMostBytes = std::size_t{1} << 20;
  const wxLogNull quiet;
  double length = 0;
  if (!description.FileExists()) return length;
  wxFileInputStream stream(description.GetFullPath());
  if (!stream.IsOk()) return length;
  const xml::CParsed parsed = xml::Parse(ReadBytes(stream, kMostBytes), {64, 10'000});
  if (parsed.document) xml::ReadDouble(*parsed.document->GetRoot(), "length", length);
  return length;
}

/// A movie that is a description itself stands in the theme with its text.
orlo::PC<orlo::IURI> SourceOf(const CMovie& movie, double frameRate, double length) {
  if (const auto* const file = dynamic_cast<const CMovieFile*>(&movie)) return UriOf(file->filename);
  const orlo::P<CInfile> infile = movie.BuildInfile(frameRate, length);
  if (!infile) return nullptr;
  const orlo::String text = orlo::uriEscape(orlo::fromUTF8(ToText(*infile)), L"");
  return orlo::makeObject<orlo::CURI>("data", orlo::String("text/xml,") + text);
}

orlo::P<vantra::infilexml::CMovie> EntryOf(const CMovie& movie, double frameRate, double length) {
  auto entry = orlo::makeObject<vantra::infilexml::CMovie>();
  entry->infileId = orlo::String("movie") + orlo::intToString(movie.id);
  entry->src = SourceOf(movie, frameRate, length);
  return entry;
}

}  // namespace

CMovieTheme::CMovieTheme() {
  title = wxutil::toWxString(orlo::localize("authed.CMovieTheme.Theme", "Animated Theme"));
}

void CMovieTheme::WriteToXml(wxXmlNode& node, IResourceOutputStore& store) const {
  CMovie::WriteToXml(node, store);
  xml::WriteText(node, "src", src_);
  xml::CChildAppender children(xml::AppendChild(node, kMovies));
  for (const auto& movie : movies_)
    store.WriteResource(children.Append("movie"), GetMovieTypeName(movie->GetMovieType()), movie.get());
}

void CMovieTheme::ReadFromXml(const wxXmlNode& node, IResourceInputStore& store) {
  CMovie::ReadFromXml(node, store);
  xml::ReadText(node, "src", src_);
  movies_.clear();
  const wxXmlNode* const list = xml::FindChild(node, kMovies);
  if (!list) return;
  for (const wxXmlNode* child = list->GetChildren(); child; child = child->GetNext()) {
    if (child->GetType() != wxXML_ELEMENT_NODE) continue;
    const wxString type = store.GetResourceType(*child);
    const auto resource = store.ReadResource(*child, type, CreateMovie(data::GetMovieType(type)));
    if (orlo::P<CMovie> movie = orlo::tryCast<CMovie>(resource)) AddMovie(movie);
  }
}

void CMovieTheme::Assign(const CMovie& other) {
  CMovie::Assign(other);
  const auto* const theme = dynamic_cast<const CMovieTheme*>(&other);
  if (!theme) return;
  src_ = theme->src_;
  movies_ = theme->movies_;
}

double CMovieTheme::GetMinDuration() const {
  const double length = ReadLength(DescriptionOf(src_));
  return length > 0 ? length : CMovie::GetMinDuration();
}

orlo::P<CInfile> CMovieTheme::CreateInfile(double frameRate) const {
  return BuildInfile(frameRate, duration);
}

orlo::P<CInfile> CMovieTheme::BuildInfile(double frameRate, double length) const {
  auto theme = orlo::makeObject<CTheme>();
  theme->duration = length;
  theme->src = UriOf(DescriptionOf(src_));
  for (const auto& movie : movies_) theme->AddMovie(EntryOf(*movie, frameRate, length));
  theme->SetId("movie0");

  auto infile = orlo::makeObject<CInfile>();
  auto track = orlo::makeObject<CTrack>(0);
  track->duration = length;
  track->item = theme;
  infile->GetVideoTracklist()->AddTrack(track);
  infile->GetVideoTracklist()->SetDuration(length);
  AddSilence(*infile, length);
  return infile;
}

orlo::P<CInfile> CMovieTheme::CreateThumbnailInfile(CThumbnailRequest& request) const {
  request.params.height = static_cast<std::int32_t>(request.params.width * HeightOverWidth(aspectRatio));
  return CMovie::CreateThumbnailInfile(request);
}

}  // namespace authed::data
