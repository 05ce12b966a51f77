#include "backend/ffmpeg/Picture.h"

extern "C" {
#include <libavutil/mem.h>
}

#include <atomic>
#include <cstring>
#include <new>

namespace vantra::ffmpeg {

namespace {

/// Scalers write and read whole registers.
constexpr int kAlignment = 64;

}  // namespace

CPicture::CPicture(int width, int height)
    : width_(width), height_(height), stride_((width * 4 + kAlignment - 1) / kAlignment * kAlignment) {
  const std::size_t bytes = static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height) + kAlignment;
  pixels_.reset(static_cast<std::uint8_t*>(av_mallocz(bytes)));
  if (!pixels_) throw std::bad_alloc();
  Renew();
}

void CPicture::Renew() {
  static std::atomic<std::uint64_t> last{0};
  number_ = ++last;
}

void CPicture::CFree::operator()(std::uint8_t* pixels) const {
  av_free(pixels);
}

std::shared_ptr<CPicture> CPicturePool::Get() {
  std::unique_ptr<CPicture> picture;
  {
    const std::lock_guard lock(store_->mutex);
    if (!store_->free.empty()) {
      picture = std::move(store_->free.back());
      store_->free.pop_back();
    }
  }
  if (picture)
    picture->Renew();
  else
    picture = std::make_unique<CPicture>(width_, height_);
  return {picture.release(), [store = std::weak_ptr<CStore>(store_)](CPicture* returned) {
            std::unique_ptr<CPicture> owned(returned);
            if (const auto open = store.lock()) {
              const std::lock_guard lock(open->mutex);
              open->free.push_back(std::move(owned));
            }
          }};
}

CSharedPicture ColouredPicture(int width, int height, const std::array<std::uint8_t, 4>& pixel) {
  const auto picture = std::make_shared<CPicture>(width, height);
  picture->isOpaque = pixel[3] == 255;
  for (int y = 0; y < height; ++y) {
    std::uint8_t* const row = picture->GetRow(y);
    for (int x = 0; x < width; ++x) std::memcpy(row + x * 4, pixel.data(), pixel.size());
  }
  return picture;
}

}  // namespace vantra::ffmpeg
