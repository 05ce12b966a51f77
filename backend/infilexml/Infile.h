#pragma once

#include "backend/infilexml/Tracklist.h"
#include "foundation/Error.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qeb::discmenuxml {

/// An infile that holds what it must not.
class CDiscMenuError : public orlo::CError {
public:
  using CError::CError;
  orlo::P<orlo::CException> clone() const override { return copyOf(*this); }
};

}  // namespace qeb::discmenuxml

namespace vantra::infilexml {

/// The root: what is to be seen and what is to be heard.
class CInfile : public orlo::CObject, public virtual IInfileXmlNode {
public:
  /// Throws qeb::discmenuxml::CDiscMenuError for a child that is no track list.
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  const orlo::P<CVideoTracklist>& GetVideoTracklist() const { return video_; }
  const orlo::P<CAudioTracklist>& GetAudioTracklist() const { return audio_; }
  /// The first item of a track with that id, or null.
  orlo::P<CTrackItem> FindItemById(const orlo::String& id) const;
  /// The video tracks, and behind them the audio tracks.
  std::size_t GetTrackCount() const { return video_->GetTrackCount() + audio_->GetTrackCount(); }
  const orlo::P<CTrack>& GetTrack(std::size_t index) const;

  orlo::String id;
  /// Stands in no text.
  bool interlace = false;

private:
  const orlo::P<CVideoTracklist> video_ = orlo::makeObject<CVideoTracklist>();
  const orlo::P<CAudioTracklist> audio_ = orlo::makeObject<CAudioTracklist>();
};

/// As one XML text in UTF-8. Throws orlo::CError for one that is too large to be read.
std::string ToText(const CInfile& infile);

/// Null for a text that is no XML, or whose root is not "infile". Throws what reading the nodes throws, and
/// orlo::CError for one that is beyond the limits of InfileText.h.
orlo::P<CInfile> FromText(std::string_view text);

}  // namespace vantra::infilexml
