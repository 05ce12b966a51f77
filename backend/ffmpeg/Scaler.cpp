#include "backend/ffmpeg/Scaler.h"

#include "backend/ffmpeg/Failure.h"
#include "backend/ffmpeg/Turning.h"
#include "backend/ffmpeg/YuvPixels.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <cstring>

namespace vantra::ffmpeg {

namespace {

/// Formats that are named for their full range go by their plain names.
AVPixelFormat PlainFormat(const AVFrame& frame) {
  switch (frame.format) {
    case AV_PIX_FMT_YUVJ411P:
      return AV_PIX_FMT_YUV411P;
    case AV_PIX_FMT_YUVJ420P:
      return AV_PIX_FMT_YUV420P;
    case AV_PIX_FMT_YUVJ422P:
      return AV_PIX_FMT_YUV422P;
    case AV_PIX_FMT_YUVJ440P:
      return AV_PIX_FMT_YUV440P;
    case AV_PIX_FMT_YUVJ444P:
      return AV_PIX_FMT_YUV444P;
    default:
      return static_cast<AVPixelFormat>(frame.format);
  }
}

/// Files bring numbers into enumerations that these don't have.
template <class Enumeration>
int NumberOf(const Enumeration& value) {
  static_assert(sizeof(Enumeration) == sizeof(int));
  int number = 0;
  std::memcpy(&number, &value, sizeof number);
  return number;
}

/// What a file doesn't say is guessed by the size, as players do.
int MatrixOf(const AVFrame& frame) {
  constexpr int kWidest = 1280;
  constexpr int kHighest = 576;
  switch (NumberOf(frame.colorspace)) {
    case AVCOL_SPC_BT709:
      return SWS_CS_ITU709;
    case AVCOL_SPC_FCC:
      return SWS_CS_FCC;
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
      return SWS_CS_ITU601;
    case AVCOL_SPC_SMPTE240M:
      return SWS_CS_SMPTE240M;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
      return SWS_CS_BT2020;
    default:
      return frame.width >= kWidest || frame.height > kHighest ? SWS_CS_ITU709 : SWS_CS_ITU601;
  }
}

bool HasAlpha(const AVPixFmtDescriptor& format) {
  return (format.flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL)) != 0;
}

/// Whether the cropping cuts no sample that several pixels share.
bool IsCroppedWell(const AVFrame& frame, const AVPixFmtDescriptor& format) {
  if (format.flags & (AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_BAYER)) return false;
  const std::size_t across = (std::size_t{1} << format.log2_chroma_w) - 1;
  const std::size_t down = (std::size_t{1} << format.log2_chroma_h) - 1;
  return (frame.crop_left & across) == 0 && (frame.crop_top & down) == 0;
}

/// In YUV, without alpha.
bool HasPlanesOfBytes(AVPixelFormat format) {
  switch (format) {
    case AV_PIX_FMT_YUV410P:
    case AV_PIX_FMT_YUV411P:
    case AV_PIX_FMT_YUV420P:
    case AV_PIX_FMT_YUV422P:
    case AV_PIX_FMT_YUV440P:
    case AV_PIX_FMT_YUV444P:
      return true;
    default:
      return false;
  }
}

/// Where each pixel has its own samples.
void Convert(const AVFrame& frame, const CYuvMatrix& matrix, CPicture& target, bool upsideDown) {
  const CYuvToBgra convert = FastestYuvToBgra();
  for (int y = 0; y < frame.height; ++y) {
    std::uint8_t* const row = target.GetRow(upsideDown ? frame.height - 1 - y : y);
    convert(reinterpret_cast<std::uint32_t*>(row), frame.data[0] + std::ptrdiff_t{y} * frame.linesize[0],
            frame.data[1] + std::ptrdiff_t{y} * frame.linesize[1],
            frame.data[2] + std::ptrdiff_t{y} * frame.linesize[2], frame.width, matrix);
  }
}

bool IsCropped(const AVFrame& frame) {
  return (frame.crop_left | frame.crop_right | frame.crop_top | frame.crop_bottom) != 0;
}

}  // namespace

CScaler::CColours::CColours(const AVFrame& frame)
    : matrix(MatrixOf(frame)),
      isFullRange(NumberOf(frame.color_range) == AVCOL_RANGE_JPEG || PlainFormat(frame) != frame.format) {}

void CScaler::CStep::Prepare(const CKey& key) {
  if (scaler_ && key == key_) return;
  const bool shrinks = key.targetWidth <= key.width && key.targetHeight <= key.height;
  const int flags = (shrinks ? SWS_BILINEAR : SWS_BICUBIC) | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
  scaler_.reset(sws_getContext(key.width, key.height, key.format, key.targetWidth, key.targetHeight, key.targetFormat,
                               flags, nullptr, nullptr, nullptr));
  if (!scaler_) throw CFailure(Fault::notPlayable, "The pixels of a movie can't be converted");
  key_ = key;
  if (key.targetFormat != AV_PIX_FMT_BGRA) return;
  constexpr int kOne = 1 << 16;
  const int* const matrix = sws_getCoefficients(key.colours.matrix);
  sws_setColorspaceDetails(scaler_.get(), matrix, key.colours.isFullRange ? 1 : 0, matrix, 1, 0, kOne, kOne);
}

const AVFrame& CScaler::CStep::ScaleSamples(const AVFrame& frame, const CKey& key) {
  Prepare(key);
  if (samples_->width != key.targetWidth || samples_->height != key.targetHeight) {
    av_frame_unref(samples_.get());
    samples_->format = key.targetFormat;
    samples_->width = key.targetWidth;
    samples_->height = key.targetHeight;
    if (av_frame_get_buffer(samples_.get(), 0) < 0) throw std::bad_alloc();
  }
  const int done =
      sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, samples_->data, samples_->linesize);
  if (done < 0) throw CFailure(Fault::notPlayable, "The pixels of a movie can't be converted", done);
  return *samples_;
}

void CScaler::CStep::Run(const AVFrame& frame, const CColours& colours, CPicture& target, bool upsideDown) {
  const AVPixelFormat format = PlainFormat(frame);
  const bool hasItsSize = frame.width == target.GetWidth() && frame.height == target.GetHeight();
  CKey key{frame.width, frame.height, target.GetWidth(), target.GetHeight(), format, AV_PIX_FMT_BGRA, colours};
  if (HasPlanesOfBytes(format)) {
    key.targetFormat = AV_PIX_FMT_YUV444P;
    const AVFrame& samples = hasItsSize && format == key.targetFormat ? frame : ScaleSamples(frame, key);
    return Convert(samples, {sws_getCoefficients(colours.matrix), colours.isFullRange}, target, upsideDown);
  }
  Prepare(key);
  std::uint8_t* const rows[4] = {target.GetRow(upsideDown ? target.GetHeight() - 1 : 0)};
  const int strides[4] = {upsideDown ? -target.GetStride() : target.GetStride()};
  const int done = sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, rows, strides);
  if (done < 0) throw CFailure(Fault::notPlayable, "The pixels of a movie can't be converted", done);
}

void CScaler::Scale(const AVFrame& frame, CPicture& target, bool upsideDown) {
  const AVPixFmtDescriptor* const format = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
  if (!format) throw CFailure(Fault::notPlayable, "The pixels of a movie can't be converted");
  const bool hasAlpha = HasAlpha(*format);
  const CColours colours(frame);
  const bool isWhole = frame.width == target.GetWidth() && frame.height == target.GetHeight();
  target.isOpaque = true;
  if (!IsCropped(frame) && (isWhole || !hasAlpha)) {
    scaler_.Run(shrinker_.Shrink(frame, target.GetWidth(), target.GetHeight()), colours, target, upsideDown);
    if (hasAlpha) Premultiply(target);
    return;
  }
  av_frame_unref(part_.get());
  if (!hasAlpha && IsCroppedWell(frame, *format)) {
    if (av_frame_ref(part_.get(), &frame) < 0) throw std::bad_alloc();
    if (av_frame_apply_cropping(part_.get(), AV_FRAME_CROP_UNALIGNED) >= 0)
      return scaler_.Run(shrinker_.Shrink(*part_, target.GetWidth(), target.GetHeight()), colours, target, upsideDown);
    av_frame_unref(part_.get());
  }
  // Colours behind a transparent pixel must not bleed into its neighbours, and half a sample can't be cut.
  if (!whole_ || whole_->GetWidth() != frame.width || whole_->GetHeight() != frame.height)
    whole_.emplace(frame.width, frame.height);
  whole_->isOpaque = true;
  converter_.Run(frame, colours, *whole_, false);
  if (hasAlpha) Premultiply(*whole_);
  part_->format = AV_PIX_FMT_BGRA;
  part_->width = frame.width - static_cast<int>(frame.crop_left + frame.crop_right);
  part_->height = frame.height - static_cast<int>(frame.crop_top + frame.crop_bottom);
  part_->data[0] = whole_->GetRow(static_cast<int>(frame.crop_top)) + frame.crop_left * 4;
  part_->linesize[0] = whole_->GetStride();
  scaler_.Run(*part_, colours, target, upsideDown);
  target.isOpaque = whole_->isOpaque;
  if (!target.isOpaque) ClampToAlpha(target);
}

}  // namespace vantra::ffmpeg
