#pragma once

#include "host/FrameRate.h"
#include "host/Picture.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace host {

// What lies under the page, picture after picture.
class FrameSource {
public:
  virtual ~FrameSource() = default;

  // Nothing for a source that takes any size.
  virtual std::optional<Size> size() const = 0;
  // Nothing for a source that stands still.
  virtual std::optional<FrameRate> rate() const = 0;

  // Sets the form in which frames are wanted. Called once, before the two below.
  virtual void start(Size size, FrameRate rate) = 0;
  // Goes on to a frame, never backwards. False when it lies behind the end, and the last picture is held.
  virtual bool seek(std::int64_t frame) = 0;
  // Nothing if the picture is the same as at the last call; else valid until the next call.
  virtual std::optional<PictureView> freshPicture() = 0;
};

// A file, or a colour as "#rrggbb" or "#rrggbbaa". Throws InputError.
std::unique_ptr<FrameSource> openSource(const std::string& input);

}  // namespace host
