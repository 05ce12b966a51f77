#include "host/StillPicture.h"

#include "host/Ffmpeg.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

namespace host {

namespace {

using Bytes = std::span<const unsigned char>;

bool startsWith(Bytes bytes, std::string_view signature) {
  return bytes.size() >= signature.size() && std::memcmp(bytes.data(), signature.data(), signature.size()) == 0;
}

std::int64_t bigEndian(Bytes bytes, std::size_t at, std::size_t count) {
  std::int64_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8 | bytes[at + i];
  return value;
}

std::int64_t littleEndian(Bytes bytes, std::size_t at, std::size_t count) {
  std::int64_t value = 0;
  for (std::size_t i = count; i > 0; --i) value = value << 8 | bytes[at + i - 1];
  return value;
}

StillPicture identifyBmp(Bytes bytes) {
  constexpr std::int64_t oldHeader = 12;
  if (bytes.size() < 26) return {"bmp"};
  if (littleEndian(bytes, 14, 4) == oldHeader) return {"bmp", littleEndian(bytes, 18, 2), littleEndian(bytes, 20, 2)};
  const auto side = [&](std::size_t at) {
    return std::abs(static_cast<std::int64_t>(static_cast<std::int32_t>(littleEndian(bytes, at, 4))));
  };
  const std::int64_t compression = bytes.size() < 34 ? 0 : littleEndian(bytes, 30, 4);
  return {"bmp", side(18), side(22), compression == 1 || compression == 2};
}

StillPicture identifyJpeg(Bytes bytes) {
  for (std::size_t at = 2; at + 9 <= bytes.size();) {
    const unsigned marker = bytes[at + 1];
    if (bytes[at] != 0xFF || marker == 0xFF) {
      ++at;
      continue;
    }
    const bool isFrame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (isFrame) return {"jpg", bigEndian(bytes, at + 7, 2), bigEndian(bytes, at + 5, 2)};
    const bool hasNoLength = marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
    at += 2 + (hasNoLength ? 0 : static_cast<std::size_t>(bigEndian(bytes, at + 2, 2)));
  }
  return {"jpg"};
}

AVCodecID codecOf(const StillPicture& picture) {
  if (picture.format == "png") return AV_CODEC_ID_PNG;
  if (picture.format == "jpg") return AV_CODEC_ID_MJPEG;
  if (picture.format == "bmp") return AV_CODEC_ID_BMP;
  return AV_CODEC_ID_NONE;
}

}  // namespace

StillPicture identifyPicture(Bytes bytes) {
  if (startsWith(bytes, "\x89PNG\r\n\x1A\n"))
    return bytes.size() < 24 ? StillPicture{"png"}
                             : StillPicture{"png", bigEndian(bytes, 16, 4), bigEndian(bytes, 20, 4)};
  if (startsWith(bytes, "GIF8")) return {"gif"};
  if (startsWith(bytes, "\xFF\xD8")) return identifyJpeg(bytes);
  if (startsWith(bytes, "BM")) return identifyBmp(bytes);
  if (startsWith(bytes, {"II*\0", 4}) || startsWith(bytes, {"MM\0*", 4})) return {"tiff"};
  if (startsWith(bytes, {"\0\0\1\0", 4})) return {"ico"};
  if (startsWith(bytes, {"\0\0\2\0", 4})) return {"cur"};
  return {};
}

bool isWhole(const StillPicture& picture, Bytes bytes) {
  const AVCodec* codec = avcodec_find_decoder(codecOf(picture));
  if (!codec) return false;
  const CodecOwner decoder = makeCodec(*codec);
  decoder->thread_count = 1;
  decoder->max_pixels = StillPicture::maxPixels;
  decoder->err_recognition = AV_EF_CRCCHECK | AV_EF_EXPLODE;
  if (avcodec_open2(decoder.get(), codec, nullptr) < 0) return false;

  const PacketOwner packet(av_packet_alloc());
  if (!packet || av_new_packet(packet.get(), static_cast<int>(bytes.size())) < 0) throw std::bad_alloc();
  std::copy(bytes.begin(), bytes.end(), packet->data);
  const FrameOwner frame = makeFrame();
  return avcodec_send_packet(decoder.get(), packet.get()) >= 0 && avcodec_send_packet(decoder.get(), nullptr) >= 0 &&
         avcodec_receive_frame(decoder.get(), frame.get()) >= 0;
}

}  // namespace host
