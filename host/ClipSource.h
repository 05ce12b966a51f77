#pragma once

#include "host/ClipReader.h"
#include "host/FrameSource.h"
#include "host/Scaler.h"

#include <string>

namespace host {

// A clip, shown by its own clock whatever the wanted rate is, or a picture.
class ClipSource : public FrameSource {
public:
  // Throws InputError.
  explicit ClipSource(const std::string& path);

  std::optional<Size> size() const override { return reader_.size(); }
  std::optional<FrameRate> rate() const override;
  void start(Size size, FrameRate rate) override;
  bool seek(std::int64_t frame) override;
  // Throws InputError for a picture of a format that cannot be converted.
  std::optional<PictureView> freshPicture() override;

private:
  void advance();
  double timeOf(const AVFrame& frame) const { return reader_.timeOf(frame) - startTime_; }

  const std::string path_;
  ClipReader reader_;
  FrameOwner current_;
  FrameOwner next_;
  bool still_ = false;
  bool fresh_ = true;
  double startTime_ = 0;
  FrameRate wantedRate_;
  std::optional<Scaler> scaler_;
};

}  // namespace host
