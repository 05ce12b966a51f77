#include "graphics/animation/GIFPixels.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace graphics::animation {

namespace {

constexpr unsigned kLongestCode = 12;
constexpr int kNoCode = -1;

/// The codes in chained blocks, lowest bit first.
class CCodeReader {
public:
  explicit CCodeReader(std::span<const unsigned char> data) : data_(data) {}

  /// kNoCode at the end of the data.
  int Read(unsigned width) {
    while (bits_ < width) {
      if (left_ == 0 && !EnterBlock()) return kNoCode;
      buffer_ |= static_cast<unsigned>(data_[at_++]) << bits_;
      bits_ += 8;
      --left_;
    }
    const unsigned code = buffer_ & ((1U << width) - 1);
    buffer_ >>= width;
    bits_ -= width;
    return static_cast<int>(code);
  }

private:
  bool EnterBlock() {
    if (at_ >= data_.size()) return false;
    left_ = std::min<std::size_t>(data_[at_], data_.size() - at_ - 1);
    ++at_;
    return left_ > 0;
  }

  std::span<const unsigned char> data_;
  std::size_t at_ = 0;
  std::size_t left_ = 0;
  unsigned buffer_ = 0;
  unsigned bits_ = 0;
};

/// The strings that codes stand for: the string of an earlier code and one more index.
class CCodeTable {
public:
  explicit CCodeTable(unsigned codeSize) : clear_(1U << codeSize), codeSize_(codeSize) {
    for (unsigned code = 0; code < clear_; ++code) {
      last_[code] = first_[code] = static_cast<std::uint8_t>(code);
      length_[code] = 1;
    }
    Clear();
  }

  void Clear() {
    next_ = clear_ + 2;
    width_ = codeSize_ + 1;
    previous_ = kNoCode;
  }

  unsigned Width() const { return width_; }
  bool IsClear(int code) const { return code == static_cast<int>(clear_); }
  bool IsEnd(int code) const { return code == static_cast<int>(clear_) + 1; }

  /// Learns what the code tells. False if it can't stand there.
  bool Accept(int code) {
    const auto next = static_cast<int>(next_);
    if (previous_ == kNoCode) {
      if (code >= static_cast<int>(clear_)) return false;
    } else {
      if (code > next) return false;
      if (next_ < kCodes) Grow(code < next ? code : previous_);
    }
    previous_ = code;
    return true;
  }

  std::size_t Length(int code) const { return length_[static_cast<std::size_t>(code)]; }

  /// Fills the room from its start with as much of the string as it takes.
  void Write(int code, std::span<std::uint8_t> room) const {
    auto at = static_cast<std::size_t>(code);
    for (std::size_t place = length_[at]; place-- > 0; at = prefix_[at])
      if (place < room.size()) room[place] = last_[at];
  }

private:
  static constexpr std::size_t kCodes = std::size_t{1} << kLongestCode;

  /// Without a clear code a full table stays as it is.
  void Grow(int code) {
    const auto prefix = static_cast<std::size_t>(previous_);
    prefix_[next_] = static_cast<std::uint16_t>(prefix);
    first_[next_] = first_[prefix];
    last_[next_] = first_[static_cast<std::size_t>(code)];
    length_[next_] = static_cast<std::uint16_t>(length_[prefix] + 1);
    ++next_;
    if (next_ == std::size_t{1} << width_ && width_ < kLongestCode) ++width_;
  }

  std::array<std::uint16_t, kCodes> prefix_{};
  std::array<std::uint16_t, kCodes> length_{};
  std::array<std::uint8_t, kCodes> first_{};
  std::array<std::uint8_t, kCodes> last_{};
  unsigned clear_;
  unsigned codeSize_;
  std::size_t next_ = 0;
  unsigned width_ = 0;
  int previous_ = kNoCode;
};

}  // namespace

std::vector<std::uint8_t> DecodeGIFPixels(const CGIFFrame& frame) {
  constexpr unsigned kLongestIndex = 8;
  if (frame.codeSize < 1 || frame.codeSize > kLongestIndex) return {};
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height));
  CCodeReader reader(frame.data);
  CCodeTable table(frame.codeSize);
  std::size_t count = 0;
  while (count < pixels.size()) {
    const int code = reader.Read(table.Width());
    if (code == kNoCode || table.IsEnd(code)) break;
    if (table.IsClear(code)) {
      table.Clear();
      continue;
    }
    if (!table.Accept(code)) break;
    table.Write(code, std::span(pixels).subspan(count));
    count = std::min(pixels.size(), count + table.Length(code));
  }
  pixels.resize(count);
  return pixels;
}

}  // namespace graphics::animation
