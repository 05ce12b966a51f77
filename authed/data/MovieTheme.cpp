#include "authed/data/MovieTheme.h"

#include "authed/data/InfileTracks.h"
#include "authed/data/MovieFile.h"
#include "authed/data/PathManager.h"
#include "backend/infilexml/InfileText.h"
#include "backend/infilexml/Theme.h"
#include "foundation/Cast.h"
#include "foundation/Error.h"
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

#include <algorithm>
#include <map>

namespace authed::data {

using namespace graphics;
using vantra::infilexml::CInfile;
using vantra::infilexml::CTheme;

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

/// Describes a theme and the themes in it. A movie that is shown many times is described once.
class CThemeWriter {
public:
  /// Of a theme of that length. In one of unknown length movies run once.
  CThemeWriter(double frameRate, double length) : frameRate_(frameRate), length_(length) {}

  orlo::P<CInfile> Write(const CMovieTheme& theme) { return InfileOf(theme, length_); }

private:
  struct CSource {
    orlo::PC<orlo::IURI> uri;
    std::size_t bytes = 0;
  };

  orlo::P<CInfile> InfileOf(const CMovieTheme& theme, double length) {
    sources_.try_emplace(&theme);
    auto item = orlo::makeObject<CTheme>();
    item->duration = length;
    // The backend is told where themes are, and that need not be where they are for this module.
    item->src = UriOf(wxFileName(theme.GetSrc()));
    for (std::size_t index = 0; index < theme.GetMovieCount(); ++index) item->AddMovie(EntryOf(*theme.GetMovie(index)));
    item->SetId("movie0");

    auto infile = orlo::makeObject<CInfile>();
    AddTrack(*infile->GetVideoTracklist(), item, length);
    AddSilence(*infile, std::max(0.0, length));
    return infile;
  }

  orlo::P<vantra::infilexml::CMovie> EntryOf(const CMovie& movie) {
    // Null for a theme that shows itself.
    const auto [source, isNew] = sources_.try_emplace(&movie);
    if (isNew) source->second = SourceOf(movie);
    bytes_ += source->second.bytes;
    if (bytes_ > vantra::infilexml::kMostTextBytes)
      throw orlo::CError("The movies of a theme may have at most 16 MB of text");
    auto entry = orlo::makeObject<vantra::infilexml::CMovie>();
    entry->infileId = orlo::String("movie") + orlo::intToString(movie.id);
    entry->src = source->second.uri;
    return entry;
  }

  /// A movie that is a description itself stands in the theme with its text.
  CSource SourceOf(const CMovie& movie) {
    if (const auto* const file = dynamic_cast<const CMovieFile*>(&movie)) return {UriOf(file->filename)};
    const auto* const theme = dynamic_cast<const CMovieTheme*>(&movie);
    const bool isKnown = length_ > 0;
    const orlo::P<CInfile> infile = theme     ? InfileOf(*theme, isKnown ? length_ : theme->duration)
                                    : isKnown ? movie.BuildInfile(frameRate_, length_)
                                              : movie.CreateInfile(frameRate_);
    if (!infile) return {};
    const std::string text = ToText(*infile);
    const orlo::String escaped = orlo::uriEscape(orlo::fromUTF8(text), L"");
    return {orlo::makeObject<orlo::CURI>("data", orlo::String("text/xml,") + escaped), text.size()};
  }

  double frameRate_;
  double length_;
  std::map<const CMovie*, CSource> sources_;
  std::size_t bytes_ = 0;
};

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
  return CThemeWriter(frameRate, length).Write(*this);
}

orlo::P<CInfile> CMovieTheme::CreateThumbnailInfile(CThumbnailRequest& request) const {
  request.params.height = static_cast<std::int32_t>(request.params.width * HeightOverWidth(aspectRatio));
  return CMovie::CreateThumbnailInfile(request);
}

}  // namespace authed::data
