#pragma once

#include "backend/infilexml/Rect.h"
#include "backend/infilexml/TrackItem.h"
#include "foundation/URI.h"

namespace vantra::infilexml {

/// A stretch of the pictures of a movie: a file, or one that the surroundings know by the id.
class CVideo : public CTrackItem {
public:
  CVideo() = default;
  /// Both in seconds.
  CVideo(double length, double firstTime) : duration(length), startTime(firstTime) {}

  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "video"; }

  double duration = 0;
  /// Where in the movie the stretch begins.
  double startTime = 0;
  /// Null for none.
  orlo::PC<orlo::IURI> src;
  /// The part of the picture that is shown; null for all of it.
  orlo::P<CRect> clippingRect;
  /// Degrees.
  double rotation = 0;
  bool mirrorVertical = false;
  bool mirrorHorizontal = false;
};

}  // namespace vantra::infilexml
