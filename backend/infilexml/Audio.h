#pragma once

#include "backend/infilexml/TrackItem.h"
#include "foundation/URI.h"

namespace vantra::infilexml {

/// A stretch of sound.
class CAudio : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "audio"; }
  bool IsSilent() const;

  double duration = 0;
  /// Where in the source the stretch begins.
  double startTime = 0;
  double fadeIn = 0;
  double fadeOut = 0;
  /// Null for none.
  orlo::PC<orlo::IURI> src;
};

/// Silence, which has the source "silent".
class CSilentAudio : public CAudio {
public:
  explicit CSilentAudio(double length);
};

}  // namespace vantra::infilexml
