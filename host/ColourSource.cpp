#include "host/ColourSource.h"

#include "host/Alpha.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace host {

ColourSource::ColourSource(const std::string& text) {
  const auto byteAt = [&](std::size_t index) {
    return static_cast<std::uint8_t>(std::strtoul(text.substr(index, 2).c_str(), nullptr, 16));
  };
  bgra_ = {byteAt(5), byteAt(3), byteAt(1), text.size() > 7 ? byteAt(7) : std::uint8_t{255}};
  premultiply(bgra_.data(), 1);
}

void ColourSource::start(Size size, FrameRate) {
  picture_ = Picture(size);
  auto& bytes = picture_.bytes();
  for (auto pixel = bytes.begin(); pixel != bytes.end(); pixel += 4) std::copy(bgra_.begin(), bgra_.end(), pixel);
}

std::optional<PictureView> ColourSource::freshPicture() {
  if (!std::exchange(fresh_, false)) return {};
  return picture_.view();
}

}  // namespace host
