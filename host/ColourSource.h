#pragma once

#include "host/FrameSource.h"

#include <array>
#include <string>

namespace host {

class ColourSource : public FrameSource {
public:
  // "#rrggbb" or "#rrggbbaa", hexadecimal, the colour not premultiplied.
  explicit ColourSource(const std::string& text);

  std::optional<Size> size() const override { return {}; }
  std::optional<FrameRate> rate() const override { return {}; }
  void start(Size size, FrameRate rate) override;
  bool seek(std::int64_t) override { return true; }
  std::optional<PictureView> freshPicture() override;

private:
  std::array<std::uint8_t, 4> bgra_{};
  Picture picture_;
  bool fresh_ = true;
};

}  // namespace host
