#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace graphics {

/// Takes a record apart from its first byte to its last. What lies beyond the end is 0 and makes it no longer ok.
class CByteReader {
public:
  explicit CByteReader(std::span<const unsigned char> bytes) : rest_(bytes) {}

  bool IsOk() const { return ok_; }
  bool IsAtEnd() const { return rest_.empty(); }

  /// An unsigned number, its lowest byte first.
  template <typename Number>
  Number Take() {
    static_assert(std::is_unsigned_v<Number>);
    std::uint64_t value = 0;
    const auto bytes = TakeBytes(sizeof(Number));
    for (std::size_t i = bytes.size(); i > 0; --i) value = value << 8 | bytes[i - 1];
    return static_cast<Number>(value);
  }
  /// No bytes at all where there are fewer.
  std::span<const unsigned char> TakeBytes(std::size_t count) {
    ok_ = ok_ && count <= rest_.size();
    if (!ok_) return {};
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

private:
  std::span<const unsigned char> rest_;
  bool ok_ = true;
};

}  // namespace graphics
