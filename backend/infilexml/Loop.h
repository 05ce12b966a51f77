#pragma once

#include "backend/infilexml/TrackItem.h"

namespace vantra::infilexml {

/// Repeats an item for as long as its track lasts.
class CLoop : public CTrackItem {
public:
  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;
  orlo::String GetElementName() const override { return "loop"; }

  /// Null for nothing.
  orlo::P<CTrackItem> item;
};

}  // namespace vantra::infilexml
