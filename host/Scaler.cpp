#include "host/Scaler.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include "host/Alpha.h"

#include <cstddef>

namespace host {

namespace {

constexpr int quality = SWS_BICUBIC | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;

// Where pixels come from.
struct Source {
  const std::uint8_t* const* planes;
  const int* strides;
  Size size;
  AVPixelFormat format;
};

Source sourceOf(const AVFrame& frame) {
  return {frame.data, frame.linesize, {frame.width, frame.height}, static_cast<AVPixelFormat>(frame.format)};
}

ScalerOwner makeScaler(const Source& source, Size size) {
  return ScalerOwner(sws_getContext(source.size.width, source.size.height, source.format, size.width, size.height,
                                    AV_PIX_FMT_BGRA, quality, nullptr, nullptr, nullptr));
}

bool isYuv(AVPixelFormat format) {
  const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
  return !(description->flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) && description->nb_components >= 3;
}

void setColours(SwsContext* scaler, const AVFrame& frame) {
  const int* matrix = sws_getCoefficients(colourSpaceFor(frame.colorspace, frame.height));
  const int* plain = sws_getCoefficients(SWS_CS_DEFAULT);
  sws_setColorspaceDetails(scaler, matrix, frame.color_range == AVCOL_RANGE_JPEG, plain, 1, 0, 1 << 16, 1 << 16);
}

bool run(SwsContext* scaler, const Source& source, Picture& target) {
  std::uint8_t* planes[4] = {target.row(0)};
  const int strides[4] = {target.stride()};
  return sws_scale(scaler, source.planes, source.strides, 0, source.size.height, planes, strides) ==
         target.size().height;
}

}  // namespace

bool Scaler::convert(const AVFrame& frame) {
  const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(static_cast<AVPixelFormat>(frame.format));
  if (!description) return false;
  return description->flags & AV_PIX_FMT_FLAG_ALPHA ? convertWithAlpha(frame) : convertOpaque(frame);
}

bool Scaler::convertOpaque(const AVFrame& frame) {
  const Source source = sourceOf(frame);
  const ScalerOwner scaler = makeScaler(source, picture_.size());
  if (!scaler) return false;
  if (isYuv(source.format)) setColours(scaler.get(), frame);
  return run(scaler.get(), source, picture_);
}

// Colours are premultiplied before they are scaled, so that what is transparent does not bleed into its surroundings.
bool Scaler::convertWithAlpha(const AVFrame& frame) {
  const Source straight = sourceOf(frame);
  Picture full(straight.size);
  const ScalerOwner converter = makeScaler(straight, full.size());
  if (!converter) return false;
  if (isYuv(straight.format)) setColours(converter.get(), frame);
  if (!run(converter.get(), straight, full)) return false;
  premultiply(full.bytes().data(), full.bytes().size() / 4);
  if (full.size() == picture_.size()) {
    picture_ = std::move(full);
    return true;
  }

  const std::uint8_t* planes[4] = {full.row(0)};
  const int strides[4] = {full.stride()};
  const Source premultiplied{planes, strides, full.size(), AV_PIX_FMT_BGRA};
  const ScalerOwner scaler = makeScaler(premultiplied, picture_.size());
  if (!scaler || !run(scaler.get(), premultiplied, picture_)) return false;
  limitToAlpha(picture_.bytes().data(), picture_.bytes().size() / 4);
  return true;
}

}  // namespace host
