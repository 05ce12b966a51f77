#include "backend/ffmpeg/Shrinker.h"

#include "backend/ffmpeg/LineSums.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>

namespace vantra::ffmpeg {

namespace {

/// The sum of a block of this size is below 65536.
constexpr int kLargestBlock = 16;

struct CSubsampling {
  int across = 0;
  int down = 0;
};

/// Planes of bytes, in YUV.
bool CanShrink(const AVPixFmtDescriptor& format) {
  return format.nb_components == 3 && format.flags == AV_PIX_FMT_FLAG_PLANAR && format.comp[0].depth == 8 &&
         format.log2_chroma_w <= 1 && format.log2_chroma_h <= 1;
}

/// The largest side of a block that a line of samples can be cut into, with that of the colours.
int BlockOf(int size, int target, int subsampling) {
  for (int block = std::min(size / target, kLargestBlock); block > 1; --block) {
    const int colours = size >> subsampling;
    const bool halves = block % (1 << subsampling) == 0;
    if (size % block == 0 && (colours << subsampling) == size && colours % (halves ? block >> subsampling : block) == 0)
      return block;
  }
  return 1;
}

AVPixelFormat FormatOf(const CSubsampling& subsampling) {
  if (subsampling.across == 0) return subsampling.down == 0 ? AV_PIX_FMT_YUV444P : AV_PIX_FMT_YUV440P;
  return subsampling.down == 0 ? AV_PIX_FMT_YUV422P : AV_PIX_FMT_YUV420P;
}

/// A block is a constant where it can be: the loop over it disappears. The largest sum times its reciprocal is below
/// 2^32.
template <int Across>
void AverageBlocks(std::uint8_t* target, const std::uint16_t* sums, int width, int acrossOrNone, std::uint32_t block) {
  constexpr int kShift = 24;
  const std::uint32_t reciprocal = (1U << kShift) / block + 1;
  const int across = Across ? Across : acrossOrNone;
  for (int x = 0; x < width; ++x, sums += across) {
    std::uint32_t sum = block / 2;
    for (int sample = 0; sample < across; ++sample) sum += sums[sample];
    target[x] = static_cast<std::uint8_t>(sum * reciprocal >> kShift);
  }
}

using CAverage = void (*)(std::uint8_t*, const std::uint16_t*, int, int, std::uint32_t);

CAverage AverageOf(int across) {
  switch (across) {
    case 1:
      return AverageBlocks<1>;
    case 2:
      return AverageBlocks<2>;
    case 3:
      return AverageBlocks<3>;
    case 4:
      return AverageBlocks<4>;
    default:
      return AverageBlocks<0>;
  }
}

}  // namespace

const AVFrame& CShrinker::Shrink(const AVFrame& frame, int width, int height) {
  const AVPixFmtDescriptor& format = *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
  if (!CanShrink(format)) return frame;
  const CSubsampling before{format.log2_chroma_w, format.log2_chroma_h};
  const int across = BlockOf(frame.width, width, before.across);
  const int down = BlockOf(frame.height, height, before.down);
  if (across * down == 1) return frame;
  // A block of even size takes the subsampling away with it.
  const CSubsampling behind{across % 2 == 0 ? 0 : before.across, down % 2 == 0 ? 0 : before.down};
  Prepare(FormatOf(behind), frame.width / across, frame.height / down);
  ShrinkPlane(0, frame, small_->width, small_->height, across, down);
  for (const int plane : {1, 2})
    ShrinkPlane(plane, frame, small_->width >> behind.across, small_->height >> behind.down,
                across >> (before.across - behind.across), down >> (before.down - behind.down));
  return *small_;
}

void CShrinker::Prepare(AVPixelFormat format, int width, int height) {
  if (small_->format == format && small_->width == width && small_->height == height && small_->data[0]) return;
  av_frame_unref(small_.get());
  small_->format = format;
  small_->width = width;
  small_->height = height;
  if (av_frame_get_buffer(small_.get(), 0) < 0) throw std::bad_alloc();
}

void CShrinker::ShrinkPlane(int plane, const AVFrame& frame, int width, int height, int across, int down) {
  const bool inPairs = across % 2 == 0;
  const int sumsAcross = inPairs ? across / 2 : across;
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(sumsAcross);
  const CSumLines sum = inPairs ? FastestSumPairs() : FastestSumLines();
  const CAverage average = AverageOf(sumsAcross);
  sums_.resize(count);
  const std::ptrdiff_t stride = frame.linesize[plane];
  const std::uint8_t* source = frame.data[plane];
  std::uint8_t* target = small_->data[plane];
  for (int y = 0; y < height; ++y, source += down * stride, target += small_->linesize[plane]) {
    sum(sums_.data(), source, stride, down, count);
    average(target, sums_.data(), width, sumsAcross, static_cast<std::uint32_t>(across * down));
  }
}

}  // namespace vantra::ffmpeg
