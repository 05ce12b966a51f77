#pragma once

#include "backend/infilexml/Track.h"

#include <cstddef>
#include <vector>

namespace vantra::infilexml {

/// Tracks over one another, the first at the bottom.
class CTracklist : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  void AddTrack(const orlo::P<CTrack>& track) { tracks_.push_back(track); }
  std::size_t GetTrackCount() const { return tracks_.size(); }
  const orlo::P<CTrack>& GetTrack(std::size_t index) const { return tracks_[index]; }
  double GetDuration() const { return duration_; }
  void SetDuration(double seconds) { duration_ = seconds; }

protected:
  CTracklist() = default;

private:
  double duration_ = 0;
  std::vector<orlo::P<CTrack>> tracks_;
};

class CVideoTracklist : public CTracklist {
public:
  orlo::String GetElementName() const override { return "videotracklist"; }
};

/// Not an item of a track: the infile names its element.
class CAudioTracklist : public CTracklist {
public:
  orlo::String GetElementName() const override { return "CAudioTracklist"; }
};

}  // namespace vantra::infilexml
