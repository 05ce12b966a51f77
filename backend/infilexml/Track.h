#pragma once

#include "backend/infilexml/TrackItem.h"

#include <cstdint>

namespace vantra::infilexml {

/// A place on the screen and a stretch of time, filled by one item.
class CTrack : public orlo::CObject, public virtual IInfileXmlNode {
public:
  explicit CTrack(std::int32_t number) : index(number) {}

  void Read(const TiXmlElement& element) override;
  void Write(TiXmlElement& element) const override;

  double duration = 0;
  /// On the screen; all 0 for the whole of it.
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  double start = 0;
  std::int32_t index;
  bool enabled = true;
  /// Null for nothing.
  orlo::P<CTrackItem> item;
};

}  // namespace vantra::infilexml
