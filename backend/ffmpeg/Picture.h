#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace vantra::ffmpeg {

/// Rows of premultiplied BGRA, the top one first.
class CPicture {
public:
  CPicture(int width, int height);

  int GetWidth() const { return width_; }
  int GetHeight() const { return height_; }
  int GetStride() const { return stride_; }
  std::uint8_t* GetRow(int y) { return pixels_.get() + static_cast<std::ptrdiff_t>(y) * stride_; }
  const std::uint8_t* GetRow(int y) const { return pixels_.get() + static_cast<std::ptrdiff_t>(y) * stride_; }

  /// Another one for each content.
  std::uint64_t GetNumber() const { return number_; }
  void Renew();

  bool isOpaque = true;

private:
  struct CFree {
    void operator()(std::uint8_t* pixels) const;
  };

  int width_;
  int height_;
  int stride_;
  std::uint64_t number_ = 0;
  std::unique_ptr<std::uint8_t, CFree> pixels_;
};

using CSharedPicture = std::shared_ptr<const CPicture>;

/// Pictures of one size that come back when nobody shows them any more, so that playing takes no new memory.
class CPicturePool {
public:
  CPicturePool(int width, int height) : store_(std::make_shared<CStore>()), width_(width), height_(height) {}
  std::shared_ptr<CPicture> Get();

private:
  struct CStore {
    std::mutex mutex;
    std::vector<std::unique_ptr<CPicture>> free;
  };

  std::shared_ptr<CStore> store_;
  int width_;
  int height_;
};

/// A picture of one colour: B, G, R, A in the order of the bytes, premultiplied.
CSharedPicture ColouredPicture(int width, int height, const std::array<std::uint8_t, 4>& pixel);

}  // namespace vantra::ffmpeg
