#pragma once

#include "backend/infilexml/TrackItem.h"
#include "foundation/URI.h"

#include <cstddef>
#include <vector>

namespace vantra::infilexml {

/// A movie that a theme shows in the place that its description has for the id.
class CMovie : public orlo::CObject, public virtual IInfileXmlNode {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  orlo::PC<orlo::IURI> src;
  orlo::String infileId;
};

/// A composition of movies by a description file.
class CTheme : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "theme"; }

  void AddMovie(const orlo::P<CMovie>& movie) { movies_.push_back(movie); }
  std::size_t GetMovieCount() const { return movies_.size(); }
  const orlo::P<CMovie>& GetMovie(std::size_t index) const { return movies_[index]; }

  double duration = 0;
  /// Of the description file.
  orlo::PC<orlo::IURI> src;

private:
  std::vector<orlo::P<CMovie>> movies_;
};

}  // namespace vantra::infilexml
