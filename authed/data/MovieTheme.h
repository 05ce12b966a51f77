#pragma once

#include "authed/data/Movie.h"

#include <wx/string.h>

#include <cstddef>
#include <vector>

namespace authed::data {

/// A composition of movies by a description file, which the backend interprets.
class CMovieTheme : public CMovie {
public:
  CMovieTheme();

  void WriteToXml(wxXmlNode& node, graphics::IResourceOutputStore& store) const override;
  /// Throws orlo::CException for a movie of an unknown type.
  void ReadFromXml(const wxXmlNode& node, graphics::IResourceInputStore& store) override;
  /// Shares the movies.
  void Assign(const CMovie& other) override;
  EMovieType GetMovieType() const override { return EMovieType::theme; }
  /// Throws orlo::CError if the descriptions of the movies have more than 16 MB.
  orlo::P<vantra::infilexml::CInfile> BuildInfile(double frameRate, double length) const override;
  orlo::P<vantra::infilexml::CInfile> CreateInfile(double frameRate) const override;
  /// As high as the aspect ratio makes it.
  orlo::P<vantra::infilexml::CInfile> CreateThumbnailInfile(CThumbnailRequest& request) const override;
  /// What the description file says, if it can be read.
  double GetMinDuration() const override;

  std::size_t GetMovieCount() const { return movies_.size(); }
  const orlo::P<CMovie>& GetMovie(std::size_t index) const { return movies_[index]; }
  void AddMovie(const orlo::P<CMovie>& movie) { movies_.push_back(movie); }
  /// The path of the description file, absolute or from the folder of themes.
  const wxString& GetSrc() const { return src_; }
  void SetSrc(const wxString& src) { src_ = src; }

private:
  wxString src_;
  std::vector<orlo::P<CMovie>> movies_;
};

}  // namespace authed::data
