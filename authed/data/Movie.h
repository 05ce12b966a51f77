#pragma once

#include "authed/data/AspectRatio.h"
#include "authed/data/Chapter.h"
#include "authed/data/Encodable.h"
#include "authed/data/MovieType.h"
#include "authed/data/Picture.h"
#include "backend/handler/Backend.h"
#include "backend/infilexml/Infile.h"
#include "graphics/model/ReusableResource.h"

#include <wx/string.h>

#include <cstdint>
#include <string>
#include <vector>

namespace authed::data {

/// The folders and the size that a thumbnail is made for: params points into the texts.
struct CThumbnailRequest {
  CThumbnailRequest() = default;
  CThumbnailRequest(const CThumbnailRequest&) = delete;
  CThumbnailRequest& operator=(const CThumbnailRequest&) = delete;

  double frameRate = 25;
  /// URIs in UTF-8.
  std::string animationDir;
  std::string filterDir;
  std::string themeDir;
  vantra::CExtractorParams params;
};

/// A movie of a disc project: where its pictures come from, how long it is, what it is called. Elements share one
/// through the resource store.
class CMovie : public CEncodable, public virtual graphics::IReusableResource {
public:
  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
  std::int64_t GetUniqueId() const override;
  /// Copies all fields; chapters are made anew.
  virtual void Assign(const CMovie& other);
  virtual EMovieType GetMovieType() const = 0;
  virtual bool IsDurationUnknown() const { return duration < 0; }
  virtual wxString GetTypeDisplayName() const { return GetMovieTypeDisplayName(GetMovieType()); }
  orlo::P<CMovie> Clone() const;
  virtual orlo::P<CMovie> CreateSameKind() const { return CreateMovie(GetMovieType()); }
  virtual bool IsFileBased() const { return false; }
  /// The movie again and again for so many seconds. Null if one pass of it is null. Throws as RepeatInfile does.
  virtual orlo::P<vantra::infilexml::CInfile> BuildInfile(double frameRate, double length) const;
  /// One pass of the movie. Null for a movie without a description that can be read.
  virtual orlo::P<vantra::infilexml::CInfile> CreateInfile(double frameRate) const = 0;
  /// One pass, to be played as a small picture. Completes the request.
  virtual orlo::P<vantra::infilexml::CInfile> CreateThumbnailInfile(CThumbnailRequest& request) const;
  /// The shortest time that it should run, in seconds.
  virtual double GetMinDuration() const { return minDuration; }

  /// Null if there is no such chapter; the first has the number 1.
  const CChapter* FindChapter(std::int32_t number) const;

  EAspectRatio aspectRatio = EAspectRatio::wide;
  /// The movie gets an entry in the menu.
  bool menuEntry = true;
  /// In seconds; below 0 if it is unknown.
  double duration = -1.0;
  /// 0 or less for a movie without sound.
  double audioDuration = -1.0;
  double minDuration = -1.0;
  CPicture thumbnail;
  CPicture largeThumbnail;
  wxString title;
  /// In pixels.
  std::int32_t width = 0;
  std::int32_t height = 0;
  /// Its number in the project.
  std::int32_t id = 0;
  /// By time.
  std::vector<orlo::P<CChapter>> chapters;
};

}  // namespace authed::data
